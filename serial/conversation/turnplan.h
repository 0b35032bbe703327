#pragma once

#include "serial/ldb/answershape.h"

#include <QString>

#include <array>
#include <optional>
#include <vector>

/// What the turns of a round ask. Short rounds ask each LDB for status, name and firmware. A round
/// that would take more than five seconds that way is a long one: then a tenth of the LDBs, in
/// turns, give name and firmware, the others only their status; an LDB that missed is asked again
/// soon; and the status of the selected LDB is asked in between.
///
/// The length of a round is counted from the usual times of its questions, so that neither a bad
/// line nor what a long round leaves out changes its kind.
class TurnPlan
{
public:
    struct Options
    {
        /// An LDB gives name and firmware once in so many rounds; 0: in each short one, in every
        /// tenth long one.
        int identityEveryRounds = 0;
        int selectedWithin =
            2000; ///< ms between two statuses of the selected LDB; 0: no extra ones
    };
    /// What a turn asks after the status.
    struct Questions
    {
        bool name = false;
        bool firmware = false;
    };

    explicit TurnPlan(const Options& options)
        : m_options(options)
    {
    }

    /// Another bus, or another list of LDBs.
    void clear();
    /// A question of the rounds was answered at once, after so many µs.
    void took(AnswerShape question, qint64 time);
    /// Before each turn; `polled`: how many LDBs a round has.
    void judge(int polled);
    bool isLong() const { return m_isLong; }
    /// What a turn takes on the average when all is well, µs; nothing while that is not known.
    std::optional<qint64> usualTurn() const;
    void countRound() { ++m_round; }
    /// `position`: of the LDB in the round. An LDB that has not told its name yet is asked for it.
    Questions questions(int position, bool isNameDue) const;
    /// Whether most turns of a long round ask the status only. Then a name or firmware that is not
    /// confirmed is asked again at once, and a silence ends the turn.
    bool isSparse() const { return m_isLong && identityEvery() > 1; }

    /// The LDB to ask in between; none for an empty id.
    void select(const QString& hexId);
    const QString& selected() const { return m_selected; }
    /// An LDB has been asked for its status.
    void statusEnded(const QString& hexId, qint64 now);
    /// Whether the selected LDB is to be asked now; only in long rounds.
    bool isSelectedDue(qint64 now) const;

private:
    int identityEvery() const;
    std::optional<qint64> usualTimeOf(AnswerShape question) const;

    const Options m_options;
    std::array<std::vector<qint64>, kAnswerShapes> m_times; ///< the last ones of each question
    bool m_isLong = false;
    int m_round = 0;
    QString m_selected;
    qint64 m_selectedDue = 0;
};
