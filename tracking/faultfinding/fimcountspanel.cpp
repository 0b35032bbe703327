#include "tracking/faultfinding/fimcountspanel.h"

#include "app/shared/colours.h"
#include "app/shared/whynot.h"
#include "tracking/faultfinding/fimtracking.h"
#include "tracking/faultfinding/trackingtexts.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

FimCountsPanel::FimCountsPanel(QWidget* parent)
    : QWidget(parent)
    , m_label(new QLabel)
    , m_button(new QPushButton(FimTracking::tr("&Take Over")))
{
    constexpr QSize kButtonSize(150, 36);
    constexpr int kSpacing = 16;
    m_label->setObjectName(QStringLiteral("fimCountsLabel"));
    m_button->setObjectName(QStringLiteral("takeOverButton"));
    m_button->setMinimumSize(kButtonSize);
    m_button->setToolTip(
        FimTracking::tr("Writes the FIM's counted as the number of FIM's into the LDB"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(kSpacing);
    row->addWidget(m_label);
    row->addWidget(m_button);
    row->addStretch();
    connect(m_button, &QPushButton::clicked, this, [this] {
        WhyNot::permit(m_button,
                       [] { return FimTracking::tr("The number of FIM's is being written."); });
        emit takeOverWanted(*m_counted);
    });
}

void FimCountsPanel::reset()
{
    m_counted.reset();
    show();
}

void FimCountsPanel::setConfigured(std::optional<int> fimCount)
{
    m_configured = fimCount;
    show();
}

void FimCountsPanel::showCounted(int fimCount)
{
    m_counted = fimCount;
    show();
}

void FimCountsPanel::setReachable(bool reachable)
{
    WhyNot::permit(m_button, reachable ? Text() : trackingtexts::noConnection);
}

void FimCountsPanel::show()
{
    setVisible(m_counted.has_value());
    if (m_counted) {
        const bool isSame = m_configured == m_counted;
        m_label->setText(trackingtexts::fimCounts(*m_counted, m_configured));
        m_label->setStyleSheet(isSame || !m_configured
                                   ? QString()
                                   : QStringLiteral("color: %1;").arg(colours::kShort));
        m_button->setVisible(!isSame && *m_counted > 0);
    }
}
