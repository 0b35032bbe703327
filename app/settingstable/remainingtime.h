#pragma once

#include <QtGlobal>

#include <algorithm>
#include <optional>

/// Estimates how long something will still take from how long its parts have taken. Where rounds
/// are long, the polling asks each LDB for its name in the first round after a scan, and seldom
/// later: that time passes, and is counted apart. A value without a clock; times in ms.
class RemainingTime
{
public:
    void begin(qint64 now)
    {
        *this = {};
        m_begin = now;
    }
    /// An LDB was asked for its name for the first time, which took so long.
    void addName(double time)
    {
        m_nameTime += time;
        ++m_names;
    }
    /// `unnamed`: LDBs that the polling has still to ask for their names; nothing where it asks for
    /// them in each round. Nothing before the first part is done.
    std::optional<qint64> at(qint64 now, int left, int total, std::optional<int> unnamed) const
    {
        const int done = total - left;
        if (done <= 0) {
            return std::nullopt;
        }
        const double share = static_cast<double>(left) / done;
        const auto taken = static_cast<double>(now - m_begin);
        if (!unnamed || m_names == 0) {
            return static_cast<qint64>(taken * share);
        }
        // As many for each part as so far, until all have told theirs.
        const double names = std::min<double>(*unnamed, share * m_names);
        return static_cast<qint64>((taken - m_nameTime) * share + names * m_nameTime / m_names);
    }

private:
    qint64 m_begin = 0;
    int m_names = 0;
    double m_nameTime = 0;
};
