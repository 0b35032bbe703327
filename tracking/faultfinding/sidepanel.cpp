#include "tracking/faultfinding/sidepanel.h"

#include "app/shared/colours.h"
#include "tracking/faultfinding/trackingtexts.h"
#include "tracking/plot/portplot.h"
#include "ui_sidepanel.h"

namespace {

const QString& endColour(SideEnd end)
{
    switch (end) {
    case SideEnd::Open:
        return colours::kOpen;
    case SideEnd::Short:
        return colours::kShort;
    default:
        return colours::kConnected;
    }
}

} // namespace

SidePanel::SidePanel(QWidget* parent)
    : QFrame(parent)
    , m_ui(std::make_unique<Ui::SidePanel>())
{
    m_ui->setupUi(this);
    reset();
}

SidePanel::~SidePanel() = default;

void SidePanel::init(const QString& title, const QString& curveName)
{
    m_ui->titleLabel->setText(title);
    m_ui->countLabel->setAccessibleName(title);
    m_ui->plot->init(curveName);
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

void SidePanel::showEnd(SideEnd end)
{
    m_ui->sideResultLabel->setStyleSheet(QStringLiteral("color: %1;").arg(endColour(end)));
    m_ui->sideResultLabel->setText(trackingtexts::sideEnd(end));
    m_ui->sideResultLabel->show();
}

void SidePanel::showFault(FaultReport::Kind kind, int position)
{
    QLabel* label = kind == FaultReport::Kind::EarthLeakage ? m_ui->earthPositionLabel
                                                            : m_ui->leakagePositionLabel;
    label->setText(trackingtexts::faultOfSide(kind, position));
    label->show();
}

PortPlot* SidePanel::plot() const
{
    return m_ui->plot;
}
