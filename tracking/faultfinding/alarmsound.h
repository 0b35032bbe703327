#pragma once

#include <QObject>
#include <QTimer>

#include <memory>

class QDialog;
class QSoundEffect;

/// The warning sound, once or once a second while an alarm's box is open, if the user wants to hear
/// it. A computer that cannot play it beeps instead, and warns of that once. GUI thread.
class AlarmSound : public QObject
{
    Q_OBJECT
public:
    explicit AlarmSound(QObject* parent = nullptr);
    ~AlarmSound() override;

    /// Sounds until all boxes that were given are closed.
    void soundWhileOpen(const QDialog* box);
    /// Sounds a single time.
    void soundOnce() { play(); }
    /// Silence, until the next box.
    void stop() { m_timer.stop(); }

signals:
    /// The sound was wanted, whether or not this computer can play it.
    void sounded();

private:
    /// Plays the sound once. Reads the user's setting each time.
    void play();
    bool prepare();
    void warnOnce(const char* reason);

    std::unique_ptr<QSoundEffect> m_effect; ///< made when first wanted
    QTimer m_timer;
    int m_openBoxes = 0;
    bool m_warned = false;
};
