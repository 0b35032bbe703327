#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QSet>
#include <QString>

/// Reads the keys of one JSON object with their types and limits checked. The first fault found is
/// kept in a text that readers of nested objects share; after it every value read is a default.
class KeyReader
{
public:
    /// `path` stands before the keys in an error ("ldbs[2]"); `error` must outlive the reader.
    KeyReader(const QJsonObject& object, const QString& path, QString& error);

    bool has(const char* key) const { return m_object.contains(QLatin1String(key)); }

    int integer(const char* key, int fallback, int lowest, int highest);
    double real(const char* key, double fallback, double lowest, double highest);
    bool flag(const char* key, bool fallback);
    QString text(const char* key, const QString& fallback = {});
    QJsonArray array(const char* key);
    QJsonObject object(const char* key);

    /// Complains about keys that nobody has asked for: most are misspelt ones.
    void complainOfUnknownKeys();
    void fail(const char* key, const QString& what);
    QString pathOf(const char* key) const;

private:
    void fail(const QString& key, const QString& what);
    QString pathOf(const QString& key) const;
    QJsonValue take(const char* key);

    QJsonObject m_object;
    QString m_path;
    QString& m_error;
    QSet<QString> m_known;
};
