#include "serial/ldb/serialcommand.h"

#include "serial/wire/hextext.h"

/// Its connection carries a reply between two threads, and breaks when the receiver dies.
class ReplyRelay : public QObject
{
    Q_OBJECT
signals:
    void replied(const Reply& reply);
};

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

ExecuteCommand::ExecuteCommand(const QString& hexId, LdbControl control)
    : ExecuteCommand(hexId, LdbAction::Control, hextext::fromNumber(static_cast<uint>(control)))
{
}

#include "serialcommand.moc"
