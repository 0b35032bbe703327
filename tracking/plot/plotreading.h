#pragma once

#include "tracking/plot/plothistory.h"

#include <QString>

#include <map>

/// What the curves of a plot say at a moment. Pure functions over a history.
struct PlotReading
{
    /// The lowest and the highest value of those that were read together; equal for one alone.
    struct Range
    {
        double lowest = 0.0;
        double highest = 0.0;
    };

    double time = 0.0;             ///< of the record that was read, or the moment itself in a gap
    std::map<int, Range> values;   ///< by curve; without those that have no value there
    std::map<int, double> nearest; ///< the same for the record at `time` alone
};

namespace plotreading {

/// What there is to read within `reach` ms of a moment, or else, between two records that are
/// connected by a line, at the nearer of them. `time` is that of the nearest record.
PlotReading at(const PlotHistory& history, double time, double reach);

/// The time of the record after `time`, or before it; that of the last or first one at the end of
/// the history, which must not be empty. Gaps are no records.
double next(const PlotHistory& history, double time);
double previous(const PlotHistory& history, double time);

/// A value as it is shown, without its unit: "24.5", "-0.25"; a range as "2.0 to 24.5".
QString text(double value);
QString text(const PlotReading::Range& range);
/// The same with its sign, for a difference: "+0.5".
QString differenceText(double difference);
/// A time difference (ms): "+0:01:23.400".
QString durationText(double difference);
/// Local date and time of a moment (ms since 1970 UTC), the date only where `withDate`.
QString clockText(double time, bool withDate);
/// Whether two moments are on one day of the local clock.
bool isSameDay(double time, double other);

} // namespace plotreading
