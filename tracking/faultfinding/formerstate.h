#pragma once

#include "history/keptldbs.h"

#include <QObject>
#include <QString>

#include <optional>

class TrackedLdb;

/// What the tracked LDB is like before a run: read from it, and kept on disk, before the run sends
/// anything that changes it. What is kept of an earlier run stays: it is older, so it is what the
/// LDB was before anybody ran anything. Knows no widgets. GUI thread.
class FormerState : public QObject
{
    Q_OBJECT
public:
    enum class Lack
    {
        Unread, ///< the LDB did not tell its settings; that it was not muted is assumed and kept
        Unkept  ///< nothing is on disk: a program that dies now would leave the LDB as it is then
    };
    Q_ENUM(Lack)

    /// Both outlive this object.
    FormerState(TrackedLdb* ldb, KeptLdbs kept, QObject* parent = nullptr);

    /// Reads and keeps; one of the signals follows, unless `withdraw()` comes first.
    void take();
    void withdraw();
    /// The user does not want the run that this was taken for: what `take()` kept is forgotten.
    void drop();

    /// What was taken last; empty before, and once dropped.
    const KeptLdb& state() const { return m_state; }

signals:
    /// All that the run changes can be put back.
    void kept();
    /// It cannot; `reason`: why it is not on the disk, empty otherwise.
    void incomplete(FormerState::Lack lack, const QString& reason);

private:
    void process(const std::optional<LdbSettings>& settings);

    TrackedLdb* m_ldb;
    KeptLdbs m_kept;
    KeptLdb m_state;
    bool m_isOnDisk = false;
    std::optional<KeptLdb> m_earlier; ///< what was kept before
    QString m_name;                   ///< as the records tell it
    int m_reading = 0;                ///< counts the readings, to know a withdrawn one
};
