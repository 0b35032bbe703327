#include "tracking/plot/clockscale.h"

#include <QList>
#include <QPainter>

#include <array>
#include <cmath>

namespace {

constexpr double kMsPerSecond = 1000.0;
constexpr double kMostSteps = 30.0;
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

QwtScaleDiv ClockScaleEngine::divideScale(double x1, double x2, int maxMajorSteps,
                                          int maxMinorSteps, double stepSize) const
{
    const bool isStepUsable = stepSize > 0.0 && x2 > x1 && (x2 - x1) / stepSize <= kMostSteps;
    if (!isStepUsable) {
        return QwtDateScaleEngine::divideScale(x1, x2, maxMajorSteps, maxMinorSteps, stepSize);
    }
    const double offset = utcOffset() * kMsPerSecond;
    const double halfStep = stepSize / 2.0;
    QList<double> ticks[QwtScaleDiv::NTickTypes];
    const auto firstIndex = static_cast<qint64>(std::ceil((x1 + offset) / halfStep));
    const auto lastIndex = static_cast<qint64>(std::floor((x2 + offset) / halfStep));
    for (qint64 index = firstIndex; index <= lastIndex; ++index) {
        const auto type = index % 2 == 0 ? QwtScaleDiv::MajorTick : QwtScaleDiv::MediumTick;
        ticks[type].append(static_cast<double>(index) * halfStep - offset);
    }
    return QwtScaleDiv(x1, x2, ticks);
}
