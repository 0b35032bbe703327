#pragma once

#include "recording/recordedvalues.h"

#include <QString>

#include <optional>
#include <vector>

/// How many exchanges there were, by their outcome. A plain value.
struct QualityCounts
{
    qint64 asked = 0;
    qint64 good = 0;
    qint64 damaged = 0;
    qint64 silent = 0;

    void add(const QualityCounts& other);
    void add(const RecordedMinute& minute);

    /// Sound answers that may belong to another question, and late ones.
    qint64 unbelieved() const { return asked - good - damaged - silent; }
    qint64 bad() const { return asked - good; }
    /// Whether there are enough for shares to mean something.
    bool isEnough() const;
    /// Whether hardly any exchange was damaged, silent or not believed.
    bool isGood() const;
};

/// How long answers took, from the transmission on, µs. Of all answers, or of a sample.
struct FlightTimes
{
    qint64 median = 0;
    qint64 part95 = 0; ///< 95 of 100 answers took no longer
};
/// Nothing if there are too few.
std::optional<FlightTimes> flightTimesOf(std::vector<int> flights);

/// The exchanges of one small bar: a piece of a span from a moment on.
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

/// As "31.2 ms".
QString flightText(qint64 microseconds);
/// "120 exchanges: 98.33 % good, 1.67 % damaged, 0 % silent, 0 % not believed", in the language in
/// force.
QString sharesText(const QualityCounts& counts);

} // namespace linequality
