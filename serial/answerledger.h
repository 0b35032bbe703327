#pragma once

#include "serial/answershape.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// What is asked of the bus right now.
struct PendingRequest
{
    QString hexId;
    QByteArray body;
    AnswerShape shape = AnswerShape::Any;

    /// Whether `answer` can be this request's. A settings record names its LDB, so that one of
    /// another LDB never fits.
    bool fits(const QByteArray& answer) const;
};

/// Keeps account of the answers that LDBs still owe, since an answer does not say what it answers.
/// Every transmission may bring one answer, late ones after their request was repeated, given up,
/// or answered already. What comes is held against the oldest debts first; it is taken as the
/// pending request's only when it cannot be anybody else's.
class AnswerLedger
{
public:
    enum class Verdict
    {
        Take,  ///< the pending request's answer
        Drop,  ///< an owed one or none at all: go on waiting
        Misfit ///< nothing is owed, yet it does not look like the pending request's answer
    };

    /// `horizon`: ms after a transmission in which its answer may still come.
    explicit AnswerLedger(qint64 horizon)
        : m_horizon(horizon)
    {
    }

    /// Forgets everything.
    void clear();

    /// A new request takes the pending one's place; what that one still owes is remembered.
    void begin(const PendingRequest& request);
    const PendingRequest& pending() const { return m_pending; }

    /// The pending request was transmitted, at `now` (monotonic ms).
    void transmitted(qint64 now);

    /// Whose answer a valid answer is.
    Verdict judge(const QByteArray& answer, qint64 now);

    /// The pending request has been answered in a way that cannot be used.
    void settle();

    /// Whether an invalid answer can be the remains of a late one rather than the pending one's.
    bool isOwed(qint64 now);

private:
    struct Debt
    {
        PendingRequest request;
        qint64 expires = 0;
    };
    void expire(qint64 now);

    qint64 m_horizon;
    PendingRequest m_pending;
    bool m_isAnswered = false;     ///< the pending request, at least once
    QList<qint64> m_transmissions; ///< of the pending request: when each one's answer expires
    QList<Debt> m_debts;
};
