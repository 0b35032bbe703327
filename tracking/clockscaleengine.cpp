#include "tracking/clockscaleengine.h"

#include <QList>

#include <cmath>

namespace {

constexpr double kMostSteps = 30.0;
constexpr double kMsPerSecond = 1000.0;

} // namespace

ClockScaleEngine::ClockScaleEngine()
    : QwtDateScaleEngine(Qt::OffsetFromUTC)
{
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
