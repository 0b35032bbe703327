#pragma once

#include <QStringList>

#include <deque>
#include <utility>

/// Whose turn it is: rounds over the LDBs found, in the order found. Lost LDBs are out of the
/// round; they take turns at one probe at its end, so that many dead ones cost the living no more
/// than one. An LDB that is to be asked again gets that turn between those of the round.
class PollSchedule
{
public:
    struct Turn
    {
        enum class Kind
        {
            Poll,
            Again, ///< beside its turn in the round
            Probe
        };
        Kind kind = Kind::Poll;
        QString hexId;
        bool beginsRound = false; ///< the round's timestamps are to be taken now
        bool endsRound = false;   ///< one was complete before this turn
    };

    /// Forgets all LDBs, for a scan.
    void clear();
    /// Joins the round that is on, as its last.
    void add(const QString& hexId) { m_found.append(hexId); }
    /// It was no LDB after all.
    void remove(const QString& hexId);
    /// Lets the next turn begin a round at the first LDB.
    void restart();

    bool isEmpty() const { return m_found.isEmpty(); }
    const QStringList& found() const { return m_found; }

    /// Gives this LDB, whose turn it is, another turn after a few others, but before its turn in
    /// the next round. At most every second turn is such a turn.
    void askAgain(const QString& hexId);
    /// That is not needed any more.
    void dropAgain(const QString& hexId);
    /// The place of the LDB in the round.
    int position() const { return m_index; }
    /// Whether one was on; it is complete.
    bool endRound() { return std::exchange(m_isRoundOn, false); }
    void beginRound() { m_isRoundOn = true; }

    /// The next turn; only when not empty.
    Turn next();

    /// Polls this LDB alone, every turn a round of its own; an empty id ends that. False, changing
    /// nothing, for an LDB that was not found.
    bool setAlone(const QString& hexId);
    const QString& alone() const { return m_alone; }

    void markLost(const QString& hexId);
    void markPresent(const QString& hexId) { m_lost.removeAll(hexId); }
    bool isLost(const QString& hexId) const { return m_lost.contains(hexId); }
    /// How many a round has.
    int polled() const { return m_alone.isEmpty() ? m_found.size() - m_lost.size() : 1; }

private:
    struct Again
    {
        QString hexId;
        int others = 0; ///< that had a turn since
    };
    bool isAgainDue() const;
    Turn nextOfRound();

    QStringList m_found;
    QStringList m_lost; ///< the one to probe next stands first
    QString m_alone;
    int m_index = 0;
    bool m_probed = true; ///< this round's probe has been made
    bool m_isRoundOn = false;
    std::deque<Again> m_again;
    bool m_wasAgain = false; ///< the last turn
};
