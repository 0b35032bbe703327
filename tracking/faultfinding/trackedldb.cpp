#include "tracking/faultfinding/trackedldb.h"

#include "serial/link/seriallink.h"

#include <utility>

namespace {

constexpr int kClockTurnMs = 86400000;

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
        break;
    }
    return std::make_unique<ChangeCommand>(hexId, LdbParameter::AudioMute, encodeAudioMute(true));
}

} // namespace

TrackedLdb::TrackedLdb(const QString& hexId, QObject* parent)
    : QObject(parent)
    , m_hexId(hexId)
{
}

void TrackedLdb::send(Command command, QObject* context, AnswerFunction answered)
{
    const bool isMute = command == Command::MuteAudio;
    ask(createCommand(m_hexId, command), context,
        [this, context, isMute, answered = std::move(answered)](const Reply& reply) {
            if (isMute && reply.kind() == Reply::Kind::Silent) {
                readMute(context, answered);
            } else {
                answered(meaning(reply));
            }
        });
}

/// Reads whether the LDB is muted: it may have obeyed, and its acknowledgement be lost.
void TrackedLdb::readMute(QObject* context, const AnswerFunction& answered)
{
    readSettings(context, [answered](const std::optional<LdbSettings>& settings) {
        answered(settings && settings->audioMute ? Answer::Accepted : Answer::None);
    });
}

void TrackedLdb::readSettings(QObject* context, SettingsFunction read)
{
    ask(std::make_unique<RequestCommand>(m_hexId, LdbParameter::Settings), context,
        [hexId = m_hexId, read = std::move(read)](const Reply& reply) {
            read(decodeLdbSettings(reply.answer(), hexId));
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
    m_clock.setTimerType(Qt::PreciseTimer);
    connect(&m_clock, &QTimer::timeout, this, [this] { m_hands += kClockTurnMs; });
    m_clock.start(kClockTurnMs);
    connect(link, &SerialLink::generalInformationUpdated, this,
            &TrackedLdb::generalInformationUpdated);
    connect(link, &SerialLink::communicationFailed, this, &TrackedLdb::connectionLost);
    connect(link, &SerialLink::stopped, this, &TrackedLdb::connectionLost);
    connect(link, &SerialLink::stopped, this, &TrackedLdb::reachableChanged);
    connect(link, &SerialLink::ldbListChanged, this, &TrackedLdb::reachableChanged);
}

qint64 SerialTrackedLdb::now() const
{
    return m_hands + kClockTurnMs - m_clock.remainingTime();
}

bool SerialTrackedLdb::isReachable() const
{
    return m_link && m_link->isRunning() && m_link->knownLdbs().contains(hexId());
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
