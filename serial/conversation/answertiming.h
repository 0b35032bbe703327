#pragma once

#include "serial/conversation/usualtimes.h"

#include <optional>

/// Decides from the time that an answer took whether it can be the asked LDB's. An answer names
/// neither its LDB nor its question, so one that comes at an unusual time may belong to an earlier
/// question.
///
/// Times are flight times in µs, from the request's end to the answer's last byte.
class AnswerTiming
{
public:
    enum class Belief
    {
        Believed,
        TooSoon, ///< sooner than this LDB ever answers: an earlier question's
        TooLate, ///< after a silence, and later than usual: may have been held back
    };

    void reset();

    /// A question begins. `canComeTwice`: its transmissions ask the same, so that any answer to it
    /// is right; that holds for commands, not for polls.
    void begin(const QString& hexId, AnswerShape kind, bool canComeTwice);

    /// Nothing came where something should have. A stalled line may still hold it back, for longer
    /// than any wait, and hand it over as if it were another LDB's. Only a prompt answer ends the
    /// doubt: bytes do not overtake each other.
    void setDoubtful() { m_isDoubtful = true; }

    /// `transmission`: the number of the question's last one, from 1 on.
    Belief judgeFrame(int transmission, qint64 flight);
    bool believesAcknowledge(int transmission, qint64 flight);

    /// The transmission's window is over, and nothing more came.
    void nothingFollowed(int transmission);

    /// The question was answered; one asked only once teaches its time.
    void answered(int transmissions, qint64 flight);

    /// Whether a time is within the usual ones; nothing if those are not known.
    std::optional<bool> isUsual(qint64 flight) const;

private:
    bool hasChangedItsTime(int transmission) const;

    UsualTimes m_usual;
    QString m_hexId;
    AnswerShape m_kind = AnswerShape::Acknowledge;
    bool m_canComeTwice = false;
    int m_untimelyAt = 0; ///< the transmission after which an answer was dropped as out of time
    qint64 m_tooSoon = 0; ///< the flight time of the frame dropped as such
    int m_tooLateAt = 0;  ///< the last one after which one was dropped as too late
    bool m_isDoubtful = false;
};
