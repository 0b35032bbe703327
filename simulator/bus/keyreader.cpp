#include "simulator/bus/keyreader.h"

#include <cmath>

KeyReader::KeyReader(const QJsonObject& object, const QString& path, QString& error)
    : m_object(object)
    , m_path(path)
    , m_error(error)
{
}

int KeyReader::integer(const char* key, int fallback, int lowest, int highest)
{
    const double number = real(key, fallback, lowest, highest);
    if (number != std::floor(number)) {
        fail(key, QStringLiteral("must be a whole number"));
        return fallback;
    }
    return static_cast<int>(number);
}

double KeyReader::real(const char* key, double fallback, double lowest, double highest)
{
    const QJsonValue value = take(key);
    if (value.isUndefined()) {
        return fallback;
    }
    const double number = value.toDouble(std::nan(""));
    if (!(number >= lowest && number <= highest)) {
        fail(key, QStringLiteral("must be a number from %1 to %2").arg(lowest).arg(highest));
        return fallback;
    }
    return number;
}

bool KeyReader::flag(const char* key, bool fallback)
{
    const QJsonValue value = take(key);
    if (!value.isUndefined() && !value.isBool()) {
        fail(key, QStringLiteral("must be true or false"));
    }
    return value.toBool(fallback);
}

QString KeyReader::text(const char* key, const QString& fallback)
{
    const QJsonValue value = take(key);
    if (!value.isUndefined() && !value.isString()) {
        fail(key, QStringLiteral("must be a text"));
    }
    return value.toString(fallback);
}

QJsonArray KeyReader::array(const char* key)
{
    const QJsonValue value = take(key);
    if (!value.isUndefined() && !value.isArray()) {
        fail(key, QStringLiteral("must be a list"));
    }
    return value.toArray();
}

QJsonObject KeyReader::object(const char* key)
{
    const QJsonValue value = take(key);
    if (!value.isUndefined() && !value.isObject()) {
        fail(key, QStringLiteral("must be an object"));
    }
    return value.toObject();
}

void KeyReader::complainOfUnknownKeys()
{
    const QStringList keys = m_object.keys();
    for (const QString& key : keys) {
        if (!m_known.contains(key)) {
            // A key of the file's own may hold line feeds, which would tear the error.
            fail(key.simplified(), QStringLiteral("is no key that is known here"));
        }
    }
}

void KeyReader::fail(const char* key, const QString& what)
{
    fail(QString::fromLatin1(key), what);
}

void KeyReader::fail(const QString& key, const QString& what)
{
    if (m_error.isEmpty()) {
        m_error = QStringLiteral("%1: %2").arg(pathOf(key), what);
    }
}

QString KeyReader::pathOf(const char* key) const
{
    return pathOf(QString::fromLatin1(key));
}

QString KeyReader::pathOf(const QString& key) const
{
    return m_path.isEmpty() ? key : QStringLiteral("%1.%2").arg(m_path, key);
}

QJsonValue KeyReader::take(const char* key)
{
    m_known.insert(QLatin1String(key));
    return m_object.value(QLatin1String(key));
}
