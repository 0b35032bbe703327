#pragma once

#include "serial/serialcommand.h"

#include <array>
#include <memory>
#include <vector>

/// The parameters that make up an LDB's stored settings, in the order in which they are written.
constexpr std::array<LdbParameter, 5> kWritableParameters = {
    LdbParameter::Name, LdbParameter::Flags, LdbParameter::OpenDetectionDelay,
    LdbParameter::AudioMute, LdbParameter::NumberOfFims};

/// The value text of one of the writable parameters; empty for any other.
QByteArray encodeParameter(LdbParameter parameter, const LdbSettings& settings);

/// Whether "Audio Mute" is among what is written.
enum class AudioMuteChange
{
    Written,
    LeftAlone ///< for settings out of a file, which does not carry it
};

/// The parameters that `settingsCommands` writes, in order.
std::vector<LdbParameter> writtenParameters(AudioMuteChange audioMute);

/// What writes `settings` into an LDB: a change for each of `writtenParameters`, then the action
/// that stores them. Without it the LDB loses them at its next reset.
std::vector<std::unique_ptr<ISerialCommand>>
settingsCommands(const QString& hexId, const LdbSettings& settings, AudioMuteChange audioMute);
