#include "tracking/plot/plot.h"

#include "tracking/plot/clockscale.h"
#include "tracking/plot/historycurve.h"
#include "tracking/plot/myqwtplotmagnifier.h"
#include "tracking/plot/plotappearance.h"

#include <QDateTime>
#include <QThread>
#include <QVBoxLayout>
#include <qwt_legend.h>
#include <qwt_legend_label.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_layout.h>
#include <qwt_plot_panner.h>
#include <qwt_plot_textlabel.h>

#include <algorithm>

namespace {

constexpr int kDefaultWindowTime = 600000;
constexpr int kDefaultWindowInterval = 60000;
// Times that a calendar can show: after the epoch's first millisecond and before the year 10000.
constexpr double kEarliestTime = 1.0;
constexpr double kLatestTime = 253402300800000.0;

constexpr int kLegendIconExtent = 12;
constexpr int kOuterMargin = 3; // the outermost labels reach up to the border
constexpr QSize kMinimumSize(240, 140);
constexpr int kTitleWeight = QFont::DemiBold;

constexpr QwtPlot::Axis kTimeAxis = QwtPlot::xBottom;
// Room for labels with seconds when the axis is zoomed and picks its own step.
constexpr int kMaxTimeLabels = 6;

bool isYAxis(int axis)
{
    return axis == QwtPlot::yLeft || axis == QwtPlot::yRight;
}

} // namespace

Plot::Plot(QWidget* parent)
    : QWidget(parent)
    , m_plot(std::make_unique<QwtPlot>())
{
    setObjectName(QStringLiteral("Plot"));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, kOuterMargin, 0, kOuterMargin);
    layout->addWidget(m_plot.get());
    // The plot's own size hint changes with its labels.
    m_plot->setMinimumSize(kMinimumSize);
    m_plot->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    init();
}

Plot::~Plot() = default;

void Plot::init()
{
    for (int number = 0; number < kMaxCurves; ++number) {
        m_freeNumbers.insert(number);
    }
    m_axisSettings[QwtPlot::yLeft] = AxisSetting();
    m_axisSettings[QwtPlot::yRight] = AxisSetting();
    m_maxWindowTime = kDefaultWindowTime;
    m_windowIntervalTime = kDefaultWindowInterval;

    m_plot->setObjectName(QStringLiteral("qwtPlot"));
    m_plot->setAutoReplot(false);
    m_plot->plotLayout()->setAlignCanvasToScales(true);
    m_plot->setCanvas(plotappearance::createCanvas());
    plotappearance::createGrid()->attach(m_plot.get());
    m_past = std::make_unique<QwtPlotTextLabel>();
    m_past->attach(m_plot.get());

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

void Plot::setLocalTimeOf(double timeMsSinceEpoch)
{
    // Asked once a repaint: the axis converts some thousand moments, and if it asked the system for
    // the offset of each, that would take most of the repaint's time.
    const int offset =
        QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(timeMsSinceEpoch)).offsetFromUtc();
    m_clockDraw->setUtcOffset(offset);
    m_clockEngine->setUtcOffset(offset);
}

void Plot::initLegend()
{
    auto* const legend = new QwtLegend;
    legend->setFrameShape(QFrame::Box);
    legend->setFrameShadow(QFrame::Sunken);
    legend->setDefaultItemMode(QwtLegendData::Checkable);
    legend->setPalette(plotappearance::legendPalette(palette()));
    legend->setAutoFillBackground(true);
    connect(legend, &QwtLegend::checked, this, &Plot::plotLegendClick);
    m_plot->insertLegend(legend, QwtPlot::RightLegend);
    updateLegendItems();
}

void Plot::initZoom()
{
    m_magnifier = new MyQwtPlotMagnifier(m_plot->canvas());
    m_magnifier->setEnabled(false);
    connect(m_magnifier, &MyQwtPlotMagnifier::rescaled, this, [this] { m_viewHeld = true; });

    m_panner = new QwtPlotPanner(m_plot->canvas());
    m_panner->setCursor(Qt::ClosedHandCursor);
    m_panner->setEnabled(false);
    connect(m_panner, &QwtPlotPanner::panned, this, [this] { m_viewHeld = true; });
}

int Plot::generateUniqueCurveNumber()
{
    if (m_freeNumbers.empty()) {
        return -1;
    }
    return m_freeNumbers.extract(m_freeNumbers.begin()).value();
}

int Plot::addCurve(const QString& name, const QString& color, int yaxis)
{
    for (const auto& [number, curve] : m_curves) {
        if (curve->title().text() == name) {
            return number;
        }
    }
    const int number = generateUniqueCurveNumber();
    if (number < 0) {
        return number;
    }
    m_history.addCurve(number);
    auto curve =
        std::make_unique<HistoryCurve>(name, plotappearance::curveColor(color), m_history, number);
    const int axis = isYAxis(yaxis) ? yaxis : QwtPlot::yLeft;
    curve->setAxes(kTimeAxis, axis);
    m_plot->enableAxis(axis);
    curve->setLegendIconSize(QSize(kLegendIconExtent, kLegendIconExtent));
    curve->attach(m_plot.get());
    m_curves[number] = std::move(curve);
    updateLegendItems();
    scheduleRedraw();
    return number;
}

bool Plot::removeCurve(int curveNumber)
{
    if (m_curves.erase(curveNumber) == 0) {
        return false;
    }
    m_history.removeCurve(curveNumber);
    m_freeNumbers.insert(curveNumber);
    scheduleRedraw();
    return true;
}

bool Plot::addData(int curveNumber, double value, double timeMsSinceEpoch)
{
    Q_ASSERT(QThread::currentThread() == thread());
    const bool isTimeUsable = timeMsSinceEpoch > kEarliestTime && timeMsSinceEpoch < kLatestTime;
    if (!isTimeUsable || !m_history.hasCurve(curveNumber)) {
        return false;
    }
    const bool isFirst = m_history.isEmpty();
    const int dropped = m_history.add(curveNumber, value, timeMsSinceEpoch);
    if (isFirst && !m_viewHeld) {
        restoreAxisScale();
    }
    if (dropped > 0) {
        qWarning("Plot: the clock was set back, %d later samples are no longer shown", dropped);
    }
    if (!m_viewHeld) {
        showNewestWindow();
    }
    scheduleRedraw();
    return true;
}

void Plot::clear()
{
    m_history.clear();
    // A view held for the old samples would not show the new ones.
    m_viewHeld = false;
    restoreAxisScale();
    redrawCurves();
}

void Plot::setPast(const QString& text)
{
    if (text == m_past->text().text()) {
        return;
    }
    m_past->setText(plotappearance::pastText(text));
    for (const auto& [number, curve] : m_curves) {
        curve->setPast(!text.isEmpty());
    }
    scheduleRedraw();
}

void Plot::setSkipData(double skipMsFromStart)
{
    m_skipMsFromStart = qRound(skipMsFromStart);
    redrawCurves();
}

int Plot::calculateSkipPoints(double skipMsFromStart) const
{
    if (m_history.isEmpty()) {
        return 0;
    }
    // The newest sample is shown whatever is skipped.
    return std::min(m_history.firstAfter(m_history.oldestTime() + skipMsFromStart),
                    m_history.size() - 1);
}

void Plot::updateSeries()
{
    const int firstShown = calculateSkipPoints(m_skipMsFromStart);
    const double windowStart = m_history.isEmpty() ? 0.0 : m_history.newestTime() - m_maxWindowTime;
    for (const auto& [number, curve] : m_curves) {
        curve->series()->setFirstShown(firstShown);
        curve->series()->setScaledFrom(windowStart);
    }
}

void Plot::redrawCurves()
{
    updateSeries();
    if (!m_history.isEmpty()) {
        setLocalTimeOf(m_history.newestTime());
    }
    m_plot->replot();
}

void Plot::scheduleRedraw()
{
    if (m_redrawPending || !isVisible()) {
        return;
    }
    m_redrawPending = true;
    const auto redraw = [this] {
        m_redrawPending = false;
        if (isVisible()) {
            redrawCurves();
        }
    };
    QMetaObject::invokeMethod(this, redraw, Qt::QueuedConnection);
}

void Plot::showEvent(QShowEvent* event)
{
    redrawCurves();
    QWidget::showEvent(event);
}

void Plot::setZoom(bool enabled)
{
    if (enabled == m_zoom) {
        return;
    }
    m_zoom = enabled;
    m_magnifier->setEnabled(enabled);
    m_panner->setEnabled(enabled);
    m_plot->canvas()->setCursor(enabled ? Qt::OpenHandCursor : Qt::ArrowCursor);
    if (enabled) {
        updateSeries();
        m_plot->updateAxes();
        m_magnifier->setReferenceView();
        if (!m_history.isEmpty()) {
            holdView();
        }
    } else {
        m_viewHeld = false;
        restoreAxisScale();
    }
}

void Plot::holdView()
{
    m_viewHeld = true;
    updateSeries();
    m_plot->updateAxes();
    for (const auto& [axis, setting] : m_axisSettings) {
        if (setting.autoScale) {
            const QwtInterval shown = m_plot->axisInterval(axis);
            m_plot->setAxisScale(axis, shown.minValue(), shown.maxValue());
        }
    }
}

void Plot::restoreAxisScale()
{
    for (const auto& [axis, setting] : m_axisSettings) {
        applyAxisSetting(axis);
    }
    showNewestWindow();
    if (m_viewHeld) {
        holdView();
    }
    scheduleRedraw();
}

void Plot::showNewestWindow()
{
    if (!m_history.isEmpty()) {
        const double newest = m_history.newestTime();
        m_plot->setAxisScale(kTimeAxis, newest - m_maxWindowTime, newest, m_windowIntervalTime);
    }
}

void Plot::applyAxisSetting(QwtPlot::Axis axis)
{
    const AxisSetting& setting = m_axisSettings.at(axis);
    // Without samples, autoscaling picks an arbitrary wide range.
    if (setting.autoScale && !m_history.isEmpty()) {
        m_plot->setAxisAutoScale(axis, true);
    } else {
        m_plot->setAxisScale(axis, setting.minimum, setting.maximum, setting.step);
    }
}

void Plot::setAxisScale(QwtPlot::Axis axis, bool autoScale)
{
    AxisSetting setting = isYAxis(axis) ? m_axisSettings.at(axis) : AxisSetting();
    setting.autoScale = autoScale;
    setAxisSetting(axis, setting);
}

void Plot::setAxisScale(QwtPlot::Axis axis, double min, double max, double stepSize)
{
    setAxisSetting(axis, {false, min, max, stepSize});
}

void Plot::setAxisSetting(QwtPlot::Axis axis, const AxisSetting& setting)
{
    if (!isYAxis(axis)) {
        qWarning("Plot: only the Y axes have a scale of their own");
        return;
    }
    m_axisSettings[axis] = setting;
    restoreAxisScale();
}

void Plot::setAxisTitle(QwtPlot::Axis axis, const QString& title)
{
    m_axisTitles.at(axis).text = title;
    updateAxisTitle(axis);
}

void Plot::setAxisTitleVisible(QwtPlot::Axis axis, bool visible)
{
    m_axisTitles.at(axis).visible = visible;
    updateAxisTitle(axis);
}

void Plot::updateAxisTitle(QwtPlot::Axis axis)
{
    const AxisTitle& title = m_axisTitles.at(axis);
    QwtText text(title.visible ? title.text : QString());
    QFont titleFont = font();
    titleFont.setWeight(kTitleWeight);
    text.setFont(titleFont);
    m_plot->setAxisTitle(axis, text);
}

void Plot::setLegendVisible(bool visible)
{
    if (visible == m_legendVisible) {
        return;
    }
    m_legendVisible = visible;
    if (visible) {
        initLegend();
    } else {
        m_plot->insertLegend(nullptr);
    }
}

void Plot::plotLegendClick(const QVariant& item, bool on)
{
    if (QwtPlotItem* curve = m_plot->infoToItem(item)) {
        curve->setVisible(on);
        updateLegendItems();
        scheduleRedraw();
    }
}

void Plot::updateLegendItems()
{
    const auto* const legend = qobject_cast<QwtLegend*>(m_plot->legend());
    if (legend == nullptr) {
        return;
    }
    for (const auto& [number, curve] : m_curves) {
        auto* const label =
            qobject_cast<QwtLegendLabel*>(legend->legendWidget(m_plot->itemToInfo(curve.get())));
        if (label != nullptr) {
            label->setFocusPolicy(Qt::TabFocus);
            label->setAccessibleName(curve->title().text());
            label->setChecked(curve->isVisible());
            label->setPalette(plotappearance::legendPalette(palette(), curve->isVisible()));
        }
    }
}

void Plot::setMaxWindowTime(int timeMs)
{
    m_maxWindowTime = std::max(timeMs, 1);
    restoreAxisScale();
}

void Plot::setWindowIntervalTime(int timeMs)
{
    m_windowIntervalTime = std::max(timeMs, 0);
    restoreAxisScale();
}
