#pragma once

#include "serial/ldb/ldbstatus.h"
#include "tracking/counting/fimcounter.h"

#include <QDateTime>
#include <QObject>
#include <QStringList>

#include <optional>

/// One tracking run after another on one LDB: the factory reset, its reboot, then the counting. It
/// takes the LDB's records and says when which command is due. No widgets, no connection, no clock:
/// the time, in ms of any clock that never goes back, comes with each call.
///
/// A run that has ended, whatever ended it, waits for nothing and asks for nothing more. One thread
/// at a time.
class TrackingRun : public QObject
{
    Q_OBJECT
public:
    enum class Phase
    {
        Idle,
        Confirmation, ///< the user is asked
        FactoryReset,
        Rebooting,
        Counting,
        Finished
    };
    /// What ended a run before its result.
    enum class StopReason
    {
        None,
        User,
        FactoryResetFailed,
        FactoryResetRefused,
        LdbDisconnected,
        ConnectionLost
    };

    explicit TrackingRun(const TrackingThresholds& thresholds, QObject* parent = nullptr);

    /// Clears everything of the run before and waits for the user's choice.
    void prepare(qint64 now);
    /// Begins the run chosen. Not with `TrackingMode::Cancelled`.
    void begin(TrackingMode mode, qint64 now);
    /// Ends the run, if one is on.
    void stop(StopReason reason);

    /// Sets the time to `now`. What falls due on the way happens at its own moment.
    void advance(qint64 now);
    /// The next moment at which `advance()` has something to do; nothing where none is known.
    std::optional<qint64> nextDue() const;
    /// The factory reset was refused, or nothing came back. It may have begun all the same, with
    /// its acknowledgement lost: the next record shows it. If it has not, the run ends after a
    /// refusal; after a silence the command is due again, twice at most.
    void doubtFactoryReset(bool isRefused)
    {
        m_progress.doubt = isRefused ? Doubt::Refused : Doubt::Silent;
    }
    /// A record of the tracked LDB. Ignored unless a run has begun.
    void processRecord(const QList<QStringList>& dataList, qint64 now);
    /// Takes the LDB's state alone; gives whether its currents are to be counted.
    bool processLdbState(LdbState state);
    /// Report a fault the first time they see it in a run.
    bool processEarthFault(LdbEarthState earthState);
    bool processLoopLeakageFault(LdbLoopState loopState);

    const FimCounter& counter() const { return m_counter; }
    Phase phase() const { return m_phase; }
    StopReason stopReason() const { return m_progress.stopReason; }
    TrackingMode mode() const { return m_progress.mode; }
    /// Whether records are taken.
    bool isActive() const;
    /// Whether the factory reset's countdown is to be seen.
    bool isCountingDown() const { return m_progress.countdownShown; }
    /// Whole seconds since the phase began.
    int secondsGone() const { return static_cast<int>((m_now - m_phaseStart) / 1000); }
    /// Whole seconds to the end of what the phase waits for, where that is known.
    std::optional<int> secondsLeft() const;

    /// Seconds that a factory reset may take.
    static constexpr int kFactoryResetSeconds = 130;

signals:
    void phaseChanged(TrackingRun::Phase phase);
    void countdownChanged(int secondsLeft);
    void commandDue(TrackingCommand command);
    void countChanged(int ldbPort, int count);
    /// Currents in 0.01 mA. Comes after they are counted, and before shorts are looked for.
    void currentsProcessed(double primaryCurrent, double secondaryCurrent,
                           const QDateTime& timestamp);
    void sideFinished(int ldbPort, SideEnd result);
    void resultsReady(int totalFimCount, LoopResult result);
    void faultReported(const FaultReport& report);

private:
    enum class Doubt
    {
        None,
        Refused,
        Silent
    };

    /// What one run has come to.
    struct Progress
    {
        StopReason stopReason = StopReason::None;
        TrackingMode mode = TrackingMode::Cancelled;
        bool factoryResetRequested = false;
        Doubt doubt = Doubt::None;
        int repetitions = 0;
        bool factoryResetExecutingSeen = false;
        bool factoryResetDoneHandled = false;
        bool countingEnabled = false;
        bool earthFaultReported = false;
        bool loopLeakageReported = false;
        bool countdownShown = false;
        int factoryResetCountdown = kFactoryResetSeconds;
    };

    void resolveDoubt(LdbState state);
    void factoryResetCountdownTimeout();
    void startTracking();
    void setPhase(Phase phase);
    void processCounting(const QList<QStringList>& dataList);
    void processResults(int totalFimCount, LoopResult result);
    void processFactoryResetDone();
    void showCountdown();
    void hideCountdown();
    void stopAllTimers();
    FaultReport faultNow(FaultReport::Kind kind) const;

    FimCounter m_counter;
    Phase m_phase = Phase::Idle;
    Progress m_progress;
    Deadline m_factoryResetTick;
    Deadline m_startTracking;
    qint64 m_now = 0;        ///< ms
    qint64 m_phaseStart = 0; ///< ms
};
