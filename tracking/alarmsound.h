#pragma once

#include <QObject>

#include <memory>

class QSoundEffect;

/// The warning sound, if the user wants to hear it. A computer that cannot play it beeps instead,
/// and is warned of once.
class AlarmSound : public QObject
{
    Q_OBJECT
public:
    explicit AlarmSound(QObject* parent = nullptr);
    ~AlarmSound() override;

    /// Plays the sound once. Reads the user's setting each time.
    void play();

signals:
    /// The sound was wanted, whether or not this computer can play it.
    void sounded();

private:
    bool prepare();
    void warnOnce(const char* reason);

    std::unique_ptr<QSoundEffect> m_effect; ///< made when first wanted
    bool m_warned = false;
};
