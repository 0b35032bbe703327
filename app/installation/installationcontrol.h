#pragma once

#include "app/installation/sitecheck.h"
#include "history/installation.h"

#include <QHash>
#include <QObject>
#include <QTimer>

#include <functional>

class SerialLink;

/// Knows which installation is in force, whether the bus that answers is that one, and what is
/// remembered of it. Knows no widgets. GUI thread.
///
/// Until it is settled that the bus is the remembered one, nothing is remembered, and nothing may
/// be written automatically.
class InstallationControl : public QObject
{
    Q_OBJECT
public:
    /// `link` outlives this object. `wallTime`: ms since 1970 UTC.
    InstallationControl(SerialLink* link, Installations store, std::function<qint64()> wallTime,
                        QObject* parent = nullptr);
    ~InstallationControl() override;

    /// Without an id until the first start.
    const Installation& current() const { return m_current; }
    const Installations& store() const { return m_store; }
    /// False from a start on, until the answers have shown, or the user has said, which one it is.
    bool isSettled() const { return m_state == State::Settled; }
    /// Whether the names agree as well. After a cut they do so a moment after `isSettled()`, and a
    /// scan in the run puts them to the test again.
    bool isCertain() const;
    /// Whether an LDB that is lost is one of this installation, not of another one that it looks
    /// like no more.
    bool mayTellLosses() const;

    /// The installations that the user can choose from. `failed()` tells of a damaged one.
    std::vector<Installation> all();

    // A run is about to begin:
    /// The user begins it: takes the installation last used on that port, or a new one.
    StartPlan planFor(const PortIdentity& port);
    /// The port is back: goes on where the cut was, if that is not long ago.
    StartPlan planAgain(const PortIdentity& port, bool isLongAway);

    /// The user says that the bus at that port is this installation; an empty id stands for a new
    /// one.
    void choose(const QString& id, const PortIdentity& port);

    // The user changes what is remembered:
    /// Stores a new installation without putting it into force; gives its id.
    QString add(Installation installation);
    /// Takes name, place and notes for the one of the same id.
    void describe(const Installation& described);
    /// Removes these LDBs from the installation of that id.
    void forget(const QString& id, const QStringList& hexIds);

signals:
    /// Another installation is in force; comes before `changed()`.
    void replaced();
    /// An installation made at this start has given way to the one in force, to which its
    /// recordings belong now. Comes after `replaced()`.
    void gaveWay(const QString& formerId);
    /// Another installation is in force, or the one in force has changed.
    void changed();
    /// `isSettled()`, `isCertain()` or `mayTellLosses()` may differ from before.
    void settledChanged();
    /// The bus that answers is not the remembered one: the user has to say which one it is.
    void anotherFound();
    /// The whole bus is to be scanned.
    void scanWanted();
    /// The LDBs on a port that was never used are those of this installation.
    void recognised(const QString& id);
    /// Something could not be written or read.
    void failed(const QString& reason);

private:
    enum class State
    {
        Idle,     ///< no run
        Checking, ///< a run, and it may be another bus
        Asking,   ///< it is another bus: which one?
        Settled
    };

    void setCurrent(const Installation& installation);
    void setState(State state);
    void useOn(const PortIdentity& port);
    void beginRun(const PortIdentity& port);
    StartPlan checkCurrent();
    void processName(const QString& hexId, const QString& name);
    bool isInDoubt() const;
    void processLoss();
    void remember(const QStringList& hexIds);
    void processScan(bool isOn);
    void processScanBegin();
    void processScanEnd();
    void processRescan();
    int answeringLdbs() const;
    void rememberFound(const QStringList& hexIds);
    int namedLdbs() const;
    void processProbed(int answered);
    void processStop();
    void decide(SiteCheck::Verdict verdict);
    void endCheck();
    void recognise();
    void change(const QString& id, const std::function<void(Installation&)>& change);
    void store(const Installation& installation);
    void save();

    SerialLink* m_link;
    const Installations m_store;
    const std::function<qint64()> m_wallTime;
    Installation m_current;
    PortIdentity m_port; ///< of the run, or of the last one
    State m_state = State::Idle;
    bool m_isScanning = false;
    bool m_hasScanned = false; ///< in this run
    bool m_isChosen = false;   ///< the user has said which one it is, and the scan of that is due
    QStringList m_resumed;     ///< the LDBs that a run which goes on should hear
    bool m_isDoubtful = false; ///< most of those have not been heard
    bool m_mayResume = false;  ///< the last run ended settled, and not in a scan
    bool m_isNew = false;      ///< made at this start: the bus may be that of a remembered one
    bool m_isCompared = false; ///< a new one has been compared with all that are remembered
    SiteCheck m_check;         ///< empty once it has decided
    QHash<QString, QString> m_told; ///< the names that the LDBs have told in this run
    QTimer m_patience;
    QTimer m_saving;
    QString m_failure; ///< told last
};
