#pragma once

#include "serial/ldb/exchange.h"

#include <QHash>
#include <QSet>

#include <optional>

/// How fast the LDBs of a bus are asked, by what became of the questions: so long are their values
/// live. Pure: owns no clock.
class BusPace
{
public:
    /// A run begins.
    void clear() { *this = BusPace(); }
    /// The part of a round that an LDB takes on this bus, ms, as `turnOf` gives it.
    void setTurn(qint64 turn) { m_turn = turn; }
    /// A question and what came of it until the next one, `waited` ms later.
    void take(const QString& hexId, bool isSilent, qint64 waited);
    /// An LDB is lost: until it answers it is asked too seldom to count. What came of the question
    /// that was its last is told behind that.
    void lose(const QString& hexId);

    /// How long a value is live where so many LDBs are known, ms.
    qint64 lifetime(int ldbs) const;
    /// After so long without any answer, ms, the bus is no longer monitored.
    qint64 longestQuiet(int ldbs) const;

    /// The turn of a bus on which an LDB usually takes so many µs, ms. In steps, so that it hardly
    /// ever changes.
    static qint64 turnOf(qint64 usual);
    /// Whether the bus is polled by such an exchange.
    static bool isPoll(ExchangeKind kind);

private:
    qint64 turn() const;
    qint64 silence() const;

    std::optional<qint64> m_turn;
    /// Of each LDB that has not answered its last question and is not lost, ms of a round.
    QHash<QString, qint64> m_silences;
    QSet<QString> m_lost;
};
