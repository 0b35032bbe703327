#include "serial/answerledger.h"

#include "serial/ldbsettings.h"

#include <algorithm>

bool PendingRequest::fits(const QByteArray& answer) const
{
    if (!hasShape(answer, shape)) {
        return false;
    }
    if (shape == AnswerShape::Settings) {
        const auto settings = decodeLdbSettings(answer);
        return !settings || settings->address == hexId.toInt(nullptr, 16);
    }
    return true;
}

void AnswerLedger::clear()
{
    m_pending = {};
    m_isAnswered = false;
    m_transmissions.clear();
    m_debts.clear();
}

void AnswerLedger::begin(const PendingRequest& request)
{
    if (!m_isAnswered && m_transmissions.size() > 1) {
        // Silent through all its windows: the LDB did not hear, rather than being late. One debt is
        // kept; more would swallow all the transmissions of the request that follows.
        m_transmissions = {m_transmissions.last()};
    }
    for (const qint64 expires : qAsConst(m_transmissions)) {
        m_debts.append({m_pending, expires});
    }
    m_transmissions.clear();
    m_isAnswered = false;
    m_pending = request;
}

void AnswerLedger::transmitted(qint64 now)
{
    m_transmissions.append(now + m_horizon);
}

AnswerLedger::Verdict AnswerLedger::judge(const QByteArray& answer, qint64 now)
{
    expire(now);
    // A probe's answer can look like anything; counting every answer against the many silent probes
    // of a scan would leave nothing for the requests that follow it.
    const auto debt = std::find_if(m_debts.begin(), m_debts.end(), [&answer](const Debt& owed) {
        return owed.request.shape != AnswerShape::Any && owed.request.fits(answer);
    });
    if (debt != m_debts.end()) {
        m_debts.erase(debt);
        return Verdict::Drop;
    }
    const bool isOurs = m_pending.fits(answer);
    if (!isOurs && isOwed(now)) {
        return Verdict::Drop;
    }
    settle();
    if (!isOurs) {
        return Verdict::Misfit;
    }
    // An LDB answers in order: whatever it owed from before will not come any more.
    const auto kept = std::remove_if(m_debts.begin(), m_debts.end(), [this](const Debt& owed) {
        return owed.request.hexId == m_pending.hexId;
    });
    m_debts.erase(kept, m_debts.end());
    return Verdict::Take;
}

void AnswerLedger::settle()
{
    m_isAnswered = true;
    if (!m_transmissions.isEmpty()) {
        m_transmissions.removeFirst();
    }
}

bool AnswerLedger::isOwed(qint64 now)
{
    expire(now);
    return !m_debts.isEmpty() || m_transmissions.size() > 1;
}

void AnswerLedger::expire(qint64 now)
{
    const auto kept = std::remove_if(m_debts.begin(), m_debts.end(),
                                     [now](const Debt& owed) { return owed.expires <= now; });
    m_debts.erase(kept, m_debts.end());
}
