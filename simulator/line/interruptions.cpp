#include "simulator/line/interruptions.h"

#include <algorithm>

void Interruptions::start(double every, qint64 shortest, qint64 longest, qint64 now)
{
    m_every = every;
    m_shortest = shortest;
    m_longest = longest;
    m_span = {};
    if (every > 0) {
        m_span = {now, now};
        draw(now);
    }
}

Span Interruptions::at(qint64 time)
{
    while (time >= m_span.to && m_every > 0) {
        draw(m_span.to);
    }
    return m_span;
}

/// Counted from the last beginning, so that the average holds however long each lasts.
void Interruptions::draw(qint64 after)
{
    m_span.from = std::max(after, m_span.from + m_chance.waiting(m_every));
    m_span.to = m_span.from + m_chance.between(m_shortest, m_longest);
}
