#include "tracking/plot/portplot.h"

#include "serial/ldb/generalinformation.h"
#include "tracking/plot/plot.h"

#include <QVBoxLayout>

namespace {

constexpr double kRawPerMilliampere = 100.0;
// What the axis shows before the first sample, in mA.
constexpr double kEmptyMaximum = 30.0;
constexpr double kEmptyStep = 10.0;

} // namespace

PortPlot::PortPlot(QWidget* parent)
    : QWidget(parent)
    , m_plot(new Plot(this))
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_plot);
    m_plot->setAxisTitle(QwtPlot::yLeft, tr("mA"));
    m_plot->setAxisScale(QwtPlot::yLeft, 0.0, kEmptyMaximum, kEmptyStep);
    m_plot->setAxisScale(QwtPlot::yLeft, true);
}

void PortPlot::init(const QString& curveName)
{
    m_curveName = curveName;
    m_curve = m_plot->addCurve(curveName, QStringLiteral("cyan"), QwtPlot::yLeft);
}

void PortPlot::setLdb(const QString& hexId)
{
    m_plot->setCaption(QStringLiteral("LDB %1 %2").arg(hexId, m_curveName));
}

void PortPlot::addCurrent(double current, const QDateTime& timestamp)
{
    const bool isMissing = current == generalinformation::kMissingMeasurement;
    m_plot->addData(m_curve, isMissing ? current : current / kRawPerMilliampere,
                    static_cast<double>(timestamp.toMSecsSinceEpoch()));
}

void PortPlot::clear()
{
    m_plot->clear();
}

void PortPlot::setZoom(bool enabled)
{
    m_plot->setZoom(enabled);
    if (!enabled) {
        m_plot->restoreAxisScale();
    }
}
