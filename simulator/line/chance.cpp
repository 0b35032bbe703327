#include "simulator/line/chance.h"

#include <cmath>

namespace {

/// Uniform in [0, 1).
double fraction(quint64 random)
{
    constexpr int kUnusedBits = 11; // a double holds 53
    constexpr double kSteps = 9007199254740992.0;
    return static_cast<double>(random >> kUnusedBits) / kSteps;
}

} // namespace

Chance Chance::split(quint64 key) const
{
    constexpr quint64 kSpread = 0xD1342543DE82EF95ULL;
    Chance child(m_state ^ ((key + 1) * kSpread));
    return Chance(child.next());
}

/// A counter in odd steps, its bits mixed until none of them tells the next.
quint64 Chance::next()
{
    m_state += 0x9E3779B97F4A7C15ULL;
    quint64 mixed = m_state;
    mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9ULL;
    mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBULL;
    return mixed ^ (mixed >> 31U);
}

bool Chance::happens(double percent)
{
    constexpr double kAll = 100;
    return percent > 0 && fraction(next()) * kAll < percent;
}

qint64 Chance::between(qint64 lowest, qint64 highest)
{
    const auto span = static_cast<quint64>(highest - lowest) + 1;
    return lowest + static_cast<qint64>(next() % span);
}

qint64 Chance::waiting(double mean)
{
    return std::llround(-std::log1p(-fraction(next())) * mean);
}
