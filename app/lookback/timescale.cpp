#include "app/lookback/timescale.h"

#include "serial/ldb/microseconds.h"

#include <QDateTime>

#include <algorithm>
#include <array>

namespace {

using microseconds::kDay;
using microseconds::kHour;
using microseconds::kMinute;
using microseconds::kSecond;
constexpr std::array kSteps{10 * kSecond, 30 * kSecond, kMinute,   5 * kMinute, 10 * kMinute,
                            30 * kMinute, kHour,        3 * kHour, 6 * kHour,   12 * kHour,
                            kDay,         2 * kDay,     7 * kDay,  30 * kDay};

/// What a clock on the wall shows, as if it were UTC.
qint64 clockOf(qint64 at)
{
    return at + microseconds::localTime(at).offsetFromUtc() * kSecond;
}

} // namespace

TimeScale::TimeScale(TimeSpan span, int width)
    : m_span{span.from, std::max(span.to, span.from + kShortest)}
    , m_width(std::max(width, 1))
{
}

double TimeScale::xOf(qint64 at) const
{
    const qint64 within = std::clamp(at, m_span.from, m_span.to) - m_span.from;
    return static_cast<double>(within) * m_width / static_cast<double>(m_span.to - m_span.from);
}

qint64 TimeScale::atOf(double x) const
{
    const double share = std::clamp(x / m_width, 0.0, 1.0);
    return m_span.from + static_cast<qint64>(share * static_cast<double>(m_span.to - m_span.from));
}

TimeSpan TimeScale::zoomed(qint64 around, double factor, TimeSpan bounds) const
{
    const qint64 length = m_span.to - m_span.from;
    const qint64 longest = std::max(bounds.to - bounds.from, kShortest);
    const qint64 wanted = std::clamp(static_cast<qint64>(static_cast<double>(length) * factor),
                                     std::min(kShortest, longest), longest);
    const double share = xOf(around) / m_width;
    const qint64 from =
        std::clamp(around - static_cast<qint64>(share * static_cast<double>(wanted)), bounds.from,
                   bounds.from + longest - wanted);
    return {from, from + wanted};
}

qint64 TimeScale::stepOf(int apart) const
{
    const double least =
        static_cast<double>(m_span.to - m_span.from) / m_width * static_cast<double>(apart);
    const auto* step = std::find_if(kSteps.begin(), kSteps.end(), [least](qint64 each) {
        return static_cast<double>(each) >= least;
    });
    if (step != kSteps.end()) {
        return *step;
    }
    // A clock that was not set when a recording began makes it decades long.
    const qint64 longest = kSteps.back();
    return (static_cast<qint64>(least) / longest + 1) * longest;
}

bool TimeScale::isInDays(int apart) const
{
    return stepOf(apart) >= kDay;
}

std::vector<qint64> TimeScale::ticks(int apart) const
{
    const qint64 step = stepOf(apart);
    const qint64 offset = clockOf(m_span.from) - m_span.from;
    std::vector<qint64> result;
    qint64 at = m_span.from;
    for (qint64 clock = clockOf(m_span.from) / step * step; at < m_span.to; clock += step) {
        // Back to a moment, by the offset in force around it.
        const qint64 guess = clock - offset;
        at = clock - (clockOf(guess) - guess);
        if (at > m_span.from && at < m_span.to && (result.empty() || at > result.back())) {
            result.push_back(at);
        }
    }
    return result;
}
