#include "app/actions/actionspanel.h"

#include "app/notices/notices.h"
#include "serial/link/seriallink.h"
#include "ui_actionspanel.h"

#include <QEvent>

namespace {

constexpr int kOutcomeMs = 5000;

QString controlName(LdbControl control)
{
    switch (control) {
    case LdbControl::FimReset:
        return ActionsPanel::tr("FIM reset");
    case LdbControl::LdbReset:
        return ActionsPanel::tr("LDB reset");
    case LdbControl::FactoryReset:
        return ActionsPanel::tr("Factory reset");
    case LdbControl::ServiceMode:
        return ActionsPanel::tr("Service mode");
    }
    return {};
}

QString outcomeForAll(const QString& action, Reply::Kind reply)
{
    return (reply == Reply::Kind::Unsent
                ? ActionsPanel::tr("The connection ended. Not sent to the LDB's: %1.")
                : ActionsPanel::tr("Sent to all LDB's: %1."))
        .arg(action);
}

QString outcome(const QString& hexId, const QString& action, Reply::Kind reply)
{
    switch (reply) {
    case Reply::Kind::Unsent:
        return ActionsPanel::tr("The connection ended. Not sent to LDB %1: %2.").arg(hexId, action);
    case Reply::Kind::Silent:
        return ActionsPanel::tr("LDB %1 did not answer: %2.").arg(hexId, action);
    case Reply::Kind::Refused:
        return ActionsPanel::tr("LDB %1 refused: %2.").arg(hexId, action);
    case Reply::Kind::Accepted:
    case Reply::Kind::Answered:
        break;
    }
    return ActionsPanel::tr("LDB %1 accepted: %2.").arg(hexId, action);
}

} // namespace

ActionsPanel::ActionsPanel(QWidget* parent)
    : QGroupBox(parent)
    , m_ui(std::make_unique<Ui::ActionsPanel>())
{
    m_ui->setupUi(this);
}

ActionsPanel::~ActionsPanel() = default;

void ActionsPanel::init(SerialLink* link, Notices* notices)
{
    m_link = link;
    m_notices = notices;
}

void ActionsPanel::setAllowed(bool forAll, bool forSelected, bool outsideService)
{
    for (QWidget* button :
         {m_ui->allFimResetButton, m_ui->allLdbResetButton, m_ui->allServiceModeButton}) {
        button->setEnabled(forAll);
    }
    m_ui->fimResetButton->setEnabled(forSelected);
    m_ui->ldbResetButton->setEnabled(forSelected);
    m_ui->serviceModeButton->setEnabled(outsideService);
    m_ui->fimTrackingButton->setEnabled(outsideService);
}

void ActionsPanel::on_fimResetButton_clicked()
{
    send(LdbControl::FimReset, m_hexId);
}

void ActionsPanel::on_ldbResetButton_clicked()
{
    send(LdbControl::LdbReset, m_hexId);
}

void ActionsPanel::on_serviceModeButton_clicked()
{
    send(LdbControl::ServiceMode, m_hexId);
}

void ActionsPanel::on_allFimResetButton_clicked()
{
    send(LdbControl::FimReset, busaddress::kBroadcast);
}

void ActionsPanel::on_allLdbResetButton_clicked()
{
    send(LdbControl::LdbReset, busaddress::kBroadcast);
}

void ActionsPanel::on_allServiceModeButton_clicked()
{
    send(LdbControl::ServiceMode, busaddress::kBroadcast);
}

void ActionsPanel::send(LdbControl control, const QString& hexId)
{
    if (hexId.isEmpty()) {
        return;
    }
    m_link->ask(std::make_unique<ExecuteCommand>(hexId, control), this,
                [this, control, hexId](const Reply& reply) {
                    const auto text = [control, hexId, kind = reply.kind()] {
                        const QString action = controlName(control);
                        return hexId == busaddress::kBroadcast ? outcomeForAll(action, kind)
                                                               : outcome(hexId, action, kind);
                    };
                    m_notices->say(text, kOutcomeMs);
                });
}

void ActionsPanel::changeEvent(QEvent* event)
{
    QGroupBox::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        m_ui->retranslateUi(this);
    }
}
