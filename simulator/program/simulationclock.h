#pragma once

#include <QElapsedTimer>

/// The time that a simulation runs by, counted from its start. Tests put their own in its place.
class SimulationClock
{
public:
    SimulationClock();
    virtual ~SimulationClock() = default;
    SimulationClock(const SimulationClock&) = delete;
    SimulationClock& operator=(const SimulationClock&) = delete;

    virtual qint64 microseconds() const;

    /// Blocks the calling thread. Only for what is too short for a timer: less than a millisecond.
    virtual void wait(qint64 microseconds) const;

    qint64 milliseconds() const;

private:
    QElapsedTimer m_timer;
};
