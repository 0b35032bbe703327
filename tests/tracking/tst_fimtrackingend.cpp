#include "tests/support/testprogram.h"
#include "tests/support/views.h"
#include "tests/tracking/trackingbench.h"

Q_DECLARE_METATYPE(Phase)

using namespace modelldb;

/// How a run ends that something breaks off, and what is kept of the LDB before it.
class TestFimTrackingEnd : public TestCase
{
    Q_OBJECT
private slots:
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
        auto bench = std::make_unique<TrackingBench>();
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

    void commandsNotObeyed()
    {
        for (const bool isRefused : {true, false}) {
            TrackingBench bench;
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
            TrackingBench bench;
            bench.ldb->setAnswer(answer, true);
            bench.choose();
            pass(5 * kSecond);
            QVERIFY(bench.window->run().isCountingDown());
            QCOMPARE(bench.ldb->commands(), (QList<QByteArray>{kReadSettings, kFactoryReset}));
        }

        // A mute is looked for where it was not acknowledged, and found.
        TrackingBench bench;
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
        TrackingBench bench;
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
        TrackingBench bench;
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
            TrackingBench::press(box, answer);
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
        TrackingBench bench(healthyLoop(6));
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
        TrackingBench bench;
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
};

REGISTER_TEST(TestFimTrackingEnd, InVirtualTime<QApplication>)

#include "tst_fimtrackingend.moc"
