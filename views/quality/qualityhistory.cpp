#include "views/quality/qualityhistory.h"

#include "serial/ldb/microseconds.h"

#include <algorithm>

namespace {

using microseconds::kHour;
using microseconds::kMinute;
using microseconds::kSecond;
// What is told reaches the disk a second or two later.
constexpr qint64 kSettled = 3 * kSecond;
// The most that is read at once: others wait for the disk meanwhile.
constexpr qint64 kPiece = 6 * kHour;

/// How a reach is cut into bars and samples.
struct Cut
{
    qint64 bar;   ///< length of a bar
    int bars;     ///< how many
    qint64 every; ///< from the begin of a sample of flight times to the next one
    qint64 taken; ///< length of a sample
};

Cut cutOf(QualityReach reach)
{
    switch (reach) {
    case QualityReach::Now:
        break;
    case QualityReach::Hour:
        return {kMinute, 60, kMinute, 20 * kSecond};
    case QualityReach::Day:
        return {15 * kMinute, 96, 30 * kMinute, 20 * kSecond};
    case QualityReach::Week:
        return {2 * kHour, 84, 3 * kHour, 20 * kSecond};
    }
    return {kMinute, 5, kMinute, kMinute};
}

} // namespace

qint64 QualityHistory::barLength() const
{
    return cutOf(m_reach).bar;
}

TimeSpan QualityHistory::span() const
{
    const Cut cut = cutOf(m_reach);
    // A bar that has just begun shows little, so it comes in addition to the whole ones.
    return {barBegin(m_end) - (m_end % cut.bar == 0 ? cut.bars : cut.bars - 1) * cut.bar, m_end};
}

void QualityHistory::setEnd(QualityReach reach, qint64 end)
{
    if (reach != m_reach || end < m_end) {
        clear();
    }
    m_reach = reach;
    m_end = end;
    const qint64 begin = span().from;
    for (auto ldb = m_bars.begin(); ldb != m_bars.end();) {
        while (!ldb->isEmpty() && ldb->firstKey() < begin) {
            ldb->erase(ldb->begin());
        }
        ldb = ldb->isEmpty() ? m_bars.erase(ldb) : std::next(ldb);
    }
    while (!m_flightsUntil.isEmpty() && m_flightsUntil.firstKey() < begin) {
        m_flights.remove(m_flightsUntil.firstKey());
        m_flightsUntil.erase(m_flightsUntil.begin());
    }
}

std::optional<QualityHistory::Need> QualityHistory::need() const
{
    const TimeSpan whole = span();
    if (m_readUntil < whole.to) {
        const qint64 from = std::max(whole.from, barBegin(m_settledUntil));
        return Need{{from, std::min(whole.to, from + kPiece)},
                    static_cast<int>(barLength() / kMinute),
                    false};
    }
    if (const auto slice = nextSlice()) {
        return Need{{slice->from, slice->to}, 1, true};
    }
    return std::nullopt;
}

std::optional<QualityHistory::Slice> QualityHistory::nextSlice() const
{
    const Cut cut = cutOf(m_reach);
    const TimeSpan whole = span();
    const qint64 first = (whole.from + cut.every - 1) / cut.every * cut.every;
    for (qint64 from = first; from < whole.to; from += cut.every) {
        const qint64 to = std::min(from + cut.taken, whole.to);
        const qint64 until = m_flightsUntil.value(from, 0);
        // A piece that was not over, or not wholly on the disk, when it was read.
        if (until == 0 || (until < from + cut.taken + kSettled && until < whole.to)) {
            return Slice{from, to};
        }
    }
    return std::nullopt;
}

void QualityHistory::take(const Need& need, const std::vector<RecordedMinute>& minutes)
{
    for (auto& bars : m_bars) {
        for (auto bar = bars.lowerBound(need.span.from);
             bar != bars.end() && bar.key() < need.span.to;) {
            bar = bars.erase(bar);
        }
    }
    for (const RecordedMinute& minute : minutes) {
        m_bars[minute.hexId][barBegin(minute.at)].add(minute);
    }
    m_readUntil = std::max(m_readUntil, need.span.to);
    m_settledUntil = std::min(m_readUntil, m_end - kSettled);
}

void QualityHistory::take(const Need& need, const std::vector<std::pair<QString, int>>& flights)
{
    m_flights.insert(need.span.from, flights);
    // Counts only what had come by the end in force.
    m_flightsUntil.insert(need.span.from, m_end);
}

void QualityHistory::clear()
{
    m_readUntil = 0;
    m_settledUntil = 0;
    m_bars.clear();
    m_flights.clear();
    m_flightsUntil.clear();
}

CountsOfLdbs QualityHistory::counts() const
{
    CountsOfLdbs counts;
    for (auto ldb = m_bars.begin(); ldb != m_bars.end(); ++ldb) {
        for (const QualityCounts& bar : *ldb) {
            counts[ldb.key()].add(bar);
        }
    }
    return counts;
}

std::vector<LineQuality> QualityHistory::lines() const
{
    const Cut cut = cutOf(m_reach);
    const TimeSpan whole = span();
    QMap<QString, std::vector<int>> flights;
    std::vector<int> all;
    for (const auto& piece : m_flights) {
        for (const auto& [hexId, flight] : piece) {
            flights[hexId].push_back(flight);
            all.push_back(flight);
        }
    }
    LineQuality bus;
    bus.flights = flightTimesOf(std::move(all));
    for (int bar = 0; bar < cut.bars; ++bar) {
        bus.bars.push_back({whole.from + bar * cut.bar, {}});
    }
    std::vector<LineQuality> lines{bus};
    for (auto ldb = m_bars.begin(); ldb != m_bars.end(); ++ldb) {
        LineQuality line;
        line.hexId = ldb.key();
        line.flights = flightTimesOf(flights.value(ldb.key()));
        line.bars.reserve(bus.bars.size());
        for (std::size_t bar = 0; bar < bus.bars.size(); ++bar) {
            line.bars.push_back({bus.bars[bar].at, ldb->value(bus.bars[bar].at)});
            line.counts.add(line.bars.back().counts);
            lines.front().bars[bar].counts.add(line.bars.back().counts);
        }
        lines.front().counts.add(line.counts);
        lines.push_back(std::move(line));
    }
    std::stable_sort(lines.begin() + 1, lines.end(),
                     [](const LineQuality& one, const LineQuality& other) {
                         const QualityCounts& a = one.counts;
                         const QualityCounts& b = other.counts;
                         if (a.isEnough() != b.isEnough()) {
                             return a.isEnough();
                         }
                         return a.bad() * b.asked > b.bad() * a.asked;
                     });
    return lines;
}
