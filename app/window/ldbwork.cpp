#include "app/window/ldbwork.h"

#include "app/putback/putback.h"
#include "app/settingstable/settingstablewindow.h"
#include "app/shared/whynot.h"
#include "app/transfer/settingstransfer.h"
#include "app/window/runcontrol.h"
#include "app/window/worknotes.h"
#include "serial/link/seriallink.h"
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
    m_notes = new WorkNotes(m_around.wallTime, this);
    m_notes->follow(m_ui.ldbActionsGroup);
    m_notes->follow(m_ui.ldbSettingsEditor);
    initEditor();
    initPutBack();
    initTransfer();
    initTable();
}

LdbWork::~LdbWork()
{
    // What these say while they end must not reach an object half gone.
    disconnect();
    delete m_table;
    delete m_transfer;
    delete m_putBack;
    if (m_tracking) {
        m_tracking->disconnect(this);
    }
    delete m_tracking;
}

void LdbWork::initEditor()
{
    LdbSettingsEditor* editor = m_ui.ldbSettingsEditor;
    editor->init(m_around.link, m_around.notices);
    m_ui.ldbSettingsTabLayout->addWidget(editor->footer());
    connect(editor, &LdbSettingsEditor::savingChanged, m_around.run, &RunControl::setSaving);
    connect(m_around.run, &RunControl::settingsStale, this, [this] {
        if (!m_around.run->isLookingBack() && !m_putBack->isPending(m_around.run->selectedLdb())) {
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
    m_notes->follow(m_transfer);
    connect(m_transfer, &SettingsTransfer::changed, this, &LdbWork::showTransfer);
    m_ui.stopTransferButton->hide();
    const auto let = [this](const QAbstractButton* button, auto slot) {
        connect(button, &QAbstractButton::clicked, m_transfer, slot);
    };
    let(m_ui.exportDeviceSettingsButton, &SettingsTransfer::chooseExport);
    let(m_ui.importDeviceSettingsButton, &SettingsTransfer::chooseImport);
    let(m_ui.stopTransferButton, &SettingsTransfer::stop);
}

void LdbWork::initTable()
{
    m_table = new SettingsTableWindow({m_around.link, m_transfer, m_around.wallTime,
                                       [this](const QString& hexId) {
                                           return m_putBack->isPending(hexId);
                                       }},
                                      m_window);
    connect(m_ui.settingsTableButton, &QAbstractButton::clicked, m_table,
            &SettingsTableWindow::open);
}

void LdbWork::setFormerSettings(const FormerSettingsStore& store)
{
    m_ui.ldbSettingsEditor->setFormerSettings(store);
    m_table->setFormerSettings(store);
}

void LdbWork::forget()
{
    m_ui.ldbSettingsEditor->forget();
    m_table->forget();
}

void LdbWork::changeSite()
{
    m_table->forget();
    // Unsaved edits stay: the name in the LDB keeps a Save from another one.
    LdbSettingsEditor* editor = m_ui.ldbSettingsEditor;
    if (!editor->hasUnsavedChanges()) {
        editor->forget();
        if (m_around.link->isRunning()) {
            editor->requestSettings();
        }
    }
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
    m_around.link->setBackgroundSearchHeld(isOn); // the transfer goes before
    // The editor shows what is in the LDB now, also when only a part was written.
    if (!isOn && m_transfer->touchedLdbs().contains(m_around.run->selectedLdb())) {
        setSelectedLdb(m_around.run->selectedLdb());
    }
}

void LdbWork::setSelectedLdb(const QString& hexId)
{
    if (m_around.run->isLookingBack()) {
        return; // what it has now is asked for when the user is back
    }
    m_ui.ldbActionsGroup->setSelectedLdb(hexId);
    if (!m_ui.ldbSettingsEditor->hasUnsavedChanges()) {
        m_ui.ldbSettingsEditor->setSelectedLdb(hexId);
    }
    m_ui.ldbSettingsEditor->requestSettings();
}

void LdbWork::setKept(const KeptLdbs& kept)
{
    m_putBack->setKept(kept);
}

void LdbWork::holdPutBack(bool isHeld)
{
    m_putBack->hold(isHeld);
}

void LdbWork::startFaultFinding()
{
    m_tracking =
        new FimTracking(m_around.run->selectedLdb(), m_around.link, m_window, m_putBack->kept());
    m_putBack->follow(m_tracking);
    m_notes->follow(m_tracking);
    connect(m_tracking, &FimTracking::runBegins, this,
            [this] { m_around.run->setFaultFinding(true); });
    connect(m_tracking, &FimTracking::runEnds, this,
            [this] { m_around.run->setFaultFinding(false); });
    connect(m_tracking, &QObject::destroyed, this, [this] {
        m_tracking.clear(); // a widget tells of its end before it is known to be gone
    });
}

void LdbWork::apply(const EnabledControls& controls)
{
    WhyNot::permit(m_ui.exportDeviceSettingsButton, controls.transfer);
    WhyNot::permit(m_ui.importDeviceSettingsButton, controls.transfer);
    m_table->apply(controls.transfer);
    EnabledControls ofEditor = controls;
    if (controls.settings && m_putBack->isPending(m_around.run->selectedLdb())) {
        ofEditor.settings.hindrance = Hindrance::PuttingBack;
    }
    m_ui.ldbSettingsEditor->apply(ofEditor);
    m_ui.ldbActionsGroup->apply(controls);
    if (m_tracking) {
        // A run that is on can be stopped.
        m_tracking->setEnabled(!m_around.run->isLookingBack() ||
                               isUnderWay(m_tracking->run().phase()));
    }
}

std::vector<Text> LdbWork::underWay() const
{
    std::vector<Text> reasons;
    if (const Text transfer = m_transfer->underWay()) {
        reasons.push_back(transfer);
    }
    if (const Text edits = m_table->underWay()) {
        reasons.push_back(edits);
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
