#include "tracking/plot/mainwindowplot.h"

#include "app/shared/tuningfile.h"
#include "serial/ldb/generalinformation.h"
#include "tracking/plot/plot.h"

#include <QDateTime>
#include <QThread>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <map>

namespace {

struct CurveDescription
{
    const char* name;
    const char* color;
    QwtPlot::Axis axis;
    PlotSample::Value value;
};

constexpr std::array<CurveDescription, 4> kCurves = {{
    {"VPri", "red", QwtPlot::yLeft, PlotSample::PrimaryVoltage},
    {"VSec", "orange", QwtPlot::yLeft, PlotSample::SecondaryVoltage},
    {"IPri", "magenta", QwtPlot::yRight, PlotSample::PrimaryCurrent},
    {"ISec", "lime", QwtPlot::yRight, PlotSample::SecondaryCurrent},
}};

// A day with a record each second, and some more.
constexpr int kSamples = 100000;
constexpr double kSpanShownAtOnce = 600000.0; // ms
constexpr double kFurthestReach = 86400000.0; // ms
/// What is asked for beyond the shown time, as a share of it, so that not every step asks.
constexpr double kShareInAdvance = 1.0;

constexpr double kVoltageMinimum = 0.0;
constexpr double kVoltageMaximum = 32.0;
constexpr double kVoltageStep = 10.0;
constexpr double kCurrentMinimum = -30.0;
constexpr double kCurrentMaximum = 140.0;
constexpr double kCurrentStep = 30.0;

/// Which value a curve draws; with the rows in their order the two in the middle change places.
PlotSample::Value valueOfCurve(std::size_t curve, bool rowsInOrder)
{
    if (!rowsInOrder) {
        return kCurves.at(curve).value;
    }
    constexpr std::array<PlotSample::Value, PlotSample::ValueCount> kOfRows = {
        PlotSample::PrimaryVoltage, PlotSample::PrimaryCurrent, PlotSample::SecondaryVoltage,
        PlotSample::SecondaryCurrent};
    return kOfRows.at(curve);
}

qint64 clockTimeOf(double timeMs)
{
    return generalinformation::clockTime(static_cast<qint64>(timeMs));
}

/// The moment at which a clock on the wall shows that time; see `generalinformation::clockTime`.
qint64 momentOf(qint64 clockTime)
{
    QDateTime shown = QDateTime::fromMSecsSinceEpoch(clockTime, Qt::UTC);
    shown.setTimeSpec(Qt::LocalTime);
    return shown.toMSecsSinceEpoch();
}

} // namespace

MainWindowPlot::MainWindowPlot(QWidget* container, QObject* parent)
    : QObject(parent)
    , m_container(container)
{
    init();
}

void MainWindowPlot::init()
{
    initVariables();
    initPlot();
    initPlotCurves();
}

void MainWindowPlot::initVariables()
{
    m_hexId.clear();
    m_zoomEnabled = false;
    m_rowsInOrder = tuningFile().value(constants::kPlotRowsInOrderKey).toInt() == 1;
}

void MainWindowPlot::initPlot()
{
    delete m_plot;
    m_plot = new Plot(m_container);
    m_plot->setMaxNumberOfSamples(kSamples);
    connect(m_plot, &Plot::viewChanged, this, &MainWindowPlot::reachBack);
    if (m_container->layout() == nullptr) {
        auto* const layout = new QVBoxLayout(m_container);
        layout->setContentsMargins(0, 0, 0, 0);
    }
    m_container->layout()->addWidget(m_plot);
    retranslate();
    m_plot->setAxisScale(QwtPlot::yLeft, kVoltageMinimum, kVoltageMaximum, kVoltageStep);
    m_plot->setAxisScale(QwtPlot::yRight, kCurrentMinimum, kCurrentMaximum, kCurrentStep);
    m_plot->setLegendVisible(true);
}

void MainWindowPlot::initPlotCurves()
{
    m_curveNumbers.clear();
    for (const CurveDescription& curve : kCurves) {
        m_curveNumbers.append(m_plot->addCurve(QString::fromLatin1(curve.name),
                                               QString::fromLatin1(curve.color), curve.axis));
    }
}

void MainWindowPlot::processData(const QString& hexId, const QList<QStringList>& dataList)
{
    take(hexId, dataList, false);
}

void MainWindowPlot::processExtra(const QString& hexId, const QList<QStringList>& dataList)
{
    take(hexId, dataList, true);
}

void MainWindowPlot::take(const QString& hexId, const QList<QStringList>& dataList, bool isExtra)
{
    Q_ASSERT(QThread::currentThread() == thread());
    const QDateTime time = generalinformation::timestamp(dataList);
    if (!time.isValid()) {
        qWarning("MainWindowPlot: a record of LDB %s has no readable time", qPrintable(hexId));
        return;
    }
    const std::optional<double> newest = newestOf(hexId);
    auto timeMs = static_cast<double>(time.toMSecsSinceEpoch());
    if (!isExtra) {
        const auto round = m_roundTimes.constFind(hexId);
        const bool isClockSetBack =
            (round != m_roundTimes.constEnd() && timeMs < *round) ||
            (newest && *newest - timeMs > static_cast<double>(Monitoring::kLongestLife));
        m_roundTimes[hexId] = timeMs;
        // It carries the time at which its round began, which may lie before that of an extra
        // record, though the clock was not set back: it is newer all the same.
        if (newest && !isClockSetBack && timeMs < *newest) {
            timeMs = *newest + 1.0;
        }
    }
    if (newest && timeMs > *newest && !m_monitoring.isLive(hexId, clockTimeOf(*newest))) {
        // No line over the time in which nothing was known.
        store(hexId, PlotSample::gap(*newest + 1.0));
    }
    store(hexId, PlotSample::ofRecord(dataList, timeMs));
    if (hexId == m_hexId && m_plot != nullptr) {
        m_newest = timeMs;
        showLiveness();
    }
}

std::optional<double> MainWindowPlot::newestOf(const QString& hexId) const
{
    return hexId == m_hexId ? m_newest : m_recent.latest(hexId);
}

void MainWindowPlot::store(const QString& hexId, const PlotSample& sample)
{
    m_recent.add(hexId, sample);
    if (hexId != m_hexId || m_plot == nullptr) {
        return;
    }
    for (std::size_t i = 0; i < kCurves.size(); ++i) {
        m_plot->addData(m_curveNumbers.at(static_cast<int>(i)),
                        sample.values.at(valueOfCurve(i, m_rowsInOrder)), sample.time);
    }
}

void MainWindowPlot::setMonitoring(const Monitoring& monitoring)
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_monitoring = monitoring;
    showLiveness();
}

void MainWindowPlot::showLiveness()
{
    const std::optional<qint64> newest =
        m_newest ? std::make_optional(clockTimeOf(*m_newest)) : std::nullopt;
    const bool isPast = newest && !m_monitoring.isLive(m_hexId, newest);
    m_plot->setPast(isPast ? tr("%1 ago").arg(m_monitoring.ageText(newest)) : QString());
}

void MainWindowPlot::beginChart()
{
    m_plot->clear();
    m_plot->setCaption(m_hexId.isEmpty() ? QString() : tr("LDB %1").arg(m_hexId));
    m_newest.reset();
    ++m_question; // whatever is still to be answered is of another chart
    m_isAnswerDue = false;
    prepend(m_recent.of(m_hexId));
    if (!m_hexId.isEmpty()) {
        const double end = m_plot->history().isEmpty() ? now() : m_plot->history().oldestTime();
        m_askedFrom = end;
        const double from = now() - kSpanShownAtOnce;
        if (from < end) {
            ask(from, end);
        }
    }
    showLiveness();
}

/// Puts rising samples before those that are held.
void MainWindowPlot::prepend(const std::vector<PlotSample>& samples)
{
    if (samples.empty()) {
        return;
    }
    std::vector<double> times;
    std::map<int, std::vector<double>> values;
    for (const PlotSample& sample : samples) {
        times.push_back(sample.time);
        for (std::size_t i = 0; i < kCurves.size(); ++i) {
            values[m_curveNumbers.at(static_cast<int>(i))].push_back(
                sample.values.at(valueOfCurve(i, m_rowsInOrder)));
        }
    }
    m_plot->prependData(times, values);
    if (!m_newest) {
        m_newest = samples.back().time;
    }
}

/// The present moment of what is shown, ms since 1970 UTC.
double MainWindowPlot::now() const
{
    return static_cast<double>(m_monitoring.now == 0 ? QDateTime::currentMSecsSinceEpoch()
                                                     : momentOf(m_monitoring.now));
}

void MainWindowPlot::ask(double from, double to)
{
    m_askedFrom = from;
    if (m_source == nullptr) {
        return;
    }
    m_isAnswerDue = true;
    m_source->ask(m_hexId, static_cast<qint64>(from), static_cast<qint64>(to),
                  [asker = QPointer<MainWindowPlot>(this),
                   question = ++m_question](const std::vector<PlotSample>& samples) {
                      if (asker != nullptr && asker->m_question == question) {
                          asker->processAnswer(samples);
                      }
                  });
}

void MainWindowPlot::processAnswer(const std::vector<PlotSample>& samples)
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_isAnswerDue = false;
    const PlotHistory& history = m_plot->history();
    std::vector<PlotSample> earlier =
        PlotSample::withGaps(samples, static_cast<double>(Monitoring::kLongestLife));
    if (!history.isEmpty()) {
        while (!earlier.empty() && earlier.back().time >= history.oldestTime()) {
            earlier.pop_back();
        }
        const bool isApart = !earlier.empty() && history.oldestTime() - earlier.back().time >
                                                     static_cast<double>(m_monitoring.lifetime);
        if (isApart) {
            earlier.push_back(PlotSample::gap(earlier.back().time + 1.0));
        }
    }
    prepend(earlier);
    showLiveness();
    reachBack();
}

/// Asks for what the user looks at and nobody has been asked for yet.
void MainWindowPlot::reachBack()
{
    const QwtInterval shown = m_plot->view().shownTime();
    const double from =
        std::max(shown.minValue() - shown.width() * kShareInAdvance, now() - kFurthestReach);
    const bool isWanted = m_plot->view().isHeld() && shown.minValue() < m_askedFrom;
    if (isWanted && from < m_askedFrom && !m_isAnswerDue && !m_hexId.isEmpty()) {
        ask(from, m_askedFrom);
    }
}

void MainWindowPlot::setSelectedDevice(const QString& hexId)
{
    if (hexId == m_hexId) {
        return;
    }
    m_hexId = hexId;
    beginChart();
    m_plot->setZoom(m_zoomEnabled);
}

void MainWindowPlot::setZoomEnabled(bool enabled)
{
    const bool changed = enabled != m_zoomEnabled;
    m_zoomEnabled = enabled;
    m_plot->setZoom(enabled);
    if (changed) {
        emit zoomEnabledChanged(enabled);
    }
}

void MainWindowPlot::beginMoment()
{
    m_recent.clear();
    m_roundTimes.clear();
    if (m_plot->view().isHeld()) {
        m_plot->view().follow();
    }
    beginChart();
}

void MainWindowPlot::clearPlot()
{
    m_recent.clear();
    m_roundTimes.clear();
    beginChart();
    setZoomEnabled(false);
}

void MainWindowPlot::retranslate()
{
    m_plot->setAxisTitle(QwtPlot::yLeft, tr("V"));
    m_plot->setAxisTitle(QwtPlot::yRight, tr("mA"));
    m_plot->setCaption(m_hexId.isEmpty() ? QString() : tr("LDB %1").arg(m_hexId));
    showLiveness();
}
