#include "app/window/mainwindow.h"

#include "app/help/manualwindow.h"
#include "app/notices/linknotices.h"
#include "app/notices/notices.h"
#include "app/notices/statusbardisplay.h"
#include "app/preferences/settingsmenu.h"
#include "app/putback/mutewatch.h"
#include "app/putback/putback.h"
#include "app/shared/colours.h"
#include "app/shared/constants.h"
#include "app/shared/usersettings.h"
#include "app/shared/whynot.h"
#include "app/transfer/settingstransfer.h"
#include "app/window/attention.h"
#include "app/window/monitor.h"
#include "app/window/monitoringstrip.h"
#include "app/window/runcontrol.h"
#include "app/window/windowlook.h"
#include "resources/resources.h"
#include "serial/link/seriallink.h"
#include "tracking/faultfinding/fimtracking.h"
#include "tracking/plot/mainwindowplot.h"
#include "ui_mainwindow.h"
#include "views/lamps/lamppanel.h"
#include "views/tables/devicedetailtable.h"
#include "views/tables/deviceoverviewtable.h"
#include "views/tables/mutemarks.h"

#include <QCloseEvent>

namespace {

std::unique_ptr<Ui::MainWindow> makeForm(QMainWindow* window)
{
    initResources(); // the form shows some of them
    auto form = std::make_unique<Ui::MainWindow>();
    form->setupUi(window);
    return form;
}

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

QIcon logMark(LogPanel::Status status)
{
    switch (status) {
    case LogPanel::Status::Off:
        break;
    case LogPanel::Status::Logging:
        return lampimage::draw(colours::kOrangered);
    case LogPanel::Status::Waiting:
        return lampimage::draw(colours::kAmber);
    }
    return {};
}

} // namespace

MainWindow::MainWindow(const PortSource& ports, QWidget* parent)
    : QMainWindow(parent)
    , m_ui(makeForm(this))
    , m_notices(std::make_unique<Notices>(m_ui->statusBar, this))
    , m_status(std::make_unique<StatusBarDisplay>(m_ui->statusBar, m_notices.get()))
    , m_link(std::make_unique<SerialLink>(ports))
{
    windowlook::setLogo(m_ui->logoLabel);
    windowlook::makeGrey(m_ui->globalStatusPanel);
    windowlook::makeGrey(m_ui->ldbActionToolBox);
    init(ports);
    windowlook::load(this);
    retranslate();
}

MainWindow::~MainWindow()
{
    // What these say while they end must not reach a window half gone.
    delete m_transfer;
    delete m_putBack;
    delete m_tracking;
    delete m_ui->ldbSettingsEditor;
    m_link->disconnect();
    m_link.reset();
}

void MainWindow::init(const PortSource& ports)
{
    setWindowTitle(QStringLiteral("%1 Version %2")
                       .arg(constants::kApplicationDisplayName, constants::kApplicationVersion));
    initLink(ports);
    initViews();
    initPanels();
    setLdbActionButtonsState();
}

void MainWindow::initLink(const PortSource& ports)
{
    const SerialLink* link = m_link.get();
    (new LinkNotices(m_notices.get(), this))->follow(link);
    m_monitor = new Monitor(link, ports.wallTime, this);
    connect(m_monitor, &Monitor::changed, this, &MainWindow::showMonitoring);
    connect(m_ui->monitoringStrip, &MonitoringStrip::dismissLost, this,
            [this] { dismiss(m_overviewTable->lostLdbs()); });
    m_run = new RunControl(m_link.get(), this);
    connect(m_run, &RunControl::begun, this, &MainWindow::processRunBegun);
    connect(m_run, &RunControl::scanning, this,
            &MainWindow::serialProcessorLdbInitializationStateChange);
    connect(m_run, &RunControl::ended, this, &MainWindow::serialProcessorStopped);
    connect(m_run, &RunControl::failed, this, [this] { m_status->showFailure(); });
    connect(m_run, &RunControl::enabledChanged, this, &MainWindow::setLdbActionButtonsState);
    connect(link, &SerialLink::ldbListInitializationProgress, this,
            [this](int checked, int found) { m_status->showScanProgress(checked, found); });
    connect(link, &SerialLink::ldbListChanged, this, [this] {
        // While a scan is on, the list is not complete.
        if (!m_run->isScanning()) {
            dropUnknownLdbs();
        }
    });
    connect(link, &SerialLink::externalCommandsInQueueUpdated, this,
            [this](int commands) { m_status->showQueueLength(commands); });
}

void MainWindow::initViews()
{
    m_detailTable = new DeviceDetailTable(m_ui->deviceDetailTableView, this);
    m_overviewTable = new DeviceOverviewTable(m_ui->deviceOverviewTableView, this);
    m_muteMarks = new MuteMarks(m_ui->deviceOverviewTableView->model(),
                                m_ui->deviceDetailTableView->model(), this);
    connect(new MuteWatch(m_link.get(), this), &MuteWatch::changed, m_muteMarks,
            &MuteMarks::setMuted);
    m_plot = new MainWindowPlot(m_ui->plotContainer, this);
    m_lamps = new LampPanel(
        {m_ui->lampALabel, m_ui->lampATextLabel, m_ui->lampCausesA, m_ui->serviceModePage},
        {m_ui->lampBLabel, m_ui->lampBTextLabel, m_ui->lampCausesB, m_ui->earthFaultPage},
        {m_ui->lampCLabel, m_ui->lampCTextLabel, m_ui->lampCausesC, m_ui->openShortLeakPage},
        {m_ui->lampDLabel, nullptr, m_ui->lampCausesD, m_ui->settingsPage}, m_ui->lampCausesOut,
        m_ui->ldbActionToolBox, this);
    const auto feed = [this](auto* view, auto process) {
        connect(m_link.get(), &SerialLink::generalInformationUpdated, view, process);
    };
    feed(m_detailTable, &DeviceDetailTable::processData);
    feed(m_overviewTable, &DeviceOverviewTable::processData);
    feed(m_ui->logTab, &LogPanel::processData);
    feed(m_plot, &MainWindowPlot::processData);
    feed(m_lamps, &LampPanel::processData);
    feed(new Attention(this), &Attention::processData);
    connect(m_overviewTable, &DeviceOverviewTable::dismissed, this, &MainWindow::dismiss);
    connect(m_overviewTable, &DeviceOverviewTable::selectedLDBChanged, this,
            &MainWindow::processSelectedLdbChanged);
    connect(m_plot, &MainWindowPlot::zoomEnabledChanged, m_ui->zoomButton,
            &QAbstractButton::setChecked);
    connect(m_lamps, &LampPanel::ldbActivated, m_overviewTable, &DeviceOverviewTable::selectLdb);
    connect(m_lamps, &LampPanel::pageOpened, this,
            [this] { m_ui->controlTabs->setCurrentWidget(m_ui->statusTab); });
}

void MainWindow::initPanels()
{
    m_ui->logTab->setNotices(m_notices.get());
    connect(m_ui->logTab, &LogPanel::statusChanged, this, [this](LogPanel::Status status) {
        m_ui->controlTabs->setTabIcon(m_ui->controlTabs->indexOf(m_ui->logTab), logMark(status));
    });
    m_ui->ldbActionsGroup->init(m_link.get(), m_notices.get());
    m_ui->ldbSettingsEditor->init(m_link.get(), m_notices.get());
    connect(m_run, &RunControl::settingsStale, this, [this] {
        if (!m_putBack->isPending(m_run->selectedLdb())) {
            m_ui->ldbSettingsEditor->requestSettings();
        }
    });
    m_putBack = new PutBack(m_link.get(), m_notices.get(), this, KeptLdbs(), this);
    connect(m_putBack, &PutBack::pendingChanged, this, &MainWindow::setLdbActionButtonsState);
    connect(m_putBack, &PutBack::settingsChanged, this, [this](const QString& hexId) {
        if (hexId == m_run->selectedLdb()) {
            m_ui->ldbSettingsEditor->requestSettings();
        }
    });
    connect(m_ui->ldbSettingsEditor, &LdbSettingsEditor::savingChanged, m_run,
            &RunControl::setSaving);
    m_settingsMenu = new SettingsMenu(this);
    m_portName = m_settingsMenu->getComPort();
    m_link->setPortName(m_portName);
    connect(m_settingsMenu, &SettingsMenu::comPortUpdated, this,
            &MainWindow::processComPortUpdated);
    m_transfer = new SettingsTransfer(m_link.get(), m_notices.get(), m_status.get(), this);
    connect(m_transfer, &SettingsTransfer::changed, this, &MainWindow::processTransfer);
    m_ui->stopTransferButton->hide();
    const auto let = [](const QAbstractButton* button, auto* receiver, auto slot) {
        connect(button, &QAbstractButton::clicked, receiver, slot);
    };
    let(m_ui->exportDeviceSettingsButton, m_transfer, &SettingsTransfer::chooseExport);
    let(m_ui->importDeviceSettingsButton, m_transfer, &SettingsTransfer::chooseImport);
    let(m_ui->stopTransferButton, m_transfer, &SettingsTransfer::stop);
    let(m_ui->settingsMenuButton, m_settingsMenu, &QWidget::show);
    let(m_ui->helpButton, this, [this] { ManualWindow::showIndex(this); });
}

void MainWindow::retranslate()
{
    updateButtonTexts();
    m_notices->retranslate();
    m_status->retranslate();
    m_overviewTable->retranslate();
    m_muteMarks->retranslate();
    m_detailTable->retranslate();
    m_plot->retranslate();
    m_lamps->retranslate();
}

void MainWindow::updateButtonTexts()
{
    m_ui->startButton->setText(m_ui->startButton->isChecked() ? tr("Stop") : tr("Start"));
    m_ui->zoomButton->setText(m_ui->zoomButton->isChecked() ? tr("Zoom Out") : tr("Zoom In"));
}

void MainWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        m_ui->retranslateUi(this);
        retranslate();
    }
}

void MainWindow::on_startButton_toggled(bool checked)
{
    checked ? m_run->start() : m_link->stop();
    updateButtonTexts();
}

void MainWindow::on_reloadDevicesButton_clicked()
{
    m_run->reload();
    m_status->showLoading();
}

void MainWindow::processComPortUpdated(const QString& comPort)
{
    const auto change = [this, comPort] {
        m_portName = comPort;
        m_ui->ldbSettingsEditor->forget();
        m_run->changePort(comPort);
        m_status->showLoading();
    };
    m_ui->ldbSettingsEditor->leave(
        change, [this] { userSettings().setValue(constants::kComPortKey, m_portName); });
}

void MainWindow::processRunBegun()
{
    m_ui->startButton->setChecked(true);
    m_notices->hush();
    m_plot->clearPlot();
    if (!m_run->selectedLdb().isEmpty()) {
        showLdb(m_run->selectedLdb());
    }
}

void MainWindow::serialProcessorLdbInitializationStateChange(bool initialization)
{
    if (initialization) {
        // The port is open: the start was a success.
        m_status->clearFailure();
        return;
    }
    // Those that a scan was cut short before it came to them are still there.
    if (m_link->isRunning()) {
        dropUnknownLdbs();
    }
    m_status->hideProgress();
    showMonitoring(m_monitor->monitoring());
}

void MainWindow::dropUnknownLdbs()
{
    const QStringList known = m_link->knownLdbs();
    m_overviewTable->keepOnly(known);
    m_lamps->keepOnly(known);
}

void MainWindow::dismiss(const QStringList& hexIds)
{
    m_link->dismiss(hexIds);
    QStringList kept = m_overviewTable->shownLdbs();
    for (const QString& hexId : hexIds) {
        kept.removeAll(hexId);
    }
    m_overviewTable->keepOnly(kept);
    m_lamps->keepOnly(kept);
}

void MainWindow::showMonitoring(const Monitoring& monitoring)
{
    m_ui->monitoringStrip->setMonitoring(monitoring);
    m_overviewTable->setMonitoring(monitoring);
    m_detailTable->setMonitoring(monitoring);
    m_plot->setMonitoring(monitoring);
    m_lamps->setMonitoring(monitoring);
    m_ui->logTab->setMonitoring(monitoring);
    if (!m_run->isScanning()) {
        m_status->showAvailable(monitoring.known, monitoring.lost);
    }
}

void MainWindow::serialProcessorStopped()
{
    m_status->showQueueLength(0);
    m_ui->startButton->setChecked(false);
}

void MainWindow::processSelectedLdbChanged(const QString& deviceId)
{
    const QString former = m_run->selectedLdb();
    if (deviceId == former) {
        return; // the tick is back where it was
    }
    LdbSettingsEditor* editor = m_ui->ldbSettingsEditor;
    if (editor->hasUnsavedChanges()) {
        if (m_overviewTable->selectLdb(former)) {
            editor->leave([this, deviceId] { m_overviewTable->selectLdb(deviceId); });
            return;
        }
        editor->drop();
    }
    showLdb(deviceId);
}

void MainWindow::showLdb(const QString& deviceId)
{
    m_run->setSelectedLdb(deviceId);
    m_detailTable->setCurrentHexId(deviceId);
    m_muteMarks->setSelectedLdb(deviceId);
    m_ui->logTab->setSelectedLdb(deviceId);
    m_plot->setSelectedDevice(deviceId);
    m_ui->ldbActionsGroup->setSelectedLdb(deviceId);
    if (!m_ui->ldbSettingsEditor->hasUnsavedChanges()) {
        m_ui->ldbSettingsEditor->setSelectedLdb(deviceId);
    }
    m_ui->ldbSettingsEditor->requestSettings();
}

void MainWindow::setLdbActionButtonsState()
{
    Q_ASSERT(QThread::currentThread() == thread());
    const EnabledControls controls = m_run->enabled();
    WhyNot::permit(m_ui->reloadDevicesButton, controls.reload);
    WhyNot::permit(m_ui->exportDeviceSettingsButton, controls.transfer);
    WhyNot::permit(m_ui->importDeviceSettingsButton, controls.transfer);
    m_overviewTable->setSelectionEnabled(controls.selection);
    EnabledControls ofEditor = controls;
    if (controls.settings && m_putBack->isPending(m_run->selectedLdb())) {
        ofEditor.settings.hindrance = Hindrance::PuttingBack;
    }
    m_ui->ldbSettingsEditor->apply(ofEditor);
    m_ui->ldbActionsGroup->apply(controls);
}

void MainWindow::on_fimTrackingButton_clicked()
{
    m_tracking = new FimTracking(m_run->selectedLdb(), m_link.get(), this);
    m_putBack->follow(m_tracking);
    connect(m_tracking, &QObject::destroyed, this, [this] {
        m_tracking.clear(); // a widget tells of its end before it is known to be gone
    });
}

void MainWindow::processTransfer(bool isOn)
{
    Q_ASSERT(QThread::currentThread() == thread());
    // It stands in their place: the window has no room for both.
    m_ui->exportDeviceSettingsButton->setVisible(!isOn);
    m_ui->importDeviceSettingsButton->setVisible(!isOn);
    m_ui->stopTransferButton->setVisible(isOn);
    m_ui->stopTransferButton->setEnabled(isOn);
    m_run->setTransferring(isOn);
    // The editor shows what is in the LDB now, also when only a part was written.
    if (!isOn && m_transfer->touchedLdbs().contains(m_run->selectedLdb())) {
        showLdb(m_run->selectedLdb());
    }
}

void MainWindow::on_zoomButton_toggled(bool checked)
{
    m_plot->setZoomEnabled(checked);
    updateButtonTexts();
}

std::vector<Text> MainWindow::workUnderWay() const
{
    std::vector<Text> reasons;
    if (const Text transfer = m_transfer->underWay()) {
        reasons.push_back(transfer);
    }
    if (m_run->isSaving()) {
        reasons.emplace_back([] {
            return tr("Settings are being saved. The LDB may be left with a part of them.");
        });
    }
    if (m_tracking && isUnderWay(m_tracking->run().phase())) {
        reasons.emplace_back(
            [] { return tr("Fault finding is under way. The loop may be left without sound."); });
    }
    return reasons;
}

void MainWindow::askToClose(const std::vector<Text>& reasons)
{
    const QString name = QStringLiteral("closeBox");
    if (m_notices->isOpen(name)) {
        return;
    }
    auto* box = new MessageBox(
        QMessageBox::Warning,
        [reasons] {
            QStringList lines;
            for (const Text& reason : reasons) {
                lines.append(reason());
            }
            return BoxText{tr("Attention"),
                           tr("Close the program all the same?"),
                           lines.join(QLatin1Char('\n')),
                           {tr("Close"), tr("Stay")}};
        },
        this);
    box->setObjectName(name);
    connect(box, &QDialog::finished, this, [this, box] {
        if (box->choice() == 0) {
            m_mayClose = true;
            close();
        }
    });
    box->open();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (m_ui->ldbSettingsEditor->hasUnsavedChanges()) {
        event->ignore();
        m_ui->ldbSettingsEditor->leave([this] { close(); });
        return;
    }
    const std::vector<Text> reasons = m_mayClose ? std::vector<Text>() : workUnderWay();
    if (!reasons.empty()) {
        event->ignore();
        askToClose(reasons);
        return;
    }
    windowlook::save(this);
    m_overviewTable->saveTableState();
    m_ui->logTab->save();
    QMainWindow::closeEvent(event);
}
