#include "simulator/board/simulatedldb.h"

#include "simulator/board/answerencoder.h"

namespace {

constexpr quint32 kSecondarySeedOffset = 0x9E3779B9U;
constexpr unsigned kMillivoltsPerAuxiliaryStep = 8;

LdbPortShort portShort(FaultPhase phase)
{
    switch (phase) {
    case FaultPhase::Present:
        return LdbPortShort::Short;
    case FaultPhase::Memory:
        return LdbPortShort::ShortMemory;
    case FaultPhase::Clear:
        break;
    }
    return LdbPortShort::None;
}

FaultPhase ifDetecting(bool isDetecting, FaultPhase phase)
{
    return isDetecting ? phase : FaultPhase::Clear;
}

} // namespace

SimulatedLdb::SimulatedLdb(const LdbSpec& spec, const LdbTiming& timing, quint32 seed, qint64 now)
    : m_address(spec.address)
    , m_firmware(spec.firmware)
    , m_settings(spec.settings)
    , m_timing(timing)
    , m_loop(spec.fims, now)
    , m_signals{PortSignal(seed), PortSignal(seed ^ kSecondarySeedOffset)}
    , m_now(now)
    , m_isInServiceMode(spec.isInServiceMode)
{
    enter(restingState(), now);
    if (m_stateEnds && m_timing.measuring > 0) {
        // Boards that were installed one by one do not measure in step.
        *m_stateEnds -= seed % m_timing.measuring;
    }
}

LdbState SimulatedLdb::state() const
{
    return m_reportedState.value_or(m_state);
}

void SimulatedLdb::advance(qint64 now)
{
    while (m_stateEnds && now >= *m_stateEnds) {
        enter(successor(), *m_stateEnds);
    }
    m_loop.advance(now);
    m_now = now;
}

bool SimulatedLdb::control(LdbControl control, qint64 now)
{
    advance(now);
    if (isBusyWithFactoryReset()) {
        return false;
    }
    const bool isStarting = m_state == LdbState::Booting || m_state == LdbState::FactoryResetDone ||
                            m_state == LdbState::FactoryResetFailed;
    switch (control) {
    case LdbControl::LdbReset:
        powerUp(now);
        return true;
    case LdbControl::FimReset:
        if (!isStarting) {
            enter(LdbState::FimResetExecuting, now);
        }
        return !isStarting;
    case LdbControl::FactoryReset:
        // Out of service mode only an LDB reset leads.
        if (!m_isInServiceMode) {
            enter(LdbState::FactoryResetExecuting, now);
        }
        return !m_isInServiceMode;
    case LdbControl::ServiceMode:
        if (!isStarting) {
            m_isInServiceMode = true;
            enter(LdbState::ServiceMode, now);
        }
        return !isStarting;
    }
    return false;
}

bool SimulatedLdb::change(LdbParameter parameter, const QByteArray& digits, qint64 now)
{
    advance(now);
    return !isBusyWithFactoryReset() && m_settings.write(parameter, digits);
}

LdbStatus SimulatedLdb::measure(qint64 now)
{
    advance(now);
    LdbStatus status;
    status.firstByte = static_cast<quint8>(m_address);
    status.state = state();
    measureFaults(status);
    measurePort(LoopPort::Primary, status.primaryVoltage, status.primaryAuxiliary,
                status.primaryCurrent);
    measurePort(LoopPort::Secondary, status.secondaryVoltage, status.secondaryAuxiliary,
                status.secondaryCurrent);
    return status;
}

void SimulatedLdb::powerUp(qint64 now)
{
    m_isInServiceMode = false;
    enter(LdbState::Booting, now);
}

void SimulatedLdb::setLoopFault(LoopFaultKind kind, FaultPhase phase, int afterFim, qint64 now)
{
    advance(now);
    m_loop.setFault(kind, phase, afterFim);
}

void SimulatedLdb::setSecondaryConnected(bool connected, qint64 now)
{
    advance(now);
    m_loop.setSecondaryConnected(connected);
}

void SimulatedLdb::setPortShort(LoopPort port, FaultPhase phase)
{
    m_portShorts[static_cast<std::size_t>(port)] = phase;
}

void SimulatedLdb::enter(LdbState state, qint64 at)
{
    switch (state) {
    case LdbState::Booting:
        m_loop.start(at);
        break;
    case LdbState::FactoryResetExecuting:
        m_loop.switchOff();
        break;
    case LdbState::FactoryResetDone:
        m_settings.resetToFactory();
        break;
    case LdbState::FimResetDone:
        m_loop.forget();
        break;
    case LdbState::ServiceMode:
        m_isInServiceMode = true;
        break;
    default:
        break;
    }
    m_state = state;
    const qint64 time = duration(state);
    m_stateEnds = time > 0 ? std::optional<qint64>(at + time) : std::nullopt;
}

LdbState SimulatedLdb::successor() const
{
    switch (m_state) {
    case LdbState::Booting:
        return m_settings.has(StartInServiceModeFlag) ? LdbState::ServiceMode : LdbState::Measuring;
    case LdbState::Measuring:
        return LdbState::Quiescent;
    case LdbState::Quiescent:
        return LdbState::Measuring;
    case LdbState::FimResetExecuting:
        return m_resetsFail ? LdbState::FimResetFailed : LdbState::FimResetDone;
    case LdbState::FactoryResetExecuting:
        return m_resetsFail ? LdbState::FactoryResetFailed : LdbState::FactoryResetDone;
    case LdbState::FactoryResetDone:
    case LdbState::FactoryResetFailed:
        return LdbState::Booting;
    default:
        return restingState();
    }
}

LdbState SimulatedLdb::restingState() const
{
    return m_isInServiceMode ? LdbState::ServiceMode : LdbState::Measuring;
}

/// 0 for a state that stays until a command ends it.
qint64 SimulatedLdb::duration(LdbState state) const
{
    switch (state) {
    case LdbState::Booting:
        return m_timing.booting;
    case LdbState::Measuring:
        return m_timing.measuring;
    case LdbState::Quiescent:
        return m_timing.quiescent;
    case LdbState::FimResetExecuting:
        return m_timing.fimReset;
    case LdbState::FimResetDone:
    case LdbState::FimResetFailed:
        return m_timing.fimResetOutcome;
    case LdbState::FactoryResetExecuting:
        return m_timing.factoryReset;
    case LdbState::FactoryResetDone:
    case LdbState::FactoryResetFailed:
        return m_timing.factoryResetOutcome;
    default:
        return 0;
    }
}

void SimulatedLdb::measureFaults(LdbStatus& status) const
{
    const FaultPhase shorted = m_loop.phase(LoopFaultKind::Short);
    // A short hides whatever is open behind it.
    const bool isOpenVisible = m_settings.openDetectionDelay != 0 &&
                               !(shorted == FaultPhase::Present &&
                                 m_loop.phase(LoopFaultKind::Open) == FaultPhase::Present);
    status.loopByte =
        answerencoder::phaseBits(ifDetecting(isOpenVisible, m_loop.phase(LoopFaultKind::Open)));
    status.loopNibbles =
        answerencoder::nibbles(answerencoder::phaseBits(m_loop.phase(LoopFaultKind::DcLeakage)),
                               answerencoder::phaseBits(shorted));
    status.earthByte1 = answerencoder::phaseBits(ifDetecting(
        m_settings.has(EarthLeakageDetectionFlag), m_loop.phase(LoopFaultKind::EarthLeakage)));
    status.earthByte2 = answerencoder::phaseBits(
        ifDetecting(m_settings.has(EarthWireOpenDetectionFlag), m_earthWire));
    status.primaryPortShort = static_cast<quint8>(portShort(m_portShorts[0]));
    status.secondaryPortShort = static_cast<quint8>(portShort(m_portShorts[1]));
    const bool watchesAmplifier = m_settings.has(AmplifierDetectionFlag);
    status.amplifier = static_cast<quint8>(watchesAmplifier ? m_amplifier : LdbAmplifierState::Ok);
}

void SimulatedLdb::measurePort(LoopPort port, quint16& voltage, quint16& auxiliary,
                               quint16& current)
{
    if (!m_loop.isPowered()) {
        return;
    }
    PortSignal& signal = m_signals[static_cast<std::size_t>(port)];
    const int load = m_loop.current(port);
    voltage = signal.voltage(load, m_state == LdbState::Measuring, m_loop.isSurging(port), m_now);
    auxiliary = static_cast<quint16>(voltage / kMillivoltsPerAuxiliaryStep);
    current = load > 0 ? static_cast<quint16>(signal.current(load, m_now)) : quint16{0};
}
