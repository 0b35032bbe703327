#include "tests/support/sandbox.h"
#include "tests/support/testprogram.h"
#include "tracking/counting/fimcounter.h"

namespace {

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

    void pass(qint64 milliseconds)
    {
        now += milliseconds;
        counter.advance(now);
    }
    void feed()
    {
        const auto state = static_cast<LdbLoopState>(loopState);
        counter.setLoopState(state);
        counter.processCurrent(current.primary, current.secondary);
        counter.processShort(state, current.primary, current.secondary);
        counter.processLoopClosed(state);
    }
    /// A row of another state of the loop, in which it stays.
    void feed(int state)
    {
        loopState = state;
        feed();
    }
    /// A row with more current.
    void rise(int ldbPort, double by)
    {
        current[ldbPort] += by;
        feed();
    }
    /// Rows at the pace of the bus for this long; the last one stands at its end.
    void run(qint64 milliseconds)
    {
        for (; milliseconds > 0; milliseconds -= kRowPeriod) {
            pass(std::min<qint64>(kRowPeriod, milliseconds));
            feed();
        }
    }
    /// Steps of one side, so far apart; only the first one waits for the first inhibit.
    void countSteps(int ldbPort, int count, qint64 spacing)
    {
        for (int i = 0; i < count; ++i) {
            run(i == 0 ? 25000 : spacing);
            rise(ldbPort, kStep);
        }
    }

    FimCounter counter;
    QSignalSpy finished;
    QSignalSpy results;
    qint64 now = 0;
    BySide<double> current{kBase, kBase};
    int loopState = kOpen;
};

} // namespace

class TestFimCounter : public TestCase
{
    Q_OBJECT
private slots:
    void startupNeedsMoreThanThreshold()
    {
        TrackingThresholds thresholds;
        thresholds.fimStartup = {11, 25};
        const FimCounter counter(thresholds);
        // A mean of 0 keeps the subtraction exact.
        const auto isDetected = [&counter](int port, double rise) {
            return counter.isStartupDetected(port, rise, 0, false);
        };
        QVERIFY(!isDetected(PrimaryPort, 11.0));
        QVERIFY(isDetected(PrimaryPort, 11.01));
        QVERIFY(!isDetected(SecondaryPort, 25.0));
        QVERIFY(isDetected(SecondaryPort, 25.01));
        QVERIFY(!isDetected(PrimaryPort, -50.0));
    }

    void meanCoversTwentySamples()
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

    void noStepCountsTooSoon()
    {
        // What a step counts so many ms after the first sample, or after a former step.
        const auto counted = [](int port, int former, int stepAt) {
            Bench bench;
            bench.feed();
            bench.countSteps(port, former, 0);
            bench.run(stepAt - 1000);
            bench.pass(1000);
            bench.rise(port, 10 * kStep);
            return bench.counter.fimCount(port) - former;
        };
        QCOMPARE(counted(PrimaryPort, 0, 21999), 0);
        QCOMPARE(counted(PrimaryPort, 0, 22000), 1);
        QCOMPARE(counted(SecondaryPort, 0, 23999), 0);
        QCOMPARE(counted(SecondaryPort, 0, 24000), 1);
        for (int port : {PrimaryPort, SecondaryPort}) {
            QCOMPARE(counted(port, 1, 15999), 0);
            QCOMPARE(counted(port, 1, 16000), 1);
        }
    }

    void sideEndsInTime_data()
    {
        const Table<int, int, int> row("port", "steps", "period");
        row("primary without a step", 0, 0, 70000);
        row("primary after steps, each in time", 0, 3, 70000);
        row("secondary after steps, each in time", 1, 3, 100000);
        row("secondary without a step", 1, 0, 50000);
    }

    void sideEndsInTime()
    {
        QFETCH(int, port);
        QFETCH(int, steps);
        QFETCH(int, period);
        Bench bench;
        bench.counter.setSecondarySideTracked(port == 1);
        bench.feed();
        bench.countSteps(port, steps, period - 1000);
        QCOMPARE(bench.counter.fimCount(port), steps);
        QCOMPARE(bench.counter.millisecondsToSideEnd(port).value_or(-1), period);

        // Rows until the step has become the mean.
        constexpr int kSettling = 15000;
        bench.run(kSettling);
        bench.pass(period - kSettling - 1);
        bench.feed();
        QVERIFY(!bench.counter.isSideFinished(port));
        QCOMPARE(bench.counter.millisecondsToSideEnd(port).value_or(-1), 1);
        bench.pass(1);
        bench.feed();
        QVERIFY(bench.counter.isSideFinished(port));
        QCOMPARE(bench.finished.last().at(0).toInt(), port);
        QCOMPARE(bench.finished.last().at(1).value<SideEnd>(), SideEnd::Open);
        QVERIFY(!bench.counter.millisecondsToSideEnd(port).has_value());
        // A finished side counts no more.
        const int count = bench.counter.fimCount(port);
        bench.rise(port, kStep);
        QCOMPARE(bench.counter.fimCount(port), count);
    }

    void armingAndClosing()
    {
        const QList<int> arming{1, 9, 17, 25, 33, 41};
        const QList<int> closing{2, 10, 18, 26, 34, 42};
        for (int code = 0; code < 128; ++code) {
            const auto state = static_cast<LdbLoopState>(code);
            const QByteArray number = QByteArray::number(code);
            const char* const name = number.constData();
            Bench bench;
            bench.counter.processLoopClosed(state);
            QVERIFY2(bench.counter.isTrackingArmed() == arming.contains(code), name);

            bench.counter.processLoopClosed(LdbLoopState::Open);
            bench.counter.processLoopClosed(state);
            bench.pass(3999);
            // A second record does not put the closing off.
            bench.counter.processLoopClosed(state);
            QVERIFY2(bench.finished.isEmpty(), name);
            bench.pass(1);
            QVERIFY2(bench.finished.size() == (closing.contains(code) ? 2 : 0), name);
        }
    }

    void loopHasToStayClosedUntilAShort()
    {
        Bench bench;
        bench.feed();
        bench.feed(kClosedAgain);
        bench.pass(3000);
        bench.feed(kShorted);
        bench.pass(5000);
        QCOMPARE(bench.finished.size(), 0);
    }

    void shortDetection()
    {
        const auto ended = [](int port, double surge, int state, bool isArmed = true) {
            Bench bench;
            bench.feed(isArmed ? kOpen : 0);
            bench.run(15000);
            bench.loopState = state;
            bench.rise(port, surge);
            QStringList ends;
            for (const QList<QVariant>& end : bench.finished) {
                ends.append(QStringLiteral("%1 %2")
                                .arg(end.at(0).toInt())
                                .arg(static_cast<int>(end.at(1).value<SideEnd>())));
            }
            return ends.join(", ");
        };
        // With the surge itself in the twenty samples, 19/20 of it stand above the mean.
        constexpr double kAtLimit = 220.0 * 20 / 19;
        for (int port : {PrimaryPort, SecondaryPort}) {
            const QString shorted = QStringLiteral("%1 2").arg(port);
            QCOMPARE(ended(port, kSurge, kShorted), shorted);
            QCOMPARE(ended(port, kSurge, kShorted | kClosedAgain), shorted);
            QCOMPARE(ended(port, kAtLimit + 0.1, kShorted), shorted);
            QCOMPARE(ended(port, kAtLimit - 0.1, kShorted), QString());
            QCOMPARE(ended(port, kSurge, 12), QString()); // with a remembered short
            QCOMPARE(ended(port, kSurge, kOpen), QString());
            QCOMPARE(ended(port, kSurge, kShorted, false), QString());
        }
    }

    void shortIsForgotten()
    {
        Bench bench;
        bench.feed();
        bench.run(10000);
        bench.rise(PrimaryPort, kSurge);
        bench.current.primary -= kSurge;
        bench.pass(3999);
        QVERIFY(!bench.counter.isSideFinished(PrimaryPort));
        bench.pass(1);
        bench.feed(kShorted);
        QVERIFY2(!bench.counter.isSideFinished(PrimaryPort), "the surge is older than 4 s");

        bench.rise(PrimaryPort, 2 * kSurge);
        QVERIFY(bench.counter.isSideFinished(PrimaryPort));
    }

    void markerEndsSideAsShort()
    {
        for (int port : {0, 1}) {
            for (int state : {0, 1, 2, 4, 10, 17}) {
                Bench bench;
                bench.current[port] = kMarker;
                bench.feed(0);
                QVERIFY2(!bench.counter.isSideFinished(port), "not armed");
                bench.loopState = kOpen;
                bench.current[port] = kBase;
                bench.feed();
                bench.current[port] = kMarker;
                bench.feed(state);
                QVERIFY(bench.counter.isSideFinished(port));
                QVERIFY(!bench.counter.isSideFinished(otherPort(port)));
                QCOMPARE(bench.finished.last().at(1).value<SideEnd>(), SideEnd::Short);
            }
        }
    }

    void corrections_data()
    {
        const Table<int, int, int, int, int, bool, int> row("port", "steps", "spacing", "wait",
                                                            "state", "otherShortedFirst", "count");
        constexpr int kFar = 40000;
        constexpr int kClose = 20000; // within both sides' step spacing
        constexpr int kStale = 17000;
        constexpr int kFresh = 15000; // less than the inhibit
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

    void corrections()
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
        bench.pass(wait);
        bench.counter.setLoopState(static_cast<LdbLoopState>(state));
        bench.counter.consecutiveCountTimeout(port);
        QTEST(bench.counter.fimCount(port), "count");
        QCOMPARE(bench.finished.last().at(1).value<SideEnd>(),
                 state == kOpen ? SideEnd::Open : SideEnd::Connected);
    }

    void primaryForgetsShortAtItsFirstStep()
    {
        // A surge that is no short of its own costs the primary side one FIM when it ends open, but
        // not one that came before its first step.
        for (const bool isEarly : {false, true}) {
            Bench bench;
            bench.feed();
            bench.countSteps(PrimaryPort, isEarly ? 0 : 2, 40000);
            bench.run(5000);
            bench.rise(PrimaryPort, kSurge);
            bench.current.primary -= kSurge;
            bench.run(5000);
            bench.countSteps(PrimaryPort, isEarly ? 2 : 0, 40000);
            bench.run(5000);
            bench.counter.consecutiveCountTimeout(PrimaryPort);
            QCOMPARE(bench.counter.fimCount(PrimaryPort), isEarly ? 3 : 2);
        }
    }

    void untrackedSecondary()
    {
        Bench bench;
        bench.counter.setSecondarySideTracked(false);
        bench.feed();
        bench.run(40000);
        bench.rise(SecondaryPort, kSurge);
        bench.feed(kShorted);
        QCOMPARE(bench.counter.fimCount(SecondaryPort), 0);
        QVERIFY(!bench.counter.isSideFinished(SecondaryPort));

        // The closing of the loop and a short end the untracked side all the same.
        bench.counter.reset();
        bench.feed(kOpen);
        bench.feed(kClosedAgain);
        bench.pass(4000);
        QVERIFY(bench.counter.isSideFinished(SecondaryPort));
        QCOMPARE(bench.counter.sideResult(SecondaryPort), SideEnd::Connected);

        bench.counter.reset();
        bench.feed(kOpen);
        bench.current = {kMarker, kMarker};
        bench.feed();
        QCOMPARE(bench.results.last().at(1).value<LoopResult>(), LoopResult::BothShort);
    }

    void faultPositions()
    {
        const auto position = [](int port, int count, bool otherShortedFirst) {
            Bench bench;
            bench.feed();
            if (otherShortedFirst) {
                bench.current[otherPort(port)] = kMarker;
                bench.feed();
            }
            for (int i = 0; i < count; ++i) {
                bench.counter.increaseCount(port);
            }
            // A side that has ended tells no position.
            return bench.counter.faultPosition(otherPort(port)).has_value() == otherShortedFirst
                       ? -1
                       : bench.counter.faultPosition(port).value_or(-1);
        };
        for (int port : {PrimaryPort, SecondaryPort}) {
            QCOMPARE(position(port, 0, false), 0);
            QCOMPARE(position(port, 0, true), 0);
            QCOMPARE(position(port, 1, false), 2);
            QCOMPARE(position(port, 1, true), 0);
            QCOMPARE(position(port, 2, true), 2);
            QCOMPARE(position(port, 4, false), 5);
        }
    }

    void resetLeavesNothingRunning()
    {
        Bench bench;
        bench.feed();
        bench.countSteps(PrimaryPort, 1, 0);
        bench.feed(kClosedAgain);
        bench.counter.reset();
        bench.pass(200000);
        QCOMPARE(bench.finished.size(), 0);
        QCOMPARE(bench.counter.fimCount(PrimaryPort), 0);
        QVERIFY(!bench.counter.isTrackingArmed());
        QVERIFY(!bench.counter.isSideTracked(SecondaryPort));
        // The mean goes on from the samples before.
        const double mean = bench.counter.updateAverageCurrent(PrimaryPort, kBase);
        QVERIFY(mean > kBase);
    }

    void thresholdsFromTuningFile()
    {
        const TrackingThresholds builtIn = TrackingThresholds::fromTuningFile(); // there is none
        QCOMPARE(builtIn.shortDetection, 220.0);
        QCOMPARE(builtIn.fimStartup.primary, 11.0);
        QCOMPARE(builtIn.fimStartup.secondary, 11.0);
        m_sandbox->writeTuning(
            "[FimTracking]\nSHORT_DETECTION_CURRENT=300\n"
            "PRIMARY_FIM_STARTUP_CURRENT=12\nSECONDARY_FIM_STARTUP_CURRENT=13\n");
        const TrackingThresholds thresholds = TrackingThresholds::fromTuningFile();
        QCOMPARE(thresholds.shortDetection, 300.0);
        QCOMPARE(thresholds.fimStartup.primary, 12.0);
        QCOMPARE(thresholds.fimStartup.secondary, 13.0);
    }
};

REGISTER_TEST(TestFimCounter, QCoreApplication)

#include "tst_fimcounter.moc"
