#include "serial/serialcommand.h"

#include "serial/hextext.h"

/// Its connection carries a reply between two threads, and breaks when the receiver dies.
class ReplyRelay : public QObject
{
    Q_OBJECT
signals:
    void replied(const Reply& reply);
};

namespace busaddress {

const QString kBroadcast = QStringLiteral("FF");
const QString kMaster = QStringLiteral("FE");

QString toHexId(int address)
{
    return QString::fromLatin1(hextext::fromNumber(static_cast<uint>(address)));
}

} // namespace busaddress

namespace {

// Command letters as digit pairs: "p", "sr", "sc", "sx".
constexpr char kPollCode[] = "70";
constexpr char kRequestCode[] = "7372";
constexpr char kChangeCode[] = "7363";
constexpr char kExecuteCode[] = "7378";

QByteArray withIndex(const char* code, int index, const QByteArray& data)
{
    return code + hextext::fromNumber(static_cast<uint>(index)) + data;
}

AnswerShape requestShape(int index)
{
    switch (static_cast<LdbParameter>(index)) {
    case LdbParameter::Settings:
        return AnswerShape::Settings;
    case LdbParameter::Name:
        return AnswerShape::Name;
    default:
        return AnswerShape::Any;
    }
}

AnswerShape executeShape(int index)
{
    switch (static_cast<LdbAction>(index)) {
    case LdbAction::Status:
        return AnswerShape::Status;
    case LdbAction::FirmwareId:
        return AnswerShape::Firmware;
    default:
        return AnswerShape::Acknowledge;
    }
}

} // namespace

ISerialCommand::ISerialCommand(const QString& hexId, const QByteArray& request,
                               AnswerShape answerShape, bool isRead)
    : m_commandData(busaddress::kMaster.toUtf8() + hexId.toUtf8() + request)
    , m_hexId(hexId)
    , m_answerShape(answerShape)
    , m_isRead(isRead)
{
}

ISerialCommand::~ISerialCommand() = default;

void ISerialCommand::addObserver(std::unique_ptr<Observer> observer)
{
    if (observer) {
        m_observers.push_back(std::move(observer));
    }
}

void ISerialCommand::adoptObservers(ISerialCommand& other)
{
    for (auto& observer : other.m_observers) {
        m_observers.push_back(std::move(observer));
    }
    other.m_observers.clear();
}

void ISerialCommand::notify(const QByteArray& answer)
{
    for (const auto& observer : m_observers) {
        observer->call(answer);
    }
}

ISerialCommand::ReplyObserver::ReplyObserver(QObject* context,
                                             std::function<void(const Reply&)> function)
    : m_relay(std::make_unique<ReplyRelay>())
{
    QObject::connect(m_relay.get(), &ReplyRelay::replied, context, std::move(function),
                     Qt::QueuedConnection);
    // It dies in whatever thread its command dies in, so it belongs to none.
    m_relay->moveToThread(nullptr);
}

ISerialCommand::ReplyObserver::~ReplyObserver()
{
    if (!m_called) {
        emit m_relay->replied(Reply());
    }
}

void ISerialCommand::ReplyObserver::call(QByteArray answer)
{
    m_called = true;
    emit m_relay->replied(Reply(std::move(answer)));
}

PollCommand::PollCommand(const QString& hexId)
    : ISerialCommand(hexId, kPollCode, AnswerShape::Any, true)
{
}

RequestCommand::RequestCommand(const QString& hexId, int index, const QByteArray& data)
    : ISerialCommand(hexId, withIndex(kRequestCode, index, data), requestShape(index), true)
{
}

RequestCommand::RequestCommand(const QString& hexId, LdbParameter parameter)
    : RequestCommand(hexId, static_cast<int>(parameter))
{
}

ChangeCommand::ChangeCommand(const QString& hexId, int index, const QByteArray& data)
    : ISerialCommand(hexId, withIndex(kChangeCode, index, data), AnswerShape::Acknowledge, false)
{
}

ChangeCommand::ChangeCommand(const QString& hexId, LdbParameter parameter, const QByteArray& data)
    : ChangeCommand(hexId, static_cast<int>(parameter), data)
{
}

ExecuteCommand::ExecuteCommand(const QString& hexId, int index, const QByteArray& data)
    : ISerialCommand(hexId, withIndex(kExecuteCode, index, data), executeShape(index),
                     executeShape(index) != AnswerShape::Acknowledge)
{
}

ExecuteCommand::ExecuteCommand(const QString& hexId, LdbAction action)
    : ExecuteCommand(hexId, static_cast<int>(action))
{
}

ExecuteCommand::ExecuteCommand(const QString& hexId, LdbControl control)
    : ExecuteCommand(hexId, static_cast<int>(LdbAction::Control),
                     hextext::fromNumber(static_cast<uint>(control)))
{
}

#include "serialcommand.moc"
