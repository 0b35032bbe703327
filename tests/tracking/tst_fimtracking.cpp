#include "app/shared/constants.h"
#include "tests/support/sandbox.h"
#include "tests/support/testprogram.h"
#include "tests/support/views.h"
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

void pass(qint64 milliseconds)
{
    VirtualTime::current()->advance(milliseconds);
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
            if (button->text().remove('&') == text) {
                button->click();
                pass(0);
                return;
            }
        }
        QFAIL(qPrintable(QStringLiteral("no button ") + text));
    }
    QMessageBox* question() const
    {
        pass(1);
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
        press(question(), "Yes");
        QVERIFY(question());
        press(question(), mode);
    }
    void choose() { choose("Commissioning"); }

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
            pass(250);
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
        return window->findChild<T*>(name);
    }
    QString label(const char* name) const { return find<QLabel>(name)->text(); }
    /// The text of a side's label, empty while it is hidden.
    QString sideLabel(int ldbPort, const char* name) const
    {
        const auto* found = sidePanel(ldbPort)->findChild<QLabel*>(name);
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
    void opensOverItsParentAndAsks()
    {
        const Bench bench;
        QCOMPARE(bench.window->windowModality(), Qt::ApplicationModal);
        QCOMPARE(bench.window->geometry(),
                 bench.mainWindow.geometry().adjusted(100, 50, -100, -50));
        QVERIFY(bench.ldb->isPolledAlone());
        QVERIFY2(openBoxes(bench.window).isEmpty(),
                 "nothing is asked before the maker has the window");
        QCOMPARE(bench.label("phaseLabel"), "idle");

        const QMessageBox* box = bench.question();
        QVERIFY(box);
        QCOMPARE(box->text(), "This action will start a factory reset. \n"
                              "Are you sure you want to do this?");
        QCOMPARE(bench.startButton()->text(), "Stop");
        QCOMPARE(bench.label("phaseLabel"), "confirmation");
        QVERIFY(bench.ldb->commands().isEmpty());
    }

    void sayingNoSendsNothing()
    {
        // Nothing in an answer's place: the box is closed.
        for (const char* answers :
             {"No", "", "Yes Cancel", "Yes ", "Yes Fault_Finding Cancel", "Yes Fault_Finding "}) {
            const Bench bench;
            for (QString answer : QString(answers).split(' ')) {
                pass(1);
                QDialog* question = bench.anyQuestion();
                QVERIFY2(question, answers);
                if (answer.isEmpty()) {
                    QTest::keyClick(question, Qt::Key_Escape);
                } else {
                    Bench::press(question, answer.replace('_', ' '));
                }
            }
            QVERIFY2(!bench.anyQuestion(), answers);
            QCOMPARE(bench.startButton()->text(), "Start");
            QCOMPARE(bench.label("phaseLabel"), "idle");
            pass(kLongerThanAnyTimer);
            QVERIFY2(bench.ldb->commands().isEmpty(), answers);
        }
    }

    void questionShowsWhichLdb()
    {
        Bench bench;
        pass(1000);
        QVERIFY(bench.anyQuestion());
        QCOMPARE(bench.label("nameLabel"), "Name: Boiler house");
        QVERIFY(bench.ldb->commands().isEmpty());
    }

    void commissioningToTheReport()
    {
        LoopPlan plan = healthyLoop(8);
        plan.shortAfter = 2;
        plan.openAfter = 3;
        plan.earthLeakageAfter = 6;
        Bench bench(plan);
        auto* zoomButton = bench.find<QPushButton>("zoomButton");
        auto* copyButton = bench.find<QPushButton>("copyReportButton");
        bench.choose();
        QCOMPARE(bench.label("phaseLabel"), "waiting for the factory reset");
        QVERIFY(bench.reach(Phase::Rebooting));
        QCOMPARE(bench.label("phaseLabel"), "rebooting");
        QCOMPARE(bench.label("nameLabel"), "Name: Boiler house");
        QCOMPARE(bench.label("modeLabel"), "Mode: Factory reset done");
        QCOMPARE(bench.label("earthLabel"), "Earth: Ok");
        QVERIFY(!zoomButton->isEnabled());
        QVERIFY(shownTip(zoomButton).startsWith("There is nothing to zoom into"));
        QVERIFY(shownTip(copyButton).startsWith("There is no report before"));
        QVERIFY(bench.reach(Phase::Counting));
        QCOMPARE(bench.label("phaseLabel"), "counting");
        zoomButton->click();
        QCOMPARE(zoomButton->text(), "Zoom Out");
        zoomButton->click();
        QVERIFY(!copyButton->isEnabled());

        QVERIFY(bench.reach(Phase::Finished));
        QCOMPARE(bench.label("phaseLabel"), "finished");
        QVERIFY(!bench.startButton()->isChecked());
        QCOMPARE(bench.sideLabel(PrimaryPort, "countLabel"), "2");
        QCOMPARE(bench.sideLabel(SecondaryPort, "countLabel"), "5");
        QCOMPARE(bench.sideLabel(PrimaryPort, "sideResultLabel"), "Timeout: Short Detected");
        QCOMPARE(bench.sideLabel(SecondaryPort, "sideResultLabel"), "Timeout: Open Detected");
        const QString result("Total FIM Count: 7  |||  "
                             "Primary side short detected and Secondary side open detected.");
        QCOMPARE(bench.label("resultLabel"), result);
        // The second FIM of the secondary side: its first is not counted yet.
        QCOMPARE(bench.sideLabel(SecondaryPort, "earthPositionLabel"),
                 "Earth Leakage Detected: approximately at FIM: 2");

        bench.closeBoxes();
        bench.setPlotsVisible(true);
        pass(1);
        QVERIFY(bench.hasCurve(PrimaryPort) && bench.hasCurve(SecondaryPort));
        const SidePanel* panel = bench.sidePanel(PrimaryPort);
        QVERIFY(plotinspection::curveOf(*panel, "PriCurr")->maxYValue() < 10.0); // mA
        copyButton->click();
        const QString report = QApplication::clipboard()->text() + '\n';
        const char* const lines[] = {"LDB: 0A",
                                     "Name: Boiler house",
                                     "Tracking mode: Commissioning",
                                     "Primary side: FIM count 2, Timeout: Short Detected",
                                     "Secondary side: FIM count 5, Timeout: Open Detected",
                                     "Earth Leakage Detected!",
                                     " Secondary Side approximately at FIM: 2"};
        for (const char* line : lines) {
            QVERIFY2(report.contains(line + QString("\n")), line);
        }
        QVERIFY(report.contains("Result: " + result) && report.contains("Time: 20"));
    }

    void faultFindingAsksToDisconnect()
    {
        LoopPlan plan = healthyLoop(3);
        plan.secondaryConnected = false;
        plan.dcLeakageAfter = 2;
        Bench bench(plan);
        bench.choose("Fault Finding");
        auto* dialog = bench.window->findChild<DisconnectSecondaryPortDialog*>();
        QVERIFY(dialog && dialog->isVisible());
        pass(10 * kSecond);
        QVERIFY(bench.ldb->commands().isEmpty());
        Bench::press(dialog, "OK");

        QVERIFY(bench.reach(Phase::Finished));
        QCOMPARE(bench.label("resultLabel"), "Total FIM Count: 3  |||  Primary side open detected");
        QCOMPARE(bench.sideLabel(SecondaryPort, "remainingLabel"), "not tracked");
        const QStringList told{"Loop DC Leakage Detected!\n\n Primary Side approximately at FIM: 2",
                               "Primary side open detected."};
        QCOMPARE(boxTexts(bench.window), told);
        QCOMPARE(bench.sideLabel(PrimaryPort, "leakagePositionLabel"),
                 "Loop DC Leakage Detected: approximately at FIM: 2");
        bench.setPlotsVisible(true);
        pass(1);
        QVERIFY(bench.hasCurve(PrimaryPort) && !bench.hasCurve(SecondaryPort));
        QVERIFY(bench.window->reportText().contains("Secondary side: FIM count 0, not tracked"));
    }

    void countdownTurnsRed()
    {
        Bench bench;
        bench.choose();
        pass(1 * kSecond);
        bench.ldb->setReporting(false); // the reset takes longer than it should
        const auto* digits = bench.find<QLCDNumber>("countdownLcdNumber");
        QVERIFY(digits->isVisible());
        for (int shown : {120, 11, 10, 0}) {
            pass((digits->intValue() - shown) * kSecond);
            QCOMPARE(digits->intValue(), shown);
            QCOMPARE(digits->palette().color(QPalette::Inactive, QPalette::WindowText),
                     QColor(shown <= 10 ? Qt::red : Qt::black));
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

    void endsInEveryPhase_data()
    {
        addColumns<Phase, QString>("phase", "by");
        const auto rows = [](const char* name, Phase phase, const char* ways) {
            for (const QString& by : QString(ways).split(' ')) {
                QTest::addRow("%s, %s", name, qPrintable(by)) << phase << by;
            }
        };
        rows("confirmation", Phase::Confirmation, "stop close parent lost");
        rows("factory reset", Phase::FactoryReset, "stop close parent lost failed silent");
        rows("rebooting", Phase::Rebooting, "stop close parent lost failed silent");
        rows("counting", Phase::Counting, "stop close parent lost failed silent");
        rows("finished", Phase::Finished, "stop close parent");
    }

    void endsInEveryPhase()
    {
        QFETCH(Phase, phase);
        QFETCH(QString, by);
        const QMap<QString, QString> notices{{"lost", "The connection was lost."},
                                             {"failed", "The factory reset failed."},
                                             {"silent", "The LDB is disconnected."}};
        auto bench = std::make_unique<Bench>();
        QVERIFY(bench->question());
        if (phase != Phase::Confirmation) {
            bench->choose();
            QVERIFY(bench->reach(phase));
            pass(2 * kSecond);
        }
        const std::shared_ptr<ModelLdb> ldb = bench->ldb;
        const QList<QByteArray> sent = ldb->commands();
        if (by == "parent") {
            delete bench->window;
        } else if (by == "close") {
            bench->window->close();
            deletePending();
            QVERIFY(!bench->window && openBoxes(&bench->mainWindow).isEmpty());
        } else if (by == "stop") {
            bench->startButton()->setChecked(false);
        } else if (by == "lost") {
            ldb->loseConnection();
        } else {
            bench->reportState(by == "failed" ? 51 : 255);
        }
        const bool isWindowThere = bench->window;
        if (isWindowThere) {
            QCOMPARE(bench->startButton()->text(), "Start");
            QCOMPARE(bench->label("noticeLabel"), notices.value(by));
            QCOMPARE(bench->window->run().phase(), phase == Phase::Finished ? phase : Phase::Idle);
            QCOMPARE(bench->window->reportText().isEmpty(), phase != Phase::Finished);
            bench->closeBoxes();
        }
        // Whoever puts back is told once, and what.
        QCOMPARE(bench->ends.size(), phase == Phase::Confirmation ? 0 : 1);
        for (const auto& [former, isMuted] : bench->ends) {
            QCOMPARE(former.hexId, ModelLdb::address());
            QVERIFY(former.audioMute == false && former.settings);
            QCOMPARE(isMuted, phase == Phase::Counting || phase == Phase::Finished);
            QVERIFY(KeptLdbs().find(former.hexId, former.name));
        }
        ldb->setState(std::nullopt);
        pass(kLongerThanAnyTimer);
        QCOMPARE(ldb->commands(), sent);
        QCOMPARE(ldb->isPolledAlone(), isWindowThere);
        QVERIFY(!isWindowThere || openBoxes(bench->window).isEmpty());
    }

    void alarmSoundsUntilTheBoxesAreClosed()
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
                pass(250);
            }
        };
        endOfSide(PrimaryPort);
        pass(5 * kSecond);
        QVERIFY2(sounded.isEmpty(), "the user has not asked for sound");

        QSettings(constants::kOrganisationName, constants::kApplicationDisplayName)
            .setValue(constants::kAudioWarningsKey, true);
        pass(5 * kSecond);
        QCOMPARE(sounded.size(), 5);
        QCOMPARE(boxTexts(bench.window), QStringList{"Primary side open detected."});

        // The second alarm comes while the first box is open; closing one leaves the other's sound.
        QVERIFY(bench.reach(Phase::Finished));
        pass(1);
        QCOMPARE(boxTexts(bench.window).size(), 2);
        openBoxes(bench.window).first()->close();
        sounded.clear();
        pass(3 * kSecond);
        QCOMPARE(sounded.size(), 3);
        QCOMPARE(boxTexts(bench.window), QStringList{"Secondary side open detected."});
        bench.closeBoxes();
        sounded.clear();
        pass(kLongerThanAnyTimer);
        QCOMPARE(sounded.size(), 0);
    }

    void commandsNotObeyed()
    {
        for (const bool isRefused : {true, false}) {
            Bench bench;
            bench.ldb->setAnswer(isRefused ? "\x15" : "");
            bench.choose();
            pass(kSecond);
            QCOMPARE(bench.window->run().phase(), isRefused ? Phase::Idle : Phase::FactoryReset);
            QCOMPARE(bench.label("noticeLabel"),
                     isRefused ? "The LDB refused the factory reset."
                               : "The LDB did not answer the command: factory reset");
            QCOMPARE(bench.startButton()->isChecked(), !isRefused);
        }
    }

    void lostAcknowledgements()
    {
        // A refusal of the repetition, by an LDB that is at it already.
        for (const char* answer : {"\x15", ""}) {
            Bench bench;
            bench.ldb->setAnswer(answer, true);
            bench.choose();
            pass(5 * kSecond);
            QVERIFY(bench.window->run().isCountingDown());
            QCOMPARE(bench.ldb->commands(), (QList<QByteArray>{kReadSettings, kFactoryReset}));
        }

        // A mute is looked for where it was not acknowledged, and found.
        Bench bench;
        bench.choose();
        pass(5 * kSecond);
        bench.ldb->setAnswer(QByteArray(), true);
        QVERIFY(bench.reach(Phase::Counting));
        pass(kSecond);
        QCOMPARE(bench.ldb->commands().mid(bench.ldb->commands().size() - 2),
                 (QList<QByteArray>{kMute, kReadSettings}));
        QCOMPARE(bench.label("noticeLabel"), "The LDB did not answer the command: LDB reset");
    }

    void keepsWhatItChangesBeforeItSendsAnything()
    {
        Bench bench;
        SimulatedLdb& board = bench.ldb->board();
        QVERIFY(board.change(LdbParameter::OpenDetectionDelay, "1900", bench.ldb->now()));
        QVERIFY(board.change(LdbParameter::AudioMute, "01", bench.ldb->now()));
        bench.ldb->setHoldingCommands(true);
        bench.choose();
        pass(10 * kSecond);
        QCOMPARE(bench.ldb->commands(), QList<QByteArray>{kReadSettings});
        QVERIFY(KeptLdbs().all().empty());

        // Read at last: on the disk first, then the reset.
        bench.ldb->setAtCommand([](const QByteArray& body) {
            QCOMPARE(body, kFactoryReset);
            QCOMPARE(KeptLdbs().all().size(), std::size_t(1));
        });
        bench.ldb->answerHeld();
        pass(kSecond);
        QCOMPARE(bench.ldb->commands().size(), 2);

        // A further run finds the defaults; what was there before anybody ran anything stays kept.
        bench.ldb->setAtCommand({});
        QVERIFY(bench.reach(Phase::Rebooting));
        bench.startButton()->click();
        bench.startButton()->click();
        bench.choose();
        pass(kSecond);
        const std::vector<KeptLdb> kept = KeptLdbs().all();
        QCOMPARE(kept.size(), std::size_t(1));
        QCOMPARE(kept.front().settings->openDetectionDelay, quint16(25));
        QCOMPARE(kept.front().audioMute, std::optional<bool>(true));
    }

    void startsWithoutWayBackOnlyWhenToldTo_data()
    {
        addColumns<bool, QString, bool>("isRead", "answer", "starts");
        for (const bool isRead : {true, false}) {
            const char* why = isRead ? "not kept" : "not read";
            QTest::addRow("%s, yes", why) << isRead << QString("Start all the same") << true;
            QTest::addRow("%s, cancel", why) << isRead << QString("Cancel") << false;
            QTest::addRow("%s, closed", why) << isRead << QString() << false;
            QTest::addRow("%s, stop", why) << isRead << QString("stop") << false;
        }
    }

    void startsWithoutWayBackOnlyWhenToldTo()
    {
        QFETCH(bool, isRead);
        QFETCH(QString, answer);
        QFETCH(bool, starts);
        Bench bench;
        bench.ldb->setReadable(isRead);
        if (isRead) {
            QFile inTheWay(KeptLdbs::standardFolder());
            QVERIFY(inTheWay.open(QIODevice::WriteOnly));
        }
        bench.choose();
        QMessageBox* box = bench.question();
        QVERIFY(box);
        QVERIFY2(box->text().contains(isRead ? "cannot be made" : "cannot be read"),
                 qPrintable(box->text()));
        QCOMPARE(bench.ldb->commands(), QList<QByteArray>{kReadSettings});
        if (answer == "stop") {
            bench.startButton()->click();
        } else if (answer.isEmpty()) {
            QTest::keyClick(box, Qt::Key_Escape);
        } else {
            Bench::press(box, answer);
        }
        pass(kSecond);
        QCOMPARE(bench.ldb->commands().contains(kFactoryReset), starts);
        QCOMPARE(bench.startButton()->isChecked(), starts);
        // Of a run that was not wanted nothing stays; of the other one at least the mute.
        QCOMPARE(KeptLdbs().all().size(), std::size_t(starts && !isRead ? 1 : 0));
        bench.window->close();
        QCOMPARE(bench.ends.size(), 1);
        QCOMPARE(bench.ends.first().first.isEmpty(), !starts);
    }

    void comparesTheFimsCounted()
    {
        Bench bench(healthyLoop(6));
        QVERIFY(bench.ldb->board().change(LdbParameter::NumberOfFims, "1400", bench.ldb->now()));
        const QSignalSpy wanted(bench.window, &FimTracking::takeOverWanted);
        auto* takeOver = bench.find<QPushButton>("takeOverButton");
        auto* counts = bench.find<QLabel>("fimCountsLabel");
        bench.choose();
        QVERIFY(bench.reach(Phase::Finished));
        pass(1);
        bench.closeBoxes();
        QCOMPARE(counts->text(), "FIM's counted: 6   configured: 20");
        QVERIFY(!counts->styleSheet().isEmpty());
        takeOver->click();
        QCOMPARE(wanted.size(), 1);
        QCOMPARE(wanted.first().first().toInt(), 6);
        QVERIFY(!takeOver->isEnabled());
        QCOMPARE(shownTip(takeOver), "The number of FIM's is being written.");
        bench.window->processTakenOver(6, "refused");
        QVERIFY(takeOver->isEnabled() && takeOver->isVisible());
        QVERIFY(bench.label("noticeLabel").contains("refused"));
        bench.window->processTakenOver(6, QString());
        QCOMPARE(counts->text(), "FIM's counted: 6   configured: 6");
        QVERIFY(counts->styleSheet().isEmpty());
        QVERIFY(!takeOver->isVisible());
    }

    void startFollowsTheLink()
    {
        Bench bench;
        QVERIFY(bench.question());
        bench.ldb->loseConnection();
        QVERIFY(!bench.startButton()->isEnabled());
        QCOMPARE(shownTip(bench.startButton()), "There is no connection to the LDB.");
        QVERIFY(bench.label("hintLabel").startsWith("There is no connection"));
        bench.ldb->setPolledAlone(false);
        bench.ldb->restoreConnection();
        QVERIFY(bench.startButton()->isEnabled() && shownTip(bench.startButton()).isEmpty());
        QVERIFY(bench.ldb->isPolledAlone());
        bench.startButton()->click();
        bench.choose();
        QVERIFY(bench.reach(Phase::Rebooting));
    }

    void runsAgain()
    {
        LoopPlan plan = healthyLoop(6);
        plan.earthLeakageAfter = 2;
        Bench bench(plan);
        for (int round = 0; round < 2; ++round) {
            bench.choose();
            QVERIFY(bench.label("resultLabel").isEmpty() ||
                    bench.find<QLabel>("resultLabel")->isHidden());
            QCOMPARE(bench.sideLabel(PrimaryPort, "countLabel"), "0");
            QVERIFY(bench.sideLabel(PrimaryPort, "sideResultLabel").isEmpty());
            QVERIFY(bench.sideLabel(PrimaryPort, "earthPositionLabel").isEmpty());
            QVERIFY(bench.window->reportText().isEmpty());
            QVERIFY(bench.reach(Phase::Finished));
            pass(1);
            QVERIFY(bench.label("resultLabel").startsWith("Total FIM Count: 6  |||  "));
            QCOMPARE(bench.window->reportText().count("Earth Leakage Detected!"), 1);
            QCOMPARE(boxTexts(bench.window).size(), 3);
            bench.closeBoxes();
            bench.startButton()->click();
        }
    }

    void loopResults()
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
        QCOMPARE(text(kShort, kOpen),
                 "Primary side short detected and Secondary side open detected.");
        QCOMPARE(text(kConnected, kShort), "Secondary side short detected");
        QCOMPARE(text(kOpen, kShort),
                 "Primary side open detected and Secondary side short detected.");
        QCOMPARE(text(kShort, kShort), "Both sides short detected");
    }
};

REGISTER_TEST(TestFimTracking, InVirtualTime<QApplication>)

#include "tst_fimtracking.moc"
