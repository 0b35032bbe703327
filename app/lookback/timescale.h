#pragma once

#include "recording/recordedvalues.h"

#include <vector>

/// Which time lies at which pixel of a time bar, and where its labels stand. Moments are
/// UTC, µs since 1970. A plain value.
class TimeScale
{
public:
    /// The shortest span that can be shown, µs.
    static constexpr qint64 kShortest = 60LL * 1000000;

    TimeScale() = default;
    TimeScale(TimeSpan span, int width);

    TimeSpan span() const { return m_span; }
    int width() const { return m_width; }
    /// Never outside the bar, whatever the moment.
    double xOf(qint64 at) const;
    qint64 atOf(double x) const;

    /// The span widened by that factor around a moment, which stays where it is, and cut to these
    /// bounds.
    TimeSpan zoomed(qint64 around, double factor, TimeSpan bounds) const;
    /// Local times of day, or days, at least that many pixels apart.
    std::vector<qint64> ticks(int apart) const;
    /// Whether ticks that far apart stand for whole days.
    bool isInDays(int apart) const;

private:
    qint64 stepOf(int apart) const;

    TimeSpan m_span{0, kShortest};
    int m_width = 1;
};
