#include "tracking/plot/plotview.h"

#include "tracking/plot/clockscale.h"
#include "tracking/plot/myqwtplotmagnifier.h"

#include <QDateTime>
#include <qwt_plot_panner.h>

#include <algorithm>

namespace {

constexpr int kDefaultWindowTime = 600000;
constexpr int kDefaultWindowInterval = 60000;

constexpr QwtPlot::Axis kTimeAxis = QwtPlot::xBottom;
// Room for labels with seconds when the axis is zoomed and picks its own step.
constexpr int kMaxTimeLabels = 6;

} // namespace

PlotView::PlotView(QwtPlot* plot, const PlotHistory& history)
    : m_plot(plot)
    , m_history(history)
    , m_maxWindowTime(kDefaultWindowTime)
    , m_windowIntervalTime(kDefaultWindowInterval)
{
    m_axisSettings[QwtPlot::yLeft] = AxisSetting();
    m_axisSettings[QwtPlot::yRight] = AxisSetting();

    // Until samples come, the axis shows the last minutes instead of the beginning of 1970.
    const auto now = static_cast<double>(QDateTime::currentMSecsSinceEpoch());
    m_plot->setAxisScale(kTimeAxis, now - m_maxWindowTime, now, m_windowIntervalTime);
    m_plot->setAxisMaxMajor(kTimeAxis, kMaxTimeLabels);
    for (const auto& [axis, setting] : m_axisSettings) {
        applyAxisSetting(axis);
    }

    m_clockDraw = new ClockScaleDraw;
    m_plot->setAxisScaleDraw(kTimeAxis, m_clockDraw);
    m_clockEngine = new ClockScaleEngine;
    m_plot->setAxisScaleEngine(kTimeAxis, m_clockEngine);
    setLocalTimeOf(now);
    initZoom();
}

void PlotView::initZoom()
{
    m_magnifier = new MyQwtPlotMagnifier(m_plot->canvas());
    m_magnifier->setEnabled(false);
    connect(m_magnifier, &MyQwtPlotMagnifier::aboutToRescale, this, [this] {
        if (!m_held) {
            m_magnifier->setReferenceView();
        }
    });
    connect(m_magnifier, &MyQwtPlotMagnifier::rescaled, this, [this] { setHeld(true); });
    connect(m_magnifier, &MyQwtPlotMagnifier::panned, this, &PlotView::pan);

    m_panner = new QwtPlotPanner(m_plot->canvas());
    m_panner->setCursor(Qt::ClosedHandCursor);
    m_panner->setEnabled(false);
    connect(m_panner, &QwtPlotPanner::panned, this, [this] { setHeld(true); });
}

void PlotView::setLocalTimeOf(double timeMsSinceEpoch)
{
    // Asked once a repaint: the axis converts some thousand moments, and if it asked the system for
    // the offset of each, that would take most of the repaint's time.
    const int offset =
        QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(timeMsSinceEpoch)).offsetFromUtc();
    m_clockDraw->setUtcOffset(offset);
    m_clockEngine->setUtcOffset(offset);
}

QwtInterval PlotView::shownTime() const
{
    return m_plot->axisInterval(kTimeAxis);
}

void PlotView::setHeld(bool held)
{
    m_held = held;
    emit changed();
}

void PlotView::setZoom(bool enabled)
{
    if (enabled == m_zoom) {
        return;
    }
    m_zoom = enabled;
    m_magnifier->setEnabled(enabled);
    m_panner->setEnabled(enabled);
    m_plot->canvas()->setCursor(enabled ? Qt::OpenHandCursor : Qt::ArrowCursor);
    if (!enabled) {
        follow();
        return;
    }
    emit aboutToScale();
    m_plot->updateAxes();
    m_magnifier->setReferenceView();
    if (!m_history.isEmpty()) {
        holdView();
        setHeld(true);
    }
}

void PlotView::follow()
{
    m_held = false;
    restoreAxisScale();
}

void PlotView::zoom(int notches)
{
    if (m_zoom) {
        m_magnifier->zoom(notches);
    }
}

void PlotView::pan(double share)
{
    if (!m_zoom) {
        return;
    }
    const QwtInterval shown = shownTime();
    const double distance = share * shown.width();
    if (!m_held) {
        m_magnifier->setReferenceView();
        holdView();
    }
    m_plot->setAxisScale(kTimeAxis, shown.minValue() + distance, shown.maxValue() + distance);
    m_plot->updateAxes();
    setHeld(true);
}

void PlotView::holdView()
{
    m_held = true;
    emit aboutToScale();
    m_plot->updateAxes();
    for (const auto& [axis, setting] : m_axisSettings) {
        if (setting.autoScale) {
            const QwtInterval shown = m_plot->axisInterval(axis);
            m_plot->setAxisScale(axis, shown.minValue(), shown.maxValue());
        }
    }
}

void PlotView::processSamples(bool isFirst)
{
    if (m_held) {
        return;
    }
    if (isFirst) {
        restoreAxisScale();
    } else {
        showNewestWindow();
    }
}

void PlotView::restoreAxisScale()
{
    for (const auto& [axis, setting] : m_axisSettings) {
        applyAxisSetting(axis);
    }
    showNewestWindow();
    if (m_held) {
        holdView();
    }
    emit changed();
}

void PlotView::showNewestWindow()
{
    if (!m_history.isEmpty()) {
        const double newest = m_history.newestTime();
        m_plot->setAxisScale(kTimeAxis, newest - m_maxWindowTime, newest, m_windowIntervalTime);
    }
}

void PlotView::applyAxisSetting(QwtPlot::Axis axis)
{
    const AxisSetting& setting = m_axisSettings.at(axis);
    // Without samples, autoscaling picks an arbitrary wide range.
    if (setting.autoScale && !m_history.isEmpty()) {
        m_plot->setAxisAutoScale(axis, true);
    } else {
        m_plot->setAxisScale(axis, setting.minimum, setting.maximum, setting.step);
    }
}

void PlotView::setAxisSetting(QwtPlot::Axis axis, const AxisSetting& setting)
{
    m_axisSettings[axis] = setting;
    restoreAxisScale();
}

void PlotView::setMaxWindowTime(int timeMs)
{
    m_maxWindowTime = std::max(timeMs, 1);
    restoreAxisScale();
}

void PlotView::setWindowIntervalTime(int timeMs)
{
    m_windowIntervalTime = std::max(timeMs, 0);
    restoreAxisScale();
}
