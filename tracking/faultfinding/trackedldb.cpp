#include "tracking/faultfinding/trackedldb.h"

#include "app/notices/messagebox.h"
#include "serial/link/seriallink.h"
#include "tracking/faultfinding/trackingtexts.h"

#include <QCoreApplication>
#include <QDebug>

#include <utility>

namespace {

std::unique_ptr<ISerialCommand> createCommand(const QString& hexId, TrackingCommand command)
{
    switch (command) {
    case TrackingCommand::FactoryReset:
        return std::make_unique<ExecuteCommand>(hexId, LdbControl::FactoryReset);
    case TrackingCommand::LdbReset:
        return std::make_unique<ExecuteCommand>(hexId, LdbControl::LdbReset);
    case TrackingCommand::MuteAudio:
        return std::make_unique<ChangeCommand>(hexId, LdbParameter::AudioMute,
                                               encodeAudioMute(true));
    case TrackingCommand::EndAudioMute:
        break;
    }
    return std::make_unique<ChangeCommand>(hexId, LdbParameter::AudioMute, encodeAudioMute(false));
}

void tellStillMuted(const QString& hexId, QWidget* boxParent)
{
    qWarning() << "The audio mute of LDB" << hexId << "could not be ended";
    if (boxParent == nullptr || !boxParent->isVisible()) {
        return; // the program is closing
    }
    const auto texts = [hexId] {
        return BoxText{QCoreApplication::translate("FimTracking", "Attention"),
                       trackingtexts::staysMuted(hexId)};
    };
    MessageBox::tell(boxParent, QMessageBox::Warning, texts, QStringLiteral("stillMutedBox"));
}

} // namespace

TrackedLdb::TrackedLdb(const QString& hexId, SerialLink* link)
    : m_hexId(hexId)
    , m_link(link)
{
    m_clock.start();
    if (link != nullptr) {
        connect(link, &SerialLink::generalInformationUpdated, this,
                &TrackedLdb::generalInformationUpdated);
        connect(link, &SerialLink::communicationFailed, this, &TrackedLdb::connectionLost);
        connect(link, &SerialLink::stopped, this, &TrackedLdb::connectionLost);
    }
}

void TrackedLdb::send(TrackingCommand command, QObject* context, ReplyFunction replied)
{
    const bool isMute =
        command == TrackingCommand::MuteAudio || command == TrackingCommand::EndAudioMute;
    ask(createCommand(m_hexId, command), context,
        [this, command, context, isMute, replied = std::move(replied)](const Reply& reply) {
            if (isMute && reply.kind() == Reply::Kind::Silent) {
                readMute(command == TrackingCommand::MuteAudio, context, replied);
            } else {
                replied(reply);
            }
        });
}

/// Reads whether the mute is as wanted: the LDB may have obeyed, and its acknowledgement be lost.
void TrackedLdb::readMute(bool wanted, QObject* context, const ReplyFunction& replied)
{
    ask(std::make_unique<RequestCommand>(m_hexId, LdbParameter::Settings), context,
        [hexId = m_hexId, wanted, replied](const Reply& reply) {
            const auto settings = decodeLdbSettings(reply.answer(), hexId);
            const bool isObeyed = settings && settings->audioMute == wanted;
            replied(Reply(isObeyed ? Reply::Kind::Accepted : Reply::Kind::Silent));
        });
}

void TrackedLdb::ask(std::unique_ptr<ISerialCommand> command, QObject* context,
                     ReplyFunction function)
{
    command->addObserver(
        std::make_unique<ISerialCommand::ReplyObserver>(context, std::move(function)));
    post(std::move(command));
}

bool TrackedLdb::isReachable() const
{
    return m_link && m_link->isRunning();
}

void TrackedLdb::setPolledAlone(bool alone)
{
    if (m_link) {
        m_link->pollOnly(alone ? m_hexId : QString());
    }
}

void TrackedLdb::post(std::unique_ptr<ISerialCommand> command)
{
    if (m_link) {
        m_link->post(std::move(command));
    }
}

void endAudioMute(const std::shared_ptr<TrackedLdb>& ldb, bool wasMuted, QWidget* boxParent)
{
    // Dies with the reply, or with the program when that ends before.
    auto* waiting = new QObject(QCoreApplication::instance());
    const auto isMuted = std::make_shared<bool>(wasMuted);
    QObject::connect(waiting, &QObject::destroyed,
                     [ldb, isMuted, boxParent = QPointer<QWidget>(boxParent)] {
                         if (*isMuted) {
                             tellStillMuted(ldb->hexId(), boxParent);
                         }
                     });
    ldb->send(TrackingCommand::EndAudioMute, waiting, [waiting, isMuted](const Reply& reply) {
        *isMuted = *isMuted && !reply.isAccepted();
        waiting->deleteLater();
    });
}
