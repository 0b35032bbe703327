#include "tests/app/screenset.h"

#include "app/help/manualwindow.h"
#include "app/ldbsettings/ldbsettingseditor.h"
#include "app/log/logpanel.h"
#include "app/notices/linknotices.h"
#include "app/notices/statusbardisplay.h"
#include "app/preferences/settingsmenu.h"
#include "app/transfer/settingstransfer.h"
#include "app/window/mainwindow.h"
#include "app/window/monitoringstrip.h"
#include "serial/ldb/serialcommand.h"
#include "tests/support/testbus.h"
#include "tests/support/virtualtime.h"
#include "tests/tracking/modelldb.h"
#include "tests/views/records.h"
#include "tracking/faultfinding/fimtracking.h"
#include "tracking/faultfinding/startquestions.h"
#include "tracking/plot/mainwindowplot.h"
#include "tracking/plot/plot.h"
#include "views/lamps/lamppanel.h"
#include "views/tables/devicedetailtable.h"
#include "views/tables/deviceoverviewtable.h"

#include <QSerialPort>
#include <QtWidgets>

namespace {

/// What a screen of 1280 x 720 has below a panel and a title bar.
constexpr QSize kRoom(1280, 660);
constexpr qint64 kRowsFit = 200;     // ms until rows are as high as their texts
constexpr qint64 kStep = 250;        // ms
constexpr qint64 kLongest = 3600000; // ms
constexpr int kManyCommands = 1012;  // those of an import into 253 LDBs
const QString kTicked = QStringLiteral("0A");

const QStringList kMainWindows{
    QStringLiteral("main-openShortLeakPage"), QStringLiteral("main-serviceModePage"),
    QStringLiteral("main-earthFaultPage"),    QStringLiteral("main-settingsPage"),
    QStringLiteral("main-outPage"),           QStringLiteral("main-notMonitored"),
    QStringLiteral("main-ldbSettingsTab"),    QStringLiteral("main-logTab")};
const QStringList kBoxes{QStringLiteral("box-loss"), QStringLiteral("box-port"),
                         QStringLiteral("box-import")};
const QStringList kTrackingWindows{
    QStringLiteral("tracking-question"),  QStringLiteral("tracking-mode"),
    QStringLiteral("tracking-port"),      QStringLiteral("tracking-waiting"),
    QStringLiteral("tracking-rebooting"), QStringLiteral("tracking-counting"),
    QStringLiteral("tracking-finished"),  QStringLiteral("tracking-stopped")};

/// An installation on which each column shows its widest text somewhere.
QList<QList<QStringList>> records()
{
    const QList<records::Codes> codes{
        {254, 42, 10, 2}, {10, 0, 0, 0},  {50, 21, 5, 254}, {51, 2, 1, 3}, {253, 4, 15, 1},
        {30, 16, 8, 255}, {20, 32, 4, 0}, {52, 1, 2, 2},    {40, 8, 3, 0}, {254, 64, 16, 255}};
    QList<QList<QStringList>> all;
    for (int i = 0; i < codes.size(); ++i) {
        all.append(
            records::withCodes(QStringLiteral("%1").arg(i + 3, 2, 16, QLatin1Char('0')).toUpper(),
                               codes.at(i), QStringLiteral("Control room E")));
        // As far as the plot's scale goes.
        using namespace generalinformation;
        all.last()[PrimaryCurrentRow][TextColumn] = QStringLiteral("140.0 mA");
        all.last()[SecondaryCurrentRow][TextColumn] = QStringLiteral("-30.0 mA");
    }
    all.append(records::record(QStringLiteral("FD"), LdbStatus::disconnected(),
                               QStringLiteral("Control room E")));
    return all;
}

void setMonitoring(MainWindow& window, const Monitoring& monitoring)
{
    window.findChild<MonitoringStrip*>()->setMonitoring(monitoring);
    window.findChild<DeviceOverviewTable*>()->setMonitoring(monitoring);
    window.findChild<DeviceDetailTable*>()->setMonitoring(monitoring);
    window.findChild<MainWindowPlot*>()->setMonitoring(monitoring);
    window.findChild<LampPanel*>()->setMonitoring(monitoring);
    window.findChild<LogPanel*>()->setMonitoring(monitoring);
}

void fillViews(MainWindow& window)
{
    auto* overview = window.findChild<DeviceOverviewTable*>();
    auto* details = window.findChild<DeviceDetailTable*>();
    auto* lamps = window.findChild<LampPanel*>();
    auto* plot = window.findChild<MainWindowPlot*>();
    const QList<QList<QStringList>> all = records();
    // Twice: the lamps tell of rounds that are over.
    Monitoring monitoring = records::monitored();
    monitoring.known = all.size();
    monitoring.lost = 1;
    setMonitoring(window, monitoring);
    for (int round = 0; round < 2; ++round) {
        for (const QList<QStringList>& record : all) {
            const QString hexId = generalinformation::text(record, generalinformation::DeviceIdRow);
            overview->processData(hexId, record);
            details->processData(hexId, record);
            lamps->processData(hexId, record);
            plot->processData(hexId, record);
        }
    }
}

/// Every value changed, as changes stand out in bold.
void fillEditor(LdbSettingsEditor& editor)
{
    editor.setSelectedLdb(kTicked);
    editor.processLdbSettings(kTicked, TestBus::record(kTicked));
    editor.processFirmwareId(kTicked, QByteArray("TC-LDB V02.14.003").toHex());
    editor.findChild<QLineEdit*>(QStringLiteral("settingsNameLineEdit"))
        ->setText(QStringLiteral("Control room E"));
    for (auto* box : editor.findChildren<QSpinBox*>()) {
        box->setValue(box->maximum());
    }
    for (auto* box : editor.findChildren<QAbstractButton*>()) {
        if (box->isCheckable() &&
            box->objectName() != QLatin1String("settingsOpenDetectionDelayCheckBox")) {
            box->click();
        }
    }
}

QAbstractButton* buttonWith(const QWidget* box, QMessageBox::ButtonRole role, int index)
{
    const auto* messageBox = qobject_cast<const QMessageBox*>(box);
    for (QAbstractButton* button : messageBox->buttons()) {
        if (messageBox->buttonRole(button) == role && index-- == 0) {
            return button;
        }
    }
    return nullptr;
}

template <typename Window>
Window* lastOpen(const QWidget* owner)
{
    Window* open = nullptr;
    for (auto* window : owner->findChildren<Window*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (window->isVisible()) {
            open = window;
        }
    }
    return open;
}

} // namespace

ScreenSet::ScreenSet(VirtualTime* time)
    : m_time(time)
{
    m_desk.setGeometry(0, 0, kRoom.width(), kRoom.height());
    m_desk.show();
}

ScreenSet::~ScreenSet() = default;

QStringList ScreenSet::names()
{
    return kMainWindows + kBoxes + kTrackingWindows +
           QStringList{QStringLiteral("settings"), QStringLiteral("about"),
                       QStringLiteral("manual"), QStringLiteral("status-bar")};
}

QWidget* ScreenSet::open(const QString& name)
{
    const QString detail = name.section(QLatin1Char('-'), 1);
    QWidget* window = nullptr;
    if (kMainWindows.contains(name)) {
        window = openMainWindow(detail);
    } else if (kBoxes.contains(name)) {
        window = openBox(detail);
    } else if (kTrackingWindows.contains(name)) {
        window = openTracking(detail);
    } else if (name == QLatin1String("settings")) {
        window = openSettings();
    } else if (name == QLatin1String("about")) {
        window = new AboutDialog(openSettings());
    } else if (name == QLatin1String("status-bar")) {
        window = openStatusBar();
    } else {
        window = openManual();
    }
    window->show();
    // Layouts settle in more than one turn.
    for (int turn = 0; turn < 12; ++turn) {
        m_time->advance(0);
    }
    m_time->advance(kRowsFit);
    return window;
}

QWidget* ScreenSet::keep(std::unique_ptr<QWidget> window)
{
    m_windows.push_back(std::move(window));
    return m_windows.back().get();
}

QWidget* ScreenSet::openMainWindow(const QString& tab)
{
    auto* window = static_cast<MainWindow*>(keep(std::make_unique<MainWindow>()));
    window->resize(kRoom);
    window->show();
    fillViews(*window);
    auto* toolBox = window->findChild<QToolBox*>(QStringLiteral("ldbActionToolBox"));
    auto* tabs = window->findChild<QTabWidget*>(QStringLiteral("controlTabs"));
    auto* page = window->findChild<QWidget*>(tab);
    if (tab == QLatin1String("notMonitored")) {
        Monitoring lost = records::stopped(59 * 60);
        lost.state = Monitoring::State::ConnectionLost;
        lost.portName = QStringLiteral("/dev/ttyUSB0");
        setMonitoring(*window, lost);
    } else if (toolBox->indexOf(page) >= 0) {
        toolBox->setCurrentWidget(page);
    } else {
        tabs->setCurrentWidget(page);
        fillEditor(*window->findChild<LdbSettingsEditor*>());
    }
    return window;
}

QWidget* ScreenSet::openSettings()
{
    SettingsSources sources;
    sources.ports = [] {
        return QList<PortDetails>{
            {QStringLiteral("ttyUSB0"), QStringLiteral("USB-Serial Controller D, 4 channels"),
             QStringLiteral("Prolific Technology Inc."), QStringLiteral("A50285BI-0001"),
             QStringLiteral("/dev/ttyUSB0"), quint16{0x067b}, quint16{0x2303}}};
    };
    return keep(std::make_unique<SettingsMenu>(nullptr, sources));
}

QWidget* ScreenSet::openBox(const QString& name)
{
    if (name == QLatin1String("loss")) {
        static const QStringList lost{QStringLiteral("03"), QStringLiteral("0A")};
        LinkNotices losses(&m_notices);
        for (const QString& hexId : lost) {
            losses.tellLoss(hexId, QStringLiteral("Control room E"));
        }
        return lastOpen<MessageBox>(&m_desk);
    }
    if (name == QLatin1String("port")) {
        return keep(std::make_unique<MessageBox>(
            QMessageBox::Critical,
            [] {
                return portFailureText({QStringLiteral("/dev/ttyUSB0"),
                                        QSerialPort::PermissionError,
                                        QStringLiteral("Permission denied")});
            },
            nullptr));
    }
    return keep(std::make_unique<MessageBox>(
        QMessageBox::Critical,
        [] {
            return SettingsTransfer::boxText(SettingsTransfer::Status::ImportFailedNotAllConnected,
                                             QString());
        },
        nullptr));
}

QWidget* ScreenSet::openTracking(const QString& phase)
{
    LoopPlan plan;
    plan.fims = 25;
    plan.earthLeakageAfter = 3;
    plan.dcLeakageAfter = 5;
    plan.shortAfter = 12;
    plan.openAfter = 13;
    const auto ldb = std::make_shared<ModelLdb>(plan);
    auto* window = new FimTracking(ldb, &m_desk);
    m_windows.emplace_back(window);
    // Painting minutes of curves would take most of the time.
    const QList<Plot*> plots = window->findChildren<Plot*>();
    for (Plot* plot : plots) {
        plot->hide();
    }
    const auto reach = [this, window](const std::function<bool()>& isThere) {
        for (qint64 gone = 0; !isThere() && gone < kLongest; gone += kStep) {
            m_time->advance(kStep);
            for (auto* box : window->findChildren<QMessageBox*>()) {
                box->close(); // of an alarm
            }
        }
    };
    m_time->advance(1);
    QWidget* question = lastOpen<QMessageBox>(window);
    if (phase == QLatin1String("question")) {
        return question;
    }
    buttonWith(question, QMessageBox::YesRole, 0)->click();
    m_time->advance(1);
    question = lastOpen<QMessageBox>(window);
    if (phase == QLatin1String("mode")) {
        return question;
    }
    const bool isAboutPort = phase == QLatin1String("port");
    buttonWith(question, QMessageBox::AcceptRole, isAboutPort ? 1 : 0)->click();
    m_time->advance(1);
    if (isAboutPort) {
        return lastOpen<DisconnectSecondaryPortDialog>(window);
    }
    const TrackingRun& run = window->run();
    if (phase == QLatin1String("waiting") || phase == QLatin1String("stopped")) {
        reach([&run] { return run.isCountingDown(); });
    } else if (phase == QLatin1String("rebooting")) {
        reach([&run] { return run.phase() == TrackingRun::Phase::Rebooting; });
    } else if (phase == QLatin1String("counting")) {
        reach([&run] { return run.counter().fimCount(PrimaryPort) >= 11; });
    } else {
        reach([&run] { return run.phase() == TrackingRun::Phase::Finished; });
    }
    if (phase == QLatin1String("stopped")) {
        ldb->loseConnection();
    }
    for (Plot* plot : plots) {
        plot->show();
    }
    return window;
}

QWidget* ScreenSet::openStatusBar()
{
    auto* window = static_cast<QMainWindow*>(keep(std::make_unique<QMainWindow>()));
    window->resize(kRoom);
    Notices notices(window->statusBar(), window);
    StatusBarDisplay display(window->statusBar(), &notices);
    display.showAvailable(busaddress::kLast, busaddress::kLast / 2);
    display.showQueueLength(kManyCommands);
    display.showScanProgress(busaddress::kLast, busaddress::kLast);
    return window;
}

QWidget* ScreenSet::openManual()
{
    return keep(std::make_unique<ManualWindow>(QStringLiteral(MANUAL_FOLDER), nullptr));
}
