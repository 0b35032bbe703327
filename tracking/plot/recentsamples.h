#pragma once

#include "tracking/plot/plothistorysource.h"

#include <QHash>

#include <deque>
#include <optional>

/// What this run has told of all LDBs, so that the plot of one that is selected only now need not
/// begin empty. It holds a limited number of samples of all LDBs together; the oldest go first. A
/// plain value; one thread at a time.
class RecentSamples
{
public:
    /// At the pace of the bus, six records a second, more than nine hours. 10 MB.
    static constexpr int kDefaultLimit = 200000;

    explicit RecentSamples(int limit = kDefaultLimit)
        : m_limit(static_cast<std::size_t>(limit))
    {
    }

    void add(const QString& hexId, const PlotSample& sample);
    void clear();

    /// The time of the sample that was added last of that LDB; nothing where there is none.
    std::optional<double> latest(const QString& hexId) const;
    /// All of that LDB, rising in time: what is later than a sample that was added after it was
    /// told before the clock was set back, and is left out.
    std::vector<PlotSample> of(const QString& hexId) const;

private:
    struct Entry
    {
        int ldb;
        PlotSample sample;
    };
    struct Ldb
    {
        int number;
        double latest;
    };

    std::size_t m_limit;
    QHash<QString, Ldb> m_ldbs;
    std::deque<Entry> m_entries; ///< as they came
};
