#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

/// The lines of a log of records, with their line ends. Pure functions, callable from any thread.
namespace recordlog {

/// In the language in force.
QString headerLine();
QString dataLine(const QList<QStringList>& dataList);

} // namespace recordlog

/// Decides which records a log takes: in each period the one that opens it and, of every other
/// LDB, the first one stamped in that same second. The clock is that of the records.
class LogPeriod
{
public:
    /// The next record opens the first period of a new run.
    void restart() { m_start.reset(); }

    /// Whether the record of LDB `id` stamped `time` (s, any epoch) is to be written, with periods
    /// of `interval` seconds; 0 takes every record. A time before the period's start is not taken.
    /// A record without a time counts as if no time had passed; as long as none has had one, every
    /// record is taken.
    bool admits(int id, std::optional<qint64> time, int interval);

    /// As above, of a record.
    bool admits(const QString& hexId, const QList<QStringList>& dataList, int interval);

private:
    std::optional<qint64> secondsOf(const QString& timestamp);
    void open(int id, std::optional<qint64> time);

    std::optional<qint64> m_start;
    QVector<int> m_loggedIds;
    // The timestamp read last: all LDBs of a polling round carry the same one.
    QString m_timestamp;
    std::optional<qint64> m_timestampSeconds;
};
