#pragma once

#include "serial/answershape.h"

#include <QHash>
#include <QString>

#include <array>
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
    /// nothing before the `kNeeded`th.
    std::optional<Span> of(const QString& hexId, AnswerShape kind) const;

    /// Whether a flight time is no more than `kPrompt` longer than the middle one of those
    /// remembered; nothing before the `kNeeded`th. A single late answer does not move the middle.
    std::optional<bool> isPrompt(const QString& hexId, AnswerShape kind, qint64 flight) const;

    /// Forgets one LDB's times of a kind.
    void forget(const QString& hexId, AnswerShape kind);
    void clear() { m_times.clear(); }

private:
    static constexpr int kRemembered = 32;
    /// Of half as many the least is often 3 ms above what is still to come: on a clean line one run
    /// in eleven would drop a good answer.
    static constexpr int kNeeded = 16;
    static constexpr qint64 kMargin = 3000;
    static constexpr qint64 kPrompt = 20000;

    struct Ring
    {
        std::array<qint64, kRemembered> times{};
        int count = 0;
        int next = 0;
    };
    /// Null before the `kNeeded`th.
    const Ring* find(const QString& hexId, AnswerShape kind) const;

    QHash<QString, std::array<Ring, kAnswerShapes>> m_times;
};
