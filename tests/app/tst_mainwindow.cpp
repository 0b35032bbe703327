#include "app/applicationsettings.h"
#include "app/mainwindow.h"
#include "app/messagebox.h"
#include "app/settings/settingsmenu.h"
#include "tests/support/sandbox.h"
#include "tests/support/scriptedbus.h"
#include "tests/support/testcase.h"
#include "tracking/fimtracking.h"

#include <QElapsedTimer>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QSplitter>
#include <QStatusBar>
#include <QTabWidget>
#include <QTableView>
#include <QTranslator>

#include <memory>

// A real bus and its scan take the time they take; these end as soon as what they wait for is
// there.
#define EVENTUALLY(condition) WAIT_VERIFY(condition)
#define EVENTUALLY_COMPARE(actual, expected) WAIT_COMPARE(actual, expected)

namespace {

const QString kFailed = QStringLiteral("Serial communication failed.");
/// A silence is soon told, but no pause of a busy computer is taken for one.
const QByteArray
    kImpatient("[SerialSettings]\nDISCONNECTED_COUNT=0\nBYTES_RECEIVED_WAIT_TIME=300\n");

/// Gives every text back in brackets, as a language that has them all.
class Brackets : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* source, const char* disambiguation,
                      int n) const override
    {
        Q_UNUSED(context)
        Q_UNUSED(disambiguation)
        QString text = QStringLiteral("<%1>").arg(QString::fromUtf8(source));
        if (n >= 0) {
            text.replace(QStringLiteral("%n"), QString::number(n));
        }
        return text;
    }
};

} // namespace

class TestMainWindow : public TestCase
{
    Q_OBJECT
private slots:
    void init() override;
    void cleanup() override;

    void startsAndStops();
    void stopsDuringScan();
    void emptyBusStops();
    void reloadKeepsTheTick();
    void reloadStartsAStoppedLink();
    void missingPort();
    void cutLine();
    void otherPort();
    void lostLdb_data();
    void lostLdb();
    void serviceModeSendsNothing();
    void actions_data();
    void actions();
    void trackingPollsOneLdb();
    void lampIsTwoClicksFromItsCause();
    void logsWhatIsPolled();
    void failedImport();
    void languageChangeLosesNothing();
    void layoutComesBack();
    void closesWhileCommandsWait();

private:
    void makeBus();
    void makeWindow();
    void start(int ldbs);
    template <typename T>
    T* child(const char* name) const
    {
        T* found = m_window->findChild<T*>(QLatin1String(name));
        Q_ASSERT(found != nullptr);
        return found;
    }
    QPushButton* button(const char* name) const { return child<QPushButton>(name); }
    QString label(const char* name) const { return child<QLabel>(name)->text(); }
    QTableView* overview() const { return child<QTableView>("deviceOverviewTableView"); }
    int rows() const { return overview()->model()->rowCount(); }
    QList<MessageBox*> boxes() const { return m_window->findChildren<MessageBox*>(); }
    QString detail(int row) const
    {
        return child<QTableView>("deviceDetailTableView")->model()->index(row, 1).data().toString();
    }
    void clickRow(const QString& hexId);

    std::unique_ptr<Sandbox> m_sandbox;
    std::unique_ptr<ScriptedBus> m_bus;
    std::unique_ptr<MainWindow> m_window;
};

void TestMainWindow::init()
{
    TestCase::init();
    m_sandbox = std::make_unique<Sandbox>();
    makeBus();
}

void TestMainWindow::makeBus()
{
    m_bus = std::make_unique<ScriptedBus>(
        QStringList{QStringLiteral("03"), QStringLiteral("0A"), QStringLiteral("FD")});
    applicationSettings().setValue(constants::kComPortKey, m_bus->portName());
}

void TestMainWindow::cleanup()
{
    m_window.reset();
    m_bus.reset();
    m_sandbox.reset();
    TestCase::cleanup();
}

void TestMainWindow::makeWindow()
{
    m_window = std::make_unique<MainWindow>();
    m_window->show();
}

void TestMainWindow::start(int ldbs)
{
    makeWindow();
    button("startButton")->click();
    EVENTUALLY_COMPARE(rows(), ldbs);
}

void TestMainWindow::clickRow(const QString& hexId)
{
    constexpr int kIdColumn = 1;
    const QAbstractItemModel* model = overview()->model();
    for (int row = 0; row < model->rowCount(); ++row) {
        const QModelIndex index = model->index(row, kIdColumn);
        if (index.data().toString() == hexId) {
            QTest::mouseClick(overview()->viewport(), Qt::LeftButton, Qt::NoModifier,
                              overview()->visualRect(index).center());
        }
    }
}

void TestMainWindow::startsAndStops()
{
    makeWindow();
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Tavro Cordex Sniffer Version 2.2"));
    QVERIFY(!button("ldbResetButton")->isEnabled());
    QVERIFY(button("reloadDevicesButton")->isEnabled());

    button("startButton")->click();
    QCOMPARE(button("startButton")->text(), QStringLiteral("Stop"));
    QVERIFY(!button("reloadDevicesButton")->isEnabled());
    EVENTUALLY(child<QProgressBar>("progressBar")->isVisible());
    QVERIFY(m_window->statusBar()->currentMessage().startsWith(
        QStringLiteral("Scanning for connected LDB's...  LDB's Checked ")));

    EVENTUALLY_COMPARE(rows(), 3);
    QCOMPARE(label("countLabel"), QStringLiteral("Available LDB's: 3."));
    QVERIFY(!child<QProgressBar>("progressBar")->isVisible());
    EVENTUALLY_COMPARE(detail(0), QStringLiteral("03"));
    EVENTUALLY(button("ldbResetButton")->isEnabled());
    QVERIFY(button("reloadDevicesButton")->isEnabled());

    button("startButton")->click();
    QCOMPARE(button("startButton")->text(), QStringLiteral("Start"));
    QVERIFY(!button("ldbResetButton")->isEnabled());
    QVERIFY(!button("allLdbResetButton")->isEnabled());
    QCOMPARE(label("countLabel"), QStringLiteral("Available LDB's: 3."));
    QCoreApplication::processEvents(); // what was on its way when it stopped
    m_bus->clearRequests();
    QCoreApplication::processEvents();
    QVERIFY(m_bus->requests().isEmpty());
}

void TestMainWindow::stopsDuringScan()
{
    m_bus->setScript([](const QByteArray&) { return QByteArray(); });
    makeWindow();
    button("startButton")->click();
    EVENTUALLY(child<QProgressBar>("progressBar")->isVisible());
    button("startButton")->click();
    QCOMPARE(button("startButton")->text(), QStringLiteral("Start"));
    QVERIFY(!child<QProgressBar>("progressBar")->isVisible());
    QCOMPARE(m_window->statusBar()->currentMessage(), QString());
    QVERIFY(button("reloadDevicesButton")->isEnabled());

    // And starts again at once.
    m_bus->setScript(nullptr);
    button("startButton")->click();
    EVENTUALLY_COMPARE(rows(), 3);
}

void TestMainWindow::emptyBusStops()
{
    m_bus->setPresent({});
    makeWindow();
    button("startButton")->click();
    EVENTUALLY(!button("startButton")->isChecked());
    QCOMPARE(label("countLabel"), QStringLiteral("Available LDB's: 0."));
    QVERIFY(boxes().isEmpty());
}

void TestMainWindow::reloadKeepsTheTick()
{
    start(3);
    EVENTUALLY(button("ldbResetButton")->isEnabled());
    clickRow(QStringLiteral("FD"));
    EVENTUALLY_COMPARE(detail(0), QStringLiteral("FD"));

    m_bus->setPresent({QStringLiteral("03"), QStringLiteral("FD")});
    button("reloadDevicesButton")->click();
    QCOMPARE(label("countLabel"), QStringLiteral("Loading LDB device list..."));
    QVERIFY(!button("ldbResetButton")->isEnabled());
    EVENTUALLY_COMPARE(label("countLabel"), QStringLiteral("Available LDB's: 2."));
    EVENTUALLY_COMPARE(rows(), 2);
    EVENTUALLY(button("ldbResetButton")->isEnabled());
    m_bus->clearRequests();
    button("ldbResetButton")->click();
    EVENTUALLY(m_bus->requests().contains("FEFD73780001"));
}

void TestMainWindow::reloadStartsAStoppedLink()
{
    makeWindow();
    button("reloadDevicesButton")->click();
    QVERIFY(button("startButton")->isChecked());
    QCOMPARE(label("countLabel"), QStringLiteral("Loading LDB device list..."));
    EVENTUALLY_COMPARE(rows(), 3);
    // One scan, not two: every address was asked once.
    QCOMPARE(m_bus->requests().count("FE0170"), 1);
}

void TestMainWindow::missingPort()
{
    applicationSettings().setValue(constants::kComPortKey, m_sandbox->path(QStringLiteral("gone")));
    makeWindow();
    const ExpectWarning warning("^Port ");
    button("startButton")->click();
    EVENTUALLY_COMPARE(boxes().size(), 1);
    const MessageBox* box = boxes().constFirst();
    QCOMPARE(box->windowTitle(), QStringLiteral("Error"));
    QCOMPARE(box->text(), QStringLiteral("Cannot establish the serial communication, check the "
                                         "serial port settings!"));
    QVERIFY2(box->informativeText().contains(m_sandbox->path(QStringLiteral("gone"))),
             qPrintable(box->informativeText()));
    QVERIFY(!button("startButton")->isChecked());
    QCOMPARE(label("countLabel"), kFailed);

    // A second attempt that fails opens no second box.
    button("startButton")->click();
    EVENTUALLY(!button("startButton")->isChecked());
    QCOMPARE(boxes().size(), 1);
    QCOMPARE(label("countLabel"), kFailed);
}

void TestMainWindow::cutLine()
{
    start(3);
    const ExpectWarning warning("^Port ");
    m_bus->hangUp();
    EVENTUALLY_COMPARE(boxes().size(), 1);
    QVERIFY(!button("startButton")->isChecked());
    QCOMPARE(label("countLabel"), kFailed);
    QVERIFY(!button("ldbResetButton")->isEnabled());
    QCoreApplication::processEvents();
    QCOMPARE(boxes().size(), 1);
}

void TestMainWindow::otherPort()
{
    applicationSettings().setValue(constants::kComPortKey, m_sandbox->path(QStringLiteral("gone")));
    makeWindow();
    {
        const ExpectWarning warning("^Port ");
        button("startButton")->click();
        EVENTUALLY_COMPARE(label("countLabel"), kFailed);
    }
    // Another port starts the link, and only its success takes the failure off the screen.
    emit m_window->findChild<SettingsMenu*>()->comPortUpdated(m_bus->portName());
    QVERIFY(button("startButton")->isChecked());
    EVENTUALLY_COMPARE(rows(), 3);
    QCOMPARE(label("countLabel"), QStringLiteral("Available LDB's: 3."));

    // So does one chosen while the link runs.
    ScriptedBus otherBus({QStringLiteral("77")});
    emit m_window->findChild<SettingsMenu*>()->comPortUpdated(otherBus.portName());
    EVENTUALLY_COMPARE(rows(), 1);
    QCOMPARE(label("countLabel"), QStringLiteral("Available LDB's: 1."));
    m_window.reset(); // before its bus goes
}

void TestMainWindow::lostLdb_data()
{
    QTest::addColumn<QString>("lost");
    QTest::addColumn<bool>("actionsStay");
    QTest::newRow("the ticked one") << QStringLiteral("03") << false;
    QTest::newRow("another one") << QStringLiteral("0A") << true;
}

void TestMainWindow::lostLdb()
{
    QFETCH(QString, lost);
    QFETCH(bool, actionsStay);
    m_sandbox->writeTuning(kImpatient);
    start(3);
    EVENTUALLY(button("ldbResetButton")->isEnabled());
    QStringList remaining{QStringLiteral("03"), QStringLiteral("0A"), QStringLiteral("FD")};
    remaining.removeAll(lost);

    m_bus->setPresent(remaining);
    EVENTUALLY_COMPARE(boxes().size(), 1);
    QCOMPARE(boxes().constFirst()->text(),
             QStringLiteral("The LDB with ID: %1 is disconnected!").arg(lost));
    QCOMPARE(button("ldbResetButton")->isEnabled(), actionsStay);
    QCOMPARE(button("allLdbResetButton")->isEnabled(), actionsStay);

    // It comes back by itself, and with it what can be done with it.
    m_bus->setPresent(remaining << lost);
    EVENTUALLY(button("ldbResetButton")->isEnabled());
    QCOMPARE(boxes().size(), 1);
}

void TestMainWindow::serviceModeSendsNothing()
{
    constexpr int kServiceMode = 30;
    QByteArray status = ScriptedBus::status();
    m_bus->setScript([&status](const QByteArray& body) -> std::optional<QByteArray> {
        return body == "FE03737803" ? std::make_optional(ScriptedBus::framed(status))
                                    : std::nullopt;
    });
    start(3);
    EVENTUALLY(button("serviceModeButton")->isEnabled());

    status = ScriptedBus::status(kServiceMode);
    EVENTUALLY(!button("serviceModeButton")->isEnabled());
    QVERIFY(!button("fimTrackingButton")->isEnabled());
    QVERIFY(button("fimResetButton")->isEnabled());
    QVERIFY(button("ldbResetButton")->isEnabled());
    QVERIFY(button("allServiceModeButton")->isEnabled());

    status = ScriptedBus::status();
    EVENTUALLY(button("serviceModeButton")->isEnabled());
    for (const QByteArray& request : m_bus->requests()) {
        QVERIFY2(!request.mid(4).startsWith("737800"), request.constData());
    }
}

void TestMainWindow::actions_data()
{
    QTest::addColumn<QByteArray>("buttonName");
    QTest::addColumn<QByteArray>("body");
    QTest::newRow("FIM reset") << QByteArray("fimResetButton") << QByteArray("FE0373780000");
    QTest::newRow("LDB reset") << QByteArray("ldbResetButton") << QByteArray("FE0373780001");
    QTest::newRow("service mode") << QByteArray("serviceModeButton") << QByteArray("FE0373780003");
    QTest::newRow("FIM reset, all")
        << QByteArray("allFimResetButton") << QByteArray("FEFF73780000");
    QTest::newRow("LDB reset, all")
        << QByteArray("allLdbResetButton") << QByteArray("FEFF73780001");
    QTest::newRow("service mode, all")
        << QByteArray("allServiceModeButton") << QByteArray("FEFF73780003");
}

void TestMainWindow::actions()
{
    QFETCH(QByteArray, buttonName);
    QFETCH(QByteArray, body);
    start(3);
    EVENTUALLY(button("ldbResetButton")->isEnabled());
    button(buttonName.constData())->click();
    EVENTUALLY(m_bus->requests().contains(body));
    EVENTUALLY(!m_window->statusBar()->currentMessage().isEmpty());
}

void TestMainWindow::trackingPollsOneLdb()
{
    start(3);
    EVENTUALLY(button("fimTrackingButton")->isEnabled());
    clickRow(QStringLiteral("0A"));
    EVENTUALLY_COMPARE(detail(0), QStringLiteral("0A"));
    button("fimTrackingButton")->click();
    EVENTUALLY(child<QLabel>("polledAloneLabel")->isVisible());
    QCOMPARE(label("polledAloneLabel"), QStringLiteral("Only LDB 0A is polled."));
    auto* tracking = m_window->findChild<FimTracking*>();
    QVERIFY(tracking != nullptr);
    QVERIFY(tracking->isVisible());

    tracking->close();
    EVENTUALLY(!child<QLabel>("polledAloneLabel")->isVisible());
    m_bus->clearRequests();
    EVENTUALLY(m_bus->requests().contains("FEFD737803"));
}

void TestMainWindow::lampIsTwoClicksFromItsCause()
{
    constexpr int kServiceMode = 30;
    m_bus->setScript([](const QByteArray& body) -> std::optional<QByteArray> {
        return body == "FEFD737803"
                   ? std::make_optional(ScriptedBus::framed(ScriptedBus::status(kServiceMode)))
                   : std::nullopt;
    });
    start(3);
    child<QTabWidget>("controlTabs")->setCurrentIndex(1);
    QTest::mouseClick(child<QLabel>("lampALabel"), Qt::LeftButton);
    auto* causes = child<QListWidget>("lampCausesA");
    EVENTUALLY(causes->isVisible());
    EVENTUALLY(causes->count() == 1 && causes->item(0)->text().startsWith(QStringLiteral("FD")));
    QTest::mouseClick(causes->viewport(), Qt::LeftButton, Qt::NoModifier,
                      causes->visualItemRect(causes->item(0)).center());
    EVENTUALLY_COMPARE(detail(0), QStringLiteral("FD"));
}

void TestMainWindow::logsWhatIsPolled()
{
    start(3);
    const QString path = m_sandbox->path(QStringLiteral("log.csv"));
    child<QLineEdit>("logFilePathText")->setText(path);
    button("logStartStopButton")->click();
    QVERIFY(!child<QTabWidget>("controlTabs")->tabIcon(2).isNull());
    EVENTUALLY(Sandbox::readFile(path).contains("\nFD;"));
    button("logStartStopButton")->click();
    QVERIFY(child<QTabWidget>("controlTabs")->tabIcon(2).isNull());

    // A log that cannot go on says so.
    child<QLineEdit>("logFilePathText")->setText(QStringLiteral("/dev/full"));
    const ExpectWarning warning("stopped");
    button("logStartStopButton")->click();
    EVENTUALLY_COMPARE(boxes().size(), 1);
    QVERIFY2(boxes().constFirst()->informativeText().startsWith(QStringLiteral("/dev/full: ")),
             qPrintable(boxes().constFirst()->informativeText()));
    QVERIFY(!button("logStartStopButton")->isChecked());
}

void TestMainWindow::languageChangeLosesNothing()
{
    start(3);
    EVENTUALLY(button("ldbResetButton")->isEnabled());
    clickRow(QStringLiteral("0A"));
    EVENTUALLY_COMPARE(detail(0), QStringLiteral("0A"));
    child<QLineEdit>("logFilePathText")->setText(m_sandbox->path(QStringLiteral("log.csv")));
    button("logStartStopButton")->click();
    overview()->horizontalHeader()->resizeSection(2, 222);

    Brackets language;
    QCoreApplication::installTranslator(&language);
    EVENTUALLY_COMPARE(button("startButton")->text(), QStringLiteral("<Stop>"));
    QCOMPARE(button("logStartStopButton")->text(), QStringLiteral("<Stop>"));
    QCOMPARE(button("reloadDevicesButton")->text(), QStringLiteral("<&Reload Devices>"));
    QCOMPARE(label("countLabel"), QStringLiteral("<Available LDB's: 3.>"));
    QVERIFY(label("queueLabel").startsWith(QStringLiteral("<Serial commands in queue: >")));
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Tavro Cordex Sniffer Version 2.2"));
    QVERIFY(child<QLabel>("lampALabel")->toolTip().contains(QLatin1Char('<')));
    QCOMPARE(detail(0), QStringLiteral("0A"));
    QCOMPARE(overview()->horizontalHeader()->sectionSize(2), 222);
    QVERIFY(button("logStartStopButton")->isChecked());
    QVERIFY(!child<QLineEdit>("logFilePathText")->isEnabled());

    QCoreApplication::removeTranslator(&language);
    EVENTUALLY_COMPARE(button("startButton")->text(), QStringLiteral("Stop"));
    QCOMPARE(rows(), 3);
}

void TestMainWindow::layoutComesBack()
{
    start(3);
    m_window->resize(1300, 700);
    QCoreApplication::processEvents();
    child<QSplitter>("deviceOverviewAndPlotSplitter")->setSizes({400, 150});
    child<QSplitter>("leftAndRightSplitter")->setSizes({420, 700});
    overview()->horizontalHeader()->resizeSection(2, 222);
    const QList<int> overviewAndPlot = child<QSplitter>("deviceOverviewAndPlotSplitter")->sizes();
    const QList<int> leftAndRight = child<QSplitter>("leftAndRightSplitter")->sizes();
    QVERIFY(m_window->close());
    m_window.reset();

    makeBus();
    start(3);
    QCOMPARE(m_window->size(), QSize(1300, 700));
    QCOMPARE(child<QSplitter>("deviceOverviewAndPlotSplitter")->sizes(), overviewAndPlot);
    QCOMPARE(child<QSplitter>("leftAndRightSplitter")->sizes(), leftAndRight);
    QCOMPARE(overview()->horizontalHeader()->sectionSize(2), 222);
    QVERIFY(overview()->isColumnHidden(0));
}

void TestMainWindow::failedImport()
{
    start(3);
    EVENTUALLY(button("importDeviceSettingsButton")->isEnabled());
    m_sandbox->writeFile(QStringLiteral("list.csv"), "05;Not there;1;1;10;1;0;0;1;20;x\n");
    button("importDeviceSettingsButton")->click();
    auto* dialog = m_window->findChild<QDialog*>(QString(), Qt::FindDirectChildrenOnly);
    QList<QDialog*> dialogs = m_window->findChildren<QDialog*>();
    for (QDialog* candidate : dialogs) {
        if (candidate->inherits("QFileDialog")) {
            dialog = candidate;
        }
    }
    QCOMPARE(dialog->windowTitle(), QStringLiteral("Select File"));
    emit qobject_cast<QFileDialog*>(dialog)->fileSelected(
        m_sandbox->path(QStringLiteral("list.csv")));
    dialog->close();

    EVENTUALLY_COMPARE(boxes().size(), 1);
    QCOMPARE(boxes().constFirst()->text(),
             QStringLiteral("Importing LDB settings failed, not all LDB's' are connected!"));
    QVERIFY2(boxes().constFirst()->informativeText().contains(QStringLiteral("05")),
             qPrintable(boxes().constFirst()->informativeText()));
    QCOMPARE(m_window->statusBar()->currentMessage(),
             QStringLiteral("Importing LDB settings failed, not all LDB's are connected"));
    QVERIFY(!child<QProgressBar>("progressBar")->isVisible());
    QVERIFY(button("ldbResetButton")->isEnabled());
}

void TestMainWindow::closesWhileCommandsWait()
{
    constexpr int kLimitMs = 2000;
    start(3);
    EVENTUALLY(button("ldbResetButton")->isEnabled());
    m_bus->setPresent({});
    for (int i = 0; i < 20; ++i) {
        button("ldbResetButton")->click();
    }
    EVENTUALLY_COMPARE(label("queueLabel"), QStringLiteral("Serial commands in queue: 20"));
    QElapsedTimer timer;
    timer.start();
    QVERIFY(m_window->close());
    m_window.reset();
    QVERIFY2(timer.elapsed() < kLimitMs, qPrintable(QString::number(timer.elapsed())));
}

QTEST_MAIN(TestMainWindow)

#include "tst_mainwindow.moc"
