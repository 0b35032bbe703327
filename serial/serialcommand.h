#pragma once

#include "serial/busaddress.h"
#include "serial/request.h"

#include <QByteArray>
#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

/// Carries one answer from the thread that has it to the receiver's thread. The connection does
/// the work: it is queued when the threads differ, and a receiver that has died in the meantime
/// simply gets nothing.
class AnswerRelay : public QObject
{
    Q_OBJECT
signals:
    void answered(const QByteArray& answer);
};

/// One request to the bus: its body, and who wants the answer. Made in any thread, handed to the
/// serial processor by `std::unique_ptr`, and deleted there once it is answered or given up.
class ISerialCommand
{
public:
    /// Takes the answer: a body, a single ACK (0x06) or NAK (0x15) byte, or nothing at all when the
    /// command was given up. Owned by its command.
    class Observer;
    class ObserverFunc;
    template <typename T>
    class ObserverMember;
    class ObserverCallable;

    virtual ~ISerialCommand();

    ISerialCommand(const ISerialCommand&) = delete;
    ISerialCommand& operator=(const ISerialCommand&) = delete;

    /// The request's body, without start, check digits and end.
    virtual QByteArray commandData() const { return m_request.body; }

    const Request& request() const { return m_request; }

    void addObserver(std::unique_ptr<Observer> observer);

    /// Passes the answer to every observer, in the calling thread.
    void notify(const QByteArray& answer);

protected:
    explicit ISerialCommand(const Request& request);

private:
    std::vector<std::unique_ptr<Observer>> m_observers;
    Request m_request;
};

class ISerialCommand::Observer
{
public:
    Observer() = default;
    virtual ~Observer() = default;
    Observer(const Observer&) = delete;
    Observer& operator=(const Observer&) = delete;

    virtual void call(QByteArray answer) = 0;
};

/// Calls a plain function, in the processor's thread.
class ISerialCommand::ObserverFunc : public ISerialCommand::Observer
{
public:
    using Function = void (*)(QByteArray);

    explicit ObserverFunc(Function function)
        : m_function(function)
    {
    }
    void call(QByteArray answer) override { m_function(std::move(answer)); }

private:
    Function m_function;
};

/// Calls `context`'s function in the context's own thread, or nobody when the context has died.
/// For receivers that must know more than the answer, such as which LDB they had asked.
class ISerialCommand::ObserverCallable : public ISerialCommand::Observer
{
public:
    ObserverCallable(QObject* context, std::function<void(const QByteArray&)> function);
    void call(QByteArray answer) override;

private:
    AnswerRelay m_relay;
};

/// Calls a member of `object` in the object's own thread, or nobody when the object has died.
template <typename T>
class ISerialCommand::ObserverMember : public ISerialCommand::Observer
{
public:
    using Member = void (T::*)(QByteArray);

    ObserverMember(T* object, Member member)
        : m_callable(object,
                     [object, member](const QByteArray& answer) { (object->*member)(answer); })
    {
    }
    void call(QByteArray answer) override { m_callable.call(std::move(answer)); }

private:
    ObserverCallable m_callable;
};

/// Asks whether an LDB stands at an address.
class PollCommand : public ISerialCommand
{
public:
    explicit PollCommand(const QString& hexId);
};

/// Reads a parameter.
class RequestCommand : public ISerialCommand
{
public:
    RequestCommand(const QString& hexId, int index, const QByteArray& data = {});
    RequestCommand(const QString& hexId, LdbParameter parameter);
};

/// Writes a parameter.
class ChangeCommand : public ISerialCommand
{
public:
    ChangeCommand(const QString& hexId, int index, const QByteArray& data);
    ChangeCommand(const QString& hexId, LdbParameter parameter, const QByteArray& data);
};

/// Starts an action.
class ExecuteCommand : public ISerialCommand
{
public:
    ExecuteCommand(const QString& hexId, int index, const QByteArray& data = {});
    ExecuteCommand(const QString& hexId, LdbAction action);
    ExecuteCommand(const QString& hexId, LdbControl control);
};
