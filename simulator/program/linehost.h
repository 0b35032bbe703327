#pragma once

#include "simulator/line/line.h"
#include "simulator/program/simulationclock.h"

#include <QByteArray>
#include <QObject>
#include <QTimer>

/// Runs a line in the time of a clock, by one precise timer: takes what a master writes to a port,
/// and gives what arrives at it when its time has come. Owns neither clock nor port.
class LineHost : public QObject
{
    Q_OBJECT
public:
    LineHost(const Line& line, const SimulationClock& clock, QObject* parent = nullptr);

    /// Bytes from the master, as they are found at the port.
    void receive(const QByteArray& bytes);

    Line& line() { return m_line; }
    const Line& line() const { return m_line; }
    /// In force from now on.
    void setAdversaries(const Adversaries& adversaries);

signals:
    /// Bytes have arrived at the master.
    void arrived(const QByteArray& bytes);

private:
    void work();

    Line m_line;
    const SimulationClock& m_clock;
    QTimer m_timer;
};
