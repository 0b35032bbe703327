#pragma once

#include "serial/ldb/ldbstatus.h"
#include "tracking/counting/trackingresult.h"

#include <QList>
#include <QObject>

#include <initializer_list>
#include <optional>

/// Limits of the tracking, in 0.01 mA above the mean of a port's last samples.
struct TrackingThresholds
{
    double shortDetection = 220;
    BySide<double> fimStartup{11, 11};

    /// From the tuning file in the working directory. What is missing there, or is no whole
    /// number, keeps its default; the latter is warned of.
    static TrackingThresholds fromTuningFile();
};

/// A moment that is waited for, in ms. A plain value: whoever owns it asks whether it has come.
class Deadline
{
public:
    void start(qint64 now, int period) { m_moment = now + period; }
    void stop() { m_moment.reset(); }
    std::optional<qint64> moment() const { return m_moment; }
    /// Whether it is set and still to come, and whether it has come. Neither while it is stopped.
    bool isPending(qint64 now) const { return m_moment && now < *m_moment; }
    bool isDue(qint64 now) const { return m_moment && now >= *m_moment; }

    /// The first of the moments that are set; nothing where none is.
    static std::optional<qint64> earliest(std::initializer_list<std::optional<qint64>> moments);

private:
    std::optional<qint64> m_moment;
};

/// Counts the FIMs of a loop from the steps of the two port currents, and tells how each side ends.
/// A step is a rise above the mean of the side's last samples; a side ends when no step comes any
/// more, with a short, or when the loop closes.
///
/// It has no clock: everything happens at the time that `advance()` has set last. Operations that
/// take an `ldbPort` do nothing for a number that is no port. Currents are in 0.01 mA,
/// `generalinformation::kMissingMeasurement` for a shorted port. One thread at a time.
class FimCounter : public QObject
{
    Q_OBJECT
public:
    explicit FimCounter(const TrackingThresholds& thresholds, QObject* parent = nullptr);

    /// Back to the state before the first sample, the secondary side untracked, nothing waited for.
    void reset();
    void setSecondarySideTracked(bool tracked) { m_secondarySideTracked = tracked; }

    /// Sets the time to `now`: ms on a clock that never goes back. What falls due on the way
    /// happens at its own moment.
    void advance(qint64 now);
    /// The next moment at which `advance()` has something to do; nothing where none is known.
    std::optional<qint64> nextDue() const;

    /// One status record, step by step in this order: the loop state, the currents, then shorts
    /// (which need `isTrackingArmed()`), then the closing of the loop.
    void setLoopState(LdbLoopState state) { m_loopState = state; }
    void processCurrent(double primaryCurrent, double secondaryCurrent);
    void processShort(LdbLoopState state, double primaryCurrent, double secondaryCurrent);
    void processLoopClosed(LdbLoopState state);

    /// At the side's first sample: starts to wait for its first step.
    void checkAndStartIntialTimer(int ldbPort);
    /// Adds a sample to the side's history and gives the mean, the sample included.
    double updateAverageCurrent(int ldbPort, double newValue);
    bool isStartupDetected(int ldbPort, double currentValue, double averageCurrent,
                           bool measurementTimerActive) const;
    void increaseCount(int ldbPort, bool restartTimers);
    void increaseCount(int ldbPort) { increaseCount(ldbPort, true); }
    /// Never below 0.
    void decreaseCount(int ldbPort);
    /// Ends a side, unless it has ended: no step has come for long enough.
    void consecutiveCountTimeout(int ldbPort);
    void stopAllTimers();

    int fimCount(int ldbPort) const { return m_sides[ldbPort].fimCount; }
    bool isSideFinished(int ldbPort) const { return m_sides[ldbPort].sideFinished; }
    /// Meaningful once the side is finished.
    SideEnd sideResult(int ldbPort) const { return m_sides[ldbPort].sideResult; }
    /// Whether the side takes part; the primary side always does.
    bool isSideTracked(int ldbPort) const
    {
        return ldbPort == PrimaryPort || m_secondarySideTracked;
    }
    /// Whether samples of the side are still counted.
    bool isSideCounting(int ldbPort) const
    {
        return isSideTracked(ldbPort) && !m_sides[ldbPort].sideFinished;
    }
    bool isTrackingArmed() const { return m_trackingArmed; }
    /// Whether every side that takes part has ended.
    bool isOver() const { return !isSideCounting(PrimaryPort) && !isSideCounting(SecondaryPort); }
    /// The FIM at which a fault that shows now lies, counted from this side; nothing for a side
    /// that is not counting.
    std::optional<int> faultPosition(int ldbPort) const;
    /// Time after which the side ends unless a step comes; nothing while that is not known.
    std::optional<int> millisecondsToSideEnd(int ldbPort) const;

signals:
    void countChanged(int ldbPort, int count);
    void sideFinished(int ldbPort, SideEnd result);
    /// Every side that takes part has ended. Comes again when an untracked side ends after that in
    /// the same record.
    void resultsReady(int totalFimCount, LoopResult result);

private:
    /// What is known of one side of the loop.
    struct Side
    {
        /// Mean of the history, not a number while there is none.
        double meanCurrent() const;
        /// Back to the state before the first sample. The history stays: it is the mean current
        /// that the next step is measured against.
        void reset();
        void stopTimers();

        int ldbPort = PrimaryPort;
        QList<double> currentHistory; ///< 0.01 mA, oldest first
        int fimCount = 0;
        bool initialTimerPending = true;
        bool sideFinished = false;
        bool hardShort = false;     ///< ended by the marker of a shorted port
        bool countInWindow = false; ///< the last step followed its predecessor closely
        SideEnd sideResult = SideEnd::Connected;

        // Only the consecutive count does something when it runs out.
        Deadline stepSpacing;
        Deadline measurement;
        Deadline consecutiveCount;
        Deadline firstFim;
        Deadline shortReset; ///< a surge counts as a short until then
    };

    bool isShortDetected(const Side& side) const { return side.shortReset.isPending(m_now); }
    void processSideCurrent(Side& side, double current);
    void detectShort(Side& side, double current);
    void endShortedSide(Side& side, double current);
    void endSide(Side& side);
    SideEnd endOf(const Side& side) const;
    void correctCount(const Side& side, bool isStepFresh);
    bool wasOtherShortedFirst(const Side& side) const
    {
        return m_firstShortSide == otherPort(side.ldbPort);
    }

    const TrackingThresholds m_thresholds;
    qint64 m_now = 0; ///< ms
    BySide<Side> m_sides;
    bool m_secondarySideTracked = false;
    bool m_primaryShortSeen = false;
    bool m_trackingArmed = false;
    std::optional<int> m_firstShortSide; ///< the port that a short ended first
    LdbLoopState m_loopState = LdbLoopState::Ok;
    Deadline m_loopClosed;
};
