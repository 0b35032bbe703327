#pragma once

#include "recording/recordedevent.h"
#include "tracking/counting/trackingrun.h"

#include <QObject>

#include <functional>
#include <vector>

class ActionsPanel;
class FimTracking;
class LdbSettingsEditor;
class SettingsTransfer;

/// Tells as events what the user does to LDBs, and what became of it: the records alone do not say.
/// GUI thread.
class WorkNotes : public QObject
{
    Q_OBJECT
public:
    /// `wallTime`: ms since 1970 UTC.
    WorkNotes(std::function<qint64()> wallTime, QObject* parent);

    void follow(const ActionsPanel* panel);
    void follow(const LdbSettingsEditor* editor);
    void follow(const SettingsTransfer* transfer);
    /// Its runs.
    void follow(const FimTracking* tracking);

signals:
    void noted(const RecordedEvent& event);

private:
    /// One run of fault finding.
    struct Run
    {
        QString hexId;
        qint64 begun = 0; ///< µs since 1970 UTC; 0: none is on
        std::vector<FaultReport> faults;
    };

    void processPhase(const FimTracking* tracking, TrackingRun::Phase phase);
    void noteFinding(const FimTracking& tracking);

    const std::function<qint64()> m_wallTime;
    Run m_run;
};
