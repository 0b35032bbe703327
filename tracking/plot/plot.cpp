#include "tracking/plot/plot.h"

#include "tracking/plot/historycurve.h"
#include "tracking/plot/plotappearance.h"
#include "tracking/plot/plotinspector.h"

#include <QEvent>
#include <QPushButton>
#include <QThread>
#include <QVBoxLayout>
#include <qwt_legend.h>
#include <qwt_legend_label.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_layout.h>
#include <qwt_plot_textlabel.h>

#include <algorithm>

namespace {

// Times that a calendar can show: after the epoch's first millisecond and before the year 10000.
constexpr double kEarliestTime = 1.0;
constexpr double kLatestTime = 253402300800000.0;

constexpr int kLegendIconExtent = 12;
constexpr int kOuterMargin = 3; // the outermost labels reach up to the border
constexpr QSize kMinimumSize(240, 140);
constexpr int kTitleWeight = QFont::DemiBold;

constexpr QwtPlot::Axis kTimeAxis = QwtPlot::xBottom;
constexpr int kButtonMargin = 4;

bool isYAxis(int axis)
{
    return axis == QwtPlot::yLeft || axis == QwtPlot::yRight;
}

bool isScalable(QwtPlot::Axis axis)
{
    if (!isYAxis(axis)) {
        qWarning("Plot: only the Y axes have a scale of their own");
    }
    return isYAxis(axis);
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
    m_plot->setObjectName(QStringLiteral("qwtPlot"));
    m_plot->setAutoReplot(false);
    m_plot->plotLayout()->setAlignCanvasToScales(true);
    m_plot->setCanvas(plotappearance::createCanvas());
    plotappearance::createGrid()->attach(m_plot.get());
    m_past = std::make_unique<QwtPlotTextLabel>();
    m_past->attach(m_plot.get());

    m_view = std::make_unique<PlotView>(m_plot.get(), m_history);
    connect(m_view.get(), &PlotView::aboutToScale, this, &Plot::updateSeries);
    connect(m_view.get(), &PlotView::changed, this, &Plot::processViewChange);
    m_inspector = std::make_unique<PlotInspector>(this);
    initFollowButton();
}

void Plot::initFollowButton()
{
    m_followButton = new QPushButton(tr("Follow"), this);
    m_followButton->setObjectName(QStringLiteral("followButton"));
    m_followButton->setToolTip(tr("Shows the newest values again and goes along with them"));
    m_followButton->hide();
    connect(m_followButton, &QAbstractButton::clicked, m_view.get(), &PlotView::follow);
}

void Plot::placeFollowButton()
{
    const QRect canvas(m_plot->canvas()->mapTo(this, QPoint(0, 0)), m_plot->canvas()->size());
    m_followButton->adjustSize();
    m_followButton->move(canvas.bottomRight() - m_followButton->rect().bottomRight() -
                         QPoint(kButtonMargin, kButtonMargin));
}

void Plot::processViewChange()
{
    m_followButton->setVisible(m_view->isHeld());
    placeFollowButton();
    scheduleRedraw();
    emit viewChanged();
}

void Plot::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        m_followButton->setText(tr("Follow"));
        m_followButton->setToolTip(tr("Shows the newest values again and goes along with them"));
        placeFollowButton();
    }
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
    if (dropped > 0) {
        qWarning("Plot: the clock was set back, %d later samples are no longer shown", dropped);
    }
    m_view->processSamples(isFirst);
    scheduleRedraw();
    return true;
}

void Plot::prependData(const std::vector<double>& times,
                       const std::map<int, std::vector<double>>& values)
{
    Q_ASSERT(QThread::currentThread() == thread());
    const bool isFirst = m_history.isEmpty();
    m_history.prepend(times, values);
    m_view->processSamples(isFirst && !m_history.isEmpty());
    scheduleRedraw();
}

void Plot::clear()
{
    m_history.clear();
    m_inspector->clear();
    // A view held for the old samples would not show the new ones.
    m_view->follow();
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
    const double windowStart =
        m_history.isEmpty() ? 0.0 : m_history.newestTime() - m_view->windowTime();
    for (const auto& [number, curve] : m_curves) {
        curve->series()->setFirstShown(firstShown);
        curve->series()->setScaledFrom(windowStart);
    }
}

void Plot::redrawCurves()
{
    updateSeries();
    if (!m_history.isEmpty()) {
        m_view->setLocalTimeOf(m_history.newestTime());
    }
    m_plot->replot();
    m_inspector->refresh();
    placeFollowButton();
}

std::vector<PlotCurveInfo> Plot::curves() const
{
    std::vector<PlotCurveInfo> infos;
    for (const auto& [number, curve] : m_curves) {
        infos.push_back({number, curve->title().text(), curve->color(),
                         m_axisTitles.at(static_cast<std::size_t>(curve->yAxis())).text,
                         curve->isVisible()});
    }
    return infos;
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

void Plot::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    // The canvas gets its place when the chart lays itself out, which comes later.
    scheduleRedraw();
}

void Plot::showEvent(QShowEvent* event)
{
    redrawCurves();
    QWidget::showEvent(event);
}

void Plot::setAxisScale(QwtPlot::Axis axis, bool autoScale)
{
    if (!isScalable(axis)) {
        return;
    }
    PlotView::AxisSetting setting = m_view->axisSetting(axis);
    setting.autoScale = autoScale;
    m_view->setAxisSetting(axis, setting);
}

void Plot::setAxisScale(QwtPlot::Axis axis, double min, double max, double stepSize)
{
    if (!isScalable(axis)) {
        return;
    }
    m_view->setAxisSetting(axis, {false, min, max, stepSize});
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
