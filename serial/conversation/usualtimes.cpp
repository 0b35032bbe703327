#include "serial/conversation/usualtimes.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

void UsualTimes::add(const QString& hexId, AnswerShape kind, qint64 flight)
{
    Ring& ring = m_times[hexId][static_cast<std::size_t>(kind)];
    ring.times[static_cast<std::size_t>(ring.next)] = flight;
    ring.next = (ring.next + 1) % kRemembered;
    ring.count = std::min(ring.count + 1, kRemembered);
    ++ring.sinceSuspected;
    if (++ring.sinceFormer > kLeastRemembered) {
        ring.formerLeast = std::exchange(ring.least, flight);
        ring.sinceFormer = 1;
    }
    ring.least = std::min(ring.least, flight);
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
    const qint64 least = std::min(ring->least, ring->formerLeast);
    const qint64 greatest =
        *std::max_element(ring->times.begin(), ring->times.begin() + ring->count);
    return Span{least - kMargin, greatest + kMargin};
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

void UsualTimes::suspect(const QString& hexId, AnswerShape kind, qint64 flight)
{
    const auto usual = of(hexId, kind);
    if (!usual || flight < usual->least - kWidestStep) {
        return;
    }
    Ring& ring = m_times[hexId][static_cast<std::size_t>(kind)];
    const bool agrees = ring.suspected > 0 && ring.sinceSuspected <= kSuspicionLasts &&
                        std::abs(flight - ring.suspected) <= kMargin;
    if (agrees) {
        ring.least = std::min(ring.least, flight);
    }
    ring.suspected = agrees ? 0 : flight;
    ring.sinceSuspected = 0;
}

void UsualTimes::forget(const QString& hexId, AnswerShape kind)
{
    const auto found = m_times.find(hexId);
    if (found != m_times.end()) {
        (*found)[static_cast<std::size_t>(kind)] = {};
    }
}
