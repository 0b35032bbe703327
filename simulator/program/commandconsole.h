#pragma once

#include "simulator/program/simulation.h"

#include <QByteArray>
#include <QObject>

class QSocketNotifier;

/// Takes the trainer's commands from a file descriptor, a line each, and prints what comes of them
/// to standard output. The end of the input ends nothing but the listening.
class CommandConsole : public QObject
{
    Q_OBJECT
public:
    CommandConsole(int descriptor, Simulation& simulation, QObject* parent = nullptr);

    /// Prints a line at once.
    static void print(const QString& line);

private:
    void readAvailable();
    void run(const QByteArray& line);

    int m_descriptor;
    Simulation& m_simulation;
    QSocketNotifier* m_notifier;
    QByteArray m_collected;
};
