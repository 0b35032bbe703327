#include "tracking/plot/myqwtplotmagnifier.h"

#include <QtGlobal>
#include <qwt_plot.h>

namespace {

// The base class widens the view by this factor when the wheel turns away from the user; a factor
// below 1 makes that turn zoom in, as everywhere else.
constexpr double kWheelFactor = 1.0 / 0.9;

// Limits of the zoom, as factors of the reference view. At ten minutes: 0.6 s and a week.
constexpr double kSmallestSpan = 0.001;
constexpr double kLargestSpan = 1000.0;

} // namespace

MyQwtPlotMagnifier::MyQwtPlotMagnifier(QWidget* canvas)
    : QwtPlotMagnifier(canvas)
{
    setWheelFactor(kWheelFactor);
}

void MyQwtPlotMagnifier::setReferenceView()
{
    for (int axis = 0; axis < QwtPlot::axisCnt; ++axis) {
        m_referenceSpans[axis] = plot()->axisInterval(axis).width();
    }
}

void MyQwtPlotMagnifier::rescale(double factor)
{
    if (factor == 0.0) {
        return;
    }
    QwtPlotMagnifier::rescale(factor);
    keepWithinLimits();
    emit rescaled();
}

void MyQwtPlotMagnifier::keepWithinLimits()
{
    bool changed = false;
    for (auto it = m_referenceSpans.constBegin(); it != m_referenceSpans.constEnd(); ++it) {
        const QwtInterval shown = plot()->axisInterval(it.key());
        const double allowed =
            qBound(it.value() * kSmallestSpan, shown.width(), it.value() * kLargestSpan);
        if (!qFuzzyCompare(allowed, shown.width())) {
            const double centre = (shown.minValue() + shown.maxValue()) / 2.0;
            plot()->setAxisScale(it.key(), centre - allowed / 2.0, centre + allowed / 2.0);
            changed = true;
        }
    }
    if (changed) {
        plot()->replot();
    }
}
