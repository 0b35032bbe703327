#include "app/window/runcontrol.h"

#include "serial/link/seriallink.h"

#include <algorithm>
#include <initializer_list>

namespace {

/// The first of them that there is.
Permission unless(std::initializer_list<Hindrance> hindrances)
{
    const auto* found = std::find_if(hindrances.begin(), hindrances.end(),
                                     [](Hindrance one) { return one != Hindrance::None; });
    return {found == hindrances.end() ? Hindrance::None : *found};
}

} // namespace

EnabledControls enabledControls(const LinkSituation& situation)
{
    const auto when = [](bool is, Hindrance hindrance) {
        return is ? hindrance : Hindrance::None;
    };
    const Hindrance past = when(situation.lookingBack, Hindrance::LookingBack);
    const Hindrance stopped = when(!situation.running, Hindrance::NotMonitored);
    const Hindrance scanning = when(situation.initialising, Hindrance::Scanning);
    const Hindrance none = when(!situation.selected, Hindrance::NoLdb);
    // During a scan nothing is known about the selected LDB.
    const Hindrance lost = when(
        situation.state == LdbState::Disconnected && !situation.initialising, Hindrance::LdbLost);
    const Hindrance saving = when(situation.saving, Hindrance::Saving);
    const Hindrance transferring = when(situation.transferring, Hindrance::Transferring);
    const Hindrance unsettled = when(situation.unsettled, Hindrance::Unsettled);
    const Hindrance finding = when(situation.faultFinding, Hindrance::FaultFinding);
    const Hindrance service =
        when(situation.state == LdbState::ServiceMode, Hindrance::ServiceMode);

    EnabledControls controls;
    // A scan would take the LDBs away from under a transfer or a fault finding, and a second one
    // the bus.
    controls.start = unless({past});
    controls.reload = unless({past, scanning, transferring, finding});
    controls.transfer = unless({past, stopped, scanning, unsettled, transferring, finding});
    // A lost LDB must not hold the selection. Any LDB that is recorded can be looked at.
    controls.selection =
        situation.lookingBack ? unless({saving}) : unless({stopped, scanning, saving});
    controls.allActions =
        unless({past, stopped, scanning, unsettled, saving, transferring, finding});
    controls.singleActions =
        unless({past, stopped, scanning, unsettled, none, lost, saving, transferring, finding});
    // Also in service mode: without, an LDB that starts in it could never be told not to.
    controls.settings = controls.singleActions;
    controls.editing = unless({past, stopped, none, lost});
    controls.outsideService = unless({controls.singleActions.hindrance, service});
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
    if (!m_link->isRunning()) {
        begin(m_plan ? m_plan() : StartPlan());
    }
}

void RunControl::resume(const QString& portName, const StartPlan& plan)
{
    if (!m_link->isRunning()) {
        m_link->setStart(plan);
        m_link->setPortName(portName);
        begin(plan);
    }
}

void RunControl::begin(const StartPlan& plan)
{
    // Where a run begins with a scan, its own signal comes only when the port is open.
    m_situation.initialising = plan.kind == StartPlan::Kind::Scan;
    m_link->setStart(plan);
    m_link->start();
    if (m_link->isRunning()) {
        emit begun(plan.kind == StartPlan::Kind::Resume);
        emit enabledChanged();
    }
}

void RunControl::reload()
{
    if (!m_link->isRunning()) {
        if (m_plan) {
            m_plan(); // it is still to be known which bus it is
        }
        begin({});
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
    start();
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

void RunControl::setUnsettled(bool unsettled)
{
    m_situation.unsettled = unsettled;
    emit enabledChanged();
}

void RunControl::setFaultFinding(bool faultFinding)
{
    m_situation.faultFinding = faultFinding;
    emit enabledChanged();
}

void RunControl::setLookingBack(bool lookingBack)
{
    m_situation.lookingBack = lookingBack;
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
    if (state != LdbState::Disconnected) {
        emit settingsStale();
    }
}
