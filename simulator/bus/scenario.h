#pragma once

#include "simulator/board/simulatedldb.h"
#include "simulator/bus/simulatorcommand.h"
#include "simulator/line/line.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

/// Something that happens at a given time, once or over and over.
struct ScenarioEvent
{
    qint64 at = 0;    ///< ms from the start
    qint64 every = 0; ///< ms; 0: once
    SimulatorCommand command;
};

/// One board together with the faults it starts with.
struct ScenarioLdb
{
    LdbSpec spec;
    std::vector<SimulatorCommand> faults;
};

/// The line between the boards and the master.
struct ScenarioLine
{
    LineKind kind = LineKind::FullDuplex;
    int leastTurnaround = 1; ///< ms from a request to its answer, evenly up to `mostTurnaround`
    int mostTurnaround = 1;
    Adversaries adversaries;

    ScenarioLine() { adversaries.lateFrom = kLateFrom; }

    static constexpr int kLateFrom = 130; ///< ms
};

/// An installation and what happens to it.
struct Scenario
{
    quint32 seed = 1;
    LdbTiming timing;
    ScenarioLine line;
    std::vector<ScenarioLdb> ldbs; ///< at different addresses
    std::vector<ScenarioEvent> events;
};

/// A scenario, or what is wrong with the file.
struct ScenarioReading
{
    std::optional<Scenario> scenario;
    QString error; ///< one line that names the key; empty when there is a scenario
};

/// Reads a scenario from JSON; the README gives the format. Never fails otherwise than by telling.
ScenarioReading readScenario(const QByteArray& json);
ScenarioReading readScenarioFile(const QString& path);

/// The installation that is simulated when none is asked for: eight LDBs.
Scenario defaultScenario();

/// A healthy board as it comes from the shelf.
LdbSpec standardLdb(int address);
