#pragma once

#include "serial/ldbstatus.h"
#include "tracking/fimside.h"
#include "tracking/ldbport.h"
#include "tracking/trackingresult.h"
#include "tracking/trackingthresholds.h"

#include <QObject>

#include <optional>

/// Counts the FIMs of a loop from the steps of the two port currents, and tells how each side ends.
/// A step is a rise above the mean of the side's last samples; a side ends when no step comes any
/// more, with a short, or when the loop closes. Owns its timers; no widgets.
///
/// Operations that take an `ldbPort` do nothing for a number that is no port. Currents are in
/// 0.01 mA, `generalinformation::kMissingMeasurement` for a shorted port.
class FimCounter : public QObject
{
    Q_OBJECT
public:
    explicit FimCounter(const TrackingThresholds& thresholds, QObject* parent = nullptr);

    /// Back to the state before the first sample, the secondary side untracked, all timers stopped.
    void reset();
    void setSecondarySideTracked(bool tracked) { m_secondarySideTracked = tracked; }

    /// One status record, step by step in this order: the loop state, the currents, then shorts
    /// (which need `isTrackingArmed()`), then the closing of the loop.
    void setLoopState(LdbLoopState state) { m_loopState = static_cast<int>(state); }
    void processCurrent(double primaryCurrent, double secondaryCurrent);
    void processShort(LdbLoopState state, double primaryCurrent, double secondaryCurrent);
    void processLoopClosed(LdbLoopState state);

    /// Starts the side's timers at its first sample.
    void checkAndStartIntialTimer(int ldbPort);
    /// Adds a sample to the side's history and gives the mean, the sample included.
    double updateAverageCurrent(int ldbPort, double newValue);
    bool isStartupDetected(int ldbPort, double currentValue, double averageCurrent,
                           bool measurementTimerActive) const;
    void increaseCount(int ldbPort, bool restartTimers);
    void increaseCount(int ldbPort) { increaseCount(ldbPort, true); }
    /// Never below 0.
    void decreaseCount(int ldbPort);
    void stopAllTimers();

    int fimCount(int ldbPort) const { return side(ldbPort).fimCount; }
    bool isSideFinished(int ldbPort) const { return side(ldbPort).sideFinished; }
    /// Meaningful once the side is finished.
    SideEnd sideResult(int ldbPort) const { return side(ldbPort).sideResult; }
    /// Whether the side takes part; the primary side always does.
    bool isSideTracked(int ldbPort) const;
    /// Whether samples of the side are still counted.
    bool isSideCounting(int ldbPort) const;
    bool isTrackingArmed() const { return m_trackingArmed; }
    /// Whether every side that takes part has ended.
    bool isOver() const;
    /// The FIM at which a fault that shows now lies, counted from this side; nothing for a side
    /// that is not counting.
    std::optional<int> faultPosition(int ldbPort) const;
    /// Time after which the side ends unless a step comes; nothing while that is not known.
    std::optional<int> millisecondsToSideEnd(int ldbPort) const;

public slots:
    void primaryConsecutiveCountTimeout();
    void secondaryConsecutiveCountTimeout();
    void primaryShortResetTimeout();
    void secondaryShortResetTimeout();
    void loopClosed();

signals:
    void countChanged(int ldbPort, int count);
    void sideFinished(int ldbPort, const QString& text, SideEnd result);
    /// Every side that takes part has ended. Comes again when an untracked side ends after that in
    /// the same record.
    void resultsReady(int totalFimCount, LoopResult result);

private:
    const FimSide& side(int ldbPort) const { return m_sides[ldbPort]; }
    FimSide& side(int ldbPort) { return m_sides[ldbPort]; }
    void processSideCurrent(FimSide& side, double current);
    void detectShort(FimSide& side, double current);
    void endShortedSide(FimSide& side, double current);
    void endSide(FimSide& side);
    SideEnd endOf(const FimSide& side) const;
    void correctConnected(const FimSide& side, bool isStepFresh);
    void correctShort(const FimSide& side);
    void correctOpen(const FimSide& side);
    bool wasOtherShortedFirst(const FimSide& side) const;

    const TrackingThresholds m_thresholds;
    BySide<FimSide> m_sides{FimSide(PrimaryPort), FimSide(SecondaryPort)};
    bool m_secondarySideTracked = false;
    bool m_primaryShortSeen = false;
    bool m_trackingArmed = false;
    std::optional<int> m_firstShortSide; ///< the port that a short ended first
    int m_loopState = 0;
    QTimer m_loopClosedTimer;
};
