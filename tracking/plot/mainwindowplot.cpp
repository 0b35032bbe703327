#include "tracking/plot/mainwindowplot.h"

#include "app/shared/tuningfile.h"
#include "serial/ldb/generalinformation.h"
#include "tracking/plot/plot.h"

#include <QDateTime>
#include <QThread>
#include <QVBoxLayout>

#include <array>
#include <limits>

namespace {

struct CurveDescription
{
    const char* name;
    const char* color;
    QwtPlot::Axis axis;
    generalinformation::Row row;
};

constexpr std::array<CurveDescription, 4> kCurves = {{
    {"VPri", "red", QwtPlot::yLeft, generalinformation::PrimaryVoltageRow},
    {"VSec", "orange", QwtPlot::yLeft, generalinformation::SecondaryVoltageRow},
    {"IPri", "magenta", QwtPlot::yRight, generalinformation::PrimaryCurrentRow},
    {"ISec", "lime", QwtPlot::yRight, generalinformation::SecondaryCurrentRow},
}};

constexpr double kNoSample = std::numeric_limits<double>::quiet_NaN();

constexpr double kVoltageMinimum = 0.0;
constexpr double kVoltageMaximum = 32.0;
constexpr double kVoltageStep = 10.0;
constexpr double kCurrentMinimum = -30.0;
constexpr double kCurrentMaximum = 140.0;
constexpr double kCurrentStep = 30.0;

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
    const std::optional<double> time = timeOf(hexId, dataList);
    if (!time) {
        return;
    }
    // It carries the time at which its round has begun, which may lie before that of an extra
    // record, though the clock was not set back: it is newer all the same.
    const bool isClockSetBack = m_roundTime && *time < *m_roundTime;
    const bool isBehindExtra = m_newest && !isClockSetBack && *time < m_newestSample;
    m_roundTime = time;
    add(dataList, isBehindExtra ? m_newestSample + 1.0 : *time);
}

void MainWindowPlot::processExtra(const QString& hexId, const QList<QStringList>& dataList)
{
    if (const std::optional<double> time = timeOf(hexId, dataList)) {
        add(dataList, *time);
    }
}

/// The time of a record that is to be drawn.
std::optional<double> MainWindowPlot::timeOf(const QString& hexId,
                                             const QList<QStringList>& dataList) const
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (hexId != m_hexId || m_plot == nullptr) {
        return std::nullopt;
    }
    const QDateTime time = generalinformation::timestamp(dataList);
    if (!time.isValid()) {
        qWarning("MainWindowPlot: a record of LDB %s has no readable time", qPrintable(hexId));
        return std::nullopt;
    }
    return static_cast<double>(time.toMSecsSinceEpoch());
}

void MainWindowPlot::add(const QList<QStringList>& dataList, double timeMs)
{
    if (!m_isLive && m_newest && timeMs > m_newestSample) {
        // No line over the time in which nothing was known.
        addSamples({}, m_newestSample + 1.0);
    }
    addSamples(dataList, timeMs);
    m_newest = generalinformation::clockTime(dataList);
    m_newestSample = timeMs;
    showLiveness();
}

/// One value a curve; a gap where the record has none.
void MainWindowPlot::addSamples(const QList<QStringList>& dataList, double timeMs)
{
    using namespace generalinformation;
    for (std::size_t i = 0; i < kCurves.size(); ++i) {
        const Row row = m_rowsInOrder ? static_cast<Row>(PrimaryVoltageRow + static_cast<int>(i))
                                      : kCurves.at(i).row;
        const bool isKnown = !dataList.isEmpty() && hasValue(dataList, row);
        m_plot->addData(m_curveNumbers.at(static_cast<int>(i)),
                        isKnown ? number(dataList, row) : kNoSample, timeMs);
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
    m_isLive = m_monitoring.isLive(m_hexId, m_newest);
    m_plot->setPast(m_isLive || !m_newest ? QString()
                                          : tr("%1 ago").arg(m_monitoring.ageText(m_newest)));
}

void MainWindowPlot::forgetSamples()
{
    m_plot->clear();
    m_newest.reset();
    m_roundTime.reset();
    showLiveness();
}

void MainWindowPlot::setSelectedDevice(const QString& hexId)
{
    if (hexId == m_hexId) {
        return;
    }
    m_hexId = hexId;
    forgetSamples();
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

void MainWindowPlot::clearPlot()
{
    forgetSamples();
    setZoomEnabled(false);
}

void MainWindowPlot::retranslate()
{
    m_plot->setAxisTitle(QwtPlot::yLeft, tr("V"));
    m_plot->setAxisTitle(QwtPlot::yRight, tr("mA"));
    showLiveness();
}
