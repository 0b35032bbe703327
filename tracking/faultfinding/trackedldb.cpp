#include "tracking/faultfinding/trackedldb.h"

#include "app/notices/messagebox.h"
#include "serial/seriallink.h"
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

/// Waits for the end of an audio mute; owned by the application until it deletes itself.
class AudioMuteEnd : public QObject
{
public:
    AudioMuteEnd(std::shared_ptr<TrackedLdb> ldb, bool wasMuted, QWidget* boxParent)
        : QObject(QCoreApplication::instance())
        , m_ldb(std::move(ldb))
        , m_wasMuted(wasMuted)
        , m_boxParent(boxParent)
    {
    }
    ~AudioMuteEnd() override
    {
        finish(false); // the program ends before the reply has come
    }

    void finish(bool isEnded)
    {
        if (std::exchange(m_finished, true)) {
            return;
        }
        if (!isEnded && m_wasMuted) {
            tellStillMuted();
        }
        deleteLater();
    }

private:
    void tellStillMuted() const
    {
        qWarning() << "The audio mute of LDB" << m_ldb->hexId() << "could not be ended";
        if (!m_boxParent || !m_boxParent->isVisible()) {
            return; // the program is closing
        }
        MessageBox::tell(
            m_boxParent, QMessageBox::Warning,
            [hexId = m_ldb->hexId()] {
                return BoxText{QCoreApplication::translate("FimTracking", "Attention"),
                               trackingtexts::staysMuted(hexId)};
            },
            QStringLiteral("stillMutedBox"));
    }

    const std::shared_ptr<TrackedLdb> m_ldb;
    const bool m_wasMuted;
    const QPointer<QWidget> m_boxParent;
    bool m_finished = false;
};

} // namespace

TrackedLdb::TrackedLdb(const QString& hexId, QObject* parent)
    : QObject(parent)
    , m_hexId(hexId)
{
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
            replied(Reply(isObeyed ? QByteArray(1, framecodec::kAck) : QByteArray()));
        });
}

void TrackedLdb::ask(std::unique_ptr<ISerialCommand> command, QObject* context,
                     ReplyFunction function)
{
    command->addObserver(
        std::make_unique<ISerialCommand::ReplyObserver>(context, std::move(function)));
    post(std::move(command));
}

SerialTrackedLdb::SerialTrackedLdb(const QString& hexId, SerialLink* link, QObject* parent)
    : TrackedLdb(hexId, parent)
    , m_link(link)
{
    m_clock.start();
    connect(link, &SerialLink::generalInformationUpdated, this,
            &TrackedLdb::generalInformationUpdated);
    connect(link, &SerialLink::communicationFailed, this, &TrackedLdb::connectionLost);
    connect(link, &SerialLink::stopped, this, &TrackedLdb::connectionLost);
}

bool SerialTrackedLdb::isReachable() const
{
    return m_link && m_link->isRunning();
}

void SerialTrackedLdb::setPolledAlone(bool alone)
{
    if (m_link) {
        m_link->pollOnly(alone ? hexId() : QString());
    }
}

void SerialTrackedLdb::post(std::unique_ptr<ISerialCommand> command)
{
    if (m_link) {
        m_link->post(std::move(command));
    }
}

void endAudioMute(const std::shared_ptr<TrackedLdb>& ldb, bool wasMuted, QWidget* boxParent)
{
    auto* end = new AudioMuteEnd(ldb, wasMuted, boxParent);
    ldb->send(TrackingCommand::EndAudioMute, end,
              [end](const Reply& reply) { end->finish(reply.isAccepted()); });
}
