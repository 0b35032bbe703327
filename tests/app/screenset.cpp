#include "tests/app/screenset.h"

#include "app/actions/actionspanel.h"
#include "app/help/manualwindow.h"
#include "app/ldbsettings/ldbsettingseditor.h"
#include "app/log/logpanel.h"
#include "app/notices/linknotices.h"
#include "app/notices/statusbardisplay.h"
#include "app/preferences/settingsmenu.h"
#include "app/putback/putbacktexts.h"
#include "app/settingstable/settingstablewindow.h"
#include "app/settingstable/writepreview.h"
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
const QString kTicked = "0A";

const QStringList kMainWindows{
    "main-openShortLeakPage", "main-serviceModePage", "main-earthFaultPage",
    "main-settingsPage",      "main-outPage",         "main-notMonitored",
    "main-ldbSettingsTab",    "main-logTab",          "main-filtered"};
const QStringList kBoxes{"box-loss", "box-port", "box-import", "box-restore", "box-same"};
const QStringList kTrackingWindows{"tracking-question", "tracking-mode",     "tracking-port",
                                   "tracking-waiting",  "tracking-counting", "tracking-finished",
                                   "tracking-stopped"};

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
                               codes.at(i), "Control room E"));
        // As far as the plot's scale goes.
        using namespace generalinformation;
        all.last()[PrimaryCurrentRow][TextColumn] = "140.0 mA";
        all.last()[SecondaryCurrentRow][TextColumn] = "-30.0 mA";
    }
    all.append(records::record("FD", LdbStatus::disconnected(), "Control room E"));
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
    Monitoring monitoring = records::monitored();
    monitoring.known = all.size();
    monitoring.lost = 1;
    setMonitoring(window, monitoring);
    lamps->beginRound();
    for (const QList<QStringList>& record : all) {
        const QString hexId = generalinformation::text(record, generalinformation::DeviceIdRow);
        overview->processData(hexId, record);
        details->processData(hexId, record);
        lamps->processData(hexId, record);
        plot->processData(hexId, record);
    }
    lamps->endRound();
}

EnabledControls allAllowed()
{
    constexpr Permission kAllowed{Hindrance::None};
    return {kAllowed, kAllowed, kAllowed, kAllowed, kAllowed,
            kAllowed, kAllowed, kAllowed, kAllowed};
}

/// Every value changed, as changes stand out in bold, and not saved.
void fillEditor(LdbSettingsEditor& editor)
{
    editor.apply(allAllowed());
    editor.setSelectedLdb(kTicked);
    editor.processLdbSettings(kTicked, TestBus::record(kTicked));
    editor.processFirmwareId(kTicked, QByteArray("TC-LDB V02.14.003").toHex());
    editor.findChild<QLineEdit*>("settingsNameLineEdit")->setText("Control room E");
    for (auto* box : editor.findChildren<QSpinBox*>()) {
        box->setValue(box->maximum());
    }
    for (auto* box : editor.findChildren<QAbstractButton*>()) {
        if (box->isCheckable() && box->objectName() != "settingsOpenDetectionDelayCheckBox") {
            box->click();
        }
    }
    // No run is on, which is not to disable what this set is about.
    editor.blockSignals(true);
    editor.footer()->findChild<QPushButton*>("settingsSaveButton")->click();
}

void fillActions(ActionsPanel& actions)
{
    actions.setSelectedLdb(kTicked);
    actions.apply(allAllowed());
    actions.findChild<QPushButton*>("serviceModeButton")->click(); // no run is on
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
           QStringList{"settings",        "about",        "manual",
                       "status-bar",      "transfer",     "preview-hexadecimal",
                       "preview-decimal", "question-all", "table",
                       "table-former"};
}

QWidget* ScreenSet::open(const QString& name)
{
    const QString detail = name.section('-', 1);
    QWidget* window = nullptr;
    if (kMainWindows.contains(name)) {
        window = openMainWindow(detail);
    } else if (kBoxes.contains(name)) {
        window = openBox(detail);
    } else if (kTrackingWindows.contains(name)) {
        window = openTracking(detail);
    } else if (name == "settings") {
        window = openSettings();
    } else if (name == "about") {
        window = new AboutDialog(openSettings());
    } else if (name == "status-bar") {
        window = openStatusBar();
    } else if (name == "transfer") {
        window = openTransfer();
    } else if (name.startsWith("preview")) {
        window = openPreview(detail == "decimal");
    } else if (name.startsWith("table")) {
        window = openTable(detail == "former");
    } else if (name == "question-all") {
        window = openQuestion();
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
    auto* toolBox = window->findChild<QToolBox*>("ldbActionToolBox");
    auto* tabs = window->findChild<QTabWidget*>("controlTabs");
    auto* page = window->findChild<QWidget*>(tab);
    if (tab == "notMonitored") {
        Monitoring lost = records::stopped(59 * 60);
        lost.state = Monitoring::State::ConnectionLost;
        lost.portName = "/dev/ttyUSB0";
        setMonitoring(*window, lost);
    } else if (tab == "filtered") {
        window->findChild<QLineEdit*>("overviewFilterEdit")->setText("Control room W");
    } else if (toolBox->indexOf(page) >= 0) {
        toolBox->setCurrentWidget(page);
    } else {
        tabs->setCurrentWidget(page);
        fillEditor(*window->findChild<LdbSettingsEditor*>());
        fillActions(*window->findChild<ActionsPanel*>());
    }
    return window;
}

QWidget* ScreenSet::openSettings()
{
    SettingsSources sources;
    sources.ports = [] {
        return QList<PortDetails>{{"ttyUSB0", "USB-Serial Controller D, 4 channels",
                                   "Prolific Technology Inc.", "A50285BI-0001", "/dev/ttyUSB0",
                                   quint16{0x067b}, quint16{0x2303}}};
    };
    return keep(std::make_unique<SettingsMenu>(nullptr, sources));
}

QWidget* ScreenSet::openBox(const QString& name)
{
    if (name == "loss") {
        static const QStringList lost{"03", "0A"};
        LinkNotices losses(&m_notices);
        for (const QString& hexId : lost) {
            losses.tellLoss(hexId, "Control room E");
        }
        return lastOpen<MessageBox>(&m_desk);
    }
    if (name == "port") {
        return keep(std::make_unique<MessageBox>(
            QMessageBox::Critical,
            [] {
                return portFailureText(
                    {"/dev/ttyUSB0", QSerialPort::PermissionError, "Permission denied"},
                    {true, false, "dialout"});
            },
            nullptr));
    }
    if (name == "restore" || name == "same") {
        LdbSettings before;
        before.name = "Control room E";
        LdbSettings now = before;
        now.openDetectionDelay = 10;
        now.amplifierDetection = true;
        now.generalFaultOutput = true;
        const KeptLdb kept{kTicked, before.name, QDateTime(QDate(2026, 12, 24), QTime(18, 30)),
                           false, before};
        return keep(std::make_unique<MessageBox>(
            QMessageBox::Question,
            [=] {
                return name == "restore"
                           ? putbacktexts::offer(kept, kTicked, now, QString())
                           : putbacktexts::whetherSame(kept, kTicked, "Control room W");
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
    if (phase == "question") {
        return question;
    }
    buttonWith(question, QMessageBox::YesRole, 0)->click();
    m_time->advance(1);
    question = lastOpen<QMessageBox>(window);
    if (phase == "mode") {
        return question;
    }
    const bool isAboutPort = phase == "port";
    buttonWith(question, QMessageBox::AcceptRole, isAboutPort ? 1 : 0)->click();
    m_time->advance(1);
    if (isAboutPort) {
        return lastOpen<DisconnectSecondaryPortDialog>(window);
    }
    const TrackingRun& run = window->run();
    if (phase == "waiting" || phase == "stopped") {
        reach([&run] { return run.isCountingDown(); });
    } else if (phase == "counting") {
        reach([&run] { return run.counter().fimCount(PrimaryPort) >= 11; });
    } else {
        reach([&run] { return run.phase() == TrackingRun::Phase::Finished; });
    }
    if (phase == "stopped") {
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

QWidget* ScreenSet::openTransfer()
{
    QWidget* window = openMainWindow("openShortLeakPage");
    window->findChild<QPushButton*>("exportDeviceSettingsButton")->hide();
    window->findChild<QPushButton*>("importDeviceSettingsButton")->hide();
    window->findChild<QPushButton*>("stopTransferButton")->show();
    return window;
}

QWidget* ScreenSet::openPreview(bool isDecimal)
{
    BusSnapshot bus;
    for (const char* hexId : {"03", "07", "0A", "10", "1C"}) {
        bus.known.append(hexId);
        bus.connected.append(hexId);
        bus.settings[hexId] = *decodeLdbSettings(TestBus::record(hexId));
    }
    bus.known.append("12");
    const QByteArray file("3;LDB 03;1;1;10;1;0;0;0;20;F\n"
                          "7;LDB 07;0;1;12;1;1;1;1;33;F\n"
                          "10;LDB 0A;1;1;10;1;0;0;0;25;F\n"
                          "16;LDB 10;1;1;10;1;0;0;0;20;F\n"
                          "28;LDB 1C;1;1;5;1;0;0;0;20;F\n"
                          "12;Stairs;1;1;5;1;0;0;0;20;F\n"
                          "A4;Hall;1;1;5;1;0;0;0;20;F\n"
                          "233;Roof;1;1;5;1;0;0;0;20;F\n");
    const ImportPlan plan =
        ImportPlan::make(file, isDecimal ? IdReading::Decimal : IdReading::Hexadecimal, bus);
    std::vector<LdbChange> changes;
    for (const ImportPlan::Entry& entry : plan.entries) {
        if (!entry.comparison.isSame()) {
            changes.push_back(
                {entry.line.hexId,
                 {entry.comparison.wanted, entry.comparison.fields, entry.comparison.present}});
        }
    }
    return keep(std::make_unique<WritePreview>(changes, plan.problems, nullptr));
}

/// With every kind of cell, and both strips.
QWidget* ScreenSet::openTable(bool isFormer)
{
    QWidget* window = openMainWindow("openShortLeakPage");
    auto* table = window->findChild<SettingsTableWindow*>();
    auto* model = table->findChild<SettingsTableModel*>();
    for (int address = busaddress::kFirst; address <= busaddress::kLast; ++address) {
        const QString hexId = busaddress::toHexId(address);
        LdbSettings settings = *decodeLdbSettings(TestBus::record(hexId.toLatin1()), hexId);
        settings.name = "Control room E";
        model->takeReading({hexId, settings, "TC-LDB V02.14.003"}, QDateTime::currentDateTime());
    }
    const QString path = QStringLiteral("Device List[14112026_211530].csv");
    m_sandbox.writeFile(path, "7;LDB 07;0;1;12;1;1;1;1;33;F\n10;LDB 0A;1;1;10;1;0;0;0;25;F\n"
                              "233;Roof;1;1;5;1;0;0;0;20;F\n");
    QMetaObject::invokeMethod(table, "importFile", Q_ARG(QString, m_sandbox.path(path)));
    if (isFormer) {
        const FormerSettingsStore store;
        store.keep({QDateTime::currentDateTime(),
                    FormerSettings::Occasion::Import,
                    path,
                    {model->rows().front().shown(), model->rows().back().shown()}});
        table->findChild<QAction*>("former")->trigger();
        return table->findChild<QDialog*>("formerList");
    }
    return table;
}

QWidget* ScreenSet::openQuestion()
{
    QWidget* window = openMainWindow("openShortLeakPage");
    auto* panel = window->findChild<ActionsPanel*>();
    panel->apply(allAllowed());
    panel->findChild<QPushButton*>("allServiceModeButton")->click();
    return lastOpen<MessageBox>(window);
}

QWidget* ScreenSet::openManual()
{
    return keep(std::make_unique<ManualWindow>(QStringLiteral(MANUAL_FOLDER), nullptr));
}
