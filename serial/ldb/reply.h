#pragma once

#include <QByteArray>
#include <QMetaType>

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
    explicit Reply(QByteArray answer);
    /// Of a command whose effect was found out by other means.
    explicit Reply(Kind kind)
        : m_kind(kind)
    {
    }

    Kind kind() const { return m_kind; }
    bool isAccepted() const { return m_kind == Kind::Accepted; }
    /// The answer as it came, a bare ACK or NAK byte included; empty when there is none.
    const QByteArray& answer() const { return m_answer; }

private:
    QByteArray m_answer;
    Kind m_kind = Kind::Unsent;
};
Q_DECLARE_METATYPE(Reply)
