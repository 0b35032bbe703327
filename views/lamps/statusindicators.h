#pragma once

#include "serial/ldb/monitoring.h"
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

/// The hatched lamp of which nobody knows whether it should be lit; as `draw`.
QPixmap drawUnknown();

} // namespace lampimage

/// Drives the four round lamps that sum up the whole bus: each is off, blinks slowly (1 Hz) or
/// blinks fast (4 Hz). A lamp lights at once with the record that raises it and goes dark at a
/// round's end. While the bus is not monitored all are hatched, and so is an unlit one until a
/// whole round has found nothing: a dark lamp says that all is well. Every lamp also says its state
/// in words, by tool tip and accessible text. GUI thread only.
class StatusIndicators : public QObject
{
    Q_OBJECT
public:
    /// The labels are not owned, get the lamps' fixed size, and must outlive this object. Mind the
    /// order: it is that of the lamps on the panel.
    StatusIndicators(QLabel* lampA, QLabel* lampC, QLabel* lampB, QLabel* lampD,
                     QObject* parent = nullptr);

public slots:
    /// Takes an LDB's record, also one from between the turns.
    void processData(const QString& hexId, const QList<QStringList>& dataList);
    /// A round has begun, and is over.
    void beginRound();
    void endRound();
    /// What of the bus is monitored; the rounds begin anew when the whole bus is again.
    void setMonitoring(const Monitoring& monitoring);
    /// No other LDB is on the bus any more.
    void keepOnly(const QStringList& hexIds);
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
        bool isKnown = false; ///< hatched where it is not
    };

    Indicator& indicator(Lamp lamp) { return m_indicators[static_cast<std::size_t>(lamp)]; }
    void show();
    void paint(Blink blink, bool lit);
    void describe(Lamp lamp);

    BusCondition m_condition;
    std::array<Indicator, kLamps.size()> m_indicators;
    QPixmap m_off;
    QTimer m_slowTimer;
    QTimer m_fastTimer;
    bool m_slowPhase = false; ///< the next slow tick lights
    bool m_fastPhase = false; ///< the next fast tick lights
    QPixmap m_unknown;
    Monitoring m_monitoring;
    std::optional<qint64> m_recordTime; ///< clock time of the latest record
    /// That of the last one of the last whole round: until when an unlit lamp is known to be so.
    std::optional<qint64> m_roundTime;
    bool m_isRoundWhole = false; ///< the round that is on has been seen from its begin
};
