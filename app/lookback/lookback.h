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

/// Lets a window look back: owns the time bar, reads and plays the moments that are wanted, and
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
    /// Makes bar and band; the window places them. The surroundings and the window outlive this
    /// object.
    LookBack(const Surroundings& around, QWidget* window, QObject* parent);
    ~LookBack() override;

    TimeBar* bar() { return m_bar; }
    RecordedBand* band() { return m_band; }
    const Replay& replay() const { return *m_replay; }
    PlotHistorySource* past() { return &m_past; }
    /// Tells recorded records only, for views that never show the present.
    const RecordSource* source() const { return m_replay; }

    /// The moment shown; nothing while that is the present.
    std::optional<qint64> shown() const;
    /// Shows a moment, or the nearest one that is recorded, as soon as that has been read.
    void goTo(qint64 at);
    /// What a key on the bar does.
    void press(BarKey key);

    /// Whose past the plot shows.
    void setSelectedLdb(const QString& hexId);
    /// Whether the present is being recorded: then the recording reaches up to now.
    void setRecording(bool isRecording) { m_isRecording = isRecording; }
    /// What the band says of the present.
    void setNow(const QString& text);
    /// Something has happened in the present that needs somebody.
    void alert(const QString& text);

public slots:
    void live();
    void togglePlay();
    /// Something new is recorded.
    void refresh();

signals:
    /// `shown()` has changed. Comes ten times a second while playing.
    void shownChanged();
    /// Comes before the first recorded record is shown, and after the last one.
    void lookingBackChanged(bool isLookingBack);
    /// A moment was wanted, and there is no recording.
    void nothingFound();
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
    QPointer<TimeBar> m_bar; // owned by the window, as is the band
    QPointer<RecordedBand> m_band;
    PastSamples m_past;
    std::unique_ptr<QObject> m_asking; ///< the context of questions; a new one drops their answers
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
    std::size_t m_speed = 0; ///< which which of the speeds
    qint64 m_lastTick = 0;   ///< ms
    QString m_now;
    QString m_alert;
};
