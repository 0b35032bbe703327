#include "tracking/plot/plotreading.h"

#include <QCoreApplication>
#include <QDateTime>

#include <algorithm>

namespace {

constexpr int kDecimals = 2;
constexpr qint64 kMsPerSecond = 1000;
constexpr qint64 kSecondsPerMinute = 60;
constexpr qint64 kMinutesPerHour = 60;

/// The nearest record to `time` from `first` on and before `end`; -1 where there is none.
int nearestRecord(const PlotHistory& history, double time, int first, int end)
{
    int nearest = -1;
    for (int i = first; i < end; ++i) {
        const bool isNearer = nearest < 0 || std::abs(history.times()[i] - time) <
                                                 std::abs(history.times()[nearest] - time);
        if (isNearer && history.isRecord(i)) {
            nearest = i;
        }
    }
    return nearest;
}

/// The values from `first` on and before `end`.
std::map<int, PlotReading::Range> rangesOf(const PlotHistory& history, int first, int end)
{
    std::map<int, PlotReading::Range> ranges;
    for (const int curve : history.curves()) {
        const double* const values = history.values(curve);
        for (int i = first; i < end; ++i) {
            if (!PlotHistory::isDrawable(values[i])) {
                continue;
            }
            PlotReading::Range& range =
                ranges.insert({curve, {values[i], values[i]}}).first->second;
            range.lowest = std::min(range.lowest, values[i]);
            range.highest = std::max(range.highest, values[i]);
        }
    }
    return ranges;
}

} // namespace

PlotReading plotreading::at(const PlotHistory& history, double time, double reach)
{
    PlotReading reading;
    reading.time = time;
    int first = history.firstNotBefore(time - reach);
    int end = history.firstAfter(time + reach);
    int nearest = nearestRecord(history, time, first, end);
    if (nearest < 0) {
        // A line goes from the record before to the one after, unless something lies between.
        end = history.firstAfter(time);
        first = end - 1;
        const bool isOnLine =
            first >= 0 && end < history.size() && history.isRecord(first) && history.isRecord(end);
        nearest = isOnLine ? nearestRecord(history, time, first, end + 1) : -1;
        first = nearest;
        end = nearest + 1;
    }
    if (nearest < 0) {
        return reading;
    }
    reading.time = history.times()[nearest];
    reading.values = rangesOf(history, first, end);
    for (const auto& [curve, range] : rangesOf(history, nearest, nearest + 1)) {
        reading.nearest[curve] = range.lowest;
    }
    return reading;
}

double plotreading::next(const PlotHistory& history, double time)
{
    for (int i = history.firstAfter(time); i < history.size(); ++i) {
        if (history.isRecord(i)) {
            return history.times()[i];
        }
    }
    return history.newestTime();
}

double plotreading::previous(const PlotHistory& history, double time)
{
    for (int i = history.firstNotBefore(time) - 1; i >= 0; --i) {
        if (history.isRecord(i)) {
            return history.times()[i];
        }
    }
    return history.oldestTime();
}

QString plotreading::text(double value)
{
    // A value that rounds to zero has no sign.
    constexpr double kSmallest = 0.005;
    QString text = QString::number(std::abs(value) < kSmallest ? 0.0 : value, 'f', kDecimals);
    if (text.endsWith(QLatin1Char('0'))) {
        text.chop(1);
    }
    return text;
}

QString plotreading::text(const PlotReading::Range& range)
{
    const QString lowest = text(range.lowest);
    const QString highest = text(range.highest);
    return lowest == highest
               ? lowest
               : QCoreApplication::translate("PlotReading", "%1 to %2").arg(lowest, highest);
}

QString plotreading::differenceText(double difference)
{
    const QString shown = text(difference);
    const bool hasSign = shown.startsWith(QLatin1Char('-')) || shown == text(0.0);
    return hasSign ? shown : QLatin1Char('+') + shown;
}

QString plotreading::durationText(double difference)
{
    const qint64 ms = std::llround(std::abs(difference));
    const qint64 seconds = ms / kMsPerSecond;
    const qint64 minutes = seconds / kSecondsPerMinute;
    return QStringLiteral("%1%2:%3:%4.%5")
        .arg(difference < 0.0 ? QLatin1Char('-') : QLatin1Char('+'))
        .arg(minutes / kMinutesPerHour)
        .arg(minutes % kMinutesPerHour, 2, 10, QLatin1Char('0'))
        .arg(seconds % kSecondsPerMinute, 2, 10, QLatin1Char('0'))
        .arg(ms % kMsPerSecond, 3, 10, QLatin1Char('0'));
}

QString plotreading::clockText(double time, bool withDate)
{
    return QDateTime::fromMSecsSinceEpoch(std::llround(time))
        .toString(withDate ? QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz")
                           : QStringLiteral("hh:mm:ss.zzz"));
}

bool plotreading::isSameDay(double time, double other)
{
    return QDateTime::fromMSecsSinceEpoch(std::llround(time)).date() ==
           QDateTime::fromMSecsSinceEpoch(std::llround(other)).date();
}
