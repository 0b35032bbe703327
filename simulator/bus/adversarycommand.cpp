#include "simulator/bus/adversarycommand.h"

bool applyToAdversaries(const SimulatorCommand& command, Adversaries& adversaries)
{
    const Adversaries& said = command.adversaries;
    switch (command.verb) {
    case CommandVerb::BadBus:
        adversaries.garbledAnswers = said.garbledAnswers;
        adversaries.lateAnswers = said.lateAnswers;
        break;
    case CommandVerb::Flips:
        adversaries.flippedRequests = said.flippedRequests;
        adversaries.flippedAnswers = said.flippedAnswers;
        break;
    case CommandVerb::Losses:
        adversaries.lostRequests = said.lostRequests;
        adversaries.lostAnswers = said.lostAnswers;
        break;
    case CommandVerb::LateAnswers:
        adversaries.lateAnswers = said.lateAnswers;
        break;
    case CommandVerb::Stray:
        adversaries.strayEvery = said.strayEvery;
        adversaries.burstEvery = said.burstEvery;
        break;
    case CommandVerb::Stalls:
        adversaries.stall = said.stall;
        adversaries.stallEvery = said.stallEvery;
        break;
    case CommandVerb::Vanishing:
        adversaries.vanishEvery = said.vanishEvery;
        adversaries.vanishFor = said.vanishFor;
        break;
    default:
        return false;
    }
    if (command.hasLateness) {
        adversaries.lateFrom = said.lateFrom;
        adversaries.lateTo = said.lateTo;
    }
    return true;
}
