#pragma once

#include <QtGlobal>

#include <limits>

/// A line counts in ns, so that bytes behind one another do not drift; its users count in µs.
namespace linetime {

constexpr qint64 kMicrosecond = 1000;
constexpr qint64 kMillisecond = 1000 * kMicrosecond;
constexpr qint64 kSecond = 1000 * kMillisecond;
constexpr qint64 kByte = 1041667; ///< 10 bits at 9600 baud
constexpr qint64 kNever = std::numeric_limits<qint64>::max();

/// Rounded up: what happens at a time has happened at its microsecond.
constexpr qint64 toMicroseconds(qint64 nanoseconds)
{
    return nanoseconds == kNever ? kNever : (nanoseconds + kMicrosecond - 1) / kMicrosecond;
}

} // namespace linetime
