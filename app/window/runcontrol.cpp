#include "app/window/runcontrol.h"

#include "serial/link/seriallink.h"

EnabledControls enabledControls(const LinkSituation& situation)
{
    const bool polling = situation.running && !situation.initialising;
    const bool lost = situation.selected && situation.state == LdbState::Disconnected;
    const bool acting = polling && !lost && !situation.saving && !situation.transferring;

    EnabledControls controls;
    // A scan would take the LDBs away from under a transfer, and a second one the bus.
    controls.reload = !situation.initialising && !situation.transferring;
    controls.transfer = polling && !situation.transferring;
    // A lost LDB must not hold the selection.
    controls.selection = polling && !situation.saving;
    controls.allActions = acting;
    controls.singleActions = acting && situation.selected;
    controls.outsideService = controls.singleActions && situation.state != LdbState::ServiceMode;
    return controls;
}

RunControl::RunControl(SerialLink* link, QObject* parent)
    : QObject(parent)
    , m_link(link)
{
    connect(link, &SerialLink::ldbListInitializationStateChange, this, &RunControl::processScan);
    connect(link, &SerialLink::stopped, this, &RunControl::processEnd);
    connect(link, &SerialLink::communicationFailed, this, [this] {
        m_link->stop();
        processEnd(); // also of a run that could not begin
        emit failed();
    });
    connect(link, &SerialLink::ldbDisconnected, this, &RunControl::enabledChanged);
    connect(link, &SerialLink::ldbStateUpdated, this, &RunControl::processState);
}

void RunControl::start()
{
    if (m_link->isRunning()) {
        return;
    }
    // Every run begins with a scan; its own signal comes only when the port is open.
    m_situation.initialising = true;
    m_link->start();
    if (m_link->isRunning()) {
        emit begun();
        emit enabledChanged();
    }
}

void RunControl::reload()
{
    if (!m_link->isRunning()) {
        start();
        return;
    }
    m_situation.initialising = true;
    m_link->rescan();
    emit enabledChanged();
}

void RunControl::changePort(const QString& portName)
{
    m_link->stop();
    m_link->setPortName(portName);
    reload();
}

void RunControl::setSelectedLdb(const QString& hexId)
{
    m_selectedLdb = hexId;
    emit enabledChanged();
}

void RunControl::setSaving(bool saving)
{
    m_situation.saving = saving;
    emit enabledChanged();
}

void RunControl::setTransferring(bool transferring)
{
    m_situation.transferring = transferring;
    emit enabledChanged();
}

EnabledControls RunControl::enabled() const
{
    LinkSituation situation = m_situation;
    situation.running = m_link->isRunning();
    situation.selected = !m_selectedLdb.isEmpty();
    situation.state = m_link->stateOf(m_selectedLdb);
    return enabledControls(situation);
}

void RunControl::processScan(bool isOn)
{
    m_situation.initialising = isOn;
    emit scanning(isOn);
    emit enabledChanged();
}

void RunControl::processEnd()
{
    processScan(false);
    emit ended();
}

void RunControl::processState(const QString& hexId, LdbState state)
{
    if (hexId != m_selectedLdb) {
        return;
    }
    emit enabledChanged();
    if (state != LdbState::ServiceMode && state != LdbState::Disconnected) {
        emit settingsStale();
    }
}
