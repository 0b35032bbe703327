#include "app/actions/actionspanel.h"

#include "app/notices/notices.h"
#include "app/shared/whynot.h"
#include "serial/link/seriallink.h"
#include "ui_actionspanel.h"

#include <QEvent>

namespace {

constexpr int kOutcomeMs = 5000;

QString controlName(LdbControl control)
{
    constexpr const char* kNames[] = {
        QT_TRANSLATE_NOOP("ActionsPanel", "FIM reset"),
        QT_TRANSLATE_NOOP("ActionsPanel", "LDB reset"),
        QT_TRANSLATE_NOOP("ActionsPanel", "Factory reset"),
        QT_TRANSLATE_NOOP("ActionsPanel", "Service mode")}; // in the order of the enumerators
    return ActionsPanel::tr(kNames[static_cast<int>(control)]);
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

/// Nobody answers a broadcast, so its silence is none.
bool isFailure(const QString& hexId, Reply::Kind reply)
{
    return reply == Reply::Kind::Unsent || reply == Reply::Kind::Refused ||
           (reply == Reply::Kind::Silent && hexId != busaddress::kBroadcast);
}

} // namespace

ActionsPanel::ActionsPanel(QWidget* parent)
    : QGroupBox(parent)
    , m_ui(std::make_unique<Ui::ActionsPanel>())
{
    m_ui->setupUi(this);
    showFailure({});
    const auto let = [this](const QPushButton* button, LdbControl control, bool isForAll) {
        connect(button, &QPushButton::clicked, this, [this, control, isForAll] {
            send(control, isForAll ? busaddress::kBroadcast : m_hexId);
        });
    };
    let(m_ui->fimResetButton, LdbControl::FimReset, false);
    let(m_ui->ldbResetButton, LdbControl::LdbReset, false);
    let(m_ui->serviceModeButton, LdbControl::ServiceMode, false);
    let(m_ui->allFimResetButton, LdbControl::FimReset, true);
    let(m_ui->allLdbResetButton, LdbControl::LdbReset, true);
    let(m_ui->allServiceModeButton, LdbControl::ServiceMode, true);
}

ActionsPanel::~ActionsPanel() = default;

void ActionsPanel::init(SerialLink* link, Notices* notices)
{
    m_link = link;
    m_notices = notices;
}

void ActionsPanel::apply(const EnabledControls& controls)
{
    for (QWidget* button :
         {m_ui->allFimResetButton, m_ui->allLdbResetButton, m_ui->allServiceModeButton}) {
        WhyNot::permit(button, controls.allActions);
    }
    for (QWidget* button : {m_ui->fimResetButton, m_ui->ldbResetButton}) {
        WhyNot::permit(button, controls.singleActions);
    }
    for (QWidget* button : {m_ui->serviceModeButton, m_ui->fimTrackingButton}) {
        WhyNot::permit(button, controls.outsideService);
    }
}

void ActionsPanel::send(LdbControl control, const QString& hexId)
{
    if (hexId.isEmpty()) {
        return;
    }
    showFailure({});
    m_link->ask(std::make_unique<ExecuteCommand>(hexId, control), this,
                [this, control, hexId](const Reply& reply) {
                    const auto text = [control, hexId, kind = reply.kind()] {
                        const QString action = controlName(control);
                        return hexId == busaddress::kBroadcast ? outcomeForAll(action, kind)
                                                               : outcome(hexId, action, kind);
                    };
                    m_notices->say(text, kOutcomeMs);
                    if (isFailure(hexId, reply.kind())) {
                        showFailure(text);
                    }
                });
}

void ActionsPanel::showFailure(const Text& text)
{
    m_failure = text;
    m_ui->actionFailureLabel->setText(text ? text() : QString());
    m_ui->actionFailureLabel->setVisible(bool(text));
}

void ActionsPanel::changeEvent(QEvent* event)
{
    QGroupBox::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        m_ui->retranslateUi(this);
        showFailure(m_failure);
    }
}
