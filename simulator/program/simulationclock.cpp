#include "simulator/program/simulationclock.h"

#include <QThread>

namespace {
constexpr qint64 kNanosecondsPerMicrosecond = 1000;
constexpr qint64 kMicrosecondsPerMillisecond = 1000;
} // namespace

SimulationClock::SimulationClock()
{
    m_timer.start();
}

qint64 SimulationClock::microseconds() const
{
    return m_timer.nsecsElapsed() / kNanosecondsPerMicrosecond;
}

void SimulationClock::wait(qint64 microseconds) const
{
    QThread::usleep(static_cast<unsigned long>(microseconds));
}

qint64 SimulationClock::milliseconds() const
{
    return microseconds() / kMicrosecondsPerMillisecond;
}
