#include "tracking/faultfinding/trackedldb.h"

#include "serial/link/seriallink.h"

#include <utility>

namespace {

constexpr int kClockTurnMs = 86400000;

std::unique_ptr<ISerialCommand> createCommand(const QString& hexId, TrackingCommand command)
{
    switch (command) {
    case TrackingCommand::FactoryReset:
        return std::make_unique<ExecuteCommand>(hexId, LdbControl::FactoryReset);
    case TrackingCommand::LdbReset:
        return std::make_unique<ExecuteCommand>(hexId, LdbControl::LdbReset);
    case TrackingCommand::MuteAudio:
        break;
    }
    return std::make_unique<ChangeCommand>(hexId, LdbParameter::AudioMute, encodeAudioMute(true));
}

} // namespace

TrackedLdb::TrackedLdb(const QString& hexId, SerialLink* link)
    : m_hexId(hexId)
    , m_link(link)
{
    m_clock.setTimerType(Qt::PreciseTimer);
    connect(&m_clock, &QTimer::timeout, this, [this] { m_hands += kClockTurnMs; });
    m_clock.start(kClockTurnMs);
    m_wasReachable = TrackedLdb::isReachable(); // a virtual call would be bypassed here
    if (link != nullptr) {
        connect(link, &SerialLink::generalInformationUpdated, this,
                &TrackedLdb::generalInformationUpdated);
        connect(link, &SerialLink::extraInformationUpdated, this,
                &TrackedLdb::generalInformationUpdated);
        connect(link, &SerialLink::communicationFailed, this, &TrackedLdb::connectionLost);
        connect(link, &SerialLink::stopped, this, &TrackedLdb::connectionLost);
        connect(link, &SerialLink::stopped, this, &TrackedLdb::reachableChanged);
        connect(link, &SerialLink::ldbListChanged, this, &TrackedLdb::reachableChanged);
        connect(link, &SerialLink::ldbStateUpdated, this, [this](const QString& told) {
            const bool is = isReachable();
            if (told == m_hexId && std::exchange(m_wasReachable, is) != is) {
                emit reachableChanged();
            }
        });
    }
}

void TrackedLdb::send(TrackingCommand command, QObject* context, ReplyFunction replied)
{
    const bool isMute = command == TrackingCommand::MuteAudio;
    ask(createCommand(m_hexId, command), context,
        [this, context, isMute, replied = std::move(replied)](const Reply& reply) {
            if (isMute && reply.kind() == Reply::Kind::Silent) {
                readMute(context, replied);
            } else {
                replied(reply);
            }
        });
}

/// Reads whether the LDB is muted: it may have obeyed, and its acknowledgement be lost.
void TrackedLdb::readMute(QObject* context, const ReplyFunction& replied)
{
    readSettings(context, [replied](const std::optional<LdbSettings>& settings) {
        const bool isObeyed = settings && settings->audioMute;
        replied(Reply(isObeyed ? Reply::Kind::Accepted : Reply::Kind::Silent));
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
                     ReplyFunction function)
{
    command->addObserver(
        std::make_unique<ISerialCommand::ReplyObserver>(context, std::move(function)));
    post(std::move(command));
}

qint64 TrackedLdb::now() const
{
    return m_hands + kClockTurnMs - m_clock.remainingTime();
}

bool TrackedLdb::isReachable() const
{
    return m_link && m_link->isRunning() && m_link->isConnected(m_hexId);
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
