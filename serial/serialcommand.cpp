#include "serial/serialcommand.h"

#include "serial/hextext.h"

ISerialCommand::ISerialCommand(const Request& request)
    : m_request(request)
{
}

ISerialCommand::~ISerialCommand() = default;

void ISerialCommand::addObserver(std::unique_ptr<Observer> observer)
{
    if (observer) {
        m_observers.push_back(std::move(observer));
    }
}

void ISerialCommand::notify(const QByteArray& answer)
{
    for (const auto& observer : m_observers) {
        observer->call(answer);
    }
}

ISerialCommand::ObserverCallable::ObserverCallable(QObject* context,
                                                   std::function<void(const QByteArray&)> function)
{
    QObject::connect(&m_relay, &AnswerRelay::answered, context, std::move(function));
    // The relay dies in whatever thread its command dies in, so it belongs to none.
    m_relay.moveToThread(nullptr);
}

void ISerialCommand::ObserverCallable::call(QByteArray answer)
{
    emit m_relay.answered(answer);
}

PollCommand::PollCommand(const QString& hexId)
    : ISerialCommand(requests::poll(hexId))
{
}

RequestCommand::RequestCommand(const QString& hexId, int index, const QByteArray& data)
    : ISerialCommand(requests::read(hexId, index, data))
{
}

RequestCommand::RequestCommand(const QString& hexId, LdbParameter parameter)
    : RequestCommand(hexId, static_cast<int>(parameter))
{
}

ChangeCommand::ChangeCommand(const QString& hexId, int index, const QByteArray& data)
    : ISerialCommand(requests::change(hexId, index, data))
{
}

ChangeCommand::ChangeCommand(const QString& hexId, LdbParameter parameter, const QByteArray& data)
    : ChangeCommand(hexId, static_cast<int>(parameter), data)
{
}

ExecuteCommand::ExecuteCommand(const QString& hexId, int index, const QByteArray& data)
    : ISerialCommand(requests::execute(hexId, index, data))
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
