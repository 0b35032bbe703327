#include "app/actions/actionspanel.h"

#include "app/actions/broadcastwatch.h"
#include "app/notices/notices.h"
#include "app/shared/whynot.h"
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
        break;
    }
    return ActionsPanel::tr("Service mode");
}

// --- Actions for all ---

BoxText question(LdbControl control, int known, int lost)
{
    BoxText text;
    text.title = ActionsPanel::tr("Attention");
    switch (control) {
    case LdbControl::FimReset:
        text.text = ActionsPanel::tr("Reset the FIM's of all %n LDB(s)?", nullptr, known);
        text.details = ActionsPanel::tr("The loops are without sound while their FIM's are reset. "
                                        "Remembered faults are forgotten.");
        break;
    case LdbControl::LdbReset:
        text.text = ActionsPanel::tr("Restart all %n LDB(s)?", nullptr, known);
        text.details = ActionsPanel::tr("All loops are without sound until their LDB's have booted "
                                        "and measured. Service mode ends.");
        break;
    case LdbControl::FactoryReset:
    case LdbControl::ServiceMode:
        text.text = ActionsPanel::tr("Put all %n LDB(s) into service mode?", nullptr, known);
        text.details =
            ActionsPanel::tr("None of them watches its loop any more, and loops may be without "
                             "sound, until each LDB is reset. Faults are not reported.");
        break;
    }
    if (lost > 0) {
        text.details += QLatin1Char('\n') + ActionsPanel::tr("Not answering now: %1.").arg(lost);
    }
    text.choices = QStringList{controlName(control), ActionsPanel::tr("Cancel")};
    return text;
}

QString sightText(const BroadcastSight& sight)
{
    const char* text = QT_TRANSLATE_NOOP("ActionsPanel", "In service mode: %1 of %2 LDB's.");
    if (sight.control == LdbControl::FimReset) {
        text = QT_TRANSLATE_NOOP("ActionsPanel", "Seen in a FIM reset: %1 of %2 LDB's.");
    } else if (sight.control == LdbControl::LdbReset) {
        text = QT_TRANSLATE_NOOP("ActionsPanel", "Answered since the LDB reset: %1 of %2 LDB's.");
    }
    return ActionsPanel::tr(text).arg(sight.seen.size()).arg(sight.ldbs.size());
}

QString missingTitle(LdbControl control)
{
    switch (control) {
    case LdbControl::FimReset:
        return ActionsPanel::tr("Not seen in it: %1");
    case LdbControl::LdbReset:
        return ActionsPanel::tr("Not answered since: %1");
    case LdbControl::FactoryReset:
    case LdbControl::ServiceMode:
        break;
    }
    return ActionsPanel::tr("Not in it: %1");
}

BoxText sightBox(const BroadcastSight& sight)
{
    QStringList missing;
    for (const QString& hexId : sight.missing()) {
        const QString ldb = QStringLiteral("%1 %2").arg(hexId, sight.names.value(hexId)).trimmed();
        missing.append(
            sight.states.contains(hexId)
                ? QStringLiteral("%1 (%2)").arg(ldb, ldbStateText(sight.states.value(hexId)))
                : ldb);
    }
    QStringList details;
    if (!missing.isEmpty()) {
        details.append(missingTitle(sight.control).arg(missing.join(QStringLiteral(", "))));
    }
    if (sight.isCut) {
        details.append(ActionsPanel::tr("The connection ended before all had been looked at."));
    }
    return {missing.isEmpty() ? ActionsPanel::tr("Information") : ActionsPanel::tr("Attention"),
            sightText(sight), details.join(QLatin1Char('\n'))};
}

QString outcomeForAll(const QString& action, Reply::Kind reply)
{
    return (reply == Reply::Kind::Unsent
                ? ActionsPanel::tr("The connection ended. Not sent to the LDB's: %1.")
                : ActionsPanel::tr("Sent to all LDB's: %1."))
        .arg(action);
}

// --- Actions for one ---

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
bool isFailure(Reply::Kind reply)
{
    return reply == Reply::Kind::Unsent || reply == Reply::Kind::Refused ||
           reply == Reply::Kind::Silent;
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
            isForAll ? askForAll(control) : send(control, m_hexId);
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
    connect(link, &SerialLink::stopped, this, [this] {
        // A yes is meant for the bus that was there when it was asked for.
        if (m_question) {
            m_question->reject();
        }
    });
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
                        return outcome(hexId, controlName(control), kind);
                    };
                    m_notices->say(text, kOutcomeMs);
                    if (isFailure(reply.kind())) {
                        showFailure(text);
                    }
                    emit told(hexId, text());
                });
}

void ActionsPanel::askForAll(LdbControl control)
{
    const int known = m_link->knownLdbs().size();
    const int lost = known - m_link->connectedLdbs().size();
    m_question = new MessageBox(
        QMessageBox::Warning, [control, known, lost] { return question(control, known, lost); },
        window());
    m_question->setObjectName(QStringLiteral("allActionBox"));
    connect(m_question, &QDialog::finished, this, [this, control, box = m_question.data()] {
        if (box->choice() == 0) {
            sendToAll(control);
        }
    });
    m_question->open();
}

void ActionsPanel::sendToAll(LdbControl control)
{
    m_watch.reset(); // what it looks for is over
    showFailure({});
    m_link->ask(std::make_unique<ExecuteCommand>(busaddress::kBroadcast, control), this,
                [this, control](const Reply& reply) {
                    const auto text = [control, kind = reply.kind()] {
                        return outcomeForAll(controlName(control), kind);
                    };
                    m_notices->say(text, kOutcomeMs);
                    emit told(QString(), text());
                    if (reply.kind() == Reply::Kind::Unsent) {
                        showFailure(text);
                        return;
                    }
                    m_watch = std::make_unique<BroadcastWatch>(m_link, control);
                    connect(m_watch.get(), &BroadcastWatch::finished, this,
                            &ActionsPanel::tellSight);
                });
}

void ActionsPanel::tellSight()
{
    const BroadcastSight sight = m_watch->sight();
    m_watch.release()->deleteLater(); // it is the sender
    m_notices->box(sight.missing().isEmpty() ? QMessageBox::Information : QMessageBox::Warning,
                   [sight] { return sightBox(sight); });
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
