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

#include <QtWidgets>
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
        QObject::connect(window, &FimTracking::runEnds, &mainWindow,
                         [this](const KeptLdb& former, bool isMuted) {
                             ends.append({former, isMuted});
                         });
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
    QDialog* anyQuestion() const
    {
        for (auto* dialog : window->findChildren<QDialog*>()) {
            if (dialog->isVisible()) {
                return dialog;
            }
        }
        return nullptr;
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
    QPushButton* button(const char* name) const { return find<QPushButton>(name); }
    KeptLdbs kept() const { return KeptLdbs(); }
    QPushButton* startButton() const { return find<QPushButton>("startButton"); }

    Sandbox sandbox;
    QList<std::pair<KeptLdb, bool>> ends; ///< of runs, as the window told them
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
    void endsInEveryPhase_data();
    void endsInEveryPhase();
    void alarmSoundsUntilTheBoxesAreClosed();
    void commandsNotObeyed();
    void lostAcknowledgements_data();
    void lostAcknowledgements();
    void keepsWhatItChangesBeforeItSendsAnything();
    void startsWithoutWayBackOnlyWhenToldTo_data();
    void startsWithoutWayBackOnlyWhenToldTo();
    void comparesTheFimsCounted();
    void startFollowsTheLink();
    void runsAgain();
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
    for (const char* answers :
         {"No", "", "Yes Cancel", "Yes ", "Yes Fault_Finding Cancel", "Yes Fault_Finding "}) {
        const Bench bench;
        for (QString answer : QString(answers).split(' ')) {
            VirtualTime::current()->advance(1);
            QDialog* question = bench.anyQuestion();
            QVERIFY2(question, answers);
            if (answer.isEmpty()) {
                QTest::keyClick(question, Qt::Key_Escape);
            } else {
                Bench::press(question, answer.replace('_', ' '));
            }
        }
        QVERIFY2(!bench.anyQuestion(), answers);
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
    QCOMPARE(bench.ldb->commands(), (QList<QByteArray>{kReadSettings, kFactoryReset, kLdbReset, kMute}));

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

void TestFimTracking::endsInEveryPhase_data()
{
    addColumns<Phase, QString>("phase", "by");
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
        
        delete bench->window;
    } else if (by == QLatin1String("close")) {
        bench->window->close();
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
    // Whoever puts back is told once, and what of.
    QCOMPARE(bench->ends.size(), phase == Phase::Confirmation ? 0 : 1);
    if (!bench->ends.isEmpty()) {
        const auto& [former, isMuted] = bench->ends.first();
        QCOMPARE(former.hexId, ModelLdb::address());
        QCOMPARE(former.audioMute, std::optional<bool>(false));
        QVERIFY(former.settings);
        QCOMPARE(isMuted, phase == Phase::Counting || phase == Phase::Finished);
        QVERIFY(bench->kept().find(former.hexId, former.name));
    }
    const bool isWindowGone = !bench->window;
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
    QCOMPARE(bench.ldb->commands(), (QList<QByteArray>{kReadSettings, kFactoryReset}));

    // A mute is looked for where it was not acknowledged, and found.
    bench.ldb->setAnswer(QByteArray(), true);
    QVERIFY(bench.reach(Phase::Counting));
    VirtualTime::current()->advance(kSecond);
    QCOMPARE(bench.ldb->commands().mid(bench.ldb->commands().size() - 2),
             (QList<QByteArray>{kMute, kReadSettings}));
    QCOMPARE(bench.label("noticeLabel"),
             QStringLiteral("The LDB did not answer the command: LDB reset"));
}

void TestFimTracking::keepsWhatItChangesBeforeItSendsAnything()
{
    Bench bench;
    const auto change = [&bench](LdbParameter parameter, const QByteArray& value) {
        QVERIFY(bench.ldb->board().change(parameter, value, bench.ldb->now()));
    };
    change(LdbParameter::OpenDetectionDelay, "1900");
    change(LdbParameter::AudioMute, "01");
    bench.ldb->setHoldingCommands(true);
    bench.choose();
    QCOMPARE(bench.ldb->commands(), QList<QByteArray>{kReadSettings});
    VirtualTime::current()->advance(10 * kSecond);
    QCOMPARE(bench.ldb->commands(), QList<QByteArray>{kReadSettings});
    QVERIFY(bench.kept().all().empty());

    // Read at last: on the disk first, then the reset.
    bench.ldb->setAtCommand([&bench](const QByteArray& body) {
        QCOMPARE(body, kFactoryReset);
        QCOMPARE(bench.kept().all().size(), std::size_t(1));
    });
    bench.ldb->answerHeld();
    VirtualTime::current()->advance(kSecond);
    QCOMPARE(bench.ldb->commands().size(), 2);
    const KeptLdb kept = bench.kept().all().front();
    QCOMPARE(kept.audioMute, std::optional<bool>(true));
    QCOMPARE(kept.settings->openDetectionDelay, quint16(25));

    // A further run finds the defaults; what was there before anybody ran anything stays kept.
    bench.ldb->setAtCommand({});
    QVERIFY(bench.reach(Phase::Rebooting));
    bench.startButton()->click();
    bench.startButton()->click();
    bench.choose();
    VirtualTime::current()->advance(kSecond);
    QCOMPARE(bench.kept().all().front().settings->openDetectionDelay, quint16(25));
    QCOMPARE(bench.kept().all().front().audioMute, std::optional<bool>(true));
}

void TestFimTracking::startsWithoutWayBackOnlyWhenToldTo_data()
{
    addColumns<bool, QString, bool>("isRead", "answer", "starts");
    for (const bool isRead : {true, false}) {
        const char* why = isRead ? "not kept" : "not read";
        QTest::addRow("%s, yes", why) << isRead << QStringLiteral("Start all the same") << true;
        QTest::addRow("%s, cancel", why) << isRead << QStringLiteral("Cancel") << false;
        QTest::addRow("%s, closed", why) << isRead << QString() << false;
        QTest::addRow("%s, stop", why) << isRead << QStringLiteral("stop") << false;
    }
}

void TestFimTracking::startsWithoutWayBackOnlyWhenToldTo()
{
    QFETCH(bool, isRead);
    QFETCH(QString, answer);
    QFETCH(bool, starts);
    Bench bench;
    bench.ldb->setReadable(isRead);
    if (isRead) {
        // In the way of the folder.
        bench.sandbox.writeFile(QDir(bench.sandbox.path(QString())).relativeFilePath(
                                    KeptLdbs::standardFolder().section('/', 0, -1)),
                                "");
    }
    bench.choose();
    const QMessageBox* box = bench.question();
    QVERIFY(box);
    QVERIFY2(box->text().contains(isRead ? QStringLiteral("cannot be made")
                                         : QStringLiteral("cannot be read")),
             qPrintable(box->text()));
    QCOMPARE(bench.ldb->commands(), QList<QByteArray>{kReadSettings});
    if (answer == QLatin1String("stop")) {
        bench.startButton()->click();
    } else if (answer.isEmpty()) {
        QTest::keyClick(bench.question(), Qt::Key_Escape);
    } else {
        Bench::press(bench.question(), answer);
    }
    VirtualTime::current()->advance(kSecond);
    QCOMPARE(bench.ldb->commands().contains(kFactoryReset), starts);
    QCOMPARE(bench.startButton()->isChecked(), starts);
    // Of a run that was not wanted nothing stays; of the other one at least the mute.
    QCOMPARE(bench.kept().all().size(), std::size_t(starts && !isRead ? 1 : 0));
    bench.window->close();
    deletePending();
    QCOMPARE(bench.ends.size(), 1);
    QCOMPARE(bench.ends.first().first.isEmpty(), !starts);
}

void TestFimTracking::comparesTheFimsCounted()
{
    Bench bench(healthyLoop(6));
    QVERIFY(bench.ldb->board().change(LdbParameter::NumberOfFims, "1400", bench.ldb->now()));
    QSignalSpy wanted(bench.window, &FimTracking::takeOverWanted);
    bench.choose();
    QVERIFY(bench.reach(Phase::Finished));
    VirtualTime::current()->advance(1);
    bench.closeBoxes();
    QCOMPARE(bench.label("fimCountsLabel"), QStringLiteral("FIM's counted: 6   configured: 20"));
    QVERIFY(bench.find<QLabel>("fimCountsLabel")->styleSheet().contains("#b3261e"));
    QVERIFY(bench.button("takeOverButton")->isVisible());
    bench.button("takeOverButton")->click();
    QCOMPARE(wanted.size(), 1);
    QCOMPARE(wanted.first().first().toInt(), 6);
    QVERIFY(!bench.button("takeOverButton")->isEnabled());
    bench.window->processTakenOver(6, QStringLiteral("refused"));
    QVERIFY(bench.button("takeOverButton")->isEnabled());
    QVERIFY(bench.label("noticeLabel").contains(QStringLiteral("refused")));
    bench.window->processTakenOver(6, QString());
    QCOMPARE(bench.label("fimCountsLabel"), QStringLiteral("FIM's counted: 6   configured: 6"));
    QVERIFY(bench.find<QLabel>("fimCountsLabel")->styleSheet().isEmpty());
    QVERIFY(!bench.button("takeOverButton")->isVisible());
}

void TestFimTracking::startFollowsTheLink()
{
    Bench bench;
    QVERIFY(bench.question());
    bench.ldb->loseConnection();
    QVERIFY(!bench.startButton()->isEnabled());
    QCOMPARE(bench.startButton()->toolTip(), QStringLiteral("There is no connection to the LDB."));
    QVERIFY(bench.label("hintLabel").startsWith(QStringLiteral("There is no connection")));
    bench.ldb->setPolledAlone(false);
    bench.ldb->restoreConnection();
    QVERIFY(bench.startButton()->isEnabled());
    QVERIFY(bench.startButton()->toolTip().isEmpty());
    QVERIFY(bench.ldb->isPolledAlone());
    bench.startButton()->click();
    bench.choose();
    QVERIFY(bench.reach(Phase::Rebooting));
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
