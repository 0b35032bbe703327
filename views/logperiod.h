#pragma once

#include <QDateTime>
#include <QVector>

/// Decides which records a log takes: in each period the one that opens it and, of every other
/// LDB, the first one stamped in that same second. The clock is that of the records.
class LogPeriod
{
public:
    /// The next record opens the first period of a new run.
    void restart() { m_start = QDateTime(); }

    /// Whether the record of LDB `id` stamped `timestamp` is to be written, with periods of
    /// `interval` seconds; 0 takes every record. A time before the period's start is not taken. An
    /// invalid time counts as no time passed.
    bool admits(int id, const QDateTime& timestamp, int interval);

private:
    void open(int id, const QDateTime& timestamp);

    QDateTime m_start; ///< invalid until the first record
    QVector<int> m_loggedIds;
};
