#pragma once

#include "simulator/line/chance.h"

#include <limits>

/// A stretch of time, its end left out. Any unit.
struct Span
{
    qint64 from = std::numeric_limits<qint64>::max();
    qint64 to = std::numeric_limits<qint64>::max();

    bool contains(qint64 time) const { return time >= from && time < to; }
};

/// Interruptions of something, one after the other, each drawn when its time comes near.
class Interruptions
{
public:
    /// None come until `start`.
    explicit Interruptions(Chance chance)
        : m_chance(chance)
    {
    }

    /// From `now` on they begin every `every` on average, each lasting evenly from `shortest` to
    /// `longest`. An `every` of 0 ends them all.
    void start(double every, qint64 shortest, qint64 longest, qint64 now);

    /// The one that lasts at `time`, or else the next one. Never ask for an earlier time again.
    Span at(qint64 time);

private:
    void draw(qint64 after);

    Chance m_chance;
    double m_every = 0;
    qint64 m_shortest = 0;
    qint64 m_longest = 0;
    Span m_span;
};
