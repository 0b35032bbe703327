#pragma once

#include "simulator/line/adversaries.h"
#include "simulator/line/boards.h"
#include "simulator/line/chance.h"
#include "simulator/line/interruptions.h"
#include "simulator/line/linetime.h"

#include <vector>

/// Draws what the adversaries of a line do, each from a chance of its own. Times in ns.
class Mischief
{
public:
    explicit Mischief(quint64 seed);

    const Adversaries& adversaries() const { return m_adversaries; }
    /// In force from `at` on. What goes on unchanged keeps its course.
    void setAdversaries(const Adversaries& adversaries, qint64 at);

    /// What befalls a request that ends at `at`; fills in who does not hear it.
    Harms harmRequest(int address, qint64 at, AbsentBoards& absent);
    /// What befalls an answer: its harms, its bytes as sent, and how late it is.
    void harmAnswer(LineAnswer& answer);

    /// Stray bytes that begin at `at`, and the time of the next ones.
    QByteArray takeStrays(qint64 at);
    qint64 nextStrays() const { return std::min(m_nextStray, m_nextBurst); }

    /// The absence of a board at that time, or else its next one. Times must not go back.
    Span absence(int board, qint64 at);
    bool isAbsent(int board, qint64 at) { return absence(board, at).contains(at); }
    /// Likewise for the stall of the whole line.
    Span stall(qint64 at) { return m_stalls.at(at); }

private:
    QByteArray strays(int count);
    void restart(qint64& next, double every, qint64 at);

    Adversaries m_adversaries;
    Chance m_requestFate;
    Chance m_answerFate;
    Chance m_lateness;
    Chance m_strays;
    Interruptions m_stalls;
    std::vector<Interruptions> m_absences; ///< by bus address
    qint64 m_nextStray = linetime::kNever;
    qint64 m_nextBurst = linetime::kNever;
};
