#include "tracking/trackedldb.h"

#include "serial/seriallink.h"

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

} // namespace

TrackedLdb::TrackedLdb(const QString& hexId, QObject* parent)
    : QObject(parent)
    , m_hexId(hexId)
{
}

void TrackedLdb::send(Command command, QObject* context, AnswerFunction answered)
{
    auto serialCommand = createCommand(m_hexId, command);
    serialCommand->addObserver(std::make_unique<ISerialCommand::ReplyObserver>(
        context,
        [answered = std::move(answered)](const Reply& reply) { answered(meaning(reply)); }));
    post(std::move(serialCommand));
}

SerialTrackedLdb::SerialTrackedLdb(const QString& hexId, SerialLink* link, QObject* parent)
    : TrackedLdb(hexId, parent)
    , m_link(link)
{
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
