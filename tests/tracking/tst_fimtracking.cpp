#include "app/shared/constants.h"
#include "tests/support/testprogram.h"
#include "tests/support/views.h"
#include "tests/tracking/plotinspection.h"
#include "tests/tracking/trackingbench.h"
#include "tracking/faultfinding/alarmsound.h"
#include "tracking/faultfinding/startquestions.h"
#include "tracking/faultfinding/trackingtexts.h"

#include <qwt_plot_curve.h>

using namespace modelldb;

/// What the window asks, shows and tells.
class TestFimTracking : public TestCase
{
    Q_OBJECT
private slots:
    void opensOverItsParentAndAsks()
    {
        const TrackingBench bench;
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
            const TrackingBench bench;
            for (QString answer : QString(answers).split(' ')) {
                pass(1);
                QDialog* question = bench.anyQuestion();
                QVERIFY2(question, answers);
                if (answer.isEmpty()) {
                    QTest::keyClick(question, Qt::Key_Escape);
                } else {
                    TrackingBench::press(question, answer.replace('_', ' '));
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
        TrackingBench bench;
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
        TrackingBench bench(plan);
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
        TrackingBench bench(plan);
        bench.choose("Fault Finding");
        auto* dialog = bench.window->findChild<DisconnectSecondaryPortDialog*>();
        QVERIFY(dialog && dialog->isVisible());
        pass(10 * kSecond);
        QVERIFY(bench.ldb->commands().isEmpty());
        TrackingBench::press(dialog, "OK");

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
        TrackingBench bench;
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

    void alarmSoundsUntilTheBoxesAreClosed()
    {
        const ExpectWarning silent("warning sound|ecod|PulseAudio", ExpectWarning::Need::MayCome);
        LoopPlan plan = healthyLoop(4);
        plan.openAfter = 2;
        TrackingBench bench(plan);
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

    void runsAgain()
    {
        LoopPlan plan = healthyLoop(6);
        plan.earthLeakageAfter = 2;
        TrackingBench bench(plan);
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
