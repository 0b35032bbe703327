#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>

/// The simulator as engineers run it: a process of its own that is told what to do in lines typed
/// on its standard input. Ends the benchmark when it cannot start, ends by itself, or does not
/// understand a command.
class SimulatorProcess
{
public:
    explicit SimulatorProcess(const QStringList& arguments);
    ~SimulatorProcess();
    SimulatorProcess(const SimulatorProcess&) = delete;
    SimulatorProcess& operator=(const SimulatorProcess&) = delete;

    void command(const QString& line);
    /// Puts it before all that other programs do, as boards are that nothing holds up. Whether the
    /// system allows that.
    bool makeRealTime();

private:
    void readOutput();

    QProcess m_process;
    bool m_isEnding = false;
};
