#include "app/installation/installationdesk.h"

#include "app/installation/installationform.h"
#include "app/installation/installationquestion.h"
#include "app/notices/linknotices.h"
#include "app/notices/notices.h"
#include "app/shared/constants.h"
#include "serial/link/seriallink.h"

#include <utility>

namespace {

/// How long a message stays: it is news, and not true for ever. ms.
constexpr int kBackShown = 10000;

} // namespace

InstallationDesk::InstallationDesk(const Surroundings& around, const PortSource& ports,
                                   QWidget* window)
    : QObject(window)
    , m_around(around)
    , m_window(window)
    , m_control(new InstallationControl(around.link, Installations(), ports.wallTime, this))
    , m_waiter(new PortWaiter(around.link, ports, this))
{
    connect(m_control, &InstallationControl::anotherFound, this,
            [this] { askWhich(true, m_control->current().id); });
    connect(m_control, &InstallationControl::recognised, this,
            [this](const QString& id) { askWhich(false, id); });
    connect(m_control, &InstallationControl::changed, this, &InstallationDesk::showTitle);
    connect(m_control, &InstallationControl::failed, this, [this](const QString& reason) {
        m_around.notices->box(
            QMessageBox::Warning,
            [reason] {
                return BoxText{tr("Installation"), reason};
            },
            QStringLiteral("installationBox"));
    });
    connect(m_control, &InstallationControl::settledChanged, this, [this] {
        m_around.linkNotices->holdLosses(m_around.link->isRunning() && !m_control->mayTellLosses());
    });
    connect(m_around.link, &SerialLink::stopped, this, &InstallationDesk::closeQuestion);
    connect(m_waiter, &PortWaiter::waitingChanged, m_around.linkNotices, &LinkNotices::setWaiting);
    connect(m_waiter, &PortWaiter::found, this, [this](const PortIdentity& found) {
        emit resumable(found.name, m_control->planAgain(found, m_waiter->isLongAway()));
    });
    connect(m_waiter, &PortWaiter::severalFound, this, &InstallationDesk::askWhichPort);
    connect(m_waiter, &PortWaiter::back, this, [this] {
        m_around.notices->say(
            [name = m_around.link->portName()] {
                return tr("The connection to %1 is back.").arg(name);
            },
            kBackShown);
    });
}

InstallationDesk::~InstallationDesk() = default;

PortIdentity InstallationDesk::port() const
{
    return m_waiter->identity(m_around.link->portName());
}

StartPlan InstallationDesk::planForStart()
{
    return m_control->planFor(port());
}

void InstallationDesk::showForm()
{
    if (!m_form) {
        m_form = new InstallationForm(
            m_control, [this] { return port(); }, m_window);
    }
    m_form->open();
}

void InstallationDesk::forget(const QStringList& hexIds)
{
    m_control->forget(m_control->current().id, hexIds);
}

void InstallationDesk::askWhich(bool isAnother, const QString& id)
{
    closeQuestion();
    const std::vector<Installation> installations = m_control->all();
    QString title = id;
    for (const Installation& installation : installations) {
        if (installation.id == id) {
            title = installation.title();
        }
    }
    const QString portName = m_around.link->portName();
    const Text text = [isAnother, title, portName] {
        return isAnother
                   ? tr("What answers at %1 does not look like the installation \"%2\": most of "
                        "its "
                        "LDBs are silent, or have other names. Which installation is it? If it is "
                        "that one, select it: its silent LDBs are then shown as lost. Until you "
                        "have said so, nothing is written to the LDBs.")
                         .arg(portName, title)
                   : tr("What answers at %1 has the LDBs of the installation \"%2\". Is it that "
                        "one?")
                         .arg(portName, title);
    };
    // Proposes none that has just been ruled out.
    m_question =
        new InstallationQuestion(text, installations, isAnother ? QString() : id, m_window);
    connect(m_question, &InstallationQuestion::answered, this,
            [this](const QString& chosen) { m_control->choose(chosen, port()); });
    m_question->show();
}

void InstallationDesk::closeQuestion()
{
    if (m_question) {
        std::exchange(m_question, {})->close();
    }
}

void InstallationDesk::askWhichPort(const QStringList& names)
{
    auto* box = new MessageBox(
        QMessageBox::Question,
        [names, lost = m_waiter->portName()] {
            return BoxText{tr("Which port?"),
                           tr("The connection to %1 was lost. Several adapters of its kind are "
                              "there now. Which one is it?")
                               .arg(lost),
                           {},
                           names + QStringList(tr("Wait On"))};
        },
        m_window);
    box->setObjectName(QStringLiteral("whichPortBox"));
    connect(box, &QDialog::finished, this, [this, box, names] {
        const QString name = names.value(box->choice());
        if (!name.isEmpty()) {
            m_waiter->take(name);
        }
    });
    connect(m_waiter, &PortWaiter::waitingChanged, box, &QDialog::close);
    box->open();
}

void InstallationDesk::showTitle()
{
    QString title = QStringLiteral("%1 Version %2")
                        .arg(constants::kApplicationDisplayName, constants::kApplicationVersion);
    const Installation& current = m_control->current();
    if (!current.name.isEmpty()) {
        title += QStringLiteral(" - ") + current.name;
    }
    m_window->setWindowTitle(title);
}
