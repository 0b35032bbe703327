#pragma once

#include <QProcess>
#include <QString>

/// A running `ldb-simulator`, which takes commands. Ends the program when it cannot be started.
class SimulatorProcess
{
public:
    /// `link` is the path by which its port is reached.
    SimulatorProcess(const QString& program, const QString& scenarioFile, const QString& link);
    ~SimulatorProcess();
    SimulatorProcess(const SimulatorProcess&) = delete;
    SimulatorProcess& operator=(const SimulatorProcess&) = delete;

    /// Any command that is typed to it, without the line end.
    void send(const QString& command);

private:
    QProcess m_process;
};
