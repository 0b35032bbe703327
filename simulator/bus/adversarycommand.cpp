#include "simulator/bus/adversarycommand.h"

#include <algorithm>
#include <iterator>
#include <vector>

bool applyToAdversaries(const SimulatorCommand& command, Adversaries& adversaries)
{
    struct Said
    {
        CommandVerb verb;
        std::vector<double Adversaries::*> members;
    };
    using A = Adversaries;
    static const Said kSaid[] = {
        {CommandVerb::BadBus, {&A::garbledAnswers, &A::lateAnswers}},
        {CommandVerb::Flips, {&A::flippedRequests, &A::flippedAnswers}},
        {CommandVerb::Losses, {&A::lostRequests, &A::lostAnswers}},
        {CommandVerb::LateAnswers, {&A::lateAnswers}},
        {CommandVerb::Stray, {&A::strayEvery, &A::burstEvery}},
        {CommandVerb::Stalls, {&A::stallEvery}},
        {CommandVerb::Vanishing, {&A::vanishEvery, &A::vanishFor}},
    };
    const auto* said =
        std::find_if(std::begin(kSaid), std::end(kSaid),
                     [&command](const Said& entry) { return entry.verb == command.verb; });
    if (said == std::end(kSaid)) {
        return false;
    }
    for (const auto member : said->members) {
        adversaries.*member = command.adversaries.*member;
    }
    if (command.verb == CommandVerb::Stalls) {
        adversaries.stall = command.adversaries.stall;
    }
    if (command.hasLateness) {
        adversaries.lateFrom = command.adversaries.lateFrom;
        adversaries.lateTo = command.adversaries.lateTo;
    }
    return true;
}
