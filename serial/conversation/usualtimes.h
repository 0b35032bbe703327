#pragma once

#include "serial/ldb/answershape.h"

#include <QHash>
#include <QString>

#include <array>
#include <limits>
#include <optional>

/// How long an LDB's answers usually take, by kind. An answer does not say what it answers, but one
/// that comes sooner than this LDB ever answers such a question was sent to an earlier one.
/// Bounded: a fixed number of times for each LDB and kind.
class UsualTimes
{
public:
    /// A span of flight times in µs, from the request's end to the answer's last byte.
    struct Span
    {
        qint64 least = 0;
        qint64 greatest = 0;
        bool contains(qint64 flight) const { return flight >= least && flight <= greatest; }
    };

    /// Takes the flight time of an answer whose request had been transmitted only once.
    void add(const QString& hexId, AnswerShape kind, qint64 flight);

    /// From the least to the greatest of the last `kRemembered` times, `kMargin` wider each way;
    /// nothing before the `kNeeded`th. The least is remembered for longer.
    std::optional<Span> of(const QString& hexId, AnswerShape kind) const;

    /// Whether a flight time is no more than `kPrompt` longer than the middle one of those
    /// remembered; nothing before the `kNeeded`th. A single late answer does not move the middle.
    std::optional<bool> isPrompt(const QString& hexId, AnswerShape kind, qint64 flight) const;

    /// An answer with this time was dropped as too soon, and no other one followed: it may have
    /// been the right one. Two that agree, little below the least and soon after each other, teach.
    /// One alone does not: an earlier question's answer may have come, and the right one been lost.
    void suspect(const QString& hexId, AnswerShape kind, qint64 flight);

    /// Forgets one LDB's times of a kind.
    void forget(const QString& hexId, AnswerShape kind);
    void clear() { m_times.clear(); }

private:
    static constexpr int kRemembered = 32;
    /// The least of half as many is often 3 ms above a later answer: on a clean line one run in
    /// eleven would drop a good one.
    static constexpr int kNeeded = 16;
    static constexpr qint64 kMargin = 3000;
    /// Adapters that hand bytes over at ticks make times come in steps wider than the margin, and a
    /// step may be rare: it must be learned though it is dropped at first, and not be forgotten
    /// soon. Without that a good line loses up to a fifth of its pace.
    static constexpr int kLeastRemembered = 256;
    static constexpr qint64 kWidestStep = 20000;
    static constexpr int kSuspicionLasts = 64; ///< answers
    static constexpr qint64 kPrompt = 20000;

    struct Ring
    {
        std::array<qint64, kRemembered> times{};
        int count = 0;
        int next = 0;
        /// The least of the current and of the former `kLeastRemembered` times.
        qint64 least = std::numeric_limits<qint64>::max();
        qint64 formerLeast = std::numeric_limits<qint64>::max();
        int sinceFormer = 0;
        qint64 suspected = 0; ///< 0 for none
        int sinceSuspected = 0;
    };
    /// Null before the `kNeeded`th.
    const Ring* find(const QString& hexId, AnswerShape kind) const;

    QHash<QString, std::array<Ring, kAnswerShapes>> m_times;
};
