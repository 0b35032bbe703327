#include "tracking/clockscaledraw.h"

#include <QPainter>

#include <array>
#include <cmath>

namespace {

constexpr double kMsPerSecond = 1000.0;
constexpr double kGapBetweenLabels = 8.0; // pixels
constexpr std::array<int, 6> kLabelSteps = {1, 2, 5, 10, 15, 30};

} // namespace

ClockScaleDraw::ClockScaleDraw()
    : QwtDateScaleDraw(Qt::OffsetFromUTC)
{
    setDateFormat(QwtDate::Millisecond, QStringLiteral("hh:mm:ss.zzz"));
    setDateFormat(QwtDate::Second, QStringLiteral("hh:mm:ss"));
    setDateFormat(QwtDate::Minute, QStringLiteral("hh:mm"));
    setDateFormat(QwtDate::Hour, QStringLiteral("hh:mm"));
    for (const auto type : {QwtDate::Day, QwtDate::Week, QwtDate::Month, QwtDate::Year}) {
        setDateFormat(type, QStringLiteral("yyyy-MM-dd"));
    }
}

int ClockScaleDraw::stepsPerLabel(double stepWidth, double labelWidth)
{
    for (const int steps : kLabelSteps) {
        if (steps * stepWidth >= labelWidth + kGapBetweenLabels) {
            return steps;
        }
    }
    return kLabelSteps.back();
}

void ClockScaleDraw::drawLabel(QPainter* painter, double value) const
{
    const QList<double> ticks = scaleDiv().ticks(QwtScaleDiv::MajorTick);
    if (ticks.size() > 1) {
        const double step = ticks.at(1) - ticks.at(0);
        const double stepWidth = length() * step / scaleDiv().range();
        const int steps = stepsPerLabel(stepWidth, labelSize(painter->font(), value).width());
        const auto index = std::llround((value + utcOffset() * kMsPerSecond) / step);
        if (index % steps != 0) {
            return;
        }
    }
    QwtDateScaleDraw::drawLabel(painter, value);
}
