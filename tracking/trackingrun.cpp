#include "tracking/trackingrun.h"

#include "serial/generalinformation.h"

#include <QDebug>

#include <limits>

namespace {

constexpr int kMillisecondsPerSecond = 1000;
constexpr int kStartTrackingDelay = 15000;
constexpr int kPhaseClockPeriod = std::numeric_limits<int>::max(); // 24 days

int toSecondsRoundedUp(int milliseconds)
{
    return (milliseconds + kMillisecondsPerSecond - 1) / kMillisecondsPerSecond;
}

} // namespace

TrackingRun::TrackingRun(const TrackingThresholds& thresholds, QObject* parent)
    : QObject(parent)
    , m_counter(thresholds)
{
    m_factoryResetCountdownTimer.setInterval(kMillisecondsPerSecond);
    m_startTrackingTimer.setInterval(kStartTrackingDelay);
    m_startTrackingTimer.setSingleShot(true);
    m_phaseClock.setInterval(kPhaseClockPeriod);
    m_phaseClock.setSingleShot(true);
    for (QTimer* timer : {&m_factoryResetCountdownTimer, &m_startTrackingTimer, &m_phaseClock}) {
        timer->setTimerType(Qt::PreciseTimer);
    }
    connect(&m_factoryResetCountdownTimer, &QTimer::timeout, this,
            &TrackingRun::factoryResetCountdownTimeout);
    connect(&m_startTrackingTimer, &QTimer::timeout, this, &TrackingRun::startTracking);
    connect(&m_counter, &FimCounter::countChanged, this, &TrackingRun::countChanged);
    connect(&m_counter, &FimCounter::sideFinished, this, &TrackingRun::sideFinished);
    connect(&m_counter, &FimCounter::resultsReady, this, &TrackingRun::processResults);
}

void TrackingRun::prepare()
{
    stopAllTimers();
    m_counter.reset();
    m_stopReason = StopReason::None;
    m_mode = TrackingMode::Cancelled;
    m_factoryResetRequested = false;
    m_factoryResetExecutingSeen = false;
    m_factoryResetDoneHandled = false;
    m_countingEnabled = false;
    m_earthFaultReported = false;
    m_loopLeakageReported = false;
    m_countdownShown = false;
    m_factoryResetCountdown = kFactoryResetSeconds;
    setPhase(Phase::Confirmation);
}

void TrackingRun::begin(TrackingMode mode)
{
    Q_ASSERT(mode != TrackingMode::Cancelled);
    m_mode = mode;
    m_counter.setSecondarySideTracked(mode == TrackingMode::Commissioning);
    setPhase(Phase::FactoryReset);
}

void TrackingRun::stop(StopReason reason)
{
    if (m_phase == Phase::Idle || m_phase == Phase::Finished) {
        return;
    }
    stopAllTimers();
    m_countdownShown = false;
    m_stopReason = reason;
    setPhase(Phase::Idle);
}

bool TrackingRun::isActive() const
{
    return m_phase == Phase::FactoryReset || m_phase == Phase::Rebooting ||
           m_phase == Phase::Counting;
}

int TrackingRun::secondsGone() const
{
    return (kPhaseClockPeriod - m_phaseClock.remainingTime()) / kMillisecondsPerSecond;
}

std::optional<int> TrackingRun::secondsLeft() const
{
    if (m_factoryResetCountdownTimer.isActive()) {
        return m_factoryResetCountdown;
    }
    if (m_startTrackingTimer.isActive()) {
        return toSecondsRoundedUp(m_startTrackingTimer.remainingTime());
    }
    return std::nullopt;
}

void TrackingRun::processRecord(const QList<QStringList>& dataList)
{
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

bool TrackingRun::processLdbState(LdbState state)
{
    switch (state) {
    case LdbState::FactoryResetFailed:
        stop(StopReason::FactoryResetFailed);
        break;
    case LdbState::Disconnected:
        stop(StopReason::LdbDisconnected);
        break;
    case LdbState::FactoryResetDone:
        if (!m_factoryResetDoneHandled) {
            processFactoryResetDone();
        }
        break;
    case LdbState::Booting:
        if (m_factoryResetRequested && m_factoryResetExecutingSeen && !m_countingEnabled) {
            m_countingEnabled = true;
            hideCountdown();
            setPhase(Phase::Counting);
        }
        break;
    case LdbState::FactoryResetExecuting:
        // Many records carry this state; the countdown runs from the first.
        if (m_factoryResetRequested && !m_factoryResetExecutingSeen) {
            m_factoryResetExecutingSeen = true;
            showCountdown();
        }
        break;
    default:
        break;
    }
    // Also when the first record ended the run: an LDB that remembers a failed factory reset needs
    // a new one before any run can succeed.
    if (state != LdbState::FactoryResetDone && !m_factoryResetRequested) {
        m_factoryResetRequested = true;
        emit commandDue(TrackedLdb::Command::FactoryReset);
    }
    return m_countingEnabled;
}

void TrackingRun::processFactoryResetDone()
{
    m_factoryResetDoneHandled = true;
    m_factoryResetRequested = true;
    m_factoryResetExecutingSeen = true;
    hideCountdown();
    m_startTrackingTimer.start();
    if (m_phase == Phase::FactoryReset) {
        setPhase(Phase::Rebooting);
    }
}

void TrackingRun::showCountdown()
{
    m_countdownShown = true;
    m_factoryResetCountdownTimer.start();
    emit countdownChanged(m_factoryResetCountdown);
}

void TrackingRun::hideCountdown()
{
    m_countdownShown = false;
    m_factoryResetCountdownTimer.stop();
}

void TrackingRun::factoryResetCountdownTimeout()
{
    if (m_factoryResetCountdown < 1) {
        m_factoryResetCountdownTimer.stop();
        return;
    }
    --m_factoryResetCountdown;
    emit countdownChanged(m_factoryResetCountdown);
}

void TrackingRun::startTracking()
{
    emit commandDue(TrackedLdb::Command::LdbReset);
    emit commandDue(TrackedLdb::Command::MuteAudio);
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
    if (m_earthFaultReported || !faultreport::isEarthLeakage(earthState)) {
        return false;
    }
    m_earthFaultReported = true;
    emit faultReported(faultNow(FaultReport::Kind::EarthLeakage));
    return true;
}

bool TrackingRun::processLoopLeakageFault(LdbLoopState loopState)
{
    if (m_loopLeakageReported || !faultreport::isLoopDcLeakage(loopState)) {
        return false;
    }
    m_loopLeakageReported = true;
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
    m_factoryResetCountdownTimer.stop();
    m_startTrackingTimer.stop();
    m_counter.stopAllTimers();
}

void TrackingRun::setPhase(Phase phase)
{
    m_phase = phase;
    m_phaseClock.start();
    emit phaseChanged(phase);
}
