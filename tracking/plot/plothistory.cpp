#include "tracking/plot/plothistory.h"

#include <algorithm>

namespace {

constexpr double kNoValue = std::numeric_limits<double>::quiet_NaN();

} // namespace

int PlotHistory::firstNotBefore(double time) const
{
    const double* const begin = times();
    return static_cast<int>(std::lower_bound(begin, begin + size(), time) - begin);
}

int PlotHistory::firstAfter(double time) const
{
    const double* const begin = times();
    return static_cast<int>(std::upper_bound(begin, begin + size(), time) - begin);
}

void PlotHistory::addCurve(int curve)
{
    Curve added;
    added.values.assign(size(), kNoValue);
    m_curves[curve] = std::move(added);
}

bool PlotHistory::holds(double time) const
{
    const int index = firstNotBefore(time);
    return index < size() && m_times.at(index) == time;
}

int PlotHistory::add(int curve, double value, double time)
{
    Curve& target = m_curves.at(curve);
    int dropped = 0;
    if (!holds(time)) {
        if (time < target.latestTime) {
            dropped = dropLaterThan(time);
        }
        dropOldest();
        insertStamp(firstNotBefore(time), time);
    }
    target.latestTime = std::max(target.latestTime, time);
    target.values.set(firstNotBefore(time), value);
    return dropped;
}

std::vector<int> PlotHistory::curves() const
{
    std::vector<int> numbers;
    for (const auto& [number, curve] : m_curves) {
        numbers.push_back(number);
    }
    return numbers;
}

bool PlotHistory::isRecord(int index) const
{
    return std::any_of(m_curves.begin(), m_curves.end(), [index](const auto& curve) {
        return isDrawable(curve.second.values.at(index));
    });
}

void PlotHistory::prepend(const std::vector<double>& times,
                          const std::map<int, std::vector<double>>& values)
{
    const auto end =
        isEmpty() ? times.end() : std::lower_bound(times.begin(), times.end(), oldestTime());
    const int offered = static_cast<int>(end - times.begin());
    const int taken = std::min(offered, std::max(m_limit - size(), 0));
    const int first = offered - taken;
    const std::vector<double> none(static_cast<std::size_t>(taken), kNoValue);
    for (auto& [number, curve] : m_curves) {
        const auto given = values.find(number);
        curve.values.insertFront(given == values.end() ? none.data() : given->second.data() + first,
                                 taken);
    }
    if (taken > 0) {
        m_times.insertFront(times.data() + first, taken);
        for (auto& [number, curve] : m_curves) {
            curve.latestTime =
                std::max(curve.latestTime, times[static_cast<std::size_t>(offered - 1)]);
        }
    }
}

void PlotHistory::setLimit(int samples)
{
    m_limit = std::max(samples, 0);
}

void PlotHistory::clear()
{
    m_times.assign(0, kNoValue);
    for (auto& [number, curve] : m_curves) {
        curve = Curve();
    }
}

int PlotHistory::dropLaterThan(double time)
{
    const int kept = firstAfter(time);
    const int dropped = size() - kept;
    m_times.truncate(kept);
    for (auto& [number, curve] : m_curves) {
        curve.values.truncate(kept);
        curve.latestTime = std::min(curve.latestTime, time);
    }
    return dropped;
}

void PlotHistory::dropOldest()
{
    const int surplus = size() - m_limit;
    if (surplus <= 0) {
        return;
    }
    m_times.dropFront(surplus);
    for (auto& [number, curve] : m_curves) {
        curve.values.dropFront(surplus);
    }
}

void PlotHistory::insertStamp(int index, double time)
{
    m_times.insert(index, time);
    for (auto& [number, curve] : m_curves) {
        curve.values.insert(index, kNoValue);
    }
}
