#pragma once

#include "serial/ldb/busaddress.h"
#include "serial/ldb/reply.h"
#include "serial/ldb/request.h"

#include <QByteArray>
#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

class ReplyRelay;

/// One request to the bus: its body, and who wants the answer. Made in any thread, handed to the
/// serial processor by `std::unique_ptr`, and deleted there once it is answered or given up.
class ISerialCommand
{
public:
    /// Takes the answer: a body, a single ACK (0x06) or NAK (0x15) byte, or nothing at all when the
    /// command was sent and nothing came. Owned by its command; destroyed without a call when the
    /// command is never sent.
    class Observer;
    class ObserverFunc;
    class ReplyObserver;
    template <typename T>
    class ObserverMember;

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

/// Calls `function` once, in the thread of `context` and from its event loop: with what was
/// answered, or with an unsent `Reply` when the command is destroyed without an answer. Nobody is
/// called once the context has died.
class ISerialCommand::ReplyObserver : public ISerialCommand::Observer
{
public:
    ReplyObserver(QObject* context, std::function<void(const Reply&)> function);
    ~ReplyObserver() override;

    void call(QByteArray answer) override;

private:
    std::unique_ptr<ReplyRelay> m_relay;
    bool m_called = false;
};

/// Calls a member of `object` in the object's own thread with the answer, if the command was sent.
template <typename T>
class ISerialCommand::ObserverMember : public ISerialCommand::ReplyObserver
{
public:
    using Member = void (T::*)(QByteArray);

    ObserverMember(T* object, Member member)
        : ReplyObserver(object, [object, member](const Reply& reply) {
            if (reply.kind() != Reply::Kind::Unsent) {
                (object->*member)(reply.answer());
            }
        })
    {
    }
};

/// Asks whether an LDB stands at an address.
class PollCommand : public ISerialCommand
{
public:
    explicit PollCommand(const QString& hexId)
        : ISerialCommand(requests::poll(hexId))
    {
    }
};

// An index is a number or an enumerator.

/// Reads a parameter.
class RequestCommand : public ISerialCommand
{
public:
    template <typename Index>
    RequestCommand(const QString& hexId, Index index, const QByteArray& data = {})
        : ISerialCommand(requests::read(hexId, static_cast<int>(index), data))
    {
    }
};

/// Writes a parameter.
class ChangeCommand : public ISerialCommand
{
public:
    template <typename Index>
    ChangeCommand(const QString& hexId, Index index, const QByteArray& data)
        : ISerialCommand(requests::change(hexId, static_cast<int>(index), data))
    {
    }
};

/// Starts an action.
class ExecuteCommand : public ISerialCommand
{
public:
    template <typename Index>
    ExecuteCommand(const QString& hexId, Index index, const QByteArray& data = {})
        : ISerialCommand(requests::execute(hexId, static_cast<int>(index), data))
    {
    }
    ExecuteCommand(const QString& hexId, LdbControl control);
};
