#pragma once

#include "serial/ldb/ldbstatus.h"
#include "simulator/board/loopmodel.h"
#include "simulator/line/line.h"

#include <QString>
#include <QStringList>

#include <optional>

/// What a trainer can have the simulation do.
enum class CommandVerb
{
    LoopFault,
    EarthWire,
    PortShort,
    SecondaryPort,
    Amplifier,
    Mode,
    ResetsFail,
    Silent,
    BadCheck,
    WrongLength,
    Nak,
    Late,
    Noise,
    Fragments,
    Vanish,
    Appear,
    BadBus,
    LineKind,
    Flips,
    Losses,
    LateAnswers,
    Stray,
    Stalls,
    Vanishing,
    Cut,
    Restore,
    List,
    Help,
    Quit
};

/// Which requests an LDB refuses.
enum class NakScope
{
    None,
    All,
    Changes, ///< parameters and actions
    Index    ///< changes of one parameter
};

/// One command, as typed or as an event of a scenario names it. Which members count depends on the
/// verb.
struct SimulatorCommand
{
    CommandVerb verb = CommandVerb::Help;
    int address = kAllLdbs; ///< 1 to 253
    FaultPhase phase = FaultPhase::Present;
    LoopFaultKind loopFault = LoopFaultKind::Open;
    std::optional<int> afterFim; ///< nothing: the middle of the loop
    LoopPort port = LoopPort::Primary;
    LdbAmplifierState amplifier = LdbAmplifierState::Ok;
    std::optional<LdbState> mode; ///< nothing: the LDB's own
    bool on = true;
    std::optional<int> times; ///< answers that a fault on the wire spoils; nothing: until told
    int milliseconds = 0;
    NakScope nakScope = NakScope::None;
    int index = 0; ///< of the parameter that `NakScope::Index` means
    LineKind lineKind = LineKind::FullDuplex;
    Adversaries adversaries;  ///< what the verb is about; but for that the defaults
    bool hasLateness = false; ///< whether the range of lateness is named; else it stays as it is
    double seconds = 0;       ///< a cut line comes back by itself then; 0: never

    static constexpr int kAllLdbs = 0;
};

/// A command, or what is wrong with its text.
struct CommandParsing
{
    std::optional<SimulatorCommand> command;
    QString error; ///< one line; empty when there is a command
};

/// The one grammar of typed commands and of a scenario's events and faults. Whether the LDB named
/// exists is not known here. An empty line gives neither a command nor an error.
CommandParsing parseSimulatorCommand(const QString& text);

/// One line a command: its form and what it does.
QStringList simulatorCommandHelp();
