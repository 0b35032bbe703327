#include "app/notices/messagebox.h"
#include "app/preferences/settingsmenu.h"
#include "app/shared/usersettings.h"
#include "app/window/mainwindow.h"
#include "app/window/windowlook.h"
#include "tests/support/bracketingtranslator.h"
#include "tests/support/sandbox.h"
#include "tests/support/testbus.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"
#include "tracking/faultfinding/fimtracking.h"

#include <QtWidgets>

#include <memory>

namespace {

const QStringList kLdbs{QStringLiteral("03"), QStringLiteral("0A"), QStringLiteral("FD")};
constexpr int kIdColumn = 1;
const QString kAllAnswer = QStringLiteral("Monitored: 3 LDBs answer.");
const QString kFailed = QStringLiteral("Serial communication failed.");

} // namespace

class TestMainWindow : public TestCase
{
    Q_OBJECT
private slots:
    void init() override;
    void cleanup() override;

    void startsAndStops();
    void reloadKeepsTheTick();
    void cutLine();
    void cutLineEndsAnAction();
    void otherPort();
    void lostLdb_data();
    void lostLdb();
    void serviceModeSendsNothing();
    void actions_data();
    void actions();
    void trackingPollsOneLdb();
    void lampIsTwoClicksFromItsCause();
    void logsWhatIsPolled();
    void languageChangeLosesNothing();
    void layoutComesBack_data();
    void layoutComesBack();
    void closesWhileCommandsWait();

private:
    void makeWindow();
    void start();
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
    /// Of the LDBs that have a row, in the order of their addresses.
    QStringList ids() const
    {
        QStringList found;
        for (int row = 0; row < rows(); ++row) {
            found.append(overview()->model()->index(row, kIdColumn).data().toString());
        }
        found.sort();
        return found;
    }
    QList<MessageBox*> boxes() const { return m_window->findChildren<MessageBox*>(); }
    QString detail(int row) const
    {
        return child<QTableView>("deviceDetailTableView")->model()->index(row, 1).data().toString();
    }
    void clickRow(const QString& hexId);

    std::unique_ptr<Sandbox> m_sandbox;
    std::unique_ptr<TestBus> m_bus;
    std::unique_ptr<MainWindow> m_window;
};

void TestMainWindow::init()
{
    TestCase::init();
    m_sandbox = std::make_unique<Sandbox>();
    m_bus = std::make_unique<TestBus>(kLdbs);
    userSettings().setValue(constants::kComPortKey, m_bus->portName());
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
    m_window = std::make_unique<MainWindow>(m_bus->ports());
    m_window->show();
}

void TestMainWindow::start()
{
    makeWindow();
    button("startButton")->click();
    WAIT_COMPARE(ids(), kLdbs);
}

void TestMainWindow::clickRow(const QString& hexId)
{
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
    QCOMPARE(m_window->windowTitle(),
             QStringLiteral("Tavro Cordex Sniffer Version " APPLICATION_VERSION));
    QVERIFY(!button("ldbResetButton")->isEnabled());
    QVERIFY(button("reloadDevicesButton")->isEnabled());

    button("startButton")->click();
    QCOMPARE(button("startButton")->text(), QStringLiteral("Stop"));
    QVERIFY(!button("reloadDevicesButton")->isEnabled());
    WAIT_VERIFY(child<QProgressBar>("progressBar")->isVisible());
    QVERIFY(m_window->statusBar()->currentMessage().startsWith(
        QStringLiteral("Scanning for connected LDB's...  LDB's Checked ")));

    WAIT_COMPARE(rows(), 3);
    QCOMPARE(label("countLabel"), QStringLiteral("Available LDB's: 3."));
    QVERIFY(!child<QProgressBar>("progressBar")->isVisible());
    WAIT_COMPARE(detail(0), QStringLiteral("03"));
    WAIT_VERIFY(button("ldbResetButton")->isEnabled());
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

void TestMainWindow::reloadKeepsTheTick()
{
    start();
    clickRow(QStringLiteral("FD"));
    WAIT_COMPARE(detail(0), QStringLiteral("FD"));

    m_bus->setPresent({QStringLiteral("03"), QStringLiteral("FD")});
    button("reloadDevicesButton")->click();
    QCOMPARE(label("countLabel"), QStringLiteral("Loading LDB device list..."));
    QVERIFY(!button("ldbResetButton")->isEnabled());
    WAIT_COMPARE(label("countLabel"), QStringLiteral("2 of 3 answer, 1 lost."));
    QCOMPARE(rows(), 3);
    WAIT_VERIFY(button("ldbResetButton")->isEnabled());
    m_bus->clearRequests();
    button("ldbResetButton")->click();
    WAIT_VERIFY(m_bus->requests().contains("FEFD73780001"));
}

void TestMainWindow::cutLine()
{
    start();
    const ExpectWarning warning("^Port ");
    m_bus->cut();
    WAIT_COMPARE(boxes().size(), 1);
    QVERIFY(!button("startButton")->isChecked());
    QCOMPARE(label("countLabel"), kFailed);
    QVERIFY(!button("ldbResetButton")->isEnabled());
    QCoreApplication::processEvents();
    QCOMPARE(boxes().size(), 1);

    // And works again when the line does.
    m_bus->restore();
    button("startButton")->click();
    WAIT_VERIFY(button("ldbResetButton")->isEnabled());
    QCOMPARE(label("countLabel"), QStringLiteral("Available LDB's: 3."));
}

void TestMainWindow::cutLineEndsAnAction()
{
    start();
    WAIT_VERIFY(button("ldbResetButton")->isEnabled());
    m_bus->setScript([this](const QByteArray& request) -> std::optional<QByteArray> {
        if (request != "FE0373780001") {
            return std::nullopt;
        }
        m_bus->cut();
        return QByteArray();
    });
    const ExpectWarning warning("^Port ");
    button("ldbResetButton")->click();
    WAIT_COMPARE(boxes().size(), 1);
    QCOMPARE(m_window->statusBar()->currentMessage(),
             QStringLiteral("LDB 03 did not answer: LDB reset."));
}

void TestMainWindow::otherPort()
{
    userSettings().setValue(constants::kComPortKey, m_sandbox->path(QStringLiteral("gone")));
    makeWindow();
    {
        const ExpectWarning warning("^Port ");
        button("startButton")->click();
        WAIT_COMPARE(label("countLabel"), kFailed);
    }
    // Another port starts the link, and only its success takes the failure off the screen.
    emit m_window->findChild<SettingsMenu*>()->comPortUpdated(m_bus->portName());
    QVERIFY(button("startButton")->isChecked());
    WAIT_COMPARE(rows(), 3);
    QCOMPARE(label("countLabel"), QStringLiteral("Available LDB's: 3."));

    // So does one chosen while the link runs.
    m_bus->setPresent({QStringLiteral("77")});
    m_bus->setPortName(QStringLiteral("another port"));
    emit m_window->findChild<SettingsMenu*>()->comPortUpdated(m_bus->portName());
    WAIT_COMPARE(rows(), 1);
    QCOMPARE(label("countLabel"), QStringLiteral("Available LDB's: 1."));
}

void TestMainWindow::lostLdb_data()
{
    addColumns<QString, bool>("lost", "actionsStay");
    QTest::newRow("the ticked one") << QStringLiteral("03") << false;
    QTest::newRow("another one") << QStringLiteral("0A") << true;
}

void TestMainWindow::lostLdb()
{
    QFETCH(QString, lost);
    QFETCH(bool, actionsStay);
    m_sandbox->writeTuning("[SerialSettings]\nDISCONNECTED_COUNT=0\n");
    start();
    WAIT_VERIFY(button("ldbResetButton")->isEnabled());

    // All have answered by now: one that never did is no loss.
    WAIT_VERIFY(m_bus->requests().contains("FEFD737804"));
    QStringList others = kLdbs;
    others.removeAll(lost);
    m_bus->setPresent(others);
    WAIT_COMPARE(boxes().size(), 1);
    QCOMPARE(boxes().constFirst()->text(),
             QStringLiteral("The LDB with ID: %1 (LDB %1) is disconnected!").arg(lost));
    QCOMPARE(button("ldbResetButton")->isEnabled(), actionsStay);
    QCOMPARE(button("allLdbResetButton")->isEnabled(), actionsStay);

    // It comes back by itself, and with it what can be done with it.
    m_bus->setPresent(kLdbs);
    m_bus->clearRequests();
    WAIT_VERIFY(m_bus->requests().contains("FE" + lost.toLatin1() + "737803"));
    WAIT_VERIFY(button("ldbResetButton")->isEnabled());
    QCOMPARE(boxes().size(), 1);
}

void TestMainWindow::serviceModeSendsNothing()
{
    constexpr int kServiceMode = 30;
    QByteArray status = TestBus::status();
    m_bus->setScript([&status](const QByteArray& body) -> std::optional<QByteArray> {
        return body == "FE03737803" ? std::make_optional(TestBus::framed(status)) : std::nullopt;
    });
    start();
    WAIT_VERIFY(button("serviceModeButton")->isEnabled());

    status = TestBus::status(kServiceMode);
    WAIT_VERIFY(!button("serviceModeButton")->isEnabled());
    QVERIFY(!button("fimTrackingButton")->isEnabled());
    QVERIFY(button("fimResetButton")->isEnabled());
    QVERIFY(button("ldbResetButton")->isEnabled());
    QVERIFY(button("allServiceModeButton")->isEnabled());

    status = TestBus::status();
    WAIT_VERIFY(button("serviceModeButton")->isEnabled());
    for (const QByteArray& request : m_bus->requests()) {
        QVERIFY2(!request.mid(4).startsWith("737800"), request.constData());
    }
}

void TestMainWindow::actions_data()
{
    addColumns<QByteArray, QByteArray, QByteArray, QString>("buttonName", "body", "answer",
                                                            "report");
    const auto row = [](const char* tag, const char* buttonName, const char* body,
                        const char* answer, const char* report) {
        QTest::newRow(tag) << QByteArray(buttonName) << QByteArray(body) << QByteArray(answer)
                           << QString::fromLatin1(report);
    };
    row("FIM reset, accepted", "fimResetButton", "FE0373780000", "\x06",
        "LDB 03 accepted: FIM reset.");
    row("LDB reset, refused", "ldbResetButton", "FE0373780001", "\x15",
        "LDB 03 refused: LDB reset.");
    row("service mode, unanswered", "serviceModeButton", "FE0373780003", "",
        "LDB 03 did not answer: Service mode.");
    row("FIM reset, all", "allFimResetButton", "FEFF73780000", "", "Sent to all LDB's: FIM reset.");
    row("LDB reset, all", "allLdbResetButton", "FEFF73780001", "", "Sent to all LDB's: LDB reset.");
    row("service mode, all", "allServiceModeButton", "FEFF73780003", "",
        "Sent to all LDB's: Service mode.");
}

void TestMainWindow::actions()
{
    QFETCH(QByteArray, buttonName);
    QFETCH(QByteArray, body);
    QFETCH(QByteArray, answer);
    QFETCH(QString, report);
    start();
    WAIT_VERIFY(button("ldbResetButton")->isEnabled());
    m_bus->setScript([&body, &answer](const QByteArray& request) {
        return request == body ? std::make_optional(answer) : std::nullopt;
    });
    button(buttonName.constData())->click();
    WAIT_COMPARE(m_window->statusBar()->currentMessage(), report);
    QVERIFY(m_bus->requests().contains(body));
}

void TestMainWindow::trackingPollsOneLdb()
{
    start();
    WAIT_VERIFY(button("fimTrackingButton")->isEnabled());
    clickRow(QStringLiteral("0A"));
    WAIT_COMPARE(detail(0), QStringLiteral("0A"));
    button("fimTrackingButton")->click();
    WAIT_COMPARE(label("monitoringLabel"), QStringLiteral("Only LDB 0A is polled."));
    auto* tracking = m_window->findChild<FimTracking*>();
    QVERIFY(tracking != nullptr);
    QVERIFY(tracking->isVisible());

    tracking->close();
    WAIT_COMPARE(label("monitoringLabel"), kAllAnswer);
    m_bus->clearRequests();
    WAIT_VERIFY(m_bus->requests().contains("FEFD737803"));
}

void TestMainWindow::lampIsTwoClicksFromItsCause()
{
    constexpr int kServiceMode = 30;
    m_bus->setScript([](const QByteArray& body) -> std::optional<QByteArray> {
        return body == "FEFD737803"
                   ? std::make_optional(TestBus::framed(TestBus::status(kServiceMode)))
                   : std::nullopt;
    });
    start();
    child<QTabWidget>("controlTabs")->setCurrentIndex(1);
    QTest::mouseClick(child<QLabel>("lampALabel"), Qt::LeftButton);
    auto* causes = child<QListWidget>("lampCausesA");
    WAIT_VERIFY(causes->isVisible());
    WAIT_VERIFY(causes->count() == 1 && causes->item(0)->text().startsWith(QStringLiteral("FD")));
    QTest::mouseClick(causes->viewport(), Qt::LeftButton, Qt::NoModifier,
                      causes->visualItemRect(causes->item(0)).center());
    WAIT_COMPARE(detail(0), QStringLiteral("FD"));
}

void TestMainWindow::logsWhatIsPolled()
{
    start();
    const QString path = m_sandbox->path(QStringLiteral("log.csv"));
    child<QLineEdit>("logFilePathText")->setText(path);
    button("logStartStopButton")->click();
    QVERIFY(!child<QTabWidget>("controlTabs")->tabIcon(2).isNull());
    WAIT_VERIFY(Sandbox::readFile(path).contains("\nFD;"));
    button("logStartStopButton")->click();
    QVERIFY(child<QTabWidget>("controlTabs")->tabIcon(2).isNull());

    // A log that cannot go on says so.
    child<QLineEdit>("logFilePathText")->setText(QStringLiteral("/dev/full"));
    const ExpectWarning warning("stopped");
    button("logStartStopButton")->click();
    WAIT_COMPARE(boxes().size(), 1);
    QVERIFY2(boxes().constFirst()->informativeText().startsWith(QStringLiteral("/dev/full: ")),
             qPrintable(boxes().constFirst()->informativeText()));
    QVERIFY(!button("logStartStopButton")->isChecked());
    QVERIFY(child<QLineEdit>("logFilePathText")->isEnabled());
}

void TestMainWindow::languageChangeLosesNothing()
{
    start();
    WAIT_VERIFY(button("ldbResetButton")->isEnabled());
    clickRow(QStringLiteral("0A"));
    WAIT_COMPARE(detail(0), QStringLiteral("0A"));
    child<QLineEdit>("logFilePathText")->setText(m_sandbox->path(QStringLiteral("log.csv")));
    button("logStartStopButton")->click();
    overview()->horizontalHeader()->resizeSection(2, 222);

    auto language = std::make_unique<BracketingTranslator>();
    WAIT_COMPARE(button("startButton")->text(), QStringLiteral("[Stop]"));
    QCOMPARE(button("logStartStopButton")->text(), QStringLiteral("[Stop]"));
    QCOMPARE(button("reloadDevicesButton")->text(), QStringLiteral("[&Reload Devices]"));
    QCOMPARE(label("countLabel"), QStringLiteral("[Available LDB's: 3.]"));
    QVERIFY(label("queueLabel").startsWith(QStringLiteral("[Serial commands in queue: ]")));
    QVERIFY(child<QLabel>("lampALabel")->toolTip().contains(QLatin1Char('[')));
    QCOMPARE(detail(0), QStringLiteral("0A"));
    QCOMPARE(overview()->horizontalHeader()->sectionSize(2), 222);
    QVERIFY(button("logStartStopButton")->isChecked());

    language.reset();
    WAIT_COMPARE(button("startButton")->text(), QStringLiteral("Stop"));
    QCOMPARE(rows(), 3);
}

void TestMainWindow::layoutComesBack_data()
{
    addColumns<QRect, bool>("savedScreens", "placeComesBack");
    const QRect screens = QGuiApplication::primaryScreen()->virtualGeometry();
    QTest::newRow("same screens") << screens << true;
    QTest::newRow("one screen less") << screens.adjusted(0, 0, 1920, 0) << false;
    QTest::newRow("no screens stored") << QRect() << false;
}

void TestMainWindow::layoutComesBack()
{
    QFETCH(QRect, savedScreens);
    QFETCH(bool, placeComesBack);
    const QList<const char*> splitters{"deviceOverviewAndPlotSplitter", "leftAndRightSplitter",
                                       "plotAndDetailSplitter"};
    const auto positions = [this, &splitters] {
        QList<int> found;
        for (const char* name : splitters) {
            found.append(child<QSplitter>(name)->sizes().constFirst());
        }
        return found;
    };
    start();
    const QSize firstSize = m_window->size();
    m_window->resize(1300, 700);
    QCoreApplication::processEvents();
    const QList<int> formerPositions = positions();
    for (const char* name : splitters) {
        const QList<int> sizes = child<QSplitter>(name)->sizes();
        child<QSplitter>(name)->setSizes({sizes.at(0) + 60, sizes.at(1) - 60});
    }
    QCoreApplication::processEvents();
    const QList<int> movedPositions = positions();
    overview()->horizontalHeader()->resizeSection(2, 222);
    QVERIFY(m_window->close());
    // Layouts saved by earlier versions are found under these very names.
    for (const char* key :
         {"position/geometry", "position/windowState", "position/leftAndRightLayoutSplitter",
          "position/deviceOverviewAndPLotSplitter"}) {
        QVERIFY2(userSettings().contains(QLatin1String(key)), key);
    }
    userSettings().setValue(QStringLiteral("position/screenGeometry"), savedScreens);

    m_window.reset();
    start();
    QCOMPARE(m_window->size(), placeComesBack ? QSize(1300, 700) : firstSize);
    m_window->resize(1300, 700);
    QCoreApplication::processEvents();
    constexpr int kRounding = 5;
    for (int i = 0; i < splitters.size(); ++i) {
        QVERIFY2(qAbs(movedPositions.at(i) - formerPositions.at(i)) > 2 * kRounding,
                 splitters.at(i));
        QVERIFY2(qAbs(positions().at(i) - movedPositions.at(i)) < kRounding, splitters.at(i));
    }
    QCOMPARE(overview()->horizontalHeader()->sectionSize(2), 222);
    QVERIFY(overview()->isColumnHidden(0));
}

void TestMainWindow::closesWhileCommandsWait()
{
    start();
    WAIT_VERIFY(button("ldbResetButton")->isEnabled());
    m_bus->setPresent({});
    for (int i = 0; i < 20; ++i) {
        button("ldbResetButton")->click();
    }
    WAIT_COMPARE(label("queueLabel"), QStringLiteral("Serial commands in queue: 20"));
    const qint64 now = VirtualTime::current()->now();
    QVERIFY(m_window->close());
    m_window.reset();
    QCOMPARE(VirtualTime::current()->now(), now); // waits for none of them
}

REGISTER_TEST(TestMainWindow, InVirtualTime<QApplication>)

#include "tst_mainwindow.moc"
