#include "benchmarks/support/report.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace {

bool shortForm = false;

} // namespace

bool takeShortForm(int& argc, char* argv[])
{
    char** const end = std::remove_if(argv + 1, argv + argc, [](const char* argument) {
        return std::strcmp(argument, "--short") == 0;
    });
    shortForm = end != argv + argc;
    argc = static_cast<int>(end - argv);
    argv[argc] = nullptr;
    return shortForm;
}

bool isShortForm()
{
    return shortForm;
}

bool report(const char* name, double value, double limit, Bound bound)
{
    const bool isUpperLimit = bound == Bound::AtMost;
    const bool good = isUpperLimit ? value <= limit : value >= limit;
    std::printf("%-10s %8.3f  (%s %.3f)  %s\n", name, value, isUpperLimit ? "at most" : "at least",
                limit, good ? "ok" : "OUT OF BOUNDS");
    std::fflush(stdout);
    return good || shortForm;
}

double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}
