#include "app/window/mainwindow.h"

#include "app/help/manualwindow.h"
#include "app/installation/installationdesk.h"
#include "app/notices/linknotices.h"
#include "app/notices/notices.h"
#include "app/notices/statusbardisplay.h"
#include "app/preferences/settingsmenu.h"
#include "app/shared/constants.h"
#include "app/shared/usersettings.h"
#include "app/shared/whynot.h"
#include "app/window/closingquestion.h"
#include "app/window/evidence.h"
#include "app/window/installationwiring.h"
#include "app/window/ldbviews.h"
#include "app/window/ldbwork.h"
#include "app/window/monitor.h"
#include "app/window/runcontrol.h"
#include "app/window/windowlook.h"
#include "resources/resources.h"
#include "serial/link/seriallink.h"
#include "ui_mainwindow.h"

#include <QCloseEvent>

namespace {

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
    delete m_work;
    delete m_ui->ldbSettingsEditor;
    delete m_evidence;
    m_link->disconnect();
    m_link.reset();
}

void MainWindow::init(const PortSource& ports)
{
    setWindowTitle(QStringLiteral("%1 Version %2")
                       .arg(constants::kApplicationDisplayName, constants::kApplicationVersion));
    initLink(ports);
    initPanels(ports);
    setLdbActionButtonsState();
}

void MainWindow::initLink(const PortSource& ports)
{
    const SerialLink* link = m_link.get();
    auto* linkNotices = new LinkNotices(m_notices.get(), this);
    linkNotices->follow(link);
    m_monitor = new Monitor(link, ports.wallTime, this);
    connect(m_monitor, &Monitor::changed, this, &MainWindow::showMonitoring);
    m_run = new RunControl(m_link.get(), this);
    connect(m_run, &RunControl::begun, this, &MainWindow::processRunBegun);
    connect(m_run, &RunControl::scanning, this,
            &MainWindow::serialProcessorLdbInitializationStateChange);
    connect(m_run, &RunControl::ended, this, &MainWindow::serialProcessorStopped);
    connect(m_run, &RunControl::failed, this, [this] { m_status->showFailure(); });
    connect(m_run, &RunControl::enabledChanged, this, &MainWindow::setLdbActionButtonsState);
    m_desk = new InstallationDesk({m_link.get(), m_notices.get(), linkNotices}, ports, this);
    m_run->setPlan([this] { return m_desk->planForStart(); });
    connect(m_desk, &InstallationDesk::resumable, this, &MainWindow::resume);
    connect(link, &SerialLink::opened, this, [this] { m_status->clearFailure(); });
    connect(link, &SerialLink::ldbListInitializationProgress, this,
            [this](int checked, int found) { m_status->showScanProgress(checked, found); });
    connect(link, &SerialLink::ldbListChanged, this, [this] {
        // While a scan is on, the list is not complete.
        if (!m_run->isScanning()) {
            m_views->keepKnown();
        }
    });
    connect(link, &SerialLink::externalCommandsInQueueUpdated, this,
            [this](int commands) { m_status->showQueueLength(commands); });
}

void MainWindow::initPanels(const PortSource& ports)
{
    m_ui->logTab->setNotices(m_notices.get());
    m_views = new LdbViews(*m_ui, m_link.get(), this);
    connect(m_views, &LdbViews::selectedLdbChanged, this, &MainWindow::processSelectedLdbChanged);
    m_work = new LdbWork(
        *m_ui, {m_link.get(), m_run, m_notices.get(), m_status.get(), ports.wallTime}, this);
    wireinstallation::wire(m_desk, m_run, m_views, m_work);
    connect(m_work, &LdbWork::enabledChanged, this, &MainWindow::setLdbActionButtonsState);
    m_closing = new ClosingQuestion(m_notices.get(), this);
    m_closing->ask([this] { return m_work->underWay(); });
    m_settingsMenu = new SettingsMenu(this);
    m_portName = userSettings().value(constants::kComPortKey).toString();
    m_link->setPortName(m_portName);
    connect(m_settingsMenu, &SettingsMenu::comPortUpdated, this,
            &MainWindow::processComPortUpdated);
    m_evidence = new Evidence(
        {*m_ui, m_link.get(), m_notices.get(), m_desk, m_run, m_views, m_work, ports}, this);
    connect(m_ui->settingsMenuButton, &QAbstractButton::clicked, m_settingsMenu, &QWidget::show);
    connect(m_settingsMenu, &SettingsMenu::installationWanted, m_desk, &InstallationDesk::showForm);
    connect(m_settingsMenu, &SettingsMenu::recordingWanted, m_evidence, &Evidence::showPreferences);
    connect(m_ui->helpButton, &QAbstractButton::clicked, this,
            [this] { ManualWindow::showIndex(this); });
}

void MainWindow::retranslate()
{
    updateButtonTexts();
    m_notices->retranslate();
    m_status->retranslate();
    m_views->retranslate();
    m_evidence->retranslate();
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
        m_evidence->goLive(); // a run begins
        m_portName = comPort;
        m_work->forget();
        m_run->changePort(comPort);
        m_status->showLoading();
    };
    m_ui->ldbSettingsEditor->leave(
        change, [this] { userSettings().setValue(constants::kComPortKey, m_portName); });
}

void MainWindow::resume(const QString& portName, const StartPlan& plan)
{
    if (std::exchange(m_portName, portName) != portName) {
        userSettings().setValue(constants::kComPortKey, portName);
    }
    m_run->resume(portName, plan);
}

void MainWindow::processRunBegun(bool isResumed)
{
    m_ui->startButton->setChecked(true);
    m_notices->hush();
    if (!isResumed) {
        m_views->clearPlot();
    }
    if (!m_run->selectedLdb().isEmpty()) {
        showLdb(m_run->selectedLdb());
    }
}

void MainWindow::serialProcessorLdbInitializationStateChange(bool initialization)
{
    if (initialization) {
        return;
    }
    // Those that a scan was cut short before it came to them are still there.
    if (m_link->isRunning()) {
        m_views->keepKnown();
    }
    m_status->hideProgress();
    showMonitoring(m_monitor->monitoring());
}

void MainWindow::showMonitoring(const Monitoring& monitoring)
{
    m_views->setMonitoring(monitoring);
    if (!m_run->isScanning()) {
        m_status->showAvailable(monitoring.known - monitoring.awaited, monitoring.lost);
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
        if (m_views->select(former)) {
            editor->leave([this, deviceId] { m_views->select(deviceId); });
            return;
        }
        editor->drop();
    }
    showLdb(deviceId);
}

void MainWindow::showLdb(const QString& deviceId)
{
    m_run->setSelectedLdb(deviceId);
    m_views->setSelectedLdb(deviceId);
    m_work->setSelectedLdb(deviceId);
}

void MainWindow::setLdbActionButtonsState()
{
    Q_ASSERT(QThread::currentThread() == thread());
    const EnabledControls controls = m_run->enabled();
    WhyNot::permit(m_ui->startButton, controls.start);
    WhyNot::permit(m_ui->reloadDevicesButton, controls.reload);
    m_views->setSelectionEnabled(controls.selection);
    m_work->apply(controls);
}

void MainWindow::on_fimTrackingButton_clicked()
{
    m_work->startFaultFinding();
}

void MainWindow::on_zoomButton_toggled(bool checked)
{
    m_views->setZoomEnabled(checked);
    updateButtonTexts();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (m_ui->ldbSettingsEditor->hasUnsavedChanges()) {
        event->ignore();
        m_ui->ldbSettingsEditor->leave([this] { close(); });
        return;
    }
    if (!m_closing->mayClose()) {
        event->ignore();
        return;
    }
    windowlook::save(this);
    m_views->save();
    QMainWindow::closeEvent(event);
}
