#pragma once

#include "serial/ldb/ldbsettings.h"
#include "serial/ldb/ldbstatus.h"
#include "simulator/board/loopmodel.h"
#include "simulator/board/portsignal.h"
#include "simulator/board/storedsettings.h"

#include <QByteArray>

#include <array>
#include <optional>

/// How long a board stays in each of its passing states, in ms.
struct LdbTiming
{
    qint64 booting = 8000;
    qint64 measuring = 20000;
    qint64 quiescent = 40000;
    qint64 fimReset = 10000;
    qint64 fimResetOutcome = 5000;
    qint64 factoryReset = 120000;
    /// A finished factory reset waits so long for an LDB reset before the board boots by itself.
    qint64 factoryResetOutcome = 60000;
};

/// What distinguishes one board from another when it is installed.
struct LdbSpec
{
    int address = 0; ///< 1 to 253
    QByteArray firmware;
    StoredSettings settings;
    int fims = 0; ///< really on the loop, whatever the settings say
    bool isInServiceMode = false;
};

/// One loop drive board with its loop. A value without timers: every call that takes `now` (ms of
/// one clock) first catches up with what happened since the last one.
class SimulatedLdb
{
public:
    /// A board that has been running for a while. `seed` fixes its measured values' course.
    SimulatedLdb(const LdbSpec& spec, const LdbTiming& timing, quint32 seed, qint64 now);

    int address() const { return m_address; }
    const QByteArray& firmware() const { return m_firmware; }
    const StoredSettings& settings() const { return m_settings; }
    LdbState state() const;
    const LoopModel& loop() const { return m_loop; }

    void advance(qint64 now);

    /// Starts a reset or service mode. False when the board refuses: nothing happens then.
    bool control(LdbControl control, qint64 now);
    /// Writes a parameter. False when the board refuses: nothing changes then.
    bool change(LdbParameter parameter, const QByteArray& digits, qint64 now);
    /// The status as measured now; each call measures anew.
    LdbStatus measure(qint64 now);

    /// Power on: boots, and starts its loop.
    void powerUp(qint64 now);

    // Faults, from the trainer's side.
    void setLoopFault(LoopFaultKind kind, FaultPhase phase, int afterFim, qint64 now);
    void setSecondaryConnected(bool connected, qint64 now);
    void setEarthWire(FaultPhase phase) { m_earthWire = phase; }
    void setPortShort(LoopPort port, FaultPhase phase);
    void setAmplifier(LdbAmplifierState state) { m_amplifier = state; }
    /// Reports this state instead of its own one until it gets nothing.
    void setReportedState(std::optional<LdbState> state) { m_reportedState = state; }
    /// Whether FIM and factory resets end in failure.
    void setResetsFail(bool fail) { m_resetsFail = fail; }

private:
    void enter(LdbState state, qint64 at);
    LdbState successor() const;
    LdbState restingState() const;
    qint64 duration(LdbState state) const;
    bool isBusyWithFactoryReset() const { return m_state == LdbState::FactoryResetExecuting; }

    void measureFaults(LdbStatus& status) const;
    void measurePort(LoopPort port, quint16& voltage, quint16& auxiliary, quint16& current);

    int m_address;
    QByteArray m_firmware;
    StoredSettings m_settings;
    LdbTiming m_timing;
    LoopModel m_loop;
    std::array<PortSignal, 2> m_signals;
    qint64 m_now;

    LdbState m_state = LdbState::Quiescent;
    std::optional<qint64> m_stateEnds; ///< nothing for a state that stays
    bool m_isInServiceMode = false;    ///< also while a FIM reset runs in it

    std::optional<LdbState> m_reportedState;
    bool m_resetsFail = false;
    FaultPhase m_earthWire = FaultPhase::Clear;
    std::array<FaultPhase, 2> m_portShorts{};
    LdbAmplifierState m_amplifier = LdbAmplifierState::Ok;
};
