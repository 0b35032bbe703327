#include "tracking/plot/plothistorysource.h"

#include "serial/ldb/generalinformation.h"

#include <algorithm>
#include <cmath>

bool PlotSample::isGap() const
{
    return std::all_of(values.begin(), values.end(),
                       [](double value) { return std::isnan(value); });
}

PlotSample PlotSample::ofRecord(const QList<QStringList>& record, double time)
{
    using namespace generalinformation;
    constexpr std::array<std::pair<Value, Row>, ValueCount> kRows = {{
        {PrimaryVoltage, PrimaryVoltageRow},
        {SecondaryVoltage, SecondaryVoltageRow},
        {PrimaryCurrent, PrimaryCurrentRow},
        {SecondaryCurrent, SecondaryCurrentRow},
    }};
    PlotSample sample = gap(time);
    for (const auto& [value, row] : kRows) {
        if (hasValue(record, row)) {
            sample.values.at(value) = number(record, row);
        }
    }
    return sample;
}

std::vector<PlotSample> PlotSample::withGaps(const std::vector<PlotSample>& samples,
                                             double longestLine)
{
    std::vector<PlotSample> parted;
    parted.reserve(samples.size());
    for (const PlotSample& sample : samples) {
        if (!parted.empty() && sample.time - parted.back().time > longestLine) {
            parted.push_back(gap(parted.back().time + 1.0));
        }
        parted.push_back(sample);
    }
    return parted;
}
