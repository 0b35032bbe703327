#pragma once

#include "views/lamps/lampcondition.h"

#include <QObject>
#include <QPixmap>
#include <QTimer>

class QLabel;

/// The pictures of a front-panel lamp.
namespace lampimage {

/// Width and height of a lamp, logical pixels.
constexpr int kSize = 18;

/// A round lamp on a transparent ground, drawn for the sharpest screen there is. Needs the
/// application object; GUI thread only.
QPixmap draw(const QString& colour);

} // namespace lampimage

/// Drives the four round lamps that sum up the whole bus: each is off, blinks slowly (1 Hz) or
/// blinks fast (4 Hz) after the worst condition of the last complete polling round. Every lamp also
/// says its state in words, by tool tip and accessible text. GUI thread only.
class StatusIndicators : public QObject
{
    Q_OBJECT
public:
    /// The labels are not owned, get the lamps' fixed size, and must outlive this object. Mind the
    /// order: it is that of the lamps on the panel.
    StatusIndicators(QLabel* lampA, QLabel* lampC, QLabel* lampB, QLabel* lampD,
                     QObject* parent = nullptr);

public slots:
    /// Takes an LDB's record; the lamps change when a round is complete.
    void processData(const QString& hexId, const QList<QStringList>& dataList);
    /// All lamps off. What the round under way has seen so far is kept, and so is the LDB that
    /// marks the rounds.
    void resetIndicators();
    /// Says the lamps' states in the language in force.
    void retranslate();

private slots:
    void slowBlink();
    void fastBlink();

private:
    enum class Blink
    {
        Off,
        Slow,
        Fast
    };
    struct Indicator
    {
        QLabel* label = nullptr;
        QPixmap lit;
        Blink blink = Blink::Off;
    };

    Indicator& indicator(Lamp lamp) { return m_indicators[static_cast<std::size_t>(lamp)]; }
    void show(const LampLevels& levels);
    void setBlink(Lamp lamp, Blink blink);
    void paint(Blink blink, bool lit);
    void describe(Lamp lamp);

    BusCondition m_condition;
    std::array<Indicator, kLamps.size()> m_indicators;
    QPixmap m_off;
    QTimer m_slowTimer;
    QTimer m_fastTimer;
    bool m_slowPhase = false; ///< the next slow tick lights
    bool m_fastPhase = false; ///< the next fast tick lights
    bool m_roundSeen = false; ///< an unlit lamp means that all is well
};
