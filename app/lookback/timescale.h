#pragma once

#include "recording/recordedvalues.h"

#include <vector>

/// Which time lies at which pixel of a time bar, and where a number stands under it. Moments are
/// UTC, µs since 1970. A plain value.
class TimeScale
{
public:
    /// Nothing is shown of a span shorter than that, µs.
    static constexpr qint64 kShortest = 60LL * 1000000;

    TimeScale() = default;
    TimeScale(TimeSpan span, int width);

    TimeSpan span() const { return m_span; }
    int width() const { return m_width; }
    /// Within the bar, whatever the moment.
    double xOf(qint64 at) const;
    qint64 atOf(double x) const;

    /// A span around a moment that stays where it is, wider by that factor, within these bounds.
    TimeSpan zoomed(qint64 around, double factor, TimeSpan bounds) const;
    /// Local times of day, or days, that are so many pixels apart at the least.
    std::vector<qint64> ticks(int apart) const;
    /// Whether ticks so far apart are whole days.
    bool isInDays(int apart) const;

private:
    qint64 stepOf(int apart) const;

    TimeSpan m_span{0, kShortest};
    int m_width = 1;
};
