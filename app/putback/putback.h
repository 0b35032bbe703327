#pragma once

#include "history/keptldbs.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QSet>
#include <QStringList>

#include <memory>
#include <vector>

class FimTracking;
class LdbPutBack;
class Notices;
class QTimer;
class QWidget;
class SerialLink;

/// Decides when an LDB gets back what fault finding has changed in it: after a run, and after a
/// crash or a lost port as soon as the LDB is heard again. Never while a run on it is on, nor in a
/// state in which a reset may still be under way. What the user has answered is not asked again
/// until the link is started anew. GUI thread.
class PutBack : public QObject
{
    Q_OBJECT
public:
    /// `link`, `notices` and `window`, which the boxes open over, outlive this object.
    PutBack(SerialLink* link, Notices* notices, QWidget* window, KeptLdbs kept = KeptLdbs(),
            QObject* parent = nullptr);
    ~PutBack() override;

    /// From now on, what is kept there is put back. It is that of the installation in force.
    void setKept(const KeptLdbs& kept);
    const KeptLdbs& kept() const { return m_file; }
    /// While held, nothing is asked of an LDB and nothing written.
    void hold(bool isHeld);

    /// Takes care of the runs of this window, and asks over it while it is there.
    void follow(FimTracking* tracking);

    /// Whether a run is on in this LDB, or its mute has yet to be put back: its settings must not
    /// be written as they were read.
    bool isPending(const QString& hexId) const;

    /// The LDBs into which something is being put back just now.
    QStringList beingPutBack() const;

signals:
    /// `isPending()` may differ from before.
    void pendingChanged();
    /// The LDB has other settings than before; comes after `pendingChanged()`.
    void settingsChanged(const QString& hexId);

private:
    void processRecord(const QString& hexId, const QList<QStringList>& rows);
    void processLink();
    void processRunBegins(const QString& hexId);
    void processRunEnds(const KeptLdb& former, bool isMuted);
    void takeOver(const QString& hexId, int fimCount);
    void adoptFims(const QString& hexId, quint16 fimCount);

    void begin(const KeptLdb& kept, const QString& hexId);
    void end(LdbPutBack* task);
    void drop(const QString& hexId);
    void dropAll();
    void load();
    void tellStillMuted(const QString& hexId);
    void tellProblem();
    void wait(const QString& hexId, int milliseconds);
    bool isWaiting(const QString& hexId) const;
    bool isMeant(const KeptLdb& kept, const QString& hexId, const QString& name) const;

    SerialLink* m_link;
    Notices* m_notices;
    QWidget* m_window;
    KeptLdbs m_file;
    bool m_isHeld = false;
    std::vector<KeptLdb> m_kept;      ///< on disk, and those below
    std::vector<KeptLdb> m_unwritten; ///< that could not be kept on disk
    QString m_problem;                ///< of the reading; empty once it is told
    QPointer<FimTracking> m_tracking;
    QString m_hexIdOfRun;                ///< empty while none is on
    QHash<QString, LdbPutBack*> m_tasks; ///< by the id of the LDB; owned as children
    QHash<QString, QTimer*> m_waits;     ///< the same
    QSet<QString> m_same;     ///< in this run of the link: kept LDB and id known to be one
    QSet<QString> m_answered; ///< the same: kept LDB and id that the user has answered for
    QSet<QString> m_failed;   ///< the same: ids of LDBs that did not take their mute
};
