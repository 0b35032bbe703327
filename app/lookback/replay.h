#pragma once

#include "app/lookback/moment.h"
#include "serial/ldb/buspace.h"
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
    Monitoring monitoring() const { return monitoringAt(m_position); }
    /// What a clock on the wall showed there, with its offset from UTC.
    QDateTime wallTime() const;
    /// What one LDB told, up to where those records begin that are told.
    const Past& past() const { return m_past; }

signals:
    /// Comes before the records that it concerns.
    void monitoringChanged(const Monitoring& monitoring);
    /// What was monitored at the moment of what is told next.
    void momentTold(const Monitoring& monitoring);

private:
    void lookAhead();
    void hear(const RecordedRecord& record);
    void tell(const ReplayStep& step);
    void takeTold(const RecordedEvent& told);
    void tellRound(const RecordedRound& round);
    void tellRecord(const RecordedRecord& record);
    void tellDue(qint64 until);
    void setList(const QStringList& hexIds);
    Monitoring monitoringAt(qint64 at) const;
    const RecordedRun* runAt(qint64 at) const;
    const RecordedGap* gapAt(qint64 at) const;
    qint64 clockOf(qint64 at) const;

    qint64 m_position = 0;
    qint64 m_readyUntil = 0;
    std::deque<ReplayStep> m_steps; ///< not told yet
    std::vector<RecordedRun> m_runs;
    std::vector<RecordedGap> m_gaps;
    std::optional<qint64> m_lastRun;
    std::optional<RecordedRound> m_round;
    bool m_isRoundOn = false;
    /// How the bus is polled.
    struct Polling
    {
        BusPace pace;
        QString alone;
        bool isScanning = false;
        qint64 scanChanged = 0;           ///< a scan began, or ended where none is on
        qint64 scanBegun = 0;             ///< the last one
        std::optional<qint64> lastAnswer; ///< as a clock on the wall shows it, ms
    };
    Polling m_polling;
    QStringList m_list;
    QHash<QString, QList<QStringList>> m_records;
    Past m_past;
};
