#include "simulator/line/adversaries.h"

#include <tuple>

namespace {

auto members(const Adversaries& a)
{
    return std::tie(a.flippedRequests, a.flippedAnswers, a.garbledAnswers, a.lostRequests,
                    a.lostAnswers, a.lateAnswers, a.lateFrom, a.lateTo, a.strayEvery, a.burstEvery,
                    a.stall, a.stallEvery, a.vanishEvery, a.vanishFor);
}

} // namespace

bool Adversaries::operator==(const Adversaries& other) const
{
    return members(*this) == members(other);
}
