#include "simulator/simulatedldb.h"
#include "tests/simulator/referencecounter.h"
#include "tests/support/testcase.h"

#include <functional>

Q_DECLARE_METATYPE(LoopFaultKind)

namespace {

// As fast as the tool samples one LDB on a 9600-baud line, and as a tired link would.
constexpr qint64 kSamplePeriods[] = {170, 500};
constexpr qint64 kStart = 1000000;
constexpr qint64 kLongestRun = 1200000;

SimulatedLdb board(int fims, quint32 seed = 1)
{
    LdbSpec spec;
    spec.address = 10;
    spec.firmware = "LDB16 V3.21";
    spec.fims = fims;
    return SimulatedLdb(spec, LdbTiming(), seed, kStart);
}

enum class Mode
{
    Commissioning,
    FaultFinding
};

/// A run from the LDB reset on; `watch` sees every sample. Gives the finished counter.
ReferenceCounter
track(SimulatedLdb ldb, Mode mode, qint64 period,
      const std::function<void(const ReferenceCounter&, const LdbStatus&)>& watch = {})
{
    ReferenceCounter counter(mode == Mode::Commissioning);
    ldb.control(LdbControl::LdbReset, kStart);
    for (qint64 time = 0; time < kLongestRun && !counter.isFinished(); time += period) {
        const LdbStatus status = ldb.measure(kStart + time);
        counter.sample(status, time);
        if (watch) {
            watch(counter, status);
        }
    }
    return counter;
}

} // namespace

/// The simulated loop against the counting rules: what a tracking run finds is what was planted.
class LoopTimingTest : public TestCase
{
    Q_OBJECT
private slots:
    void countsAHealthyLoop();
    void countsUpToAnOpen();
    void countsUpToAShort();
    void countsFromThePrimaryPortAlone();
    void placesALeakWithinOneFim_data();
    void placesALeakWithinOneFim();
    void findsSeveralFaultsAtOnce();
    void followsTheTimeTable();
};

void LoopTimingTest::countsAHealthyLoop()
{
    for (const qint64 period : kSamplePeriods) {
        for (int fims = 2; fims <= 12; ++fims) {
            for (quint32 seed = 1; seed <= 5; ++seed) {
                const ReferenceCounter counter =
                    track(board(fims, seed), Mode::Commissioning, period);
                QVERIFY(counter.isFinished());
                QCOMPARE(counter.primaryCount() + counter.secondaryCount(), fims);
                QCOMPARE(counter.primaryResult(), ReferenceCounter::Connected);
                QCOMPARE(counter.secondaryResult(), ReferenceCounter::Connected);
            }
        }
    }
}

void LoopTimingTest::countsUpToAnOpen()
{
    for (const qint64 period : kSamplePeriods) {
        for (int fims = 2; fims <= 12; ++fims) {
            for (int after = 0; after <= fims; ++after) {
                SimulatedLdb ldb = board(fims);
                ldb.setLoopFault(LoopFaultKind::Open, FaultPhase::Present, after, kStart);
                const ReferenceCounter counter = track(ldb, Mode::Commissioning, period);
                // A side with a single FIM shows 0: its only step falls into the first inhibit.
                const auto shown = [](int count) {
                    return count == 1 ? 0 : count;
                };
                QCOMPARE(counter.primaryCount(), shown(after));
                QCOMPARE(counter.secondaryCount(), shown(fims - after));
                QCOMPARE(counter.primaryResult(), ReferenceCounter::Open);
                QCOMPARE(counter.secondaryResult(), ReferenceCounter::Open);
            }
        }
    }
}

void LoopTimingTest::countsUpToAShort()
{
    for (const qint64 period : kSamplePeriods) {
        for (int fims = 2; fims <= 12; ++fims) {
            for (int after = 1; after < fims; ++after) {
                SimulatedLdb ldb = board(fims);
                ldb.setLoopFault(LoopFaultKind::Short, FaultPhase::Present, after, kStart);
                const ReferenceCounter counter = track(ldb, Mode::Commissioning, period);
                QCOMPARE(counter.primaryCount(), after);
                QCOMPARE(counter.secondaryCount(), fims - after);
                QCOMPARE(counter.primaryResult(), ReferenceCounter::Short);
                QCOMPARE(counter.secondaryResult(), ReferenceCounter::Short);
            }
        }
    }
}

void LoopTimingTest::countsFromThePrimaryPortAlone()
{
    for (int fims = 2; fims <= 12; ++fims) {
        SimulatedLdb ldb = board(fims);
        ldb.setSecondaryConnected(false, kStart);
        const ReferenceCounter healthy = track(ldb, Mode::FaultFinding, kSamplePeriods[0]);
        QCOMPARE(healthy.primaryCount(), fims);
        QCOMPARE(healthy.primaryResult(), ReferenceCounter::Open);
        for (int after = 1; after < fims; ++after) {
            SimulatedLdb shorted = ldb;
            shorted.setLoopFault(LoopFaultKind::Short, FaultPhase::Present, after, kStart);
            const ReferenceCounter counter = track(shorted, Mode::FaultFinding, kSamplePeriods[0]);
            QCOMPARE(counter.primaryCount(), after);
            QCOMPARE(counter.primaryResult(), ReferenceCounter::Short);
        }
    }
}

void LoopTimingTest::placesALeakWithinOneFim_data()
{
    QTest::addColumn<LoopFaultKind>("kind");
    QTest::newRow("earth leakage") << LoopFaultKind::EarthLeakage;
    QTest::newRow("DC leakage") << LoopFaultKind::DcLeakage;
}

void LoopTimingTest::placesALeakWithinOneFim()
{
    QFETCH(LoopFaultKind, kind);
    for (int fims = 2; fims <= 12; ++fims) {
        for (int after = 1; after < fims; ++after) {
            SimulatedLdb ldb = board(fims);
            ldb.setLoopFault(kind, FaultPhase::Present, after, kStart);
            // Slot numbers of the FIMs beside the leak: the front that comes first finds it.
            const bool isPrimaryFirst = 2 * after - 1 < 2 * (fims - after - 1);
            std::optional<int> distance;
            const ReferenceCounter counter =
                track(ldb, Mode::Commissioning, kSamplePeriods[0],
                      [&](const ReferenceCounter& state, const LdbStatus& status) {
                          const bool leaks = kind == LoopFaultKind::EarthLeakage
                                                 ? status.earthState() == LdbEarthState::Leakage
                                                 : (static_cast<int>(status.loopState()) & 16) != 0;
                          if (leaks && !distance) {
                              distance = isPrimaryFirst
                                             ? state.primaryPosition() - after
                                             : state.secondaryPosition() - (fims - after);
                          }
                      });
            QVERIFY2(distance && qAbs(*distance) <= 1,
                     qPrintable(QStringLiteral("%1 of %2").arg(after).arg(fims)));
            // The leak does not disturb the count.
            QCOMPARE(counter.primaryCount() + counter.secondaryCount(), fims);
            QCOMPARE(counter.primaryResult(), ReferenceCounter::Connected);
        }
    }
}

void LoopTimingTest::findsSeveralFaultsAtOnce()
{
    SimulatedLdb ldb = board(12);
    ldb.setLoopFault(LoopFaultKind::Open, FaultPhase::Present, 9, kStart);
    ldb.setLoopFault(LoopFaultKind::Open, FaultPhase::Present, 4, kStart);
    ldb.setLoopFault(LoopFaultKind::EarthLeakage, FaultPhase::Present, 2, kStart);
    int position = -1;
    const ReferenceCounter counter =
        track(ldb, Mode::Commissioning, kSamplePeriods[0],
              [&position](const ReferenceCounter& state, const LdbStatus& status) {
                  if (status.earthState() == LdbEarthState::Leakage && position < 0) {
                      position = state.primaryPosition();
                  }
              });
    QCOMPARE(counter.primaryCount(), 4);
    QCOMPARE(counter.secondaryCount(), 3);
    QCOMPARE(position, 2);
}

/// The table itself, for a loop of five: which port steps when, and what the loop state says.
void LoopTimingTest::followsTheTimeTable()
{
    LoopModel loop(5);
    loop.start(0);
    struct Moment
    {
        qint64 time;
        int primarySteps;
        int secondarySteps;
        FaultPhase open;
    };
    constexpr Moment kMoments[] = {
        {5999, 0, 0, FaultPhase::Clear},    {6000, 0, 0, FaultPhase::Present},
        {7999, 0, 0, FaultPhase::Present},  {8000, 0, 1, FaultPhase::Present},
        {9999, 0, 1, FaultPhase::Present},  {10000, 1, 1, FaultPhase::Present},
        {29999, 1, 1, FaultPhase::Present}, {30000, 1, 2, FaultPhase::Present},
        {47999, 1, 2, FaultPhase::Present}, {48000, 2, 2, FaultPhase::Present},
        {65999, 2, 2, FaultPhase::Present}, {66000, 2, 3, FaultPhase::Present},
        {83999, 2, 3, FaultPhase::Present}, {84000, 3, 3, FaultPhase::Present},
        {97999, 3, 3, FaultPhase::Present}, {98000, 3, 3, FaultPhase::Memory},
        {900000, 3, 3, FaultPhase::Memory},
    };
    loop.advance(5000);
    const int base = loop.current(LoopPort::Primary);
    for (const Moment& moment : kMoments) {
        loop.advance(moment.time);
        QCOMPARE(loop.current(LoopPort::Primary) - base, 40 * moment.primarySteps);
        QCOMPARE(loop.current(LoopPort::Secondary) - base, 40 * moment.secondarySteps);
        QCOMPARE(loop.phase(LoopFaultKind::Open), moment.open);
    }
}

QTEST_APPLESS_MAIN(LoopTimingTest)
#include "tst_looptiming.moc"
