#pragma once

#include "simulator/bus/simulatorcommand.h"
#include "simulator/line/adversaries.h"

/// Takes over what a command says of the line's adversaries, and leaves all others as they are.
/// False when the command is about something else.
bool applyToAdversaries(const SimulatorCommand& command, Adversaries& adversaries);
