#include "tracking/plot/mainwindowplot.h"

#include "serial/ldb/generalinformation.h"
#include "tracking/plot/plot.h"

#include <QDateTime>
#include <QThread>
#include <QVBoxLayout>

#include <array>

namespace {

struct CurveDescription
{
    const char* name;
    const char* color;
    QwtPlot::Axis axis;
    generalinformation::Row row;
};

// The curves take the rows in the order of the record. This assignment is fixed, whatever the names
// of the curves suggest.
constexpr std::array<CurveDescription, 4> kCurves = {{
    {"VPri", "red", QwtPlot::yLeft, generalinformation::PrimaryVoltageRow},
    {"VSec", "orange", QwtPlot::yLeft, generalinformation::PrimaryCurrentRow},
    {"IPri", "magenta", QwtPlot::yRight, generalinformation::SecondaryVoltageRow},
    {"ISec", "lime", QwtPlot::yRight, generalinformation::SecondaryCurrentRow},
}};

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
    Q_ASSERT(QThread::currentThread() == thread());
    if (hexId != m_hexId || m_plot == nullptr) {
        return;
    }
    const QDateTime time = generalinformation::timestamp(dataList);
    if (!time.isValid()) {
        qWarning("MainWindowPlot: a record of LDB %s has no readable time", qPrintable(hexId));
        return;
    }
    const auto timeMs = static_cast<double>(time.toMSecsSinceEpoch());
    for (std::size_t i = 0; i < kCurves.size(); ++i) {
        m_plot->addData(m_curveNumbers.at(static_cast<int>(i)),
                        generalinformation::number(dataList, kCurves.at(i).row), timeMs);
    }
}

void MainWindowPlot::setSelectedDevice(const QString& hexId)
{
    if (hexId == m_hexId) {
        return;
    }
    m_hexId = hexId;
    m_plot->clear();
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
    m_plot->clear();
    setZoomEnabled(false);
}

void MainWindowPlot::retranslate()
{
    m_plot->setAxisTitle(QwtPlot::yLeft, tr("V"));
    m_plot->setAxisTitle(QwtPlot::yRight, tr("mA"));
}
