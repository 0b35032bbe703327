#pragma once

#include <vector>

/// Which side of its limit a figure has to keep.
enum class Bound
{
    AtMost,
    AtLeast
};

/// Takes "--short" out of the arguments and whether it was there. The short form takes seconds and
/// shows that a benchmark still works; its figures stand for nothing, so none fails it.
bool takeShortForm(int& argc, char* argv[]);
bool isShortForm();

/// Prints a figure beside its limit and tells whether it keeps it (always, in the short form).
bool report(const char* name, double value, double limit, Bound bound);

/// The middle one of the values, of which there is at least one.
double median(std::vector<double> values);
