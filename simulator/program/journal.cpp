#include "simulator/program/journal.h"

#include <QDateTime>

namespace {

constexpr double kMicrosecondsPerMillisecond = 1000;

QString mark(Journal::Direction direction)
{
    switch (direction) {
    case Journal::Direction::Request:
        return QStringLiteral(">");
    case Journal::Direction::Answer:
        return QStringLiteral("<");
    case Journal::Direction::Remark:
        break;
    }
    return QStringLiteral("#");
}

} // namespace

bool Journal::open(const QString& path)
{
    m_file.setFileName(path);
    return m_file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered);
}

void Journal::write(qint64 microseconds, Direction direction, const QString& hexId,
                    const QByteArray& bytes, const QString& text)
{
    if (!m_file.isOpen()) {
        return;
    }
    const QString time =
        QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz"));
    const QString since =
        QString::number(static_cast<double>(microseconds) / kMicrosecondsPerMillisecond, 'f', 1);
    const QString line =
        QStringList{time, since, mark(direction), hexId, QString::fromLatin1(bytes.toHex(' ')),
                    text}
            .join(QLatin1Char('\t')) +
        QLatin1Char('\n');
    const QByteArray encoded = line.toUtf8();
    if (m_file.write(encoded) != encoded.size()) {
        qWarning("The journal ends here: %s", qPrintable(m_file.errorString()));
        m_file.close();
    }
}
