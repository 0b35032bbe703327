#pragma once

#include "app/lookback/lookbackkeys.h"
#include "app/lookback/pastsamples.h"
#include "app/lookback/recordedband.h"
#include "app/lookback/replay.h"
#include "app/lookback/timebar.h"
#include "serial/ldb/monitoring.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

class RecordingAccess;
class ShownSource;

/// Lets a window look back: keeps the time bar, reads the moments that are wanted, plays them, and
/// goes back to the present. Moments are UTC, µs since 1970. GUI thread.
class LookBack : public QObject
{
    Q_OBJECT
public:
    struct Surroundings
    {
        RecordingAccess* access;
        ShownSource* source;
        std::function<qint64()> wallTime; ///< ms since 1970 UTC
    };
    /// Makes bar and band, which the window has yet to place. The surroundings and the window
    /// outlive this object.
    LookBack(const Surroundings& around, QWidget* window, QObject* parent);
    ~LookBack() override;

    TimeBar* bar() { return m_bar; }
    RecordedBand* band() { return m_band; }
    const Replay& replay() const { return *m_replay; }
    PlotHistorySource* past() { return &m_past; }
    /// Sends the records that are looked back at, for what is fed with these alone.
    const RecordSource* source() const { return m_replay; }

    /// The moment shown; nothing while that is the present.
    std::optional<qint64> shown() const;
    /// Shows a moment, or the nearest one that is recorded; as soon as it is read.
    void goTo(qint64 at);
    /// What a key on the bar does.
    void press(BarKey key);

    /// Whose past the plot shows.
    void setSelectedLdb(const QString& hexId);
    /// Whether what happens now gets into the recording: it reaches up to now then.
    void setRecording(bool isRecording) { m_isRecording = isRecording; }
    /// What is monitored now, as the band says it.
    void setNow(const QString& text);
    /// Something has happened now that needs somebody.
    void alert(const QString& text);

public slots:
    void live();
    void togglePlay();
    /// Something new is recorded.
    void refresh();

signals:
    /// `shown()` is another moment. Comes ten times a second while it is played.
    void shownChanged();
    /// Before the first record of a moment is shown, and after the last one.
    void lookingBackChanged(bool isLookingBack);
    /// A moment was wanted, and there is no recording.
    void nothingFound();
    /// What was monitored when the record was told that comes next.
    void momentTold(const Monitoring& monitoring);
    /// What was monitored at the moment shown.
    void monitoringChanged(const Monitoring& monitoring);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void forget();
    void readContent();
    void readMoment();
    void show(Moment moment);
    void stepToRecord(bool isForward);
    void stepToEvent(bool isForward);
    void setSpeed(int step);
    void setPlaying(bool isPlaying);
    void tick();
    void readAhead();
    void showPosition();
    void askWhere();
    /// The moment that the next step goes from.
    qint64 position() const;

    Surroundings m_around;
    QWidget* m_window;
    Replay* m_replay;        // owned as a child
    QPointer<TimeBar> m_bar; // owned by the window, as the band
    QPointer<RecordedBand> m_band;
    PastSamples m_past;
    std::unique_ptr<QObject> m_asking; ///< answers reach nobody when it is another one
    QTimer m_ticks;
    QTimer m_refresh;
    QString m_hexId;
    std::optional<qint64> m_wanted; ///< not asked for yet
    std::optional<qint64> m_target; ///< asked for last
    bool m_isMomentDue = false;
    bool m_isStretchDue = false;
    bool m_isContentDue = false;
    bool m_isShowing = false;
    bool m_isPlaying = false;
    bool m_isRecording = false;
    std::size_t m_speed = 0; ///< of the speeds
    qint64 m_lastTick = 0;   ///< ms
    QString m_now;
    QString m_alert;
};
