#include "tests/support/sandbox.h"
#include "tests/support/testcase.h"
#include "tests/support/virtualtime.h"
#include "tracking/fimcounter.h"

#include <QCoreApplication>
#include <QSignalSpy>

namespace {

VirtualTime* virtualTime = nullptr;

constexpr double kMarker = -40000.0;
constexpr double kBase = 1000;
constexpr double kStep = 40;
constexpr double kSurge = 600;
constexpr int kRowPeriod = 500;
constexpr int kOpen = 1;
constexpr int kClosedAgain = 2;
constexpr int kShorted = 4;

/// A counter together with the currents that its LDB reports.
struct Bench
{
    explicit Bench(const TrackingThresholds& thresholds = {})
        : counter(thresholds)
        , finished(&counter, &FimCounter::sideFinished)
        , results(&counter, &FimCounter::resultsReady)
    {
        counter.reset();
        counter.setSecondarySideTracked(true);
    }

    void feed()
    {
        const auto state = static_cast<LdbLoopState>(loopState);
        counter.setLoopState(state);
        counter.processCurrent(current.primary, current.secondary);
        counter.processShort(state, current.primary, current.secondary);
        counter.processLoopClosed(state);
    }
    /// Rows at the pace of the bus for this long; the last one stands at its end.
    void run(qint64 milliseconds)
    {
        for (; milliseconds > 0; milliseconds -= kRowPeriod) {
            virtualTime->advance(std::min<qint64>(kRowPeriod, milliseconds));
            feed();
        }
    }
    /// Steps of one side, so far apart; only the first one waits for the first inhibit.
    void countSteps(int ldbPort, int count, qint64 spacing)
    {
        for (int i = 0; i < count; ++i) {
            run(i == 0 ? 25000 : spacing);
            current[ldbPort] += kStep;
            feed();
        }
    }

    FimCounter counter;
    QSignalSpy finished;
    QSignalSpy results;
    BySide<double> current{kBase, kBase};
    int loopState = kOpen;
};

} // namespace

class TestFimCounter : public TestCase
{
    Q_OBJECT
private slots:
    void startupNeedsMoreThanThreshold_data();
    void startupNeedsMoreThanThreshold();
    void meanCoversTwentySamples();
    void inhibitAfterFirstSample_data();
    void inhibitAfterFirstSample();
    void inhibitAfterCountedStep_data();
    void inhibitAfterCountedStep();
    void sideEndsInTime_data();
    void sideEndsInTime();
    void stepPutsTheEndOff_data();
    void stepPutsTheEndOff();
    void armingAndClosing_data();
    void armingAndClosing();
    void loopHasToStayClosedUntilAShort();
    void shortDetection_data();
    void shortDetection();
    void shortIsForgotten();
    void markerEndsSideAsShort_data();
    void markerEndsSideAsShort();
    void corrections_data();
    void corrections();
    void primaryForgetsShortAtItsFirstStep();
    void loopResults_data();
    void loopResults();
    void untrackedSecondary();
    void faultPositions_data();
    void faultPositions();
    void numbersThatAreNoPort();
    void resetLeavesNothingRunning();
    void thresholdsFromTuningFile_data();
    void thresholdsFromTuningFile();
};

void TestFimCounter::startupNeedsMoreThanThreshold_data()
{
    QTest::addColumn<int>("port");
    QTest::addColumn<double>("rise");
    QTest::addColumn<bool>("inhibited");
    QTest::addColumn<bool>("detected");
    QTest::newRow("primary at the threshold") << 0 << 11.0 << false << false;
    QTest::newRow("primary above it") << 0 << 11.01 << false << true;
    QTest::newRow("primary above it, inhibited") << 0 << 500.0 << true << false;
    QTest::newRow("secondary at its own threshold") << 1 << 25.0 << false << false;
    QTest::newRow("secondary above it") << 1 << 25.01 << false << true;
    QTest::newRow("a fall") << 0 << -50.0 << false << false;
    QTest::newRow("no port") << 2 << 500.0 << false << false;
}

void TestFimCounter::startupNeedsMoreThanThreshold()
{
    QFETCH(int, port);
    QFETCH(double, rise);
    QFETCH(bool, inhibited);
    TrackingThresholds thresholds;
    thresholds.fimStartup = {11, 25};
    const FimCounter counter(thresholds);
    // A mean of 0 keeps the subtraction exact.
    QTEST(counter.isStartupDetected(port, rise, 0, inhibited), "detected");
}

void TestFimCounter::meanCoversTwentySamples()
{
    FimCounter counter({});
    QCOMPARE(counter.updateAverageCurrent(0, 500), 500.0);
    QCOMPARE(counter.updateAverageCurrent(0, 100), 300.0);
    for (int i = 0; i < 18; ++i) {
        counter.updateAverageCurrent(0, 100);
    }
    // The 21st pushes out the 500; the other port knows nothing of all this.
    QCOMPARE(counter.updateAverageCurrent(0, 300), 110.0);
    QCOMPARE(counter.updateAverageCurrent(1, 7), 7.0);
}

void TestFimCounter::inhibitAfterFirstSample_data()
{
    QTest::addColumn<int>("port");
    QTest::addColumn<int>("stepAt");
    QTest::addColumn<int>("count");
    QTest::newRow("primary before 22 s") << 0 << 21999 << 0;
    QTest::newRow("primary at 22 s") << 0 << 22000 << 1;
    QTest::newRow("secondary before 24 s") << 1 << 23999 << 0;
    QTest::newRow("secondary at 24 s") << 1 << 24000 << 1;
}

void TestFimCounter::inhibitAfterFirstSample()
{
    QFETCH(int, port);
    QFETCH(int, stepAt);
    Bench bench;
    bench.feed();
    bench.run(20000);
    virtualTime->advance(stepAt - 20000);
    bench.current[port] += kStep;
    bench.feed();
    QTEST(bench.counter.fimCount(port), "count");
    QCOMPARE(bench.counter.fimCount(otherPort(port)), 0);
}

void TestFimCounter::inhibitAfterCountedStep_data()
{
    QTest::addColumn<int>("port");
    QTest::addColumn<int>("spacing");
    QTest::addColumn<int>("count");
    for (int port : {0, 1}) {
        const char* name = port == 0 ? "primary" : "secondary";
        QTest::addRow("%s before 16 s", name) << port << 15999 << 1;
        QTest::addRow("%s at 16 s", name) << port << 16000 << 2;
    }
}

void TestFimCounter::inhibitAfterCountedStep()
{
    QFETCH(int, port);
    QFETCH(int, spacing);
    Bench bench;
    bench.feed();
    bench.countSteps(port, 1, 0);
    QCOMPARE(bench.counter.fimCount(port), 1);
    bench.run(15000);
    virtualTime->advance(spacing - 15000);
    bench.current[port] += 10 * kStep;
    bench.feed();
    QTEST(bench.counter.fimCount(port), "count");
}

void TestFimCounter::sideEndsInTime_data()
{
    QTest::addColumn<int>("port");
    QTest::addColumn<int>("steps");
    QTest::addColumn<int>("period");
    QTest::newRow("primary without a step") << 0 << 0 << 70000;
    QTest::newRow("primary after a step") << 0 << 1 << 70000;
    QTest::newRow("secondary after a step") << 1 << 1 << 100000;
    QTest::newRow("secondary without a step") << 1 << 0 << 50000;
}

void TestFimCounter::sideEndsInTime()
{
    QFETCH(int, port);
    QFETCH(int, steps);
    QFETCH(int, period);
    Bench bench;
    bench.counter.setSecondarySideTracked(port == 1);
    bench.feed();
    bench.countSteps(port, steps, 0);
    QCOMPARE(bench.counter.millisecondsToSideEnd(port).value_or(-1), period);

    // Rows until the step has become the mean.
    constexpr int kSettling = 15000;
    bench.run(kSettling);
    virtualTime->advance(period - kSettling - 1);
    bench.feed();
    QVERIFY(!bench.counter.isSideFinished(port));
    QCOMPARE(bench.counter.millisecondsToSideEnd(port).value_or(-1), 1);
    virtualTime->advance(1);
    bench.feed();
    QVERIFY(bench.counter.isSideFinished(port));
    QCOMPARE(bench.finished.last().at(0).toInt(), port);
    QCOMPARE(bench.finished.last().at(1).toString(), QStringLiteral("Timeout: Open Detected"));
    QVERIFY(!bench.counter.millisecondsToSideEnd(port).has_value());
}

void TestFimCounter::stepPutsTheEndOff_data()
{
    QTest::addColumn<int>("port");
    QTest::addColumn<int>("period");
    QTest::newRow("primary") << 0 << 70000;
    QTest::newRow("secondary") << 1 << 100000;
}

void TestFimCounter::stepPutsTheEndOff()
{
    QFETCH(int, port);
    QFETCH(int, period);
    Bench bench;
    bench.feed();
    bench.countSteps(port, 3, period - 1000);
    QCOMPARE(bench.counter.fimCount(port), 3);
    QVERIFY(!bench.counter.isSideFinished(port));
    virtualTime->advance(period);
    QVERIFY(bench.counter.isSideFinished(port));
    // A finished side counts no more.
    const int count = bench.counter.fimCount(port);
    bench.current[port] += kStep;
    bench.feed();
    QCOMPARE(bench.counter.fimCount(port), count);
}

void TestFimCounter::armingAndClosing_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<bool>("arms");
    QTest::addColumn<bool>("closes");
    const QList<int> arming{1, 9, 17, 25, 33, 41};
    const QList<int> closing{2, 10, 18, 26, 34, 42};
    for (int state = 0; state < 128; ++state) {
        QTest::addRow("state %d", state)
            << state << arming.contains(state) << closing.contains(state);
    }
}

void TestFimCounter::armingAndClosing()
{
    QFETCH(int, state);
    QFETCH(bool, arms);
    QFETCH(bool, closes);
    Bench bench;
    bench.counter.processLoopClosed(static_cast<LdbLoopState>(state));
    QCOMPARE(bench.counter.isTrackingArmed(), arms);

    bench.counter.processLoopClosed(LdbLoopState::Open);
    bench.counter.processLoopClosed(static_cast<LdbLoopState>(state));
    virtualTime->advance(3999);
    // A second record does not put the closing off.
    bench.counter.processLoopClosed(static_cast<LdbLoopState>(state));
    QCOMPARE(bench.finished.size(), 0);
    virtualTime->advance(1);
    QCOMPARE(bench.finished.size(), closes ? 2 : 0);
}

void TestFimCounter::loopHasToStayClosedUntilAShort()
{
    Bench bench;
    bench.feed();
    bench.loopState = kClosedAgain;
    bench.feed();
    virtualTime->advance(3000);
    bench.loopState = kShorted;
    bench.feed();
    virtualTime->advance(5000);
    QCOMPARE(bench.finished.size(), 0);
}

void TestFimCounter::shortDetection_data()
{
    QTest::addColumn<int>("port");
    QTest::addColumn<double>("surge");
    QTest::addColumn<int>("state");
    QTest::addColumn<bool>("armed");
    QTest::addColumn<bool>("ends");
    // With the surge itself in the twenty samples, 19/20 of it stand above the mean.
    constexpr double kAtLimit = 220.0 * 20 / 19;
    for (int port : {0, 1}) {
        const char* name = port == 0 ? "primary" : "secondary";
        QTest::addRow("%s surge, state 4", name) << port << kSurge << 4 << true << true;
        QTest::addRow("%s surge, state 6", name) << port << kSurge << 6 << true << true;
        QTest::addRow("%s surge, state 12", name) << port << kSurge << 12 << true << false;
        QTest::addRow("%s surge, state 20", name) << port << kSurge << 20 << true << false;
        QTest::addRow("%s surge, still open", name) << port << kSurge << 1 << true << false;
        QTest::addRow("%s surge, not armed", name) << port << kSurge << 4 << false << false;
        QTest::addRow("%s below the limit", name) << port << kAtLimit - 0.1 << 4 << true << false;
        QTest::addRow("%s above the limit", name) << port << kAtLimit + 0.1 << 4 << true << true;
    }
}

void TestFimCounter::shortDetection()
{
    QFETCH(int, port);
    QFETCH(double, surge);
    QFETCH(int, state);
    QFETCH(bool, armed);
    QFETCH(bool, ends);
    Bench bench;
    bench.loopState = armed ? kOpen : 0;
    bench.feed();
    bench.run(15000);
    bench.loopState = state;
    bench.current[port] += surge;
    bench.feed();
    QCOMPARE(bench.counter.isSideFinished(port), ends);
    QVERIFY(!bench.counter.isSideFinished(otherPort(port)));
    if (ends) {
        QCOMPARE(bench.counter.sideResult(port), SideEnd::Short);
    }
}

void TestFimCounter::shortIsForgotten()
{
    Bench bench;
    bench.feed();
    bench.run(10000);
    bench.current.primary += kSurge;
    bench.feed();
    bench.current.primary -= kSurge;
    virtualTime->advance(3999);
    QVERIFY(!bench.counter.isSideFinished(PrimaryPort));
    virtualTime->advance(1);
    bench.loopState = kShorted;
    bench.feed();
    QVERIFY2(!bench.counter.isSideFinished(PrimaryPort), "the surge is older than 4 s");

    bench.current.primary += 2 * kSurge;
    bench.feed();
    QVERIFY(bench.counter.isSideFinished(PrimaryPort));
}

void TestFimCounter::markerEndsSideAsShort_data()
{
    QTest::addColumn<int>("port");
    QTest::addColumn<int>("state");
    for (int port : {0, 1}) {
        for (int state : {0, 1, 2, 4, 10, 17}) {
            QTest::addRow("%s, state %d", port == 0 ? "primary" : "secondary", state)
                << port << state;
        }
    }
}

void TestFimCounter::markerEndsSideAsShort()
{
    QFETCH(int, port);
    QFETCH(int, state);
    Bench bench;
    bench.current[port] = kMarker;
    bench.loopState = 0;
    bench.feed();
    QVERIFY2(!bench.counter.isSideFinished(port), "not armed");
    bench.loopState = kOpen;
    bench.current[port] = kBase;
    bench.feed();
    bench.current[port] = kMarker;
    bench.loopState = state;
    bench.feed();
    QVERIFY(bench.counter.isSideFinished(port));
    QVERIFY(!bench.counter.isSideFinished(otherPort(port)));
    QCOMPARE(bench.finished.last().at(1).toString(), QStringLiteral("Timeout: Short Detected"));
    QCOMPARE(bench.counter.sideResult(port), SideEnd::Short);
}

void TestFimCounter::corrections_data()
{
    QTest::addColumn<int>("port");
    QTest::addColumn<int>("steps");
    QTest::addColumn<int>("spacing");
    QTest::addColumn<int>("wait");
    QTest::addColumn<int>("state");
    QTest::addColumn<bool>("otherShortedFirst");
    QTest::addColumn<int>("count");
    constexpr int kFar = 40000;
    constexpr int kClose = 20000; // within both sides' step spacing
    constexpr int kStale = 17000;
    constexpr int kFresh = 15000; // less than the inhibit
    const auto row = [](const char* name, int port, int steps, int spacing, int wait, int state,
                        bool otherShortedFirst, int count) {
        QTest::newRow(name) << port << steps << spacing << wait << state << otherShortedFirst
                            << count;
    };
    row("primary connected", 0, 3, kFar, kStale, 2, false, 3);
    row("primary connected, close step", 0, 3, kClose, kStale, 2, false, 2);
    row("primary connected, fresh step", 0, 3, kFar, kFresh, 2, false, 3);
    row("primary connected, other short", 0, 3, kFar, kStale, 2, true, 3);
    row("primary connected, none", 0, 0, kFar, kStale, 2, false, 0);
    row("primary open, none", 0, 0, kFar, kStale, 1, false, 0);
    row("primary open", 0, 1, kFar, kStale, 1, false, 2);
    row("primary open, close step", 0, 2, kClose, kStale, 1, false, 3);
    row("primary open, other short", 0, 2, kFar, kStale, 1, true, 2);
    row("primary open, none, other short", 0, 0, kFar, kStale, 1, true, 0);
    row("secondary connected", 1, 2, kFar, kStale, 2, false, 3);
    row("secondary connected, close step", 1, 2, kClose, kStale, 2, false, 2);
    row("secondary connected, fresh step", 1, 2, kFar, kFresh, 2, false, 2);
    row("secondary connected, close and fresh", 1, 2, kClose, kFresh, 2, false, 1);
    row("secondary connected, none", 1, 0, kFar, kStale, 2, false, 0);
    row("secondary open", 1, 1, kFar, kStale, 1, false, 2);
    row("secondary open, fresh step", 1, 1, kFar, kFresh, 1, false, 2);
    row("secondary open, other short, one left", 1, 1, kFar, kStale, 1, true, 0);
    row("secondary open, other short, two left", 1, 2, kFar, kStale, 1, true, 2);
    row("secondary open, none, other short", 1, 0, kFar, kStale, 1, true, 0);
}

void TestFimCounter::corrections()
{
    QFETCH(int, port);
    QFETCH(int, steps);
    QFETCH(int, spacing);
    QFETCH(int, wait);
    QFETCH(int, state);
    QFETCH(bool, otherShortedFirst);
    Bench bench;
    bench.feed();
    if (otherShortedFirst) {
        bench.current[otherPort(port)] = kMarker;
        bench.feed();
        bench.current[otherPort(port)] = kBase;
    }
    bench.countSteps(port, steps, spacing);
    QCOMPARE(bench.counter.fimCount(port), steps);
    virtualTime->advance(wait);
    bench.counter.setLoopState(static_cast<LdbLoopState>(state));
    if (port == PrimaryPort) {
        bench.counter.primaryConsecutiveCountTimeout();
    } else {
        bench.counter.secondaryConsecutiveCountTimeout();
    }
    QTEST(bench.counter.fimCount(port), "count");
    QCOMPARE(bench.finished.last().at(1).toString(),
             state == kOpen ? QStringLiteral("Timeout: Open Detected")
                            : QStringLiteral("Timeout: Side Connected"));
}

void TestFimCounter::primaryForgetsShortAtItsFirstStep()
{
    // A surge that is no short of its own costs the primary side one FIM when it ends open ...
    Bench late;
    late.feed();
    late.countSteps(PrimaryPort, 2, 40000);
    late.run(5000);
    late.current.primary += kSurge;
    late.feed();
    late.current.primary -= kSurge;
    late.feed();
    late.counter.primaryConsecutiveCountTimeout();
    QCOMPARE(late.counter.fimCount(PrimaryPort), 2);

    // ... but not one that came before its first step.
    Bench early;
    early.feed();
    early.run(5000);
    early.current.primary += kSurge;
    early.feed();
    early.current.primary -= kSurge;
    early.run(5000);
    early.countSteps(PrimaryPort, 2, 40000);
    early.run(5000);
    early.counter.primaryConsecutiveCountTimeout();
    QCOMPARE(early.counter.fimCount(PrimaryPort), 3);
}

void TestFimCounter::loopResults_data()
{
    QTest::addColumn<int>("primary");
    QTest::addColumn<int>("secondary");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, int primary, int secondary, int code, const char* text) {
        QTest::newRow(name) << primary << secondary << code << QString::fromLatin1(text);
    };
    // Ends: 0 connected, 1 open, 2 short.
    row("both connected", 0, 0, 0, "Loop is connected");
    row("primary open", 1, 0, 1, "Primary side open detected");
    row("primary short", 2, 0, 2, "Primary side short detected");
    row("secondary open", 0, 1, 4, "Secondary side open detected");
    row("both open", 1, 1, 5, "Both sides open detected");
    row("short, open", 2, 1, 6, "Primary side short detected and Secondary side open detected.");
    row("secondary short", 0, 2, 8, "Secondary side short detected");
    row("open, short", 1, 2, 9, "Primary side open detected and Secondary side short detected.");
    row("both short", 2, 2, 10, "Both sides short detected");
}

void TestFimCounter::loopResults()
{
    QFETCH(int, primary);
    QFETCH(int, secondary);
    QFETCH(int, code);
    QFETCH(QString, text);
    Bench bench;
    bench.feed();
    bench.countSteps(PrimaryPort, 1, 0);
    const BySide<int> ends{primary, secondary};
    for (int port : {0, 1}) {
        if (ends[port] == 2) {
            bench.current[port] = kMarker;
            bench.feed();
            continue;
        }
        bench.counter.setLoopState(ends[port] == 1 ? LdbLoopState::Open : LdbLoopState::Ok);
        if (port == PrimaryPort) {
            bench.counter.primaryConsecutiveCountTimeout();
        } else {
            bench.counter.secondaryConsecutiveCountTimeout();
        }
    }
    QCOMPARE(bench.results.size(), 1);
    const auto result = bench.results.first().at(1).value<LoopResult>();
    QCOMPARE(static_cast<int>(result), code);
    QCOMPARE(trackingresult::loopResultText(result), text);
    const int total = bench.results.first().at(0).toInt();
    QCOMPARE(total, bench.counter.fimCount(0) + bench.counter.fimCount(1));
    QVERIFY(trackingresult::summary(total, result).endsWith(QStringLiteral("  |||  ") + text));
}

void TestFimCounter::untrackedSecondary()
{
    Bench bench;
    bench.counter.setSecondarySideTracked(false);
    bench.feed();
    bench.countSteps(PrimaryPort, 2, 40000);
    bench.current.secondary += kSurge;
    bench.feed();
    QCOMPARE(bench.counter.fimCount(SecondaryPort), 0);
    QVERIFY(!bench.counter.isSideFinished(SecondaryPort));
    virtualTime->advance(70000);
    QCOMPARE(bench.results.size(), 1);
    QCOMPARE(bench.results.first().at(0).toInt(), 3);
    QCOMPARE(bench.results.first().at(1).value<LoopResult>(), LoopResult::PrimaryOpen);

    // The closing of the loop and a short end the untracked side all the same.
    bench.counter.reset();
    bench.feed();
    bench.loopState = kClosedAgain;
    bench.feed();
    virtualTime->advance(4000);
    QVERIFY(bench.counter.isSideFinished(SecondaryPort));
    QCOMPARE(bench.counter.sideResult(SecondaryPort), SideEnd::Connected);

    bench.counter.reset();
    bench.loopState = kOpen;
    bench.feed();
    bench.current = {kMarker, kMarker};
    bench.feed();
    QCOMPARE(bench.results.last().at(1).value<LoopResult>(), LoopResult::BothShort);
}

void TestFimCounter::faultPositions_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("otherShortedFirst");
    QTest::addColumn<int>("position");
    QTest::newRow("none") << 0 << false << 0;
    QTest::newRow("none, other short") << 0 << true << 0;
    QTest::newRow("one") << 1 << false << 2;
    QTest::newRow("one, other short") << 1 << true << 0;
    QTest::newRow("two, other short") << 2 << true << 2;
    QTest::newRow("four") << 4 << false << 5;
}

void TestFimCounter::faultPositions()
{
    QFETCH(int, count);
    QFETCH(bool, otherShortedFirst);
    for (int port : {0, 1}) {
        Bench bench;
        bench.feed();
        if (otherShortedFirst) {
            bench.current[otherPort(port)] = kMarker;
            bench.feed();
        }
        for (int i = 0; i < count; ++i) {
            bench.counter.increaseCount(port);
        }
        QTEST(bench.counter.faultPosition(port).value_or(-1), "position");
        QCOMPARE(bench.counter.faultPosition(otherPort(port)).has_value(), !otherShortedFirst);
    }
}

void TestFimCounter::numbersThatAreNoPort()
{
    FimCounter counter({});
    const QSignalSpy counts(&counter, &FimCounter::countChanged);
    for (int port : {-1, 2}) {
        counter.checkAndStartIntialTimer(port);
        counter.increaseCount(port);
        counter.decreaseCount(port);
        QCOMPARE(counter.updateAverageCurrent(port, 12.5), 12.5);
    }
    QCOMPARE(counts.size(), 0);
    QCOMPARE(virtualTime->registeredTimers(&counter).size(), 0);
    counter.decreaseCount(PrimaryPort);
    QCOMPARE(counts.size(), 1);
    QCOMPARE(counts.first().at(1).toInt(), 0);
}

void TestFimCounter::resetLeavesNothingRunning()
{
    Bench bench;
    bench.feed();
    bench.countSteps(PrimaryPort, 1, 0);
    bench.loopState = kClosedAgain;
    bench.feed();
    bench.counter.reset();
    virtualTime->advance(200000);
    QCOMPARE(bench.finished.size(), 0);
    QCOMPARE(bench.counter.fimCount(PrimaryPort), 0);
    QVERIFY(!bench.counter.isTrackingArmed());
    QVERIFY(!bench.counter.isSideTracked(SecondaryPort));
    // The mean goes on from the samples before.
    const double mean = bench.counter.updateAverageCurrent(PrimaryPort, kBase);
    QVERIFY(mean > kBase);
}

void TestFimCounter::thresholdsFromTuningFile_data()
{
    QTest::addColumn<QByteArray>("ini");
    QTest::addColumn<double>("shortDetection");
    QTest::addColumn<double>("primary");
    QTest::addColumn<double>("secondary");
    QTest::addColumn<bool>("warns");
    QTest::newRow("no group") << QByteArray("[Other]\nx=1\n") << 220.0 << 11.0 << 11.0 << false;
    QTest::newRow("all given") << QByteArray("[FimTracking]\nSHORT_DETECTION_CURRENT=300\n"
                                             "PRIMARY_FIM_STARTUP_CURRENT=12\n"
                                             "SECONDARY_FIM_STARTUP_CURRENT=13\n")
                               << 300.0 << 12.0 << 13.0 << false;
    QTest::newRow("no number") << QByteArray("[FimTracking]\nPRIMARY_FIM_STARTUP_CURRENT=many\n")
                               << 220.0 << 11.0 << 11.0 << true;
}

void TestFimCounter::thresholdsFromTuningFile()
{
    QFETCH(QByteArray, ini);
    QFETCH(bool, warns);
    const Sandbox sandbox;
    sandbox.writeTuning(ini);
    std::unique_ptr<ExpectWarning> expected;
    if (warns) {
        expected = std::make_unique<ExpectWarning>("no whole number");
    }
    const TrackingThresholds thresholds = TrackingThresholds::fromTuningFile();
    QTEST(thresholds.shortDetection, "shortDetection");
    QTEST(thresholds.fimStartup.primary, "primary");
    QTEST(thresholds.fimStartup.secondary, "secondary");
}

int main(int argc, char* argv[])
{
    virtualTime = VirtualTime::install();
    QCoreApplication application(argc, argv);
    TestFimCounter test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_fimcounter.moc"
