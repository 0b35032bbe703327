#pragma once

#include "simulator/program/simulation.h"

#include <QObject>
#include <QString>
#include <QThread>

#include <memory>

/// A simulated installation in a thread of its own, so that it answers while the program under
/// measurement is busy. Ends the benchmark when it cannot start. Destroying it hangs up its line.
class SimulatedSite
{
public:
    /// An empty journal path keeps no journal.
    SimulatedSite(const Scenario& scenario, Simulation::Pace pace, const QString& journalPath = {});
    ~SimulatedSite();
    SimulatedSite(const SimulatedSite&) = delete;
    SimulatedSite& operator=(const SimulatedSite&) = delete;

    QString portName() const { return m_portName; }

private:
    QThread m_thread;
    QObject m_context; ///< stands for the thread
    std::unique_ptr<Simulation> m_simulation;
    QString m_portName;
};

/// Healthy boards at all 253 addresses.
Scenario fullScenario();
