#pragma once

#include "tracking/trackedldb.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <memory>

/// Ends an LDB's audio mute when its tracking window closes, and outlives the window until the LDB
/// has obeyed: an LDB that nobody can hear must not be forgotten. Deletes itself.
class AudioMuteEnd : public QObject
{
    Q_OBJECT
public:
    /// Sends the command. If `wasMuted` and the LDB does not take it, a box over `boxParent` says
    /// that the LDB stays muted.
    static void send(const std::shared_ptr<TrackedLdb>& ldb, bool wasMuted, QWidget* boxParent);

    ~AudioMuteEnd() override;

private:
    AudioMuteEnd(std::shared_ptr<TrackedLdb> ldb, bool wasMuted, QWidget* boxParent);
    void finish(TrackedLdb::Answer answer);
    void tellStillMuted();

    std::shared_ptr<TrackedLdb> m_ldb;
    QPointer<QWidget> m_boxParent;
    bool m_wasMuted;
    bool m_finished = false;
};
