#include "app/shared/constants.h"
#include "tests/support/sandbox.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"
#include "tests/support/virtualtime.h"
#include "tests/tracking/modelldb.h"
#include "tests/tracking/plotinspection.h"
#include "tracking/faultfinding/alarmsound.h"
#include "tracking/faultfinding/fimtracking.h"
#include "tracking/faultfinding/sidepanel.h"
#include "tracking/faultfinding/startquestions.h"
#include "tracking/faultfinding/trackingtexts.h"
#include "tracking/plot/plot.h"

#include <QApplication>
#include <QClipboard>
#include <QLCDNumber>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <qwt_plot_curve.h>

using Phase = TrackingRun::Phase;
Q_DECLARE_METATYPE(Phase)

namespace {

using namespace modelldb;

constexpr qint64 kSecond = 1000;
constexpr qint64 kLongerThanAnyTimer = 150 * kSecond;
constexpr qint64 kHour = 3600 * kSecond;

QList<QMessageBox*> openBoxes(const QWidget* over)
{
    QList<QMessageBox*> boxes;
    for (auto* box : over->findChildren<QMessageBox*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (box->isVisible()) {
            boxes.append(box);
        }
    }
    return boxes;
}

QStringList boxTexts(const QWidget* over)
{
    QStringList texts;
    for (const QMessageBox* box : openBoxes(over)) {
        texts.append(box->text());
    }
    return texts;
}

/// Deletes what has asked for it, which without a running event loop nobody else does.
void deletePending()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// The window over a model LDB, and what a user does with it.
struct Bench
{
    explicit Bench(const LoopPlan& plan = healthyLoop(4))
        : ldb(std::make_shared<ModelLdb>(plan))
    {
        mainWindow.setGeometry(0, 0, 1366, 768);
        mainWindow.show();
        window = new FimTracking(ldb, &mainWindow);
        // Painting hours of curves would be most of the tests' time.
        setPlotsVisible(false);
    }

    void setPlotsVisible(bool visible) const
    {
        for (Plot* plot : window->findChildren<Plot*>()) {
            plot->setVisible(visible);
        }
    }
    static void press(const QWidget* box, const QString& text)
    {
        for (auto* button : box->findChildren<QPushButton*>()) {
            if (button->text().remove(QLatin1Char('&')) == text) {
                button->click();
                VirtualTime::current()->advance(0);
                return;
            }
        }
        QFAIL(qPrintable(QStringLiteral("no button ") + text));
    }
    QMessageBox* question() const
    {
        VirtualTime::current()->advance(1);
        const QList<QMessageBox*> boxes = openBoxes(window);
        return boxes.size() == 1 ? boxes.first() : nullptr;
    }
    /// Answers the questions.
    void choose(const QString& mode)
    {
        QVERIFY(question());
        press(question(), QStringLiteral("Yes"));
        QVERIFY(question());
        press(question(), mode);
    }
    void choose() { choose(QStringLiteral("Commissioning")); }

    void closeBoxes()
    {
        for (QMessageBox* box : openBoxes(window)) {
            box->close();
        }
        deletePending();
    }
    bool reach(Phase phase)
    {
        for (qint64 gone = 0; window->run().phase() != phase && gone < kHour; gone += 250) {
            VirtualTime::current()->advance(250);
        }
        return window->run().phase() == phase;
    }
    void reportState(int state)
    {
        ldb->setState(static_cast<LdbState>(state));
        ldb->report();
    }

    template <typename T>
    T* find(const char* name) const
    {
        return window->findChild<T*>(QString::fromLatin1(name));
    }
    QString label(const char* name) const { return find<QLabel>(name)->text(); }
    /// The text of a side's label, empty while it is hidden.
    QString sideLabel(int ldbPort, const char* name) const
    {
        const auto* found = sidePanel(ldbPort)->findChild<QLabel*>(QString::fromLatin1(name));
        return found->isHidden() ? QString() : found->text();
    }
    /// Whether a side's plot shows currents up to its edge, the newest moment.
    bool hasCurve(int ldbPort) const
    {
        const SidePanel* panel = sidePanel(ldbPort);
        return plotinspection::columnShows(
            *panel, plotinspection::chartOf(*panel)->canvas()->width() - 4, Qt::cyan);
    }
    SidePanel* sidePanel(int ldbPort) const
    {
        return find<SidePanel>(ldbPort == PrimaryPort ? "primarySidePanel" : "secondarySidePanel");
    }
    QPushButton* startButton() const { return find<QPushButton>("startButton"); }

    Sandbox sandbox;
    QWidget mainWindow;
    std::shared_ptr<ModelLdb> ldb;
    QPointer<FimTracking> window; // the main window's child, deletes itself when closed
};

} // namespace

class TestFimTracking : public TestCase
{
    Q_OBJECT
private slots:
    void opensOverItsParentAndAsks();
    void sayingNoSendsNothing();
    void commissioningToTheReport();
    void faultFindingAsksToDisconnect();
    void countdownTurnsRed();
    void timesOfEachPhase();
    void endsInEveryPhase_data();
    void endsInEveryPhase();
    void alarmSoundsUntilTheBoxesAreClosed();
    void eachFaultHasOneBoxThatStopsNothing();
    void onlyItsOwnRecords();
    void commandsNotObeyed();
    void lostAcknowledgements_data();
    void lostAcknowledgements();
    void closingTellsOfAnLdbThatStaysMuted_data();
    void closingTellsOfAnLdbThatStaysMuted();
    void runsAgain();
    void withoutAConnection();
    void loopResults();
};

void TestFimTracking::opensOverItsParentAndAsks()
{
    const Bench bench;
    QCOMPARE(bench.window->windowModality(), Qt::ApplicationModal);
    QCOMPARE(bench.window->geometry(), bench.mainWindow.geometry().adjusted(100, 50, -100, -50));
    QVERIFY(bench.ldb->isPolledAlone());
    QVERIFY2(openBoxes(bench.window).isEmpty(), "nothing is asked before the maker has the window");
    QCOMPARE(bench.label("phaseLabel"), QStringLiteral("idle"));

    const QMessageBox* box = bench.question();
    QVERIFY(box);
    QCOMPARE(box->text(), QStringLiteral("This action will start a factory reset. \n"
                                         "Are you sure you want to do this?"));
    QCOMPARE(bench.startButton()->text(), QStringLiteral("Stop"));
    QCOMPARE(bench.label("phaseLabel"), QStringLiteral("confirmation"));
    QVERIFY(bench.ldb->commands().isEmpty());
}

void TestFimTracking::sayingNoSendsNothing()
{
    // Nothing in an answer's place: the box is closed.
    for (const char* answers : {"No", "", "Yes Cancel", "Yes "}) {
        const Bench bench;
        for (const QString& answer : QString(answers).split(' ')) {
            QVERIFY2(bench.question(), answers);
            if (answer.isEmpty()) {
                bench.question()->close();
            } else {
                Bench::press(bench.question(), answer);
            }
        }
        QVERIFY2(!bench.question(), answers);
        QCOMPARE(bench.startButton()->text(), QStringLiteral("Start"));
        QCOMPARE(bench.label("phaseLabel"), QStringLiteral("idle"));
        VirtualTime::current()->advance(kLongerThanAnyTimer);
        QVERIFY2(bench.ldb->commands().isEmpty(), answers);
    }
}

void TestFimTracking::commissioningToTheReport()
{
    LoopPlan plan = healthyLoop(8);
    plan.shortAfter = 2;
    plan.openAfter = 3;
    plan.earthLeakageAfter = 6;
    Bench bench(plan);
    bench.choose();
    QCOMPARE(bench.label("phaseLabel"), QStringLiteral("waiting for the factory reset"));
    QVERIFY(bench.reach(Phase::Rebooting));
    QCOMPARE(bench.label("phaseLabel"), QStringLiteral("rebooting"));
    QCOMPARE(bench.label("nameLabel"), QStringLiteral("Name: Boiler house"));
    QCOMPARE(bench.label("modeLabel"), QStringLiteral("Mode: Factory reset done"));
    QCOMPARE(bench.label("earthLabel"), QStringLiteral("Earth: Ok"));
    QVERIFY(!bench.find<QPushButton>("zoomButton")->isEnabled());
    QVERIFY(bench.reach(Phase::Counting));
    QCOMPARE(bench.label("phaseLabel"), QStringLiteral("counting"));
    QCOMPARE(bench.ldb->commands(), (QList<QByteArray>{kFactoryReset, kLdbReset, kMute}));

    auto* zoomButton = bench.find<QPushButton>("zoomButton");
    QVERIFY(zoomButton->isEnabled());
    zoomButton->click();
    QCOMPARE(zoomButton->text(), QStringLiteral("Zoom Out"));
    zoomButton->click();
    QVERIFY(!bench.find<QPushButton>("copyReportButton")->isEnabled());

    QVERIFY(bench.reach(Phase::Finished));
    QCOMPARE(bench.label("phaseLabel"), QStringLiteral("finished"));
    QVERIFY(!bench.startButton()->isChecked());
    QCOMPARE(bench.sideLabel(PrimaryPort, "countLabel"), QStringLiteral("2"));
    QCOMPARE(bench.sideLabel(SecondaryPort, "countLabel"), QStringLiteral("5"));
    QCOMPARE(bench.sideLabel(PrimaryPort, "sideResultLabel"),
             QStringLiteral("Timeout: Short Detected"));
    QCOMPARE(bench.sideLabel(SecondaryPort, "sideResultLabel"),
             QStringLiteral("Timeout: Open Detected"));
    const QString result =
        QStringLiteral("Total FIM Count: 7  |||  "
                       "Primary side short detected and Secondary side open detected.");
    QCOMPARE(bench.label("resultLabel"), result);
    // The second FIM of the secondary side: its first is not counted yet.
    QCOMPARE(bench.sideLabel(SecondaryPort, "earthPositionLabel"),
             QStringLiteral("Earth Leakage Detected: approximately at FIM: 2"));

    bench.closeBoxes();
    bench.setPlotsVisible(true);
    VirtualTime::current()->advance(1);
    QVERIFY(bench.hasCurve(PrimaryPort) && bench.hasCurve(SecondaryPort));
    const SidePanel* panel = bench.sidePanel(PrimaryPort);
    QVERIFY(plotinspection::curveOf(*panel, "PriCurr")->maxYValue() < 10.0); // mA
    bench.find<QPushButton>("copyReportButton")->click();
    const QStringList report = QApplication::clipboard()->text().split(QLatin1Char('\n'));
    for (const char* line :
         {"LDB: 0A", "Name: Boiler house", "Tracking mode: Commissioning",
          "Primary side: FIM count 2, Timeout: Short Detected",
          "Secondary side: FIM count 5, Timeout: Open Detected", "Earth Leakage Detected!",
          " Secondary Side approximately at FIM: 2"}) {
        QVERIFY2(report.contains(QString::fromLatin1(line)), line);
    }
    QVERIFY(report.contains(QStringLiteral("Result: ") + result));
    QVERIFY(!report.filter(QStringLiteral("Time: 20")).isEmpty());
}

void TestFimTracking::faultFindingAsksToDisconnect()
{
    LoopPlan plan = healthyLoop(3);
    plan.secondaryConnected = false;
    plan.dcLeakageAfter = 2;
    Bench bench(plan);
    bench.choose(QStringLiteral("Fault Finding"));
    auto* dialog = bench.window->findChild<DisconnectSecondaryPortDialog*>();
    QVERIFY(dialog && dialog->isVisible());
    VirtualTime::current()->advance(10 * kSecond);
    QVERIFY(bench.ldb->commands().isEmpty());
    Bench::press(dialog, QStringLiteral("OK"));

    QVERIFY(bench.reach(Phase::Finished));
    QCOMPARE(bench.label("resultLabel"),
             QStringLiteral("Total FIM Count: 3  |||  Primary side open detected"));
    QCOMPARE(bench.sideLabel(SecondaryPort, "remainingLabel"), QStringLiteral("not tracked"));
    const QStringList told{
        QStringLiteral("Loop DC Leakage Detected!\n\n Primary Side approximately at FIM: 2"),
        QStringLiteral("Primary side open detected.")};
    QCOMPARE(boxTexts(bench.window), told);
    QCOMPARE(bench.sideLabel(PrimaryPort, "leakagePositionLabel"),
             QStringLiteral("Loop DC Leakage Detected: approximately at FIM: 2"));
    bench.setPlotsVisible(true);
    VirtualTime::current()->advance(1);
    QVERIFY(bench.hasCurve(PrimaryPort) && !bench.hasCurve(SecondaryPort));
    QVERIFY(bench.window->reportText().contains(
        QStringLiteral("Secondary side: FIM count 0, not tracked")));
}

void TestFimTracking::countdownTurnsRed()
{
    Bench bench;
    bench.choose();
    VirtualTime::current()->advance(1 * kSecond);
    bench.ldb->setReporting(false); // the reset takes longer than it should
    const auto* digits = bench.find<QLCDNumber>("countdownLcdNumber");
    QVERIFY(digits->isVisible());
    for (int shown : {120, 11, 10, 0}) {
        VirtualTime::current()->advance((digits->intValue() - shown) * kSecond);
        QCOMPARE(digits->intValue(), shown);
        const QColor expected = shown <= 10 ? Qt::red : Qt::black;
        for (auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            QCOMPARE(digits->palette().color(group, QPalette::WindowText), expected);
        }
    }

    bench.reportState(52);
    QVERIFY(!digits->isVisible());
    // A further run starts from black again.
    bench.startButton()->click();
    bench.startButton()->click();
    bench.choose();
    bench.reportState(10);
    bench.reportState(50);
    QVERIFY(digits->isVisible());
    QCOMPARE(digits->intValue(), 130);
    QCOMPARE(digits->palette().color(QPalette::WindowText), QColor(Qt::black));
}

void TestFimTracking::timesOfEachPhase()
{
    Bench bench;
    const auto time = [&bench] {
        return bench.label("phaseTimeLabel");
    };
    QVERIFY(bench.question());
    bench.choose();
    bench.ldb->setReporting(false);
    VirtualTime::current()->advance(3 * kSecond + 250);
    QCOMPARE(time(), QStringLiteral("3 s gone")); // a silent LDB does not look like a hung window
    bench.reportState(10);
    bench.reportState(50);
    QCOMPARE(time(), QStringLiteral("130 s left"));
    bench.reportState(52);
    VirtualTime::current()->advance(20 * kSecond);
    bench.reportState(0);
    QCOMPARE(time(), QStringLiteral("0 s gone"));
    QCOMPARE(bench.sideLabel(PrimaryPort, "remainingLabel"),
             QStringLiteral("ends in 70 s unless a FIM starts up"));
    QCOMPARE(bench.sideLabel(SecondaryPort, "remainingLabel"),
             QStringLiteral("ends in 50 s unless a FIM starts up"));
    VirtualTime::current()->advance(12 * kSecond + 250);
    QCOMPARE(bench.sideLabel(PrimaryPort, "remainingLabel"),
             QStringLiteral("ends in 58 s unless a FIM starts up"));
    bench.startButton()->click();
    QCOMPARE(time(), QString());
    QCOMPARE(bench.label("phaseLabel"), QStringLiteral("stopped"));
}

void TestFimTracking::endsInEveryPhase_data()
{
    QTest::addColumn<Phase>("phase");
    QTest::addColumn<QString>("by");
    const auto rows = [](const char* name, Phase phase, const std::vector<const char*>& ways) {
        for (const char* by : ways) {
            QTest::addRow("%s, %s", name, by) << phase << QString::fromLatin1(by);
        }
    };
    const std::vector<const char*> all{"stop", "close", "parent", "lost", "failed", "silent"};
    rows("confirmation", Phase::Confirmation, {"stop", "close", "parent", "lost"});
    rows("factory reset", Phase::FactoryReset, all);
    rows("rebooting", Phase::Rebooting, all);
    rows("counting", Phase::Counting, all);
    rows("finished", Phase::Finished, {"stop", "close", "parent"});
}

void TestFimTracking::endsInEveryPhase()
{
    QFETCH(Phase, phase);
    QFETCH(QString, by);
    const QMap<QString, QString> notices{{"lost", "The connection is lost."},
                                         {"failed", "The factory reset failed."},
                                         {"silent", "The LDB is disconnected."}};
    // At the end of the test the window goes, and with a lost LDB it cannot end the mute.
    const ExpectWarning muted("audio mute of LDB", ExpectWarning::Need::MayCome);
    auto bench = std::make_unique<Bench>();
    QVERIFY(bench->question());
    if (phase != Phase::Confirmation) {
        bench->choose();
        QVERIFY(bench->reach(phase));
        VirtualTime::current()->advance(2 * kSecond);
    }
    const std::shared_ptr<ModelLdb> ldb = bench->ldb;
    QList<QByteArray> sent = ldb->commands();
    if (by == QLatin1String("parent")) {
        bench.reset();
        sent.append(kEndMute);
    } else if (by == QLatin1String("close")) {
        bench->window->close();
        sent.append(kEndMute);
        deletePending();
        QVERIFY(!bench->window);
        QVERIFY(openBoxes(&bench->mainWindow).isEmpty());
    } else {
        if (by == QLatin1String("stop")) {
            bench->startButton()->setChecked(false);
        } else if (by == QLatin1String("lost")) {
            ldb->loseConnection();
        } else {
            bench->reportState(by == QLatin1String("failed") ? 51 : 255);
        }
        QCOMPARE(bench->startButton()->text(), QStringLiteral("Start"));
        QCOMPARE(bench->label("noticeLabel"), notices.value(by));
        if (phase != Phase::Finished) {
            QCOMPARE(bench->window->run().phase(), Phase::Idle);
            QVERIFY(!bench->window->run().isCountingDown());
            QVERIFY(bench->window->reportText().isEmpty());
        }
        bench->closeBoxes();
    }
    ldb->setState(std::nullopt);
    VirtualTime::current()->advance(kLongerThanAnyTimer);
    QCOMPARE(ldb->commands(), sent);
    const bool isWindowGone = !bench || !bench->window;
    QCOMPARE(ldb->isPolledAlone(), !isWindowGone);
    if (!isWindowGone) {
        QVERIFY(openBoxes(bench->window).isEmpty());
    }
}

void TestFimTracking::alarmSoundsUntilTheBoxesAreClosed()
{
    const ExpectWarning silent("warning sound|ecod|PulseAudio", ExpectWarning::Need::MayCome);
    LoopPlan plan = healthyLoop(4);
    plan.openAfter = 2;
    Bench bench(plan);
    const auto* sound = bench.window->findChild<AlarmSound*>();
    QVERIFY(sound);
    QSignalSpy sounded(sound, &AlarmSound::sounded);
    bench.choose();
    const auto endOfSide = [&bench](int ldbPort) {
        while (!bench.window->run().counter().isSideFinished(ldbPort)) {
            VirtualTime::current()->advance(250);
        }
    };
    endOfSide(PrimaryPort);
    VirtualTime::current()->advance(5 * kSecond);
    QVERIFY2(sounded.isEmpty(), "the user has not asked for sound");

    QSettings(constants::kOrganisationName, constants::kApplicationDisplayName)
        .setValue(constants::kAudioWarningsKey, true);
    VirtualTime::current()->advance(5 * kSecond);
    QCOMPARE(sounded.size(), 5);
    QCOMPARE(boxTexts(bench.window), QStringList{QStringLiteral("Primary side open detected.")});

    // The second alarm comes while the first box is open; closing one leaves the other's sound.
    QVERIFY(bench.reach(Phase::Finished));
    VirtualTime::current()->advance(1);
    QCOMPARE(boxTexts(bench.window).size(), 2);
    openBoxes(bench.window).first()->close();
    sounded.clear();
    VirtualTime::current()->advance(3 * kSecond);
    QCOMPARE(sounded.size(), 3);
    QCOMPARE(boxTexts(bench.window), QStringList{QStringLiteral("Secondary side open detected.")});
    bench.closeBoxes();
    sounded.clear();
    VirtualTime::current()->advance(kLongerThanAnyTimer);
    QCOMPARE(sounded.size(), 0);
}

void TestFimTracking::eachFaultHasOneBoxThatStopsNothing()
{
    LoopPlan plan = healthyLoop(8);
    plan.earthLeakageAfter = 3;
    plan.dcLeakageAfter = 5;
    Bench bench(plan);
    bench.choose();
    QVERIFY(bench.reach(Phase::Counting));
    VirtualTime::current()->advance(100 * kSecond);
    const QStringList texts = boxTexts(bench.window);
    QCOMPARE(texts.filter(QStringLiteral("Earth Leakage Detected!\n\n Primary Side")).size(), 1);
    QCOMPARE(texts.filter(QStringLiteral("Loop DC Leakage Detected!\n\n Primary Side")).size(), 1);
    QCOMPARE(texts.size(), 2);
    QVERIFY(!bench.sideLabel(PrimaryPort, "earthPositionLabel").isEmpty());
    QVERIFY(!bench.sideLabel(SecondaryPort, "leakagePositionLabel").isEmpty());

    QVERIFY(bench.reach(Phase::Finished));
    VirtualTime::current()->advance(1);
    QCOMPARE(boxTexts(bench.window).size(), 4); // nobody has closed one: the leaks, and both sides
    QVERIFY(bench.label("resultLabel").startsWith(QStringLiteral("Total FIM Count: 8  |||  ")));
}

void TestFimTracking::onlyItsOwnRecords()
{
    Bench bench;
    bench.choose();
    bench.ldb->setReporting(false);
    emit bench.ldb->generalInformationUpdated(
        QStringLiteral("0a"), {{}, {QStringLiteral("Other")}, {QStringLiteral("Mode")}});
    QCOMPARE(bench.label("nameLabel"), QStringLiteral("Name: "));
    QVERIFY(bench.ldb->commands().isEmpty());
    bench.reportState(10);
    QCOMPARE(bench.label("nameLabel"), QStringLiteral("Name: Boiler house"));
    QCOMPARE(bench.ldb->commands(), QList<QByteArray>{kFactoryReset});
}

void TestFimTracking::commandsNotObeyed()
{
    for (const bool isRefused : {true, false}) {
        Bench bench;
        bench.ldb->setAnswer(isRefused ? "\x15" : "");
        bench.choose();
        VirtualTime::current()->advance(kSecond);
        QCOMPARE(bench.window->run().phase(), isRefused ? Phase::Idle : Phase::FactoryReset);
        QCOMPARE(bench.label("noticeLabel"),
                 isRefused ? QStringLiteral("The LDB refused the factory reset.")
                           : QStringLiteral("The LDB did not answer the command: factory reset"));
        QCOMPARE(bench.startButton()->isChecked(), !isRefused);
    }
}

void TestFimTracking::lostAcknowledgements_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::newRow("silence") << QByteArray();
    // To the repetition, by an LDB that is at it already.
    QTest::newRow("refusal") << QByteArray("\x15");
}

void TestFimTracking::lostAcknowledgements()
{
    QFETCH(QByteArray, answer);
    Bench bench;
    bench.ldb->setAnswer(answer, true);
    bench.choose();
    VirtualTime::current()->advance(5 * kSecond);
    QVERIFY(bench.window->run().isCountingDown());
    QCOMPARE(bench.ldb->commands(), QList<QByteArray>{kFactoryReset});

    // A mute that is in force is ended, and found ended.
    bench.ldb->setAnswer(QByteArray(), true);
    QVERIFY(bench.reach(Phase::Counting));
    bench.window->close();
    VirtualTime::current()->advance(kSecond);
    QVERIFY(boxTexts(&bench.mainWindow).isEmpty());
    QCOMPARE(bench.ldb->commands().mid(bench.ldb->commands().size() - 2),
             (QList<QByteArray>{kEndMute, "FE0A737201"}));
}

void TestFimTracking::closingTellsOfAnLdbThatStaysMuted_data()
{
    QTest::addColumn<bool>("muted");
    QTest::addColumn<QString>("failure");
    QTest::addColumn<bool>("tells");
    QTest::newRow("obeyed") << true << QString() << false;
    QTest::newRow("refused") << true << QStringLiteral("refused") << true;
    QTest::newRow("silent") << true << QStringLiteral("silent") << true;
    QTest::newRow("no connection") << true << QStringLiteral("lost") << true;
    QTest::newRow("no answer until the connection goes") << true << QStringLiteral("held") << true;
    QTest::newRow("never muted, no connection") << false << QStringLiteral("lost") << false;
}

void TestFimTracking::closingTellsOfAnLdbThatStaysMuted()
{
    QFETCH(bool, muted);
    QFETCH(QString, failure);
    QFETCH(bool, tells);
    const ExpectWarning logged("audio mute of LDB \"0A\"", tells ? ExpectWarning::Need::MustCome
                                                                 : ExpectWarning::Need::MayCome);
    Bench bench;
    bench.choose();
    QVERIFY(bench.reach(muted ? Phase::Counting : Phase::Rebooting));
    if (failure == QLatin1String("lost")) {
        bench.ldb->loseConnection();
    } else if (!failure.isEmpty()) {
        bench.ldb->setAnswer(failure == QLatin1String("refused") ? "\x15" : "");
    }
    bench.ldb->setHoldingCommands(failure == QLatin1String("held"));
    bench.window->close();
    deletePending();
    VirtualTime::current()->advance(kSecond);
    if (failure == QLatin1String("held")) {
        VirtualTime::current()->advance(kSecond);
        QVERIFY(boxTexts(&bench.mainWindow).isEmpty());
        bench.ldb->loseConnection();
        bench.ldb->setHoldingCommands(false); // destroyed now: told once all the same
        VirtualTime::current()->advance(1);
    }
    QVERIFY(!bench.window);
    QVERIFY(!bench.ldb->isPolledAlone());
    const QStringList texts = boxTexts(&bench.mainWindow);
    QCOMPARE(texts.size(), tells ? 1 : 0);
    QCOMPARE(texts.filter(QStringLiteral("LDB 0A")).filter(QStringLiteral("stays muted")).size(),
             tells ? 1 : 0);
}

void TestFimTracking::runsAgain()
{
    LoopPlan plan = healthyLoop(6);
    plan.earthLeakageAfter = 2;
    Bench bench(plan);
    for (int round = 0; round < 2; ++round) {
        bench.choose();
        QVERIFY(bench.label("resultLabel").isEmpty() ||
                bench.find<QLabel>("resultLabel")->isHidden());
        QCOMPARE(bench.sideLabel(PrimaryPort, "countLabel"), QStringLiteral("0"));
        QVERIFY(bench.sideLabel(PrimaryPort, "sideResultLabel").isEmpty());
        QVERIFY(bench.sideLabel(PrimaryPort, "earthPositionLabel").isEmpty());
        QVERIFY(bench.window->reportText().isEmpty());
        QVERIFY(bench.reach(Phase::Finished));
        VirtualTime::current()->advance(1);
        QVERIFY(bench.label("resultLabel").startsWith(QStringLiteral("Total FIM Count: 6  |||  ")));
        QCOMPARE(bench.window->reportText().count(QStringLiteral("Earth Leakage Detected!")), 1);
        QCOMPARE(boxTexts(bench.window).size(), 3);
        bench.closeBoxes();
        bench.startButton()->click();
    }
}

void TestFimTracking::withoutAConnection()
{
    Bench bench;
    bench.ldb->loseConnection();
    bench.choose();
    QVERIFY(!bench.startButton()->isChecked());
    QCOMPARE(bench.label("noticeLabel"), QStringLiteral("The connection is lost."));
}

void TestFimTracking::loopResults()
{
    constexpr SideEnd kConnected = SideEnd::Connected;
    constexpr SideEnd kOpen = SideEnd::Open;
    constexpr SideEnd kShort = SideEnd::Short;
    const auto text = [](SideEnd primary, SideEnd secondary) {
        return trackingtexts::loopResult(loopResult(primary, secondary));
    };
    QCOMPARE(text(kConnected, kConnected), "Loop is connected");
    QCOMPARE(text(kOpen, kConnected), "Primary side open detected");
    QCOMPARE(text(kShort, kConnected), "Primary side short detected");
    QCOMPARE(text(kConnected, kOpen), "Secondary side open detected");
    QCOMPARE(text(kOpen, kOpen), "Both sides open detected");
    QCOMPARE(text(kShort, kOpen), "Primary side short detected and Secondary side open detected.");
    QCOMPARE(text(kConnected, kShort), "Secondary side short detected");
    QCOMPARE(text(kOpen, kShort), "Primary side open detected and Secondary side short detected.");
    QCOMPARE(text(kShort, kShort), "Both sides short detected");
}

REGISTER_TEST(TestFimTracking, InVirtualTime<QApplication>)

#include "tst_fimtracking.moc"
