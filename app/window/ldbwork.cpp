#include "app/window/ldbwork.h"

#include "app/putback/putback.h"
#include "app/shared/whynot.h"
#include "app/transfer/settingstransfer.h"
#include "app/window/runcontrol.h"
#include "tracking/faultfinding/fimtracking.h"
#include "ui_mainwindow.h"

#include <QThread>

namespace {

bool isUnderWay(TrackingRun::Phase phase)
{
    switch (phase) {
    case TrackingRun::Phase::FactoryReset:
    case TrackingRun::Phase::Rebooting:
    case TrackingRun::Phase::Counting:
        return true;
    case TrackingRun::Phase::Idle:
    case TrackingRun::Phase::Confirmation:
    case TrackingRun::Phase::Finished:
        break;
    }
    return false;
}

} // namespace

LdbWork::LdbWork(const Ui::MainWindow& ui, const Surroundings& surroundings, QWidget* window)
    : QObject(window)
    , m_ui(ui)
    , m_around(surroundings)
    , m_window(window)
{
    m_ui.ldbActionsGroup->init(m_around.link, m_around.notices);
    initEditor();
    initPutBack();
    initTransfer();
}

LdbWork::~LdbWork()
{
    // What these say while they end must not reach an object half gone.
    disconnect();
    delete m_transfer;
    delete m_putBack;
    delete m_tracking;
}

void LdbWork::initEditor()
{
    LdbSettingsEditor* editor = m_ui.ldbSettingsEditor;
    editor->init(m_around.link, m_around.notices);
    m_ui.ldbSettingsTabLayout->addWidget(editor->footer());
    connect(editor, &LdbSettingsEditor::savingChanged, m_around.run, &RunControl::setSaving);
    connect(m_around.run, &RunControl::settingsStale, this, [this] {
        if (!m_putBack->isPending(m_around.run->selectedLdb())) {
            m_ui.ldbSettingsEditor->requestSettings();
        }
    });
}

void LdbWork::initPutBack()
{
    m_putBack = new PutBack(m_around.link, m_around.notices, m_window, KeptLdbs(), this);
    connect(m_putBack, &PutBack::pendingChanged, this, &LdbWork::enabledChanged);
    connect(m_putBack, &PutBack::settingsChanged, this, [this](const QString& hexId) {
        if (hexId == m_around.run->selectedLdb()) {
            m_ui.ldbSettingsEditor->requestSettings();
        }
    });
}

void LdbWork::initTransfer()
{
    m_transfer = new SettingsTransfer(m_around.link, m_around.notices, m_around.status, m_window);
    connect(m_transfer, &SettingsTransfer::changed, this, &LdbWork::showTransfer);
    m_ui.stopTransferButton->hide();
    const auto let = [this](const QAbstractButton* button, auto slot) {
        connect(button, &QAbstractButton::clicked, m_transfer, slot);
    };
    let(m_ui.exportDeviceSettingsButton, &SettingsTransfer::chooseExport);
    let(m_ui.importDeviceSettingsButton, &SettingsTransfer::chooseImport);
    let(m_ui.stopTransferButton, &SettingsTransfer::stop);
}

void LdbWork::showTransfer(bool isOn)
{
    Q_ASSERT(QThread::currentThread() == thread());
    // It stands in their place: the window has no room for both.
    m_ui.exportDeviceSettingsButton->setVisible(!isOn);
    m_ui.importDeviceSettingsButton->setVisible(!isOn);
    m_ui.stopTransferButton->setVisible(isOn);
    m_ui.stopTransferButton->setEnabled(isOn);
    m_around.run->setTransferring(isOn);
    // The editor shows what is in the LDB now, also when only a part was written.
    if (!isOn && m_transfer->touchedLdbs().contains(m_around.run->selectedLdb())) {
        setSelectedLdb(m_around.run->selectedLdb());
    }
}

void LdbWork::setSelectedLdb(const QString& hexId)
{
    m_ui.ldbActionsGroup->setSelectedLdb(hexId);
    if (!m_ui.ldbSettingsEditor->hasUnsavedChanges()) {
        m_ui.ldbSettingsEditor->setSelectedLdb(hexId);
    }
    m_ui.ldbSettingsEditor->requestSettings();
}

void LdbWork::startFaultFinding()
{
    m_tracking = new FimTracking(m_around.run->selectedLdb(), m_around.link, m_window);
    m_putBack->follow(m_tracking);
    connect(m_tracking, &QObject::destroyed, this, [this] {
        m_tracking.clear(); // a widget tells of its end before it is known to be gone
    });
}

void LdbWork::apply(const EnabledControls& controls)
{
    WhyNot::permit(m_ui.exportDeviceSettingsButton, controls.transfer);
    WhyNot::permit(m_ui.importDeviceSettingsButton, controls.transfer);
    EnabledControls ofEditor = controls;
    if (controls.settings && m_putBack->isPending(m_around.run->selectedLdb())) {
        ofEditor.settings.hindrance = Hindrance::PuttingBack;
    }
    m_ui.ldbSettingsEditor->apply(ofEditor);
    m_ui.ldbActionsGroup->apply(controls);
}

std::vector<Text> LdbWork::underWay() const
{
    std::vector<Text> reasons;
    if (const Text transfer = m_transfer->underWay()) {
        reasons.push_back(transfer);
    }
    if (m_around.run->isSaving()) {
        reasons.emplace_back([] {
            return tr("Settings are being saved. The LDB may be left with a part of them.");
        });
    }
    for (const QString& hexId : m_putBack->beingPutBack()) {
        reasons.emplace_back([hexId] {
            return tr("What LDB %1 had before the fault finding is being put back. Its loop may be "
                      "left without sound.")
                .arg(hexId);
        });
    }
    if (m_tracking && isUnderWay(m_tracking->run().phase())) {
        reasons.emplace_back(
            [] { return tr("Fault finding is under way. The loop may be left without sound."); });
    }
    return reasons;
}
