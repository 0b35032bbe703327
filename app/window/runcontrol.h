#pragma once

#include "app/shared/enabledcontrols.h"
#include "serial/ldb/ldbstatus.h"
#include "serial/ldb/startplan.h"

#include <QObject>
#include <QString>

#include <functional>
#include <utility>

class SerialLink;

/// All that decides which controls of the main window can be used.
struct LinkSituation
{
    bool lookingBack = false; ///< the window shows what is recorded
    bool running = false;
    bool initialising = false;               ///< the bus is being scanned
    bool selected = false;                   ///< an LDB is selected
    LdbState state = LdbState::Disconnected; ///< of the selected LDB
    bool saving = false;                     ///< the editor waits for the LDB to store its settings
    bool transferring = false;               ///< an export or import is on
    bool unsettled = false;                  ///< which installation answers is not known
    bool faultFinding = false;               ///< a run of it is on
};

/// The one place that knows which situation enables what, and what hinders the rest.
EnabledControls enabledControls(const LinkSituation& situation);

/// Decides about run and scan: what begins and ends them, and which controls they leave. Knows no
/// widgets. GUI thread.
class RunControl : public QObject
{
    Q_OBJECT
public:
    /// `link` outlives this object.
    explicit RunControl(SerialLink* link, QObject* parent = nullptr);

    /// How a run that the user begins finds its LDBs; a scan where nobody says.
    void setPlan(std::function<StartPlan()> plan) { m_plan = std::move(plan); }
    /// Begins a run; does nothing while one is on.
    void start();
    /// Begins a run on that port because it is back.
    void resume(const QString& portName, const StartPlan& plan);
    /// Scans anew, or begins a run.
    void reload();
    /// Ends the run and begins one on another port.
    void changePort(const QString& portName);

    void setSelectedLdb(const QString& hexId);
    QString selectedLdb() const { return m_selectedLdb; }
    void setSaving(bool saving);
    bool isSaving() const { return m_situation.saving; }
    void setTransferring(bool transferring);
    /// Nothing may be written while it is not known which installation answers.
    void setUnsettled(bool unsettled);
    void setFaultFinding(bool faultFinding);
    /// Nothing is sent by a user who does not see what is now.
    void setLookingBack(bool lookingBack);
    bool isLookingBack() const { return m_situation.lookingBack; }

    EnabledControls enabled() const;
    /// Whether a scan is on, or has been asked for.
    bool isScanning() const { return m_situation.initialising; }

signals:
    /// A run begins; `isResumed`: it goes on with the one before.
    void begun(bool isResumed);
    /// A scan begins, the port being open, or has ended, also with its run.
    void scanning(bool isOn);
    /// No run is on any more.
    void ended();
    /// Comes after `ended()`: the port did not open, or failed.
    void failed();
    /// `enabled()` may differ from before.
    void enabledChanged();
    /// The selected LDB came into a state in which it may have other settings than before.
    void settingsStale();

private:
    void begin(const StartPlan& plan);
    void processScan(bool isOn);
    void processEnd();
    void processState(const QString& hexId, LdbState state);

    SerialLink* m_link;
    LinkSituation m_situation; ///< but for what the link knows itself
    QString m_selectedLdb;
    std::function<StartPlan()> m_plan;
};
