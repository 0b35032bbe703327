#include "app/mainwindow.h"

#include "app/help/manualwindow.h"
#include "app/ldbactions.h"
#include "app/logcontrols.h"
#include "app/logreports.h"
#include "app/settings/settingsmenu.h"
#include "app/settingseditor/ldbsettingseditor.h"
#include "app/settingstransfer.h"
#include "app/shared/constants.h"
#include "app/transferreport.h"
#include "app/windowlook.h"
#include "resources/resources.h"
#include "serial/seriallink.h"
#include "tracking/faultfinding/fimtracking.h"
#include "tracking/plot/mainwindowplot.h"
#include "ui_mainwindow.h"
#include "views/lamps/lamppanel.h"
#include "views/log/filelogger.h"
#include "views/tables/devicedetailtable.h"
#include "views/tables/deviceoverviewtable.h"

#include <QCloseEvent>

namespace {

constexpr int kReportMs = 5000;

std::unique_ptr<Ui::MainWindow> makeForm(QMainWindow* window)
{
    initResources(); // the form shows some of them
    auto form = std::make_unique<Ui::MainWindow>();
    form->setupUi(window);
    return form;
}

} // namespace

MainWindow::MainWindow(const PortSource& ports, QWidget* parent)
    : QMainWindow(parent)
    , m_ui(makeForm(this))
    , m_status(m_ui->statusBar)
    , m_losses(this)
    , m_portFailures(this)
    , m_link(std::make_unique<SerialLink>(ports))
{
    windowlook::setLogo(m_ui->logoLabel);
    windowlook::makeGrey(m_ui->globalStatusPanel);
    windowlook::makeGrey(m_ui->ldbActionToolBox);
    m_ui->logAllRadioButton->setChecked(true);
    init();
    initVariables();
    loadApplicationState();
    retranslate();
}

MainWindow::~MainWindow()
{
    // What these say while they end must not reach a window half gone.
    delete m_transfer;
    delete m_tracking;
    delete m_settingsEditor;
    m_link->disconnect();
    m_link.reset();
}

void MainWindow::init()
{
    setWindowTitle(QStringLiteral("%1 Version %2")
                       .arg(constants::kApplicationDisplayName, constants::kApplicationVersion));
    initLink();
    initTables();
    initLog();
    initPlot();
    initSettingsMenu();
    initSettingsEditor();
    initLamps();
    m_transfer = new SettingsTransfer(m_link.get(), &m_status, this);
    connect(m_transfer, &SettingsTransfer::statusChanged, this,
            &MainWindow::processExportImportStatus);
    m_actions = new LdbActions(m_link.get(), this);
    connect(m_actions, &LdbActions::reported, this, [this](const QString& text) {
        m_status.showMessage([text] { return text; }, kReportMs);
    });
}

void MainWindow::initLink()
{
    const SerialLink* link = m_link.get();
    connect(link, &SerialLink::stopped, this, &MainWindow::serialProcessorStopped);
    connect(link, &SerialLink::ldbDisconnected, this, &MainWindow::serialProcessorLdbDisconnected);
    connect(link, &SerialLink::portFailed, this, &MainWindow::serialProcessorPortFailed);
    connect(link, &SerialLink::communicationFailed, this,
            &MainWindow::serialProcessorCommunicationError);
    connect(link, &SerialLink::ldbListInitializationStateChange, this,
            &MainWindow::serialProcessorLdbInitializationStateChange);
    connect(link, &SerialLink::ldbListInitializationProgress, this,
            &MainWindow::serialProcessorLdbInitializationProgress);
    connect(link, &SerialLink::externalCommandsInQueueUpdated, this,
            &MainWindow::serialProcessorExternalCommandQueueUpdated);
    connect(link, &SerialLink::ldbStateUpdated, this, &MainWindow::processLdbStateUpdated);
}

void MainWindow::initTables()
{
    const SerialLink* link = m_link.get();
    m_detailTable = new DeviceDetailTable(m_ui->deviceDetailTableView, this);
    connect(link, &SerialLink::generalInformationUpdated, m_detailTable,
            &DeviceDetailTable::processData);
    m_overviewTable = new DeviceOverviewTable(m_ui->deviceOverviewTableView, this);
    connect(m_overviewTable, &DeviceOverviewTable::selectedLDBChanged, this,
            &MainWindow::processSelectedLdbChanged);
    connect(link, &SerialLink::generalInformationUpdated, m_overviewTable,
            &DeviceOverviewTable::processData);
}

void MainWindow::initLog()
{
    m_logger = new FileLogger(this);
    m_logControls = new LogControls({m_ui->logFilePathText, m_ui->logFileBrowseButton,
                                     m_ui->logSpeedSpinBox, m_ui->logSelectedRadioButton,
                                     m_ui->logAllRadioButton, m_ui->logStartStopButton},
                                    m_logger, this);
    connect(m_link.get(), &SerialLink::generalInformationUpdated, m_logger,
            &FileLogger::processData);
    new LogReports(m_logControls, m_ui->controlTabs, m_ui->logTab, &m_status);
}

void MainWindow::initPlot()
{
    m_plot = new MainWindowPlot(m_ui->plotContainer, this);
    connect(m_link.get(), &SerialLink::generalInformationUpdated, m_plot,
            &MainWindowPlot::processData);
    connect(m_plot, &MainWindowPlot::zoomEnabledChanged, m_ui->zoomButton,
            &QAbstractButton::setChecked);
}

void MainWindow::initSettingsMenu()
{
    m_settingsMenu = new SettingsMenu(this);
    m_link->setPortName(m_settingsMenu->getComPort());
    connect(m_settingsMenu, &SettingsMenu::comPortUpdated, this,
            &MainWindow::processComPortUpdated);
}

void MainWindow::initSettingsEditor()
{
    m_settingsEditor = new LdbSettingsEditor(m_ui->ldbSettingsContainer);
    m_settingsEditor->setLink(m_link.get());
    m_ui->ldbSettingsLayout->addWidget(m_settingsEditor);
    m_ui->ldbSettingsLayout->addStretch();
    connect(m_settingsEditor, &LdbSettingsEditor::statusMessage, this,
            [this](const QString& text, int milliseconds) {
                m_status.showMessage([text] { return text; }, milliseconds);
            });
    connect(m_settingsEditor, &LdbSettingsEditor::saveStarted, this, [this] { setSaving(true); });
    connect(m_settingsEditor, &LdbSettingsEditor::saveFinished, this, [this] { setSaving(false); });
}

void MainWindow::setSaving(bool saving)
{
    m_situation.saving = saving;
    setLdbActionButtonsState();
}

void MainWindow::initLamps()
{
    m_lamps = new LampPanel(
        {m_ui->lampALabel, m_ui->lampATextLabel, m_ui->lampCausesA, m_ui->serviceModePage},
        {m_ui->lampBLabel, m_ui->lampBTextLabel, m_ui->lampCausesB, m_ui->earthFaultPage},
        {m_ui->lampCLabel, m_ui->lampCTextLabel, m_ui->lampCausesC, m_ui->openShortLeakPage},
        {m_ui->lampDLabel, nullptr, m_ui->lampCausesD, m_ui->settingsPage}, m_ui->ldbActionToolBox,
        this);
    connect(m_link.get(), &SerialLink::generalInformationUpdated, m_lamps, &LampPanel::processData);
    connect(m_lamps, &LampPanel::ldbActivated, m_overviewTable, &DeviceOverviewTable::selectLdb);
    connect(m_lamps, &LampPanel::pageOpened, this,
            [this] { m_ui->controlTabs->setCurrentWidget(m_ui->statusTab); });
}

void MainWindow::initVariables()
{
    m_situation.initialising = false;
    setLdbActionButtonsState();
}

void MainWindow::retranslate()
{
    updateButtonTexts();
    m_status.retranslate();
    m_overviewTable->retranslate();
    m_detailTable->retranslate();
    m_plot->retranslate();
    m_logControls->retranslate();
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

// --- Start, stop, scan ---

void MainWindow::on_startButton_toggled(bool checked)
{
    if (checked) {
        startRun();
    } else {
        m_link->stop();
        setLdbActionButtonsState();
    }
    updateButtonTexts();
}

void MainWindow::startRun()
{
    // Every run begins with a scan; its own signal comes only when the port is open.
    m_situation.initialising = true;
    m_link->start();
    m_status.showAvailable(m_link->knownLdbs().size());
    m_status.clearMessage();
    m_plot->clearPlot();
    if (!m_selectedLdb.isEmpty()) {
        processSelectedLdbChanged(m_selectedLdb);
    }
    setLdbActionButtonsState();
}

void MainWindow::on_reloadDevicesButton_clicked()
{
    m_situation.initialising = true;
    if (m_link->isRunning()) {
        m_link->rescan();
        setLdbActionButtonsState();
    } else {
        m_ui->startButton->setChecked(true);
    }
    m_status.showLoading();
}

void MainWindow::on_settingsMenuButton_clicked()
{
    m_settingsMenu->show();
}

void MainWindow::on_helpButton_clicked()
{
    ManualWindow::showIndex(this);
}

void MainWindow::processComPortUpdated(const QString& comPort)
{
    m_ui->startButton->setChecked(false);
    m_link->setPortName(comPort);
    on_reloadDevicesButton_clicked();
}

void MainWindow::serialProcessorLdbInitializationStateChange(bool initialization)
{
    m_situation.initialising = initialization;
    if (initialization) {
        m_overviewTable->clear();
        m_lamps->resetPages();
        // The port is open: the start was a success.
        m_status.clearFailure();
    } else {
        m_status.showAvailable(m_link->knownLdbs().size());
        m_status.clearMessage();
        m_status.hideProgress();
    }
    setLdbActionButtonsState();
}

void MainWindow::serialProcessorLdbInitializationProgress(int checked, int found)
{
    m_status.showScanProgress(checked, found);
}

void MainWindow::serialProcessorExternalCommandQueueUpdated(int commandsInQueue)
{
    m_status.showQueueLength(commandsInQueue);
}

void MainWindow::serialProcessorStopped()
{
    m_lamps->reset();
    serialProcessorLdbInitializationStateChange(false);
    m_status.showQueueLength(0);
    m_ui->startButton->setChecked(false);
    setLdbActionButtonsState();
}

// --- Losses and failures ---

void MainWindow::serialProcessorLdbDisconnected(const QString& deviceId)
{
    setLdbActionButtonsState();
    m_losses.report(deviceId);
}

void MainWindow::serialProcessorPortFailed(const QString& portName, int error,
                                           const QString& description)
{
    m_portFailures.note({portName, error, description});
}

void MainWindow::serialProcessorCommunicationError()
{
    m_ui->startButton->setChecked(false);
    serialProcessorLdbInitializationStateChange(false);
    m_status.showFailure();
    m_portFailures.report();
}

// --- Export and import ---

void MainWindow::on_exportDeviceSettingsButton_clicked()
{
    m_transfer->chooseExport();
}

void MainWindow::on_importDeviceSettingsButton_clicked()
{
    m_transfer->chooseImport();
}

void MainWindow::processExportImportStatus(ImportExportDeviceSettings::ImportExportStatus state)
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_situation.transferring = transferReport(state).running;
    setLdbActionButtonsState();
    if (state == ImportExportDeviceSettings::ImportFinished) {
        // So that the editor shows what was imported.
        processSelectedLdbChanged(m_selectedLdb);
    }
}

// --- Lamps, plot and log ---

void MainWindow::on_zoomButton_toggled(bool checked)
{
    m_plot->setZoomEnabled(checked);
    updateButtonTexts();
}

void MainWindow::on_logSelectedRadioButton_clicked()
{
    m_logControls->setLoggingAll(false);
}

void MainWindow::on_logAllRadioButton_clicked()
{
    m_logControls->setLoggingAll(true);
}

void MainWindow::on_logFileBrowseButton_clicked()
{
    m_logControls->browse();
}

void MainWindow::on_logStartStopButton_toggled(bool checked)
{
    m_logControls->switchLogging(checked);
}

// --- The selected LDB ---

void MainWindow::processSelectedLdbChanged(const QString& deviceId)
{
    m_selectedLdb = deviceId;
    m_detailTable->setCurrentHexId(deviceId);
    m_logger->setSelectedHexId(deviceId);
    m_plot->setSelectedDevice(deviceId);
    m_settingsEditor->setSelectedLdb(deviceId);
    m_settingsEditor->requestSettings();
    setLdbActionButtonsState();
}

void MainWindow::processLdbStateUpdated(const QString& deviceId, LdbState state)
{
    if (deviceId != m_selectedLdb) {
        return;
    }
    setLdbActionButtonsState();
    if (state != LdbState::ServiceMode && state != LdbState::Disconnected) {
        m_settingsEditor->requestSettings();
    }
}

void MainWindow::setLdbActionButtonsState()
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_situation.running = m_link->isRunning();
    m_situation.selected = !m_selectedLdb.isEmpty();
    m_situation.state = m_link->stateOf(m_selectedLdb);
    const EnabledControls controls = enabledControls(m_situation);
    m_ui->reloadDevicesButton->setEnabled(controls.reload);
    m_ui->exportDeviceSettingsButton->setEnabled(controls.transfer);
    m_ui->importDeviceSettingsButton->setEnabled(controls.transfer);
    m_overviewTable->setSelectionEnabled(controls.selection);
    for (QWidget* button :
         {m_ui->allFimResetButton, m_ui->allLdbResetButton, m_ui->allServiceModeButton}) {
        button->setEnabled(controls.allActions);
    }
    m_settingsEditor->setUndoAllowed(controls.singleActions);
    m_settingsEditor->setSaveAllowed(controls.outsideService);
    m_ui->fimResetButton->setEnabled(controls.singleActions);
    m_ui->ldbResetButton->setEnabled(controls.singleActions);
    m_ui->serviceModeButton->setEnabled(controls.outsideService);
    m_ui->fimTrackingButton->setEnabled(controls.outsideService);
}

void MainWindow::on_fimResetButton_clicked()
{
    m_actions->execute(LdbControl::FimReset, m_selectedLdb);
}

void MainWindow::on_ldbResetButton_clicked()
{
    m_actions->execute(LdbControl::LdbReset, m_selectedLdb);
}

void MainWindow::on_serviceModeButton_clicked()
{
    m_actions->execute(LdbControl::ServiceMode, m_selectedLdb);
}

void MainWindow::on_fimTrackingButton_clicked()
{
    m_tracking = new FimTracking(m_selectedLdb, m_link.get(), this);
    m_status.showPolledAlone(m_selectedLdb);
    connect(m_tracking, &QObject::destroyed, this, [this] { m_status.showPolledAlone(QString()); });
}

void MainWindow::on_allFimResetButton_clicked()
{
    m_actions->executeForAll(LdbControl::FimReset);
}

void MainWindow::on_allLdbResetButton_clicked()
{
    m_actions->executeForAll(LdbControl::LdbReset);
}

void MainWindow::on_allServiceModeButton_clicked()
{
    m_actions->executeForAll(LdbControl::ServiceMode);
}

// --- Layout ---

windowlayoutstore::Layout MainWindow::layoutParts()
{
    return {this, m_ui->leftAndRightSplitter, m_ui->deviceOverviewAndPlotSplitter,
            m_ui->plotAndDetailSplitter};
}

void MainWindow::loadApplicationState()
{
    windowlayoutstore::load(layoutParts());
}

void MainWindow::saveApplicationState()
{
    windowlayoutstore::save(layoutParts());
    m_overviewTable->saveTableState();
    m_logControls->save();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    saveApplicationState();
    QMainWindow::closeEvent(event);
}
