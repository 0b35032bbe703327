#pragma once

#include "simulator/program/simulationclock.h"
#include "tests/support/virtualtime.h"

#include <QtTest>

/// The dispatcher's time, for what hosts a line. What is shorter than the dispatcher's milliseconds
/// passes only where somebody waits; the clock is then ahead by that.
class VirtualClock : public SimulationClock
{
public:
    qint64 microseconds() const override
    {
        return qMax(VirtualTime::current()->now() * 1000, m_waitedUntil);
    }
    void wait(qint64 microseconds) const override
    {
        QVERIFY2(microseconds < 1000, "blocks for longer than it may");
        m_waitedUntil = this->microseconds() + microseconds;
    }

private:
    mutable qint64 m_waitedUntil = 0;
};
