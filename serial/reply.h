#pragma once

#include "serial/framecodec.h"

#include <QByteArray>
#include <QMetaType>

#include <utility>

/// What became of one command. The only place that reads an ACK.
class Reply
{
public:
    enum class Kind
    {
        Accepted, ///< a bare ACK
        Refused,  ///< a bare NAK
        Answered, ///< a body
        Silent,   ///< sent, and nothing came: its effect is not known until it is read back.
                  ///< A broadcast that was sent ends so, for nobody owes it an answer.
        Unsent    ///< never sent: there is no run, or it ended first
    };

    /// Of a command that was never sent.
    Reply() = default;
    /// Of a command that was sent; `answer` is empty when nothing came.
    explicit Reply(QByteArray answer)
        : m_answer(std::move(answer))
        , m_kind(kindOf(m_answer))
    {
    }

    Kind kind() const { return m_kind; }
    bool isAccepted() const { return m_kind == Kind::Accepted; }
    /// The answer as it came, a bare ACK or NAK byte included; empty when there is none.
    const QByteArray& answer() const { return m_answer; }

private:
    static Kind kindOf(const QByteArray& answer)
    {
        const char only = answer.size() == 1 ? answer.at(0) : '\0';
        return answer.isEmpty()           ? Kind::Silent
               : only == framecodec::kAck ? Kind::Accepted
               : only == framecodec::kNak ? Kind::Refused
                                          : Kind::Answered;
    }

    QByteArray m_answer;
    Kind m_kind = Kind::Unsent;
};
Q_DECLARE_METATYPE(Reply)
