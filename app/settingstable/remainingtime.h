#pragma once

#include <QtGlobal>

#include <optional>

/// Estimates how long something will still take from how long its parts have taken. A value without
/// a clock; times in ms.
class RemainingTime
{
public:
    void begin(qint64 now) { m_begin = now; }
    /// Nothing before the first part is done.
    std::optional<qint64> at(qint64 now, int left, int total) const
    {
        const int done = total - left;
        if (done <= 0) {
            return std::nullopt;
        }
        return (now - m_begin) * left / done;
    }

private:
    qint64 m_begin = 0;
};
