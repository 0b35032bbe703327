#pragma once

#include "views/quality/livequality.h"
#include "views/quality/qualityhistory.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <optional>

class RecordingAccess;

/// Keeps a `QualityHistory` up with the present, or with the moment that is looked back at: asks
/// for one piece after the other, so that nobody waits for it. Without a recording it takes what
/// was counted live. GUI thread.
class QualityReading : public QObject
{
    Q_OBJECT
public:
    /// What it reads from outlives it. `moment` gives the present: UTC, µs since 1970.
    QualityReading(RecordingAccess* access, const LiveQuality* live, std::function<qint64()> moment,
                   QObject* parent = nullptr);

    void setReach(QualityReach reach);
    /// The moment that is shown instead of the present. May come many times a second.
    void setShown(std::optional<qint64> at);
    /// While off nothing is read. Off at the start.
    void setOn(bool isOn);

    const QualityHistory& history() const { return m_history; }
    bool isOn() const { return m_refresh.isActive(); }
    /// Whether more is being read.
    bool isReading() const { return m_isAsked; }
    /// Whether there is a recording to read from.
    bool isRecorded() const;

signals:
    /// There is more, or other, to be shown.
    void changed();

private:
    void refresh();
    void refreshPaced();
    void readNext();
    void restart();

    RecordingAccess* m_access;
    const LiveQuality* m_live;
    std::function<qint64()> m_moment;
    std::optional<qint64> m_shown;
    QualityReach m_reach = QualityReach::Now;
    QualityHistory m_history;
    QTimer m_refresh;
    QTimer m_pace; ///< on: the last moment was taken just now
    bool m_isDue = false;
    bool m_isAsked = false;
    int m_generation = 0; ///< an answer to a question of a former one is not taken
};
