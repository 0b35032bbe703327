#include "serial/conversation/usualtimes.h"

#include <algorithm>

void UsualTimes::add(const QString& hexId, AnswerShape kind, qint64 flight)
{
    Ring& ring = m_times[hexId][static_cast<std::size_t>(kind)];
    ring.times[static_cast<std::size_t>(ring.next)] = flight;
    ring.next = (ring.next + 1) % kRemembered;
    ring.count = std::min(ring.count + 1, kRemembered);
}

const UsualTimes::Ring* UsualTimes::find(const QString& hexId, AnswerShape kind) const
{
    const auto found = m_times.constFind(hexId);
    if (found == m_times.constEnd()) {
        return nullptr;
    }
    const Ring& ring = (*found)[static_cast<std::size_t>(kind)];
    return ring.count < kNeeded ? nullptr : &ring;
}

std::optional<UsualTimes::Span> UsualTimes::of(const QString& hexId, AnswerShape kind) const
{
    const Ring* ring = find(hexId, kind);
    if (!ring) {
        return std::nullopt;
    }
    const auto [least, greatest] =
        std::minmax_element(ring->times.begin(), ring->times.begin() + ring->count);
    return Span{*least - kMargin, *greatest + kMargin};
}

std::optional<bool> UsualTimes::isPrompt(const QString& hexId, AnswerShape kind,
                                         qint64 flight) const
{
    const Ring* ring = find(hexId, kind);
    if (!ring) {
        return std::nullopt;
    }
    std::array<qint64, kRemembered> times = ring->times;
    const auto middle = times.begin() + ring->count / 2;
    std::nth_element(times.begin(), middle, times.begin() + ring->count);
    return flight <= *middle + kPrompt;
}

void UsualTimes::forget(const QString& hexId, AnswerShape kind)
{
    const auto found = m_times.find(hexId);
    if (found != m_times.end()) {
        (*found)[static_cast<std::size_t>(kind)] = {};
    }
}
