#include "tracking/plot/myqwtplotmagnifier.h"

#include <QWheelEvent>
#include <QtGlobal>
#include <qwt_plot.h>
#include <qwt_scale_map.h>

#include <cmath>

namespace {

// The base class widens the view by this factor when the wheel turns away from the user; a factor
// below 1 makes that turn zoom in, as everywhere else.
constexpr double kWheelFactor = 1.0 / 0.9;
constexpr int kWheelNotch = 120;
constexpr double kSharePerNotch = 0.1;

// Limits of the zoom, as factors of the reference view. At ten minutes: 0.6 s and a week.
constexpr double kSmallestSpan = 0.001;
constexpr double kLargestSpan = 1000.0;

constexpr int kTimeAxis = QwtPlot::xBottom;

} // namespace

MyQwtPlotMagnifier::MyQwtPlotMagnifier(QWidget* canvas)
    : QwtPlotMagnifier(canvas)
{
    setWheelFactor(kWheelFactor);
    setMouseButton(Qt::NoButton); // the right one opens the menu
    setZoomInKey(Qt::Key_unknown, Qt::NoModifier);
    setZoomOutKey(Qt::Key_unknown, Qt::NoModifier);
}

void MyQwtPlotMagnifier::setReferenceView()
{
    for (int axis = 0; axis < QwtPlot::axisCnt; ++axis) {
        m_reference[axis] = plot()->axisInterval(axis);
    }
}

void MyQwtPlotMagnifier::zoom(int notches)
{
    rescale(std::pow(kWheelFactor, -notches));
}

void MyQwtPlotMagnifier::widgetWheelEvent(QWheelEvent* event)
{
    const bool isShifted = event->modifiers().testFlag(Qt::ShiftModifier);
    const QPoint turned = event->angleDelta();
    if (turned.x() != 0 || isShifted) {
        const int notches = turned.x() != 0 ? turned.x() : turned.y();
        emit panned(-kSharePerNotch * notches / kWheelNotch);
        return;
    }
    m_anchor = event->position();
    m_timeOnly = event->modifiers().testFlag(Qt::ControlModifier);
    setWheelModifiers(event->modifiers());
    QwtPlotMagnifier::widgetWheelEvent(event);
    m_timeOnly = false;
    m_anchor.reset();
}

void MyQwtPlotMagnifier::rescale(double factor)
{
    if (factor == 0.0) {
        return;
    }
    emit aboutToRescale();
    QMap<int, QwtInterval> zoomedTo;
    for (const int axis : m_reference.keys()) {
        zoomedTo[axis] = zoomed(axis, plot()->axisInterval(axis), factor);
    }
    for (auto it = zoomedTo.constBegin(); it != zoomedTo.constEnd(); ++it) {
        plot()->setAxisScale(it.key(), it.value().minValue(), it.value().maxValue());
    }
    plot()->replot();
    emit rescaled();
}

/// What an axis shows when it is widened by a factor about the anchor, within the limits.
QwtInterval MyQwtPlotMagnifier::zoomed(int axis, const QwtInterval& former, double factor) const
{
    const QwtInterval reference = m_reference.value(axis);
    const bool isTime = axis == kTimeAxis;
    if (!isTime) {
        if (m_timeOnly) {
            return former;
        }
        const double time = plot()->axisInterval(kTimeAxis).width() * factor;
        if (time >= m_reference.value(kTimeAxis).width()) {
            return reference;
        }
    }
    const double span = qBound(reference.width() * kSmallestSpan, former.width() * factor,
                               reference.width() * (isTime ? kLargestSpan : 1.0));
    const QwtScaleMap map = plot()->canvasMap(axis);
    double anchor = (former.minValue() + former.maxValue()) / 2.0;
    if (m_anchor) {
        anchor = map.invTransform(isTime ? m_anchor->x() : m_anchor->y());
    }
    const double start = anchor - (anchor - former.minValue()) / former.width() * span;
    return {start, start + span};
}
