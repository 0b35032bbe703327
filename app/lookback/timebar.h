#pragma once

#include "app/lookback/timescale.h"
#include "recording/recordedevent.h"
#include "recording/recordedvalues.h"

#include <QPixmap>
#include <QWidget>

#include <optional>
#include <vector>

/// What a time bar draws. Moments are UTC, µs since 1970; each list is ascending.
struct TimeBarContent
{
    TimeSpan extent; ///< empty: nothing is recorded
    std::vector<RecordedRun> runs;
    std::vector<RecordedGap> gaps;
    std::vector<RecordedEvent> events;

    bool isEmpty() const { return extent.to <= extent.from; }
};

/// The thin bar of the recorded time: runs, hatched gaps, events as ticks, and the present at the
/// right end. A click or drag chooses a moment, the wheel zooms. GUI thread.
class TimeBar : public QWidget
{
    Q_OBJECT
public:
    explicit TimeBar(QWidget* parent = nullptr);

    void setContent(TimeBarContent content);
    const TimeBarContent& content() const { return m_content; }
    /// The moment shown; nothing for the present.
    void setPosition(std::optional<qint64> at);
    /// The right end of the bar: at least the end of the content.
    void setNow(qint64 now);
    qint64 now() const { return m_now; }

    /// The time that the bar shows without the part for the present.
    TimeScale scale() const;
    /// Where the part for the present begins.
    int liveLeft() const;
    QSize sizeHint() const override;

signals:
    void momentWanted(qint64 at);
    void liveWanted();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    TimeSpan bounds() const;
    void want(const QPoint& position);
    void drawGround();
    void drawTimes(QPainter& painter, const TimeScale& scale) const;
    void drawEvents(QPainter& painter, const TimeScale& scale) const;
    QString tip(const QPoint& position) const;
    void describe();

    TimeBarContent m_content;
    std::optional<qint64> m_position;
    qint64 m_now = 0;
    std::optional<TimeSpan> m_zoomed; ///< nothing: all
    QPixmap m_ground;                 ///< all but the position; null: to be drawn
    bool m_isDragged = false;
};
