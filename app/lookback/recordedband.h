#pragma once

#include "serial/ldb/monitoring.h"

#include <QDateTime>
#include <QFrame>

class QLabel;
class QPushButton;
class QToolButton;

/// The band across the top of a window that looks back: it says which moment is shown, how fast it
/// is played, and what happens now. GUI thread.
class RecordedBand : public QFrame
{
    Q_OBJECT
public:
    explicit RecordedBand(QWidget* parent = nullptr);

    struct Shown
    {
        QDateTime wall; ///< with the offset from UTC that was in force there
        Monitoring monitoring;
        bool isPlaying = false;
        int speed = 1;
    };
    void setShown(const Shown& shown);
    /// What is so in the present; `isAlert`: it is new, and needs somebody.
    void setNow(const QString& text, bool isAlert);

    /// What the band says of the moment, in the language in force.
    static QString text(const Shown& shown);

signals:
    void liveWanted();
    void playWanted();

protected:
    void changeEvent(QEvent* event) override;

private:
    void refresh();

    Shown m_shown;
    QString m_now;
    bool m_isAlert = false;
    QLabel* m_text;
    QLabel* m_speed;
    QLabel* m_nowText;
    QToolButton* m_play;
    QPushButton* m_live;
};
