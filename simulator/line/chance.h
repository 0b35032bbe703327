#pragma once

#include <QtGlobal>

/// Seeded chance: the same seed gives the same course on every machine. A small value, so that each
/// thing left to chance has one of its own, and switching one on changes nothing of the others.
class Chance
{
public:
    explicit Chance(quint64 seed)
        : m_state(seed)
    {
    }

    /// An independent one for the purpose numbered `key`.
    Chance split(quint64 key) const;

    quint64 next();
    bool happens(double percent);
    /// A whole number in [lowest, highest], each as likely as the others.
    qint64 between(qint64 lowest, qint64 highest);
    /// A waiting time of an event that comes every `mean` on average and remembers nothing.
    qint64 waiting(double mean);

private:
    quint64 m_state;
};
