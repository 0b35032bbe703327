#include "tracking/counting/trackingrun.h"

#include "serial/ldb/generalinformation.h"

#include <QDebug>

#include <utility>

namespace {

constexpr int kMillisecondsPerSecond = 1000;
constexpr int kStartTrackingDelay = 15000;
constexpr int kFactoryResetRepetitions = 2;

} // namespace

TrackingRun::TrackingRun(const TrackingThresholds& thresholds, QObject* parent)
    : QObject(parent)
    , m_counter(thresholds)
{
    connect(&m_counter, &FimCounter::countChanged, this, &TrackingRun::countChanged);
    connect(&m_counter, &FimCounter::sideFinished, this, &TrackingRun::sideFinished);
    connect(&m_counter, &FimCounter::resultsReady, this, &TrackingRun::processResults);
}

void TrackingRun::prepare(qint64 now)
{
    stopAllTimers();
    m_counter.reset();
    advance(now);
    m_progress = Progress();
    setPhase(Phase::Confirmation);
}

void TrackingRun::begin(TrackingMode mode, qint64 now)
{
    Q_ASSERT(mode != TrackingMode::Cancelled);
    advance(now);
    m_progress.mode = mode;
    m_counter.setSecondarySideTracked(mode == TrackingMode::Commissioning);
    setPhase(Phase::FactoryReset);
}

void TrackingRun::stop(StopReason reason)
{
    if (m_phase == Phase::Idle || m_phase == Phase::Finished) {
        return;
    }
    stopAllTimers();
    m_progress.countdownShown = false;
    m_progress.stopReason = reason;
    setPhase(Phase::Idle);
}

bool TrackingRun::isActive() const
{
    return m_phase == Phase::FactoryReset || m_phase == Phase::Rebooting ||
           m_phase == Phase::Counting;
}

std::optional<int> TrackingRun::secondsLeft() const
{
    if (m_factoryResetTick.moment()) {
        return m_progress.factoryResetCountdown;
    }
    if (const auto start = m_startTracking.moment()) {
        return static_cast<int>((*start - m_now + kMillisecondsPerSecond - 1) /
                                kMillisecondsPerSecond);
    }
    return std::nullopt;
}

std::optional<qint64> TrackingRun::nextDue() const
{
    return Deadline::earliest(
        {m_counter.nextDue(), m_factoryResetTick.moment(), m_startTracking.moment()});
}

void TrackingRun::advance(qint64 now)
{
    for (auto due = nextDue(); due && *due <= now; due = nextDue()) {
        m_now = *due;
        m_counter.advance(m_now);
        if (m_factoryResetTick.isDue(m_now)) {
            factoryResetCountdownTimeout();
        }
        if (m_startTracking.isDue(m_now)) {
            startTracking();
        }
    }
    m_now = now;
    m_counter.advance(now);
}

void TrackingRun::processRecord(const QList<QStringList>& dataList, qint64 now)
{
    advance(now);
    if (!isActive()) {
        return;
    }
    if (dataList.size() < generalinformation::RowCount) {
        // Missing fields read as 0, and 0 is the state that starts the counting.
        qWarning() << "Tracking ignores an incomplete record:" << dataList;
        return;
    }
    const auto state =
        static_cast<LdbState>(generalinformation::integer(dataList, generalinformation::ModeRow));
    if (processLdbState(state) && isActive()) {
        processCounting(dataList);
    }
}

void TrackingRun::resolveDoubt(LdbState state)
{
    const Doubt doubt = std::exchange(m_progress.doubt, Doubt::None);
    const bool isObeyed = m_progress.factoryResetExecutingSeen ||
                          state == LdbState::FactoryResetExecuting ||
                          state == LdbState::FactoryResetDone;
    if (doubt == Doubt::None || isObeyed) {
        return;
    }
    if (doubt == Doubt::Refused) {
        stop(StopReason::FactoryResetRefused);
    } else if (m_progress.repetitions < kFactoryResetRepetitions) {
        ++m_progress.repetitions;
        emit commandDue(TrackingCommand::FactoryReset);
    }
}

bool TrackingRun::processLdbState(LdbState state)
{
    resolveDoubt(state);
    switch (state) {
    case LdbState::FactoryResetFailed:
        stop(StopReason::FactoryResetFailed);
        break;
    case LdbState::Disconnected:
        stop(StopReason::LdbDisconnected);
        break;
    case LdbState::FactoryResetDone:
        if (!m_progress.factoryResetDoneHandled) {
            processFactoryResetDone();
        }
        break;
    case LdbState::Booting:
        if (m_progress.factoryResetRequested && m_progress.factoryResetExecutingSeen &&
            !m_progress.countingEnabled) {
            m_progress.countingEnabled = true;
            hideCountdown();
            setPhase(Phase::Counting);
        }
        break;
    case LdbState::FactoryResetExecuting:
        // Many records carry this state; the countdown runs from the first.
        if (m_progress.factoryResetRequested && !m_progress.factoryResetExecutingSeen) {
            m_progress.factoryResetExecutingSeen = true;
            showCountdown();
        }
        break;
    default:
        break;
    }
    // Also when the first record ended the run: an LDB that remembers a failed factory reset needs
    // a new one before any run can succeed.
    if (state != LdbState::FactoryResetDone && !m_progress.factoryResetRequested) {
        m_progress.factoryResetRequested = true;
        emit commandDue(TrackingCommand::FactoryReset);
    }
    return m_progress.countingEnabled;
}

void TrackingRun::processFactoryResetDone()
{
    m_progress.factoryResetDoneHandled = true;
    m_progress.factoryResetRequested = true;
    m_progress.factoryResetExecutingSeen = true;
    hideCountdown();
    m_startTracking.start(m_now, kStartTrackingDelay);
    if (m_phase == Phase::FactoryReset) {
        setPhase(Phase::Rebooting);
    }
}

void TrackingRun::showCountdown()
{
    m_progress.countdownShown = true;
    m_factoryResetTick.start(m_now, kMillisecondsPerSecond);
    emit countdownChanged(m_progress.factoryResetCountdown);
}

void TrackingRun::hideCountdown()
{
    m_progress.countdownShown = false;
    m_factoryResetTick.stop();
}

void TrackingRun::factoryResetCountdownTimeout()
{
    if (m_progress.factoryResetCountdown < 1) {
        m_factoryResetTick.stop();
        return;
    }
    m_factoryResetTick.start(m_now, kMillisecondsPerSecond);
    --m_progress.factoryResetCountdown;
    emit countdownChanged(m_progress.factoryResetCountdown);
}

void TrackingRun::startTracking()
{
    m_startTracking.stop();
    emit commandDue(TrackingCommand::LdbReset);
    emit commandDue(TrackingCommand::MuteAudio);
}

void TrackingRun::processCounting(const QList<QStringList>& dataList)
{
    using namespace generalinformation;
    const double primaryCurrent = number(dataList, PrimaryCurrentRow, RawColumn);
    const double secondaryCurrent = number(dataList, SecondaryCurrentRow, RawColumn);
    const auto loopState = static_cast<LdbLoopState>(integer(dataList, LoopRow));
    const auto earthState = static_cast<LdbEarthState>(integer(dataList, EarthRow));

    m_counter.setLoopState(loopState);
    m_counter.processCurrent(primaryCurrent, secondaryCurrent);
    emit currentsProcessed(primaryCurrent, secondaryCurrent, timestamp(dataList));
    m_counter.processShort(loopState, primaryCurrent, secondaryCurrent);
    m_counter.processLoopClosed(loopState);
    processEarthFault(earthState);
    processLoopLeakageFault(loopState);
}

bool TrackingRun::processEarthFault(LdbEarthState earthState)
{
    if (m_progress.earthFaultReported || !isEarthLeakage(earthState)) {
        return false;
    }
    m_progress.earthFaultReported = true;
    emit faultReported(faultNow(FaultReport::Kind::EarthLeakage));
    return true;
}

bool TrackingRun::processLoopLeakageFault(LdbLoopState loopState)
{
    if (m_progress.loopLeakageReported || !isLoopDcLeakage(loopState)) {
        return false;
    }
    m_progress.loopLeakageReported = true;
    emit faultReported(faultNow(FaultReport::Kind::LoopDcLeakage));
    return true;
}

FaultReport TrackingRun::faultNow(FaultReport::Kind kind) const
{
    return {kind, {m_counter.faultPosition(PrimaryPort), m_counter.faultPosition(SecondaryPort)}};
}

void TrackingRun::processResults(int totalFimCount, LoopResult result)
{
    stopAllTimers();
    if (m_phase != Phase::Finished) {
        setPhase(Phase::Finished);
    }
    emit resultsReady(totalFimCount, result);
}

void TrackingRun::stopAllTimers()
{
    m_factoryResetTick.stop();
    m_startTracking.stop();
    m_counter.stopAllTimers();
}

void TrackingRun::setPhase(Phase phase)
{
    m_phase = phase;
    m_phaseStart = m_now;
    emit phaseChanged(phase);
}
