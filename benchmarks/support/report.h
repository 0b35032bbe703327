#pragma once

#include <vector>

/// Which side of its limit a figure has to keep.
enum class Bound
{
    AtMost,
    AtLeast
};

/// Prints a figure beside its limit and tells whether it keeps it.
bool report(const char* name, double value, double limit, Bound bound);

/// The middle one of the values, of which there is at least one.
double median(std::vector<double> values);
