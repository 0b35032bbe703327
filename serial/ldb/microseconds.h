#pragma once

#include <QDateTime>

/// Moments of exchanges and recordings are µs since 1970 UTC, and so are the spans between them.
namespace microseconds {

constexpr qint64 kMillisecond = 1000;
constexpr qint64 kSecond = 1000 * kMillisecond;
constexpr qint64 kMinute = 60 * kSecond;
constexpr qint64 kHour = 60 * kMinute;
constexpr qint64 kDay = 24 * kHour;

/// In the time zone of this computer.
inline QDateTime localTime(qint64 moment)
{
    return QDateTime::fromMSecsSinceEpoch(moment / kMillisecond);
}

inline qint64 of(const QDateTime& time)
{
    return time.toMSecsSinceEpoch() * kMillisecond;
}

} // namespace microseconds
