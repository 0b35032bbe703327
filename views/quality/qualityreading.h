#pragma once

#include "views/quality/livequality.h"
#include "views/quality/qualityhistory.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <optional>

class RecordingAccess;

/// Keeps a `QualityHistory` up to date with the present, or with the moment that is looked back at:
/// asks for one piece after the other, so that nobody waits for it. Without a recording it takes
/// what was counted live. GUI thread.
class QualityReading : public QObject
{
    Q_OBJECT
public:
    struct Sources
    {
        RecordingAccess* access = nullptr;
        const LiveQuality* live = nullptr;
        std::function<qint64()> moment; ///< the present: UTC, µs since 1970
        /// Whether the present is not recorded, or not in the recording that is read.
        std::function<bool()> isUnrecorded;
    };
    /// The sources outlive it.
    explicit QualityReading(Sources sources, QObject* parent = nullptr);

    void setReach(QualityReach reach);
    /// The moment that is shown instead of the present. May come many times a second.
    void setShown(std::optional<qint64> at);
    /// While off nothing is read. Off at the start.
    void setOn(bool isOn);

    const QualityHistory& history() const { return m_history; }
    bool isOn() const { return m_refresh.isActive(); }
    /// Whether more is being read.
    bool isReading() const { return m_isAsked; }
    /// Whether what is shown is read from a recording.
    bool isRecorded() const { return m_isRecorded; }

signals:
    /// What is to be shown has changed.
    void changed();

private:
    void refresh();
    void refreshPaced();
    void readNext();
    void restart();

    Sources m_sources;
    bool m_isRecorded = false;
    std::optional<qint64> m_shown;
    QualityReach m_reach = QualityReach::Now;
    QualityHistory m_history;
    QTimer m_refresh;
    QTimer m_pace; ///< on: the last moment was taken just now
    bool m_isDue = false;
    bool m_isAsked = false;
    int m_generation = 0; ///< answers to questions of a former one are dropped
};
