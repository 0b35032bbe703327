#include "tracking/plot/recentsamples.h"

void RecentSamples::add(const QString& hexId, const PlotSample& sample)
{
    auto ldb = m_ldbs.find(hexId);
    if (ldb == m_ldbs.end()) {
        ldb = m_ldbs.insert(hexId, {m_ldbs.size(), sample.time});
    }
    ldb->latest = sample.time;
    m_entries.push_back({ldb->number, sample});
    if (m_entries.size() > m_limit) {
        m_entries.pop_front();
    }
}

void RecentSamples::clear()
{
    m_ldbs.clear();
    m_entries.clear();
}

std::optional<double> RecentSamples::latest(const QString& hexId) const
{
    const auto ldb = m_ldbs.constFind(hexId);
    return ldb == m_ldbs.constEnd() ? std::nullopt : std::make_optional(ldb->latest);
}

std::vector<PlotSample> RecentSamples::of(const QString& hexId) const
{
    std::vector<PlotSample> samples;
    const auto ldb = m_ldbs.constFind(hexId);
    if (ldb == m_ldbs.constEnd()) {
        return samples;
    }
    for (const Entry& entry : m_entries) {
        if (entry.ldb == ldb->number) {
            while (!samples.empty() && samples.back().time >= entry.sample.time) {
                samples.pop_back();
            }
            samples.push_back(entry.sample);
        }
    }
    return samples;
}
