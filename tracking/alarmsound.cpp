#include "tracking/alarmsound.h"

#include "app/shared/constants.h"

#include <QAudioDeviceInfo>
#include <QDebug>
#include <QSettings>
#include <QSoundEffect>
#include <QUrl>

AlarmSound::AlarmSound(QObject* parent)
    : QObject(parent)
{
}

AlarmSound::~AlarmSound() = default;

void AlarmSound::play()
{
    const QSettings settings(constants::kOrganisationName, constants::kApplicationDisplayName);
    if (!settings.value(constants::kAudioWarningsKey, false).toBool()) {
        return;
    }
    emit sounded();
    if (prepare()) {
        m_effect->play();
    }
}

bool AlarmSound::prepare()
{
    if (!m_effect) {
        // Without a device the sound system would complain at every attempt. Asked anew each time:
        // a loudspeaker may be plugged in while the alarm is on.
        if (QAudioDeviceInfo::availableDevices(QAudio::AudioOutput).isEmpty()) {
            warnOnce("no audio output");
            return false;
        }
        m_effect = std::make_unique<QSoundEffect>();
        m_effect->setSource(QUrl(QStringLiteral("qrc") + constants::kWarningSoundResource));
    }
    if (m_effect->status() == QSoundEffect::Error) {
        warnOnce("the sound cannot be loaded");
        return false;
    }
    return true;
}

void AlarmSound::warnOnce(const char* reason)
{
    if (!m_warned) {
        m_warned = true;
        qWarning("The warning sound stays silent: %s", reason);
    }
}
