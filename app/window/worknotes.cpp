#include "app/window/worknotes.h"

#include "app/actions/actionspanel.h"
#include "app/ldbsettings/ldbsettingseditor.h"
#include "app/transfer/settingstransfer.h"
#include "importexport/report/recordedwork.h"
#include "serial/ldb/microseconds.h"
#include "tracking/faultfinding/fimtracking.h"

#include <utility>

namespace {

using microseconds::kMillisecond;

recordedwork::Finding::Side sideOf(const FimCounter& counter, int ldbPort)
{
    using End = recordedwork::Finding::End;
    End end = End::Connected;
    if (counter.sideResult(ldbPort) == SideEnd::Open) {
        end = End::Open;
    } else if (counter.sideResult(ldbPort) == SideEnd::Short) {
        end = End::Short;
    }
    return {counter.isSideTracked(ldbPort), counter.isSideFinished(ldbPort), end,
            counter.fimCount(ldbPort)};
}

} // namespace

WorkNotes::WorkNotes(std::function<qint64()> wallTime, QObject* parent)
    : QObject(parent)
    , m_wallTime(std::move(wallTime))
{
}

void WorkNotes::follow(const ActionsPanel* panel)
{
    connect(panel, &ActionsPanel::told, this, [this](const QString& hexId, const QString& text) {
        RecordedEvent event;
        event.kind = EventKind::ActionSent;
        event.hexId = hexId;
        event.text = text;
        emit noted(event);
    });
}

void WorkNotes::follow(const LdbSettingsEditor* editor)
{
    connect(editor, &LdbSettingsEditor::saved, this, [this](const SettingsOutcome& outcome) {
        if (const auto event = recordedwork::settingsEvent(EventKind::SettingsSaved, outcome)) {
            emit noted(*event);
        }
    });
}

void WorkNotes::follow(const SettingsTransfer* transfer)
{
    connect(transfer, &SettingsTransfer::ldbDone, this,
            [this](const SettingsOutcome& outcome, bool isImport) {
                const EventKind kind =
                    isImport ? EventKind::SettingsImported : EventKind::SettingsSaved;
                if (const auto event = recordedwork::settingsEvent(kind, outcome)) {
                    emit noted(*event);
                }
            });
}

void WorkNotes::follow(const FimTracking* tracking)
{
    const TrackingRun* run = &tracking->run();
    connect(run, &TrackingRun::phaseChanged, this,
            [this, tracking](TrackingRun::Phase phase) { processPhase(tracking, phase); });
    connect(run, &TrackingRun::faultReported, this,
            [this](const FaultReport& fault) { m_run.faults.push_back(fault); });
    connect(run, &TrackingRun::resultsReady, this, [this, tracking] { noteFinding(*tracking); });
}

void WorkNotes::processPhase(const FimTracking* tracking, TrackingRun::Phase phase)
{
    switch (phase) {
    case TrackingRun::Phase::FactoryReset:
        m_run = {tracking->hexId(), m_wallTime() * kMillisecond, {}};
        break;
    case TrackingRun::Phase::Idle:
        if (m_run.begun != 0) {
            RecordedEvent event;
            event.kind = EventKind::FaultFinding;
            event.hexId = m_run.hexId;
            event.since = std::exchange(m_run.begun, 0);
            event.text = tr("Fault finding ended without a result");
            emit noted(event);
        }
        break;
    case TrackingRun::Phase::Confirmation:
    case TrackingRun::Phase::Rebooting:
    case TrackingRun::Phase::Counting:
    case TrackingRun::Phase::Finished:
        break;
    }
}

void WorkNotes::noteFinding(const FimTracking& tracking)
{
    if (m_run.begun == 0) {
        return; // told already
    }
    const TrackingRun& run = tracking.run();
    const FimCounter& counter = run.counter();
    recordedwork::Finding finding;
    finding.configured = tracking.configuredFims();
    finding.isCommissioning = run.mode() == TrackingMode::Commissioning;
    finding.primary = sideOf(counter, PrimaryPort);
    finding.secondary = sideOf(counter, SecondaryPort);
    finding.leakages.reserve(m_run.faults.size());
    for (const FaultReport& fault : m_run.faults) {
        finding.leakages.push_back({fault.kind == FaultReport::Kind::EarthLeakage,
                                    fault.positions[PrimaryPort], fault.positions[SecondaryPort]});
    }
    emit noted(recordedwork::findingEvent(m_run.hexId, std::exchange(m_run.begun, 0), finding));
}
