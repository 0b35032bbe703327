#include "tracking/fimcounter.h"

#include "serial/generalinformation.h"
#include "tracking/siderules.h"

#include <algorithm>

namespace {

constexpr int kHistoryLength = 20;

constexpr int flag(LdbLoopState state)
{
    return static_cast<int>(state);
}
constexpr int kOpen = flag(LdbLoopState::Open);
constexpr int kOpenMemory = flag(LdbLoopState::OpenMemory);
constexpr int kShort = flag(LdbLoopState::Short);
constexpr int kShortMemory = flag(LdbLoopState::ShortMemory);
constexpr int kDcLeakage = flag(LdbLoopState::DcLeakage);
constexpr int kDcLeakageMemory = flag(LdbLoopState::DcLeakageMemory);

bool isShortedPort(double current)
{
    return current == generalinformation::kMissingMeasurement;
}

/// Whether the loop's open flags are exactly `openFlag`, with or without a remembered short and
/// with at most one of the leakage flags.
bool isOpenState(LdbLoopState state, int openFlag)
{
    const int withoutShort = flag(state) & ~kShortMemory;
    return (withoutShort & ~kDcLeakage) == openFlag ||
           withoutShort == (openFlag | kDcLeakageMemory);
}

/// Whether a side that ends in this state is connected: nothing is open or shorted now.
bool isConnectedState(int state)
{
    constexpr int kBothMemories = kShortMemory | kOpenMemory;
    constexpr int kStates[] = {flag(LdbLoopState::Ok),
                               kOpenMemory,
                               kBothMemories,
                               kOpenMemory | kDcLeakage,
                               kBothMemories | kDcLeakage,
                               kOpenMemory | kDcLeakageMemory,
                               kBothMemories | kDcLeakageMemory};
    return std::find(std::begin(kStates), std::end(kStates), state) != std::end(kStates);
}

} // namespace

FimCounter::FimCounter(const TrackingThresholds& thresholds, QObject* parent)
    : QObject(parent)
    , m_thresholds(thresholds)
{
    m_loopClosedTimer.setSingleShot(true);
    m_loopClosedTimer.setTimerType(Qt::PreciseTimer);
    m_loopClosedTimer.setInterval(siderules::kLoopClosed);

    connect(&m_sides.primary.consecutiveCountTimer, &QTimer::timeout, this,
            &FimCounter::primaryConsecutiveCountTimeout);
    connect(&m_sides.secondary.consecutiveCountTimer, &QTimer::timeout, this,
            &FimCounter::secondaryConsecutiveCountTimeout);
    connect(&m_sides.primary.shortResetTimer, &QTimer::timeout, this,
            &FimCounter::primaryShortResetTimeout);
    connect(&m_sides.secondary.shortResetTimer, &QTimer::timeout, this,
            &FimCounter::secondaryShortResetTimeout);
    connect(&m_loopClosedTimer, &QTimer::timeout, this, &FimCounter::loopClosed);
}

void FimCounter::reset()
{
    stopAllTimers();
    m_sides.primary.reset();
    m_sides.secondary.reset();
    m_secondarySideTracked = false;
    m_primaryShortSeen = false;
    m_trackingArmed = false;
    m_firstShortSide.reset();
    m_loopState = 0;
}

void FimCounter::stopAllTimers()
{
    m_sides.primary.stopTimers();
    m_sides.secondary.stopTimers();
    m_loopClosedTimer.stop();
}

bool FimCounter::isSideTracked(int ldbPort) const
{
    return ldbPort == PrimaryPort || m_secondarySideTracked;
}

bool FimCounter::isSideCounting(int ldbPort) const
{
    return isSideTracked(ldbPort) && !side(ldbPort).sideFinished;
}

bool FimCounter::isOver() const
{
    return !isSideCounting(PrimaryPort) && !isSideCounting(SecondaryPort);
}

std::optional<int> FimCounter::faultPosition(int ldbPort) const
{
    if (!isSideCounting(ldbPort)) {
        return std::nullopt;
    }
    int lastCounted = side(ldbPort).fimCount;
    if (wasOtherShortedFirst(side(ldbPort)) && lastCounted > 0) {
        --lastCounted;
    }
    return lastCounted >= 1 ? lastCounted + 1 : lastCounted;
}

std::optional<int> FimCounter::millisecondsToSideEnd(int ldbPort) const
{
    const FimSide& asked = side(ldbPort);
    if (!asked.consecutiveCountTimer.isActive()) {
        return std::nullopt;
    }
    const int remaining = asked.consecutiveCountTimer.remainingTime();
    const bool waitsForFirst = asked.fimCount == 0 && asked.firstFimTimer.isActive();
    return waitsForFirst ? std::min(remaining, asked.firstFimTimer.remainingTime()) : remaining;
}

void FimCounter::checkAndStartIntialTimer(int ldbPort)
{
    if (!isLdbPort(ldbPort) || !side(ldbPort).initialTimerPending) {
        return;
    }
    FimSide& starting = side(ldbPort);
    starting.measurementTimer.start(siderules::kFirstMeasurement[ldbPort]);
    starting.consecutiveCountTimer.start();
    if (siderules::kFirstFim[ldbPort] > 0) {
        starting.firstFimTimer.start();
    }
    starting.initialTimerPending = false;
}

double FimCounter::updateAverageCurrent(int ldbPort, double newValue)
{
    if (!isLdbPort(ldbPort)) {
        return newValue;
    }
    QList<double>& history = side(ldbPort).currentHistory;
    history.append(newValue);
    if (history.size() > kHistoryLength) {
        history.removeFirst();
    }
    return side(ldbPort).meanCurrent();
}

bool FimCounter::isStartupDetected(int ldbPort, double currentValue, double averageCurrent,
                                   bool measurementTimerActive) const
{
    return isLdbPort(ldbPort) && !measurementTimerActive &&
           currentValue - averageCurrent > m_thresholds.fimStartup[ldbPort];
}

void FimCounter::increaseCount(int ldbPort, bool restartTimers)
{
    if (!isLdbPort(ldbPort)) {
        return;
    }
    FimSide& counted = side(ldbPort);
    ++counted.fimCount;
    if (restartTimers) {
        counted.stepSpacingTimer.start();
        counted.measurementTimer.start(siderules::kMeasurement[ldbPort]);
        counted.consecutiveCountTimer.start();
    }
    emit countChanged(ldbPort, counted.fimCount);
}

void FimCounter::decreaseCount(int ldbPort)
{
    if (!isLdbPort(ldbPort)) {
        return;
    }
    FimSide& counted = side(ldbPort);
    counted.fimCount = std::max(0, counted.fimCount - 1);
    emit countChanged(ldbPort, counted.fimCount);
}

void FimCounter::processCurrent(double primaryCurrent, double secondaryCurrent)
{
    processSideCurrent(m_sides.primary, primaryCurrent);
    processSideCurrent(m_sides.secondary, secondaryCurrent);
}

void FimCounter::processSideCurrent(FimSide& side, double current)
{
    if (!isSideCounting(side.ldbPort)) {
        return;
    }
    checkAndStartIntialTimer(side.ldbPort);
    const double average = updateAverageCurrent(side.ldbPort, current);

    const bool firstFimIsDue = siderules::kFirstFim[side.ldbPort] > 0;
    if (firstFimIsDue && !side.firstFimTimer.isActive() && side.fimCount == 0) {
        endSide(side);
        return;
    }
    if (!isStartupDetected(side.ldbPort, current, average, side.measurementTimer.isActive())) {
        return;
    }
    if (siderules::kRemembersShort[side.ldbPort] && side.fimCount == 0) {
        m_primaryShortSeen = false;
    }
    side.countInWindow = side.stepSpacingTimer.isActive();
    increaseCount(side.ldbPort);
}

void FimCounter::processShort(LdbLoopState state, double primaryCurrent, double secondaryCurrent)
{
    if (!m_trackingArmed || isOver()) {
        return;
    }
    detectShort(m_sides.primary, primaryCurrent);
    detectShort(m_sides.secondary, secondaryCurrent);

    const bool isShortState = flag(state) == kShort || flag(state) == (kShort | kOpenMemory);
    if (!isShortState && !isShortedPort(primaryCurrent) && !isShortedPort(secondaryCurrent)) {
        return;
    }
    m_loopClosedTimer.stop();
    endShortedSide(m_sides.primary, primaryCurrent);
    // Untracked or not: a short that reaches the secondary port ends its side.
    endShortedSide(m_sides.secondary, secondaryCurrent);
}

void FimCounter::detectShort(FimSide& side, double current)
{
    if (side.shortDetected || !isSideTracked(side.ldbPort)) {
        return;
    }
    if (current - side.meanCurrent() > m_thresholds.shortDetection) {
        side.shortDetected = true;
        if (siderules::kRemembersShort[side.ldbPort]) {
            m_primaryShortSeen = true;
        }
        side.shortResetTimer.start();
    }
}

void FimCounter::endShortedSide(FimSide& side, double current)
{
    if (side.sideFinished || (!isShortedPort(current) && !side.shortDetected)) {
        return;
    }
    side.shortResetTimer.stop();
    side.hardShort = side.hardShort || isShortedPort(current);
    if (!m_firstShortSide) {
        m_firstShortSide = side.ldbPort;
    }
    endSide(side);
}

void FimCounter::processLoopClosed(LdbLoopState state)
{
    if (isOver()) {
        return;
    }
    m_trackingArmed = m_trackingArmed || isOpenState(state, kOpen);
    if (m_trackingArmed && isOpenState(state, kOpenMemory) && !m_loopClosedTimer.isActive()) {
        m_loopClosedTimer.start();
    }
}

void FimCounter::loopClosed()
{
    primaryConsecutiveCountTimeout();
    secondaryConsecutiveCountTimeout();
}

void FimCounter::primaryConsecutiveCountTimeout()
{
    endSide(m_sides.primary);
}

void FimCounter::secondaryConsecutiveCountTimeout()
{
    endSide(m_sides.secondary);
}

void FimCounter::primaryShortResetTimeout()
{
    m_sides.primary.shortDetected = false;
}

void FimCounter::secondaryShortResetTimeout()
{
    m_sides.secondary.shortDetected = false;
}

void FimCounter::endSide(FimSide& side)
{
    if (side.sideFinished) {
        return;
    }
    side.consecutiveCountTimer.stop();
    const bool isStepFresh = side.measurementTimer.isActive();
    side.sideFinished = true;
    side.sideResult = endOf(side);
    switch (side.sideResult) {
    case SideEnd::Connected:
        correctConnected(side, isStepFresh);
        break;
    case SideEnd::Short:
        correctShort(side);
        break;
    case SideEnd::Open:
        correctOpen(side);
        break;
    }
    emit sideFinished(side.ldbPort, trackingresult::sideEndText(side.sideResult), side.sideResult);
    if (isOver()) {
        emit resultsReady(
            m_sides.primary.fimCount + m_sides.secondary.fimCount,
            trackingresult::loopResult(m_sides.primary.sideResult, m_sides.secondary.sideResult));
    }
}

SideEnd FimCounter::endOf(const FimSide& side) const
{
    if (isConnectedState(m_loopState) && !side.hardShort) {
        return SideEnd::Connected;
    }
    // The marker of a shorted port stands for a short even where no surge was seen before it.
    return side.shortDetected || side.hardShort ? SideEnd::Short : SideEnd::Open;
}

void FimCounter::correctConnected(const FimSide& side, bool isStepFresh)
{
    const int port = side.ldbPort;
    if (siderules::kConnectedAddsUncounted[port] && side.fimCount > 0) {
        increaseCount(port, false);
    }
    if (siderules::kConnectedTakesCloseStep[port] && side.countInWindow) {
        decreaseCount(port);
    }
    if (siderules::kConnectedTakesFreshStep[port] && isStepFresh) {
        decreaseCount(port);
    }
}

void FimCounter::correctShort(const FimSide& side)
{
    if (siderules::kShortTakesOtherShort[side.ldbPort] && wasOtherShortedFirst(side)) {
        decreaseCount(side.ldbPort);
    }
}

void FimCounter::correctOpen(const FimSide& side)
{
    const int port = side.ldbPort;
    if (siderules::kOpenAddsUncounted[port] && side.fimCount > 0) {
        increaseCount(port, false);
    }
    if (siderules::kOpenTakesOtherShort[port] && wasOtherShortedFirst(side)) {
        decreaseCount(port);
        if (siderules::kOpenTakesSoleRemaining[port] && side.fimCount == 1) {
            decreaseCount(port);
        }
    }
    if (siderules::kOpenTakesRememberedShort[port] && m_primaryShortSeen) {
        decreaseCount(port);
    }
}

bool FimCounter::wasOtherShortedFirst(const FimSide& side) const
{
    return m_firstShortSide == otherPort(side.ldbPort);
}
