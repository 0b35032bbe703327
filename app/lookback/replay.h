#pragma once

#include "app/lookback/moment.h"
#include "serial/ldb/monitoring.h"
#include "serial/ldb/recordsource.h"

#include <QDateTime>
#include <QHash>

#include <deque>
#include <optional>

/// Tells what was recorded, as the link told it then: the source of a window that looks back. It
/// has no clock and reads nothing: moments, what follows them and the time that passes are handed
/// in. Moments are UTC, µs since 1970. GUI thread.
class Replay : public RecordSource
{
    Q_OBJECT
public:
    explicit Replay(QObject* parent = nullptr);

    QStringList knownLdbs() const override { return m_list; }
    bool isAwaited(const QString& hexId) const override;
    QString nameOf(const QString& hexId) const override;

    /// Goes to another moment, and tells its state.
    void show(Moment moment);
    /// Takes the stretch that follows what is there; ignores any other one.
    void add(Stretch stretch);
    /// Goes on by that much recorded time, and tells what is due; stops where nothing has been
    /// handed in yet.
    void advance(qint64 microseconds);

    qint64 position() const { return m_position; }
    /// Up to when everything has been handed in.
    qint64 readyUntil() const { return m_readyUntil; }
    /// What was monitored at the position.
    Monitoring monitoring() const;
    /// What a clock on the wall showed at the position, with its offset from UTC.
    QDateTime wallTime() const;
    /// The records of one LDB before those that are told, from `pastFrom` on.
    const std::vector<RecordedRecord>& past() const { return m_past; }
    QString pastOf() const { return m_pastOf; }
    qint64 pastFrom() const { return m_pastFrom; }

signals:
    /// Comes before the records that it concerns.
    void monitoringChanged(const Monitoring& monitoring);

private:
    void lookAhead(const std::vector<RecordedRecord>& base);
    void tell(const ReplayStep& step);
    void tellRound(const RecordedRound& round);
    void tellRecord(const RecordedRecord& record);
    void tellDue(qint64 until);
    void setList(const QStringList& hexIds);
    const RecordedRun* run() const;
    const RecordedGap* gap() const;
    qint64 clockOf(qint64 at) const;

    qint64 m_position = 0;
    qint64 m_readyUntil = 0;
    std::deque<ReplayStep> m_steps; ///< not told yet
    std::vector<RecordedRun> m_runs;
    std::vector<RecordedGap> m_gaps;
    std::optional<qint64> m_lastRun;
    std::optional<RecordedRound> m_round;
    bool m_isRoundOn = false;
    bool m_isScanning = false;
    std::optional<qint64> m_lastAnswer; ///< as a clock on the wall shows it, ms
    QStringList m_list;
    QHash<QString, QList<QStringList>> m_records;
    std::vector<RecordedRecord> m_past;
    QString m_pastOf;
    qint64 m_pastFrom = 0;
};
