#include "tracking/counting/fimcounter.h"

#include "app/shared/tuningfile.h"
#include "serial/ldb/generalinformation.h"
#include "tracking/counting/siderules.h"

#include <algorithm>
#include <limits>
#include <numeric>

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
bool isConnectedState(LdbLoopState state)
{
    return state == LdbLoopState::Ok || isOpenState(state, kOpenMemory);
}

} // namespace

TrackingThresholds TrackingThresholds::fromTuningFile()
{
    const QSettings tuning = tuningFile();
    TrackingThresholds thresholds;
    const auto read = [&tuning](const QString& key, double& threshold) {
        threshold = tuningNumber(tuning, key, static_cast<int>(threshold));
    };
    read(constants::kShortDetectionCurrentKey, thresholds.shortDetection);
    read(constants::kPrimaryFimStartupCurrentKey, thresholds.fimStartup.primary);
    read(constants::kSecondaryFimStartupCurrentKey, thresholds.fimStartup.secondary);
    return thresholds;
}

std::optional<qint64> Deadline::earliest(std::initializer_list<std::optional<qint64>> moments)
{
    std::optional<qint64> first;
    for (const std::optional<qint64>& moment : moments) {
        if (moment && (!first || *moment < *first)) {
            first = moment;
        }
    }
    return first;
}

double FimCounter::Side::meanCurrent() const
{
    if (currentHistory.isEmpty()) {
        return std::numeric_limits<double>::quiet_NaN();
    }
    return std::accumulate(currentHistory.cbegin(), currentHistory.cend(), 0.0) /
           currentHistory.size();
}

void FimCounter::Side::reset()
{
    Side blank;
    blank.ldbPort = ldbPort;
    blank.currentHistory = currentHistory;
    *this = blank;
}

void FimCounter::Side::stopTimers()
{
    for (Deadline* deadline :
         {&stepSpacing, &measurement, &consecutiveCount, &firstFim, &shortReset}) {
        deadline->stop();
    }
}

FimCounter::FimCounter(const TrackingThresholds& thresholds, QObject* parent)
    : QObject(parent)
    , m_thresholds(thresholds)
{
    m_sides.secondary.ldbPort = SecondaryPort;
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
    m_loopState = LdbLoopState::Ok;
}

void FimCounter::stopAllTimers()
{
    m_sides.primary.stopTimers();
    m_sides.secondary.stopTimers();
    m_loopClosed.stop();
}

std::optional<qint64> FimCounter::nextDue() const
{
    return Deadline::earliest({m_sides.primary.consecutiveCount.moment(),
                               m_sides.secondary.consecutiveCount.moment(), m_loopClosed.moment()});
}

void FimCounter::advance(qint64 now)
{
    for (auto due = nextDue(); due && *due <= now; due = nextDue()) {
        m_now = *due;
        const bool isLoopClosed = m_loopClosed.isDue(m_now);
        if (isLoopClosed) {
            m_loopClosed.stop();
        }
        for (Side* side : {&m_sides.primary, &m_sides.secondary}) {
            if (isLoopClosed || side->consecutiveCount.isDue(m_now)) {
                endSide(*side);
            }
        }
    }
    m_now = now;
}

std::optional<int> FimCounter::faultPosition(int ldbPort) const
{
    if (!isSideCounting(ldbPort)) {
        return std::nullopt;
    }
    int lastCounted = m_sides[ldbPort].fimCount;
    if (wasOtherShortedFirst(m_sides[ldbPort]) && lastCounted > 0) {
        --lastCounted;
    }
    return lastCounted >= 1 ? lastCounted + 1 : lastCounted;
}

std::optional<int> FimCounter::millisecondsToSideEnd(int ldbPort) const
{
    const Side& asked = m_sides[ldbPort];
    if (!asked.consecutiveCount.moment()) {
        return std::nullopt;
    }
    const bool waitsForFirst = asked.fimCount == 0 && asked.firstFim.isPending(m_now);
    const auto end =
        waitsForFirst
            ? Deadline::earliest({asked.consecutiveCount.moment(), asked.firstFim.moment()})
            : asked.consecutiveCount.moment();
    return static_cast<int>(*end - m_now);
}

void FimCounter::checkAndStartIntialTimer(int ldbPort)
{
    if (!isLdbPort(ldbPort) || !m_sides[ldbPort].initialTimerPending) {
        return;
    }
    Side& starting = m_sides[ldbPort];
    starting.measurement.start(m_now, siderules::kFirstMeasurement[ldbPort]);
    starting.consecutiveCount.start(m_now, siderules::kConsecutiveCount[ldbPort]);
    if (siderules::kFirstFim[ldbPort] > 0) {
        starting.firstFim.start(m_now, siderules::kFirstFim[ldbPort]);
    }
    starting.initialTimerPending = false;
}

double FimCounter::updateAverageCurrent(int ldbPort, double newValue)
{
    if (!isLdbPort(ldbPort)) {
        return newValue;
    }
    QList<double>& history = m_sides[ldbPort].currentHistory;
    history.append(newValue);
    if (history.size() > kHistoryLength) {
        history.removeFirst();
    }
    return m_sides[ldbPort].meanCurrent();
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
    Side& counted = m_sides[ldbPort];
    ++counted.fimCount;
    if (restartTimers) {
        counted.stepSpacing.start(m_now, siderules::kStepSpacing[ldbPort]);
        counted.measurement.start(m_now, siderules::kMeasurement[ldbPort]);
        counted.consecutiveCount.start(m_now, siderules::kConsecutiveCount[ldbPort]);
    }
    emit countChanged(ldbPort, counted.fimCount);
}

void FimCounter::decreaseCount(int ldbPort)
{
    if (!isLdbPort(ldbPort)) {
        return;
    }
    Side& counted = m_sides[ldbPort];
    counted.fimCount = std::max(0, counted.fimCount - 1);
    emit countChanged(ldbPort, counted.fimCount);
}

void FimCounter::processCurrent(double primaryCurrent, double secondaryCurrent)
{
    processSideCurrent(m_sides.primary, primaryCurrent);
    processSideCurrent(m_sides.secondary, secondaryCurrent);
}

void FimCounter::processSideCurrent(Side& side, double current)
{
    if (!isSideCounting(side.ldbPort)) {
        return;
    }
    checkAndStartIntialTimer(side.ldbPort);
    const double average = updateAverageCurrent(side.ldbPort, current);

    const bool firstFimIsDue = siderules::kFirstFim[side.ldbPort] > 0;
    if (firstFimIsDue && !side.firstFim.isPending(m_now) && side.fimCount == 0) {
        endSide(side);
        return;
    }
    if (!isStartupDetected(side.ldbPort, current, average, side.measurement.isPending(m_now))) {
        return;
    }
    if (siderules::kRemembersShort[side.ldbPort] && side.fimCount == 0) {
        m_primaryShortSeen = false;
    }
    side.countInWindow = side.stepSpacing.isPending(m_now);
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
    m_loopClosed.stop();
    endShortedSide(m_sides.primary, primaryCurrent);
    // Untracked or not: a short that reaches the secondary port ends its side.
    endShortedSide(m_sides.secondary, secondaryCurrent);
}

void FimCounter::detectShort(Side& side, double current)
{
    if (isShortDetected(side) || !isSideTracked(side.ldbPort)) {
        return;
    }
    if (current - side.meanCurrent() > m_thresholds.shortDetection) {
        if (siderules::kRemembersShort[side.ldbPort]) {
            m_primaryShortSeen = true;
        }
        side.shortReset.start(m_now, siderules::kShortReset[side.ldbPort]);
    }
}

void FimCounter::endShortedSide(Side& side, double current)
{
    if (side.sideFinished || (!isShortedPort(current) && !isShortDetected(side))) {
        return;
    }
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
    if (m_trackingArmed && isOpenState(state, kOpenMemory) && !m_loopClosed.moment()) {
        m_loopClosed.start(m_now, siderules::kLoopClosed);
    }
}

void FimCounter::consecutiveCountTimeout(int ldbPort)
{
    if (isLdbPort(ldbPort)) {
        endSide(m_sides[ldbPort]);
    }
}

void FimCounter::endSide(Side& side)
{
    side.consecutiveCount.stop();
    if (side.sideFinished) {
        return;
    }
    const bool isStepFresh = side.measurement.isPending(m_now);
    side.sideFinished = true;
    side.sideResult = endOf(side);
    correctCount(side, isStepFresh);
    emit sideFinished(side.ldbPort, side.sideResult);
    if (isOver()) {
        emit resultsReady(m_sides.primary.fimCount + m_sides.secondary.fimCount,
                          loopResult(m_sides.primary.sideResult, m_sides.secondary.sideResult));
    }
}

SideEnd FimCounter::endOf(const Side& side) const
{
    if (isConnectedState(m_loopState) && !side.hardShort) {
        return SideEnd::Connected;
    }
    // The marker of a shorted port stands for a short even where no surge was seen before it.
    return isShortDetected(side) || side.hardShort ? SideEnd::Short : SideEnd::Open;
}

void FimCounter::correctCount(const Side& side, bool isStepFresh)
{
    using namespace siderules;
    const int port = side.ldbPort;
    const bool isOtherFirst = wasOtherShortedFirst(side);
    const auto addUncounted = [this, &side](bool applies) {
        if (applies && side.fimCount > 0) {
            increaseCount(side.ldbPort, false);
        }
    };
    const auto takeOne = [this, port](bool applies) {
        if (applies) {
            decreaseCount(port);
        }
    };
    switch (side.sideResult) {
    case SideEnd::Connected:
        addUncounted(kConnectedAddsUncounted[port]);
        takeOne(kConnectedTakesCloseStep[port] && side.countInWindow);
        takeOne(kConnectedTakesFreshStep[port] && isStepFresh);
        break;
    case SideEnd::Short:
        takeOne(kShortTakesOtherShort[port] && isOtherFirst);
        break;
    case SideEnd::Open:
        addUncounted(kOpenAddsUncounted[port]);
        if (kOpenTakesOtherShort[port] && isOtherFirst) {
            takeOne(true);
            takeOne(kOpenTakesSoleRemaining[port] && side.fimCount == 1);
        }
        takeOne(kOpenTakesRememberedShort[port] && m_primaryShortSeen);
        break;
    }
}
