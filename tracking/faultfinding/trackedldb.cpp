#include "tracking/faultfinding/trackedldb.h"

#include "serial/link/seriallink.h"
#include "tracking/faultfinding/trackingtexts.h"

#include <QCoreApplication>
#include <QDebug>
#include <QMessageBox>

#include <utility>

namespace {

TrackedLdb::Answer meaning(const Reply& reply)
{
    switch (reply.kind()) {
    case Reply::Kind::Accepted:
        return TrackedLdb::Answer::Accepted;
    case Reply::Kind::Refused:
    case Reply::Kind::Answered:
        return TrackedLdb::Answer::Refused;
    case Reply::Kind::Silent:
    case Reply::Kind::Unsent:
        break;
    }
    return TrackedLdb::Answer::None;
}

std::unique_ptr<ISerialCommand> createCommand(const QString& hexId, TrackedLdb::Command command)
{
    switch (command) {
    case TrackedLdb::Command::FactoryReset:
        return std::make_unique<ExecuteCommand>(hexId, LdbControl::FactoryReset);
    case TrackedLdb::Command::LdbReset:
        return std::make_unique<ExecuteCommand>(hexId, LdbControl::LdbReset);
    case TrackedLdb::Command::MuteAudio:
        return std::make_unique<ChangeCommand>(hexId, LdbParameter::AudioMute,
                                               encodeAudioMute(true));
    case TrackedLdb::Command::EndAudioMute:
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
        finish(TrackedLdb::Answer::None); // the program ends before the reply has come
    }
    AudioMuteEnd(const AudioMuteEnd&) = delete;
    AudioMuteEnd& operator=(const AudioMuteEnd&) = delete;

    void finish(TrackedLdb::Answer answer)
    {
        if (std::exchange(m_finished, true)) {
            return;
        }
        if (answer != TrackedLdb::Answer::Accepted && m_wasMuted) {
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
        auto* box = new QMessageBox(
            QMessageBox::Warning, QCoreApplication::translate("FimTracking", "Attention"),
            trackingtexts::staysMuted(m_ldb->hexId()), QMessageBox::Ok, m_boxParent);
        box->setObjectName(QStringLiteral("stillMutedBox"));
        box->setAttribute(Qt::WA_DeleteOnClose);
        box->open();
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

void TrackedLdb::send(Command command, QObject* context, AnswerFunction answered)
{
    const bool isMute = command == Command::MuteAudio || command == Command::EndAudioMute;
    ask(createCommand(m_hexId, command), context,
        [this, command, context, isMute, answered = std::move(answered)](const Reply& reply) {
            if (isMute && reply.kind() == Reply::Kind::Silent) {
                readMute(command == Command::MuteAudio, context, answered);
            } else {
                answered(meaning(reply));
            }
        });
}

/// Reads whether the mute is as wanted: the LDB may have obeyed, and its acknowledgement be lost.
void TrackedLdb::readMute(bool wanted, QObject* context, const AnswerFunction& answered)
{
    ask(std::make_unique<RequestCommand>(m_hexId, LdbParameter::Settings), context,
        [hexId = m_hexId, wanted, answered](const Reply& reply) {
            const auto settings = decodeLdbSettings(reply.answer(), hexId);
            const bool isObeyed = settings && settings->audioMute == wanted;
            answered(isObeyed ? Answer::Accepted : Answer::None);
        });
}

void TrackedLdb::ask(std::unique_ptr<ISerialCommand> command, QObject* context,
                     std::function<void(const Reply&)> function)
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
    ldb->send(TrackedLdb::Command::EndAudioMute, end,
              [end](TrackedLdb::Answer answer) { end->finish(answer); });
}
