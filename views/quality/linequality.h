#pragma once

#include "recording/recordedvalues.h"

#include <QString>

#include <optional>
#include <vector>

/// What became of exchanges, in numbers. A plain value.
struct QualityCounts
{
    qint64 asked = 0;
    qint64 good = 0;
    qint64 damaged = 0;
    qint64 silent = 0;

    void add(const QualityCounts& other);
    void add(const RecordedMinute& minute);

    /// Sound answers that may be another question's, and late ones.
    qint64 unbelieved() const { return asked - good - damaged - silent; }
    qint64 bad() const { return asked - good; }
    /// Whether there are enough of them that shares say something.
    bool isEnough() const;
    /// Whether hardly any exchange was damaged, silent or not believed.
    bool isGood() const;
};

/// How long answers took, in µs from the transmission on. All, or a sample.
struct FlightTimes
{
    qint64 median = 0;
    qint64 part95 = 0; ///< 95 of 100 took no longer
};
/// Nothing for too few.
std::optional<FlightTimes> flightTimesOf(std::vector<int> flights);

/// Exchanges of one small bar: a piece of a span, beginning at a moment.
struct QualityBar
{
    /// What the bar's colour says.
    enum class Level : int
    {
        Nothing, ///< nobody asked
        Good,
        Some, ///< a few bad ones
        Bad
    };
    qint64 at = 0;
    QualityCounts counts;

    Level level() const;
};

namespace linequality {

/// As "99.98 %". What is not all is never shown as all, and what is not nothing never as nothing. A
/// dash where there are no exchanges.
QString shareText(qint64 part, qint64 whole);
/// As "31.2 ms".
QString flightText(qint64 microseconds);
/// "120 exchanges: 98.33 % good, 1.67 % damaged, 0 % silent, 0 % not believed", in the language in
/// force.
QString sharesText(const QualityCounts& counts);

} // namespace linequality
