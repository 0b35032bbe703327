#pragma once

/// Which side of its limit a figure has to keep.
enum class Bound
{
    AtMost,
    AtLeast
};

/// Prints a figure beside its limit and tells whether it keeps it.
bool report(const char* name, double value, double limit, Bound bound);
