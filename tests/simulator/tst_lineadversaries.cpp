#include "tests/simulator/linerun.h"
#include "tests/support/testprogram.h"

#include <set>

using Rate = double Adversaries::*;
Q_DECLARE_METATYPE(Rate)
Q_DECLARE_METATYPE(Harms)

using namespace linerun;

/// What a bad line does to requests and answers, one evil at a time and all together.
class AdversariesTest : public TestCase
{
    Q_OBJECT
private slots:
    /// What happens is the seed's choice; the steps in which a caller goes make no difference.
    void happensAtItsTimeHoweverItIsAsked()
    {
        Adversaries all;
        all.flippedRequests = all.flippedAnswers = all.garbledAnswers = 3;
        all.lostRequests = all.lostAnswers = all.lateAnswers = 3;
        all.strayEvery = 1;
        all.burstEvery = 5;
        all.stallEvery = 20;
        all.vanishEvery = 100;
        for (const LineKind kind :
             {LineKind::FullDuplex, LineKind::HalfDuplex, LineKind::QueuingConverter}) {
            LineOptions options = LineRun::options(kind);
            options.mostTurnaround = 12000;
            LineRun careful(all, options);
            LineRun coarse(all, options);
            options.seed = 2;
            LineRun other(all, options);
            QByteArray bytes;
            for (int i = 0; i < 300; ++i) {
                const QByteArray body = i % 3 == 0 ? kOtherStatus : kStatus;
                careful.send(body);
                coarse.send(body);
                other.send(body);
                careful.run(60000 + i * 300);
                other.runUntil(careful.now);
                coarse.now = careful.now;
                bytes += coarse.line.takeArrived(coarse.now);
            }
            QCOMPARE(bytes, careful.bytes());
            QVERIFY(bytes != other.bytes());
            for (int i = 0; i < 300; ++i) {
                QCOMPARE(coarse.exchange(i).describe(), careful.exchange(i).describe());
            }
        }
    }

    void harmsFrames_data()
    {
        const Table<Rate, Harms, Harms, int> row("rate", "request", "answer", "arriving");
        row("nothing", nullptr, {}, {}, kStatusBytes);
        row("flipped requests", &Adversaries::flippedRequests, Harm::Flip, {}, 0);
        row("lost requests", &Adversaries::lostRequests, Harm::Loss, {}, 0);
        row("flipped answers", &Adversaries::flippedAnswers, {}, Harm::Flip, kStatusBytes);
        row("garbled answers", &Adversaries::garbledAnswers, {}, Harm::Garble, kStatusBytes);
        row("lost answers", &Adversaries::lostAnswers, {}, Harm::Loss, 0);
        row("late answers", &Adversaries::lateAnswers, {}, Harm::Late, kStatusBytes);
    }

    void harmsFrames()
    {
        QFETCH(Rate, rate);
        QFETCH(Harms, request);
        QFETCH(Harms, answer);
        QFETCH(int, arriving);
        Adversaries adversaries;
        if (rate) {
            adversaries.*rate = 10;
        }
        adversaries.lateFrom = 100;
        adversaries.lateTo = 200;
        LineRun run(adversaries);
        constexpr int kTimes = 2000;
        int harmed = 0;
        for (int i = 0; i < kTimes; ++i) {
            const qint64 start = run.now;
            run.send(kStatus);
            run.run(kSecond);
            const LineExchange& exchange = run.last();
            const bool isHarmed = exchange.isHarmed();
            harmed += isHarmed ? 1 : 0;
            QCOMPARE(exchange.harms, isHarmed ? request : Harms());
            QCOMPARE(exchange.isHeard, !exchange.harms);
            QCOMPARE(exchange.answers.size(), std::size_t{exchange.isHeard ? 1U : 0U});
            const qint64 begin = run.arrived.empty() ? 0 : run.arrived.front().at - start;
            const QByteArray bytes = run.take();
            QCOMPARE(bytes.size(), isHarmed ? arriving : kStatusBytes);
            if (!exchange.isHeard) {
                continue;
            }
            const LineAnswer& sent = exchange.answers.front();
            QCOMPARE(sent.harms, isHarmed ? answer : Harms());
            QVERIFY(sent.hasLeft() && (bytes.isEmpty() || bytes == sent.sent));
            uint changedBits = 0;
            for (int b = 0; b < sent.bytes.size(); ++b) {
                changedBits += qPopulationCount(quint8(sent.bytes.at(b) ^ sent.sent.at(b)));
            }
            QCOMPARE(changedBits > 0, bool(sent.harms & (Harm::Flip | Harm::Garble)));
            QVERIFY(!sent.harms.testFlag(Harm::Flip) || changedBits == 1);
            QVERIFY(changedBits == 0 || soundFrames(bytes).isEmpty());
            if (!bytes.isEmpty()) {
                const qint64 lateBy = begin - wireTime(kRequestBytes) - kTurnaround - wireTime(1);
                QVERIFY(qAbs(lateBy - sent.lateBy) <= 3);
                QCOMPARE(lateBy >= 100000 && lateBy <= 200000, sent.harms.testFlag(Harm::Late));
            }
        }
        // As many as it is told: five standard deviations of 2000 throws.
        QVERIFY2(qAbs(harmed - (rate ? kTimes / 10 : 0)) < kTimes / 30,
                 qPrintable(QString::number(harmed)));
    }

    void sendsStrayBytes_data()
    {
        const Table<double, double, int> row("every", "bursts", "together");
        row("single ones", 3, 0, 1);
        row("bursts", 0, 30, 20);
    }

    void sendsStrayBytes()
    {
        QFETCH(double, every);
        QFETCH(double, bursts);
        QFETCH(int, together);
        Adversaries adversaries;
        adversaries.strayEvery = every;
        adversaries.burstEvery = bursts;
        constexpr int kTimes = 2000;
        LineRun run(adversaries);
        run.send(kPoll);
        run.runUntil(static_cast<qint64>((every + bursts) * kTimes) * kSecond);
        const double times = static_cast<double>(run.arrived.size()) / together;
        QVERIFY2(qAbs(times / kTimes - 1) < 0.1, qPrintable(QString::number(times)));
        QVERIFY(run.last().intrusions.testFlag(Intrusion::Stray));
        // Those that a conversation knows, as many of each; others only where two of them met.
        const QByteArray bytes = run.bytes();
        int known = 0;
        for (const char byte : {'\x06', '\x15', '\x04', '\x01', '\x55', '\0'}) {
            QVERIFY(bytes.count(byte) > bytes.size() / 8);
            known += bytes.count(byte);
        }
        QVERIFY(known > bytes.size() * 99 / 100);
        // Those of a burst follow each other; bursts do not come at fixed times.
        std::set<qint64> gaps;
        for (std::size_t i = 1; i < run.arrived.size(); ++i) {
            const qint64 gap = run.arrived[i].at - run.arrived[i - 1].at;
            gaps.insert(gap > wireTime(2) ? gap / 100000 : 0);
        }
        QVERIFY(gaps.size() > 50);
    }

    void straysSpoilWhatTheyFallOn_data() { addKinds(); }
    void straysSpoilWhatTheyFallOn()
    {
        QFETCH(LineKind, kind);
        QFETCH(bool, withRequests);
        QFETCH(bool, withAnswers);
        Adversaries adversaries;
        adversaries.strayEvery = 0.1;
        LineRun run(adversaries, LineRun::options(kind));
        int overlapped = 0;
        int harmedRequests = 0;
        int lucky = 0;
        for (int i = 0; i < 300; ++i) {
            run.send(kStatus);
            run.run(200000);
            const QByteArray bytes = run.take();
            harmedRequests += run.last().harms.testFlag(Harm::Overlap) ? 1 : 0;
            for (const LineAnswer& answer : run.last().answers) {
                const bool isOverlapped = answer.harms.testFlag(Harm::Overlap);
                const bool isWhole = bytes.contains(answer.bytes);
                QVERIFY(isWhole || isOverlapped);
                overlapped += isOverlapped ? 1 : 0;
                lucky += isWhole && isOverlapped ? 1 : 0;
            }
        }
        QVERIFY(lucky <= 3); // garbage that equals the byte below it
        // Every tenth of a second, and an answer needs 56 ms of the 200.
        QCOMPARE(overlapped > 50, withAnswers);
        QCOMPARE(harmedRequests > 10, withRequests);
    }

    void stalls_data()
    {
        const Table<bool, bool> row("areLosing", "isSwitched");
        row("hold", false, false);
        row("hold, switched on and off", false, true);
        row("lose", true, false);
    }

    void stalls()
    {
        QFETCH(bool, areLosing);
        QFETCH(bool, isSwitched);
        Adversaries adversaries;
        adversaries.stallEvery = isSwitched ? 2 : 20;
        adversaries.stall = areLosing ? Adversaries::Stall::Lose : Adversaries::Stall::Hold;
        constexpr int kExchanges = 6000;
        LineOptions options = LineRun::options();
        options.bookLength = kExchanges;
        LineRun run(adversaries, options);
        QList<QByteArray> whole;
        qint64 longest = 0;
        for (int i = 0; i < kExchanges; ++i) {
            if (isSwitched && i % 10 == 0) {
                run.line.setAdversaries(i % 20 == 0 ? Adversaries() : adversaries, run.now);
            }
            run.send(kStatus);
            run.run(150000);
            const LineAnswer& answer = run.last().answers.front();
            QVERIFY(!answer.harms ||
                    answer.harms == Harms(areLosing ? Harm::StallLoss : Harm::Held));
            if (!areLosing || !answer.harms) {
                whole.append(answer.bytes);
            }
            longest = std::max(longest, answer.arrivedAt - answer.leftAt);
        }
        run.run(10 * kSecond);
        // 15 minutes: 45 stalls, each over some 17 of the exchanges; or more, and shorter ones.
        const auto& exchanges = run.line.book().exchanges();
        const auto hit =
            std::count_if(exchanges.begin(), exchanges.end(),
                          [](const LineExchange& exchange) { return exchange.isHarmed(); });
        QVERIFY2(hit > 300 && hit < 1200, qPrintable(QString::number(hit)));
        QList<QByteArray> frames = soundFrames(run.bytes());
        // What is left of a frame may pass the check: the book has told.
        for (const QByteArray& frame : run.line.book().falseFrames()) {
            frames.removeOne(frame);
        }
        QCOMPARE(frames, whole); // late or not, and in order
        for (int i = 0; !areLosing && i < kExchanges; ++i) {
            const auto last = static_cast<std::size_t>(kStatusBytes * (i + 1) - 1);
            QCOMPARE(run.answer(i).arrivedAt, run.arrived.at(last).at);
        }
        QCOMPARE(longest > kSecond, !areLosing);
        QVERIFY(longest <= 5 * kSecond);
    }

    void letsBoardsVanish()
    {
        Adversaries adversaries;
        adversaries.vanishEvery = 480;
        LineRun run(adversaries);
        constexpr int kRounds = 40000;
        const QByteArray polls[] = {kPoll, "FE0B70"};
        int absent[2] = {0, 0};
        int absences = 0; // of the first board
        int both = 0;
        bool wasAway = false;
        for (int i = 0; i < kRounds; ++i) {
            bool isAway[2] = {false, false};
            for (const int board : {0, 1}) {
                run.send(polls[board]);
                run.run(kSecond / 2);
                isAway[board] = run.take().isEmpty();
                QCOMPARE(run.last().isHarmed(), isAway[board]);
                absent[board] += isAway[board] ? 1 : 0;
            }
            absences += isAway[0] && !wasAway ? 1 : 0;
            both += isAway[0] && isAway[1] ? 1 : 0;
            wasAway = isAway[0];
        }
        // 30 s of 480 are 6.25 %; two boards that go on their own are away together for 0.4 %.
        for (const int rounds : absent) {
            const double percent = 100.0 * rounds / kRounds;
            QVERIFY2(percent > 3.5 && percent < 9, qPrintable(QString::number(percent)));
        }
        QVERIFY(both < kRounds / 50);
        QCOMPARE((absent[0] + absences / 2) / absences, 30);
    }
};

REGISTER_TEST(AdversariesTest, QCoreApplication)
#include "tst_lineadversaries.moc"
