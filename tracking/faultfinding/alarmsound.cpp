#include "tracking/faultfinding/alarmsound.h"

#include "app/shared/usersettings.h"

#include <QApplication>
#include <QAudioDeviceInfo>
#include <QDebug>
#include <QDialog>
#include <QSoundEffect>
#include <QUrl>

#include <algorithm>

namespace {

constexpr int kPeriod = 1000; // ms

/// Without an output that it can use, a sound effect looks for a sound server for ever, and warns
/// each time. On Linux it needs PulseAudio; a bare ALSA device does not do.
bool hasUsableOutput()
{
    const QList<QAudioDeviceInfo> devices = QAudioDeviceInfo::availableDevices(QAudio::AudioOutput);
    return std::any_of(devices.begin(), devices.end(), [](const QAudioDeviceInfo& device) {
        return !device.isNull() && device.realm() != QLatin1String("alsa");
    });
}

} // namespace

AlarmSound::AlarmSound(QObject* parent)
    : QObject(parent)
{
    m_timer.setInterval(kPeriod);
    connect(&m_timer, &QTimer::timeout, this, &AlarmSound::play);
}

AlarmSound::~AlarmSound() = default;

void AlarmSound::soundWhileOpen(const QDialog* box)
{
    ++m_openBoxes;
    if (!m_timer.isActive()) {
        m_timer.start();
    }
    connect(box, &QDialog::finished, this, [this] {
        --m_openBoxes;
        if (m_openBoxes == 0) {
            m_timer.stop();
        }
    });
}

void AlarmSound::play()
{
    if (!userSettings().value(constants::kAudioWarningsKey, false).toBool()) {
        return;
    }
    emit sounded();
    if (prepare()) {
        m_effect->play();
    } else {
        QApplication::beep();
    }
}

bool AlarmSound::prepare()
{
    if (!m_effect) {
        // Asked each time, as a loudspeaker may be plugged in while the alarm is on.
        if (!hasUsableOutput()) {
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
