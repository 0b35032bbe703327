#include "serial/ldb/generalinformation.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"
#include "tests/support/virtualtime.h"
#include "tests/tracking/modelldb.h"
#include "tracking/counting/trackingrun.h"

#include <cmath>

using Phase = TrackingRun::Phase;
using StopReason = TrackingRun::StopReason;

Q_DECLARE_METATYPE(LoopPlan)
Q_DECLARE_METATYPE(Phase)

namespace {

using namespace modelldb;

/// A run on a model LDB.
struct Bench
{
    explicit Bench(const LoopPlan& plan = healthyLoop(4))
        : ldb(plan)
        , run(TrackingThresholds())
    {
        QObject::connect(&ldb, &TrackedLdb::generalInformationUpdated, &run,
                         [this](const QString&, const QList<QStringList>& rows) {
                             run.processRecord(rows, ldb.now());
                         });
        QObject::connect(&run, &TrackingRun::commandDue, &run,
                         [this](TrackingCommand due) { ldb.send(due, &run, [](const Reply&) {}); });
        QObject::connect(&run, &TrackingRun::resultsReady, &run, [this](int count, LoopResult end) {
            total = count;
            result = end;
        });
        QObject::connect(&run, &TrackingRun::faultReported, &run,
                         [this](const FaultReport& report) { faults.append(report); });
    }
    void begin(TrackingMode mode = TrackingMode::Commissioning)
    {
        run.prepare(ldb.now());
        run.begin(mode, ldb.now());
    }
    void pass(qint64 milliseconds)
    {
        VirtualTime::current()->advance(milliseconds);
        run.advance(ldb.now());
    }
    /// Lets time pass until a phase comes; false if it does not within an hour.
    bool reach(Phase phase)
    {
        for (qint64 gone = 0; run.phase() != phase && gone < kHour; gone += kSecond / 4) {
            pass(kSecond / 4);
        }
        return run.phase() == phase;
    }
    void reportState(int state)
    {
        ldb.setState(static_cast<LdbState>(state));
        ldb.report();
    }

    ModelLdb ldb;
    TrackingRun run;
    int total = -1;
    LoopResult result = LoopResult::Connected;
    QList<FaultReport> faults;
};

} // namespace

class TestTrackingRun : public TestCase
{
    Q_OBJECT
private slots:
    void findsWhatIsPlanted_data()
    {
        addColumns<LoopPlan, int, int, LoopResult>("plan", "primary", "secondary", "result");
        // As fast as one LDB is polled on a 9600-baud line, and as a tired link would.
        for (int fims = 2; fims <= 12; ++fims) {
            LoopPlan plan = healthyLoop(fims);
            plan.reportPeriod = fims % 2 == 0 ? 170 : 500;
            plan.seed = static_cast<quint32>(fims);
            QTest::addRow("healthy, %d FIMs, every %d ms", fims, plan.reportPeriod)
                << plan << fims << 0 << LoopResult::Connected;
        }
        for (int fims : {2, 3, 8}) {
            LoopPlan plan = healthyLoop(fims);
            plan.secondaryConnected = false;
            QTest::addRow("fault finding, %d FIMs", fims)
                << plan << fims << 0 << LoopResult::PrimaryOpen;
            for (int after = 0; after <= fims; ++after) {
                // A single FIM starts up before counting begins, and nothing follows to tell of it.
                const auto counted = [](int count) {
                    return count == 1 ? 0 : count;
                };
                plan = healthyLoop(fims);
                plan.openAfter = after;
                QTest::addRow("open after %d of %d", after, fims)
                    << plan << counted(after) << counted(fims - after) << LoopResult::BothOpen;
            }
            for (int after = 1; after < fims; ++after) {
                plan = healthyLoop(fims);
                plan.shortAfter = after;
                QTest::addRow("short after %d of %d", after, fims)
                    << plan << after << fims - after << LoopResult::BothShort;
                plan.secondaryConnected = false;
                QTest::addRow("fault finding, short after %d of %d", after, fims)
                    << plan << after << 0 << LoopResult::PrimaryShort;
            }
        }
        LoopPlan plan = healthyLoop(8);
        plan.shortAfter = 2;
        plan.openAfter = 3;
        QTest::newRow("short, then open")
            << plan << 2 << 5 << LoopResult::PrimaryShortSecondaryOpen;
    }

    void findsWhatIsPlanted()
    {
        QFETCH(LoopPlan, plan);
        QFETCH(int, primary);
        QFETCH(int, secondary);
        Bench bench(plan);
        bench.begin(plan.secondaryConnected ? TrackingMode::Commissioning
                                            : TrackingMode::FaultFinding);
        QVERIFY(bench.reach(Phase::Finished));
        QTEST(bench.result, "result");
        QCOMPARE(bench.total, primary + secondary);
        if (bench.result != LoopResult::Connected) { // the ends share a healthy loop
            QCOMPARE(bench.run.counter().fimCount(PrimaryPort), primary);
            QCOMPARE(bench.run.counter().fimCount(SecondaryPort), secondary);
        }
    }

    void placesALeakWithinOneFim_data()
    {
        addColumns<LoopPlan, int>("plan", "after");
        for (int fims : {2, 5, 8}) {
            for (int after = 1; after < fims; ++after) {
                LoopPlan earth = healthyLoop(fims);
                earth.earthLeakageAfter = after;
                QTest::addRow("earth leakage after %d of %d", after, fims) << earth << after;
                LoopPlan dc = healthyLoop(fims);
                dc.dcLeakageAfter = after;
                QTest::addRow("DC leakage after %d of %d", after, fims) << dc << after;
            }
        }
        LoopPlan faultFinding = healthyLoop(5);
        faultFinding.earthLeakageAfter = 3;
        faultFinding.secondaryConnected = false;
        QTest::newRow("fault finding, earth leakage after 3 of 5") << faultFinding << 3;
    }

    void placesALeakWithinOneFim()
    {
        QFETCH(LoopPlan, plan);
        QFETCH(int, after);
        Bench bench(plan);
        bench.begin(plan.secondaryConnected ? TrackingMode::Commissioning
                                            : TrackingMode::FaultFinding);
        QVERIFY(bench.reach(Phase::Finished));
        QCOMPARE(bench.faults.size(), 1);
        const FaultReport fault = bench.faults.first();
        QCOMPARE(fault.kind, plan.earthLeakageAfter ? FaultReport::Kind::EarthLeakage
                                                    : FaultReport::Kind::LoopDcLeakage);
        QCOMPARE(fault.positions.secondary.has_value(), plan.secondaryConnected);
        // The side whose front has come to the leak first, counted from its own end.
        const bool isPrimary = !plan.secondaryConnected || after < plan.fims - after;
        const std::optional<int> position =
            fault.positions[isPrimary ? PrimaryPort : SecondaryPort];
        const int truth = isPrimary ? after : plan.fims - after;
        QVERIFY2(position && std::abs(*position - truth) <= 1,
                 qPrintable(QString::number(position.value_or(-1))));
        QCOMPARE(bench.total, plan.fims); // undisturbed
    }

    void phasesAndCommands()
    {
        Bench bench;
        QCOMPARE(bench.run.phase(), Phase::Idle);
        bench.run.prepare(bench.ldb.now());
        QCOMPARE(bench.run.phase(), Phase::Confirmation);
        bench.pass(60 * kSecond); // with records, and nothing is sent
        QVERIFY(bench.ldb.commands().isEmpty());

        bench.run.begin(TrackingMode::Commissioning, bench.ldb.now());
        QCOMPARE(bench.run.phase(), Phase::FactoryReset);
        QVERIFY(!bench.run.secondsLeft().has_value());
        bench.pass(119 * kSecond);
        QCOMPARE(bench.ldb.commands(), QList<QByteArray>{kFactoryReset});
        QVERIFY(bench.run.isCountingDown());
        QCOMPARE(bench.run.secondsGone(), 119);

        QVERIFY(bench.reach(Phase::Rebooting));
        QVERIFY(!bench.run.isCountingDown());
        QCOMPARE(bench.run.secondsLeft().value_or(-1), 15);
        bench.pass(15 * kSecond - 1);
        QCOMPARE(bench.run.secondsLeft().value_or(-1), 1);
        QCOMPARE(bench.ldb.commands().size(), 1);
        bench.pass(1);
        QCOMPARE(bench.ldb.commands(), (QList<QByteArray>{kFactoryReset, kLdbReset, kMute}));

        QVERIFY(bench.reach(Phase::Counting));
        bench.pass(7 * kSecond);
        QCOMPARE(bench.run.secondsGone(), 7);
        QVERIFY(bench.reach(Phase::Finished));
        bench.pass(kLongerThanAnyTimer);
        QCOMPARE(bench.ldb.commands().size(), 3);
        QCOMPARE(bench.run.stopReason(), StopReason::None);
    }

    void firstRecordAsksForTheReset_data()
    {
        const Table<int, bool, Phase> row("state", "asks", "phase");
        row("booting", 0, true, Phase::FactoryReset);
        row("resetting already", 50, true, Phase::FactoryReset);
        row("an earlier reset failed", 51, true, Phase::Idle);
        row("an earlier reset done", 52, false, Phase::Rebooting);
        row("disconnected", 255, true, Phase::Idle);
    }

    void firstRecordAsksForTheReset()
    {
        QFETCH(int, state);
        QFETCH(bool, asks);
        Bench bench;
        bench.ldb.setReporting(false);
        bench.begin();
        bench.reportState(state);
        QCOMPARE(bench.ldb.commands(),
                 asks ? QList<QByteArray>{kFactoryReset} : QList<QByteArray>{});
        QTEST(bench.run.phase(), "phase");
        bench.reportState(10);
        QCOMPARE(bench.ldb.commands().size(), asks ? 1 : 0);
        // Booting starts the counting only once the reset has been seen.
        bench.reportState(0);
        QCOMPARE(bench.run.phase() == Phase::Counting, state == 52);
    }

    void faultStates()
    {
        const QList<int> earth{4, 5, 6, 7};
        const QList<int> loop{16, 17, 18, 20, 22, 24, 25, 26};
        for (int code = 0; code < 128; ++code) {
            QCOMPARE(isEarthLeakage(static_cast<LdbEarthState>(code)), earth.contains(code));
            QCOMPARE(isLoopDcLeakage(static_cast<LdbLoopState>(code)), loop.contains(code));
        }
    }

    void incompleteRecordIsNone()
    {
        Bench bench;
        bench.ldb.setReporting(false);
        bench.begin();
        const ExpectWarning incomplete("incomplete record");
        bench.run.processRecord({{"0A"}}, bench.ldb.now());
        QVERIFY(bench.ldb.commands().isEmpty());
    }
};

REGISTER_TEST(TestTrackingRun, InVirtualTime<QCoreApplication>)

#include "tst_trackingrun.moc"
