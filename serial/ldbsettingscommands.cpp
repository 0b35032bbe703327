#include "serial/ldbsettingscommands.h"

QByteArray encodeParameter(LdbParameter parameter, const LdbSettings& settings)
{
    switch (parameter) {
    case LdbParameter::Name:
        return encodeName(settings.name);
    case LdbParameter::NumberOfFims:
        return encodeSwappedWord(settings.numberOfFims);
    case LdbParameter::Flags:
        return encodeFlags(settings);
    case LdbParameter::AudioMute:
        return encodeAudioMute(settings.audioMute);
    case LdbParameter::OpenDetectionDelay:
        return encodeSwappedWord(settings.openDetectionDelay);
    case LdbParameter::Settings:
        break;
    }
    return {};
}

std::vector<LdbParameter> writtenParameters(AudioMuteChange audioMute)
{
    std::vector<LdbParameter> parameters;
    for (const LdbParameter parameter : kWritableParameters) {
        if (parameter != LdbParameter::AudioMute || audioMute == AudioMuteChange::Written) {
            parameters.push_back(parameter);
        }
    }
    return parameters;
}

std::vector<std::unique_ptr<ISerialCommand>>
settingsCommands(const QString& hexId, const LdbSettings& settings, AudioMuteChange audioMute)
{
    std::vector<std::unique_ptr<ISerialCommand>> commands;
    for (const LdbParameter parameter : writtenParameters(audioMute)) {
        commands.push_back(std::make_unique<ChangeCommand>(hexId, parameter,
                                                           encodeParameter(parameter, settings)));
    }
    commands.push_back(std::make_unique<ExecuteCommand>(hexId, LdbAction::StoreSettings));
    return commands;
}
