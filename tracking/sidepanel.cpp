#include "tracking/sidepanel.h"

#include "serial/generalinformation.h"
#include "tracking/plot.h"
#include "ui_sidepanel.h"

namespace {

constexpr double kRawPerMilliampere = 100.0;
// What the axis shows before the first sample, in mA.
constexpr double kEmptyMaximum = 30.0;
constexpr double kEmptyStep = 10.0;

/// Dark enough to be read on the panel's white.
QString endColour(SideEnd end)
{
    switch (end) {
    case SideEnd::Open:
        return QStringLiteral("#a04000");
    case SideEnd::Short:
        return QStringLiteral("#b3261e");
    case SideEnd::Connected:
        break;
    }
    return QStringLiteral("#1b6e36");
}

} // namespace

SidePanel::SidePanel(QWidget* parent)
    : QFrame(parent)
    , m_ui(std::make_unique<Ui::SidePanel>())
{
    m_ui->setupUi(this);
    m_ui->plot->setAxisTitle(QwtPlot::yLeft, tr("mA"));
    m_ui->plot->setAxisScale(QwtPlot::yLeft, 0.0, kEmptyMaximum, kEmptyStep);
    m_ui->plot->setAxisScale(QwtPlot::yLeft, true);
    reset();
}

SidePanel::~SidePanel() = default;

void SidePanel::init(const QString& title, const QString& curveName)
{
    m_ui->titleLabel->setText(title);
    m_ui->countLabel->setAccessibleName(title);
    m_curve = m_ui->plot->addCurve(curveName, QStringLiteral("cyan"), QwtPlot::yLeft);
}

void SidePanel::reset()
{
    setCount(0);
    setRemaining(QString());
    m_ui->sideResultLabel->hide();
    m_ui->earthPositionLabel->hide();
    m_ui->leakagePositionLabel->hide();
}

void SidePanel::setCount(int count)
{
    m_ui->countLabel->setText(QString::number(count));
}

void SidePanel::setRemaining(const QString& text)
{
    m_ui->remainingLabel->setText(text);
    m_ui->remainingLabel->setVisible(!text.isEmpty());
}

void SidePanel::showEnd(const QString& text, SideEnd end)
{
    m_ui->sideResultLabel->setStyleSheet(QStringLiteral("color: %1;").arg(endColour(end)));
    m_ui->sideResultLabel->setText(text);
    m_ui->sideResultLabel->show();
}

void SidePanel::showFault(FaultReport::Kind kind, int position)
{
    QLabel* label = kind == FaultReport::Kind::EarthLeakage ? m_ui->earthPositionLabel
                                                            : m_ui->leakagePositionLabel;
    label->setText(faultreport::sideText(kind, position));
    label->show();
}

void SidePanel::addCurrent(double current, const QDateTime& timestamp)
{
    // The marker of a shorted port is no current: the plot shows it as a gap.
    const bool isMissing = current == generalinformation::kMissingMeasurement;
    m_ui->plot->addData(m_curve, isMissing ? current : current / kRawPerMilliampere,
                        static_cast<double>(timestamp.toMSecsSinceEpoch()));
}

void SidePanel::clearPlot()
{
    m_ui->plot->clear();
}

void SidePanel::setZoom(bool enabled)
{
    m_ui->plot->setZoom(enabled);
    if (!enabled) {
        m_ui->plot->restoreAxisScale();
    }
}
