#include "tests/simulator/linerun.h"
#include "tests/support/testcase.h"
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
        for (const LineKind kind :
             {LineKind::FullDuplex, LineKind::HalfDuplex, LineKind::QueuingConverter}) {
            LineOptions options = LineRun::options(kind);
            options.mostTurnaround = 12000;
            LineRun careful(everything(), options);
            LineRun coarse(everything(), options);
            options.seed = 2;
            LineRun other(everything(), options);
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
            adversaries.*rate = 100;
        }
        adversaries.lateFrom = 100;
        adversaries.lateTo = 200;
        LineRun run(adversaries);
        for (int i = 0; i < 50; ++i) {
            const qint64 start = run.now;
            run.send(kStatus);
            run.run(kSecond);
            const Exchange& exchange = run.last();
            QCOMPARE(exchange.harms, request);
            QCOMPARE(exchange.isHeard, !request);
            QCOMPARE(exchange.answers.size(), std::size_t{request ? 0U : 1U});
            QCOMPARE(exchange.isHarmed(), request || answer);
            const qint64 begin = run.arrived.empty() ? 0 : run.arrived.front().at - start;
            const QByteArray bytes = run.take();
            QCOMPARE(bytes.size(), request ? 0 : arriving);
            if (request) {
                continue;
            }
            const LineAnswer& sent = exchange.answers.front();
            QCOMPARE(sent.harms, answer);
            QVERIFY(sent.hasLeft() && (arriving == 0 || bytes == sent.sent));
            uint changedBits = 0;
            for (int b = 0; b < sent.bytes.size(); ++b) {
                changedBits += qPopulationCount(quint8(sent.bytes.at(b) ^ sent.sent.at(b)));
            }
            QCOMPARE(changedBits > 0, bool(answer & (Harm::Flip | Harm::Garble)));
            QVERIFY(!answer.testFlag(Harm::Flip) || changedBits == 1);
            QVERIFY(changedBits == 0 || soundFrames(bytes).isEmpty());
            if (arriving > 0) {
                const qint64 lateBy = begin - wireTime(kRequestBytes) - kTurnaround - wireTime(1);
                QVERIFY(qAbs(lateBy - sent.lateBy) <= 3);
                QCOMPARE(lateBy >= 100000 && lateBy <= 200000, answer.testFlag(Harm::Late));
            }
        }
    }

    void harmsAsManyAsItIsTold()
    {
        Adversaries adversaries;
        adversaries.flippedRequests = 2;
        adversaries.lostRequests = 4;
        adversaries.flippedAnswers = 6;
        adversaries.lostAnswers = 8;
        adversaries.lateAnswers = 10;
        constexpr int kTimes = 20000;
        QHash<int, int> requests;
        QHash<int, int> answers;
        int heard = 0;
        LineRun run(adversaries);
        for (int i = 0; i < kTimes; ++i) {
            run.send(kPoll);
            run.run(3 * kSecond);
            const Exchange& exchange = run.last();
            heard += exchange.isHeard ? 1 : 0;
            for (const Harm harm : {Harm::Flip, Harm::Loss, Harm::Late}) {
                requests[int(harm)] += exchange.harms.testFlag(harm) ? 1 : 0;
                answers[int(harm)] +=
                    exchange.isHeard && exchange.answers.front().harms.testFlag(harm) ? 1 : 0;
            }
        }
        // Six standard deviations of 20000 throws are less than 1.3 %.
        const auto isAbout = [](int count, int of, double percent) {
            return qAbs(100.0 * count / of - percent) < 1.3;
        };
        QVERIFY(isAbout(requests[int(Harm::Flip)], kTimes, 2));
        QVERIFY(isAbout(requests[int(Harm::Loss)], kTimes, 4));
        QVERIFY(isAbout(answers[int(Harm::Flip)], heard, 6));
        QVERIFY(isAbout(answers[int(Harm::Loss)], heard, 8));
        QVERIFY(isAbout(answers[int(Harm::Late)], heard, 10));
    }

    void sendsStrayBytes_data()
    {
        addColumns<double, double, int>("every", "bursts", "together");
        QTest::newRow("single ones") << 3.0 << 0.0 << 1;
        QTest::newRow("bursts") << 0.0 << 30.0 << 20;
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
                QCOMPARE(isOverlapped, answer.overlappedWith == LineAnswer::kStray);
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
        QTest::addColumn<bool>("areLosing");
        QTest::newRow("hold") << false;
        QTest::newRow("lose") << true;
    }

    void stalls()
    {
        QFETCH(bool, areLosing);
        Adversaries adversaries;
        adversaries.stallEvery = 20;
        adversaries.stall = areLosing ? Adversaries::Stall::Lose : Adversaries::Stall::Hold;
        LineRun run(adversaries);
        constexpr int kExchanges = 6000;
        int hit = 0;
        qint64 longest = 0;
        for (int i = 0; i < kExchanges; ++i) {
            run.send(kStatus);
            run.run(150000);
            const Exchange& exchange = run.last();
            const LineAnswer& answer = exchange.answers.front();
            QVERIFY(!(answer.harms & ~(Harms(Harm::Held) | Harm::StallLoss)));
            if (answer.harms) {
                ++hit;
                QCOMPARE(answer.harms, Harms(areLosing ? Harm::StallLoss : Harm::Held));
            }
            if (answer.arrivedAt > answer.leftAt) {
                longest = std::max(longest, answer.arrivedAt - answer.leftAt);
            }
        }
        // 15 minutes: 45 stalls, each over some 17 of the exchanges.
        QVERIFY2(hit > 300 && hit < 1200, qPrintable(QString::number(hit)));
        run.run(10 * kSecond);
        const int frames = soundFrames(run.bytes()).size();
        if (areLosing) {
            // What is left of a frame may pass the check: the book has told.
            QCOMPARE(frames - run.line.book().falseFrameCount(), qint64{kExchanges - hit});
            QCOMPARE(longest, qint64{0});
        } else {
            QCOMPARE(frames, kExchanges); // late, but all of them, and in order
            QVERIFY(longest > 2 * kSecond && longest <= 5 * kSecond);
            QVERIFY(std::count_if(run.arrived.begin() + 1, run.arrived.end(),
                                  [&](const auto& byte) { return byte.at == (&byte - 1)->at; }) >
                    15000);
        }
    }

    void keepsTheOrderWhenAStallIsSwitchedOff()
    {
        Adversaries stalling;
        stalling.stallEvery = 1;
        LineRun run;
        QList<QByteArray> sent;
        int held = 0;
        for (int i = 0; i < 2000; ++i) {
            if (i % 10 == 0) {
                run.line.setAdversaries(i % 20 == 0 ? stalling : Adversaries(), run.now);
            }
            run.send(kStatus);
            run.run(100000);
            const LineAnswer& answer = run.last().answers.front();
            sent.append(answer.bytes);
            held += answer.harms.testFlag(Harm::Held) ? 1 : 0;
        }
        run.run(10 * kSecond);
        QVERIFY(held > 100);
        QCOMPARE(soundFrames(run.bytes()), sent);
        for (int i = 0; i < sent.size(); ++i) {
            const auto last = static_cast<std::size_t>(kStatusBytes * (i + 1) - 1);
            QCOMPARE(run.answer(i).arrivedAt, run.arrived.at(last).at);
        }
    }

    void letsBoardsVanish()
    {
        Adversaries adversaries;
        adversaries.vanishEvery = 480;
        LineRun run(adversaries);
        constexpr int kRounds = 40000;
        constexpr int kBoards[] = {0x0A, 0x0B};
        int absent[2] = {0, 0};
        int both = 0;
        for (int i = 0; i < kRounds; ++i) {
            int away = 0;
            for (const int board : kBoards) {
                const Span absence = run.line.absence(board);
                run.send(board == kBoards[0] ? kPoll : "FE0B70");
                run.run(kSecond / 2);
                const bool isAway = run.last().isHarmed(); // or has gone before it answered
                QCOMPARE(run.last().isHeard, !absence.contains(run.last().endedAt));
                QVERIFY(run.last().isHeard ? !isAway || absence.contains(run.now) : isAway);
                QCOMPARE(run.take().isEmpty(), isAway);
                absent[board - kBoards[0]] += isAway ? 1 : 0;
                away += isAway ? 1 : 0;
            }
            both += away / 2;
        }
        // 30 s of 480 are 6.25 %; two boards that go on their own are away together for 0.4 %.
        for (const int rounds : absent) {
            const double percent = 100.0 * rounds / kRounds;
            QVERIFY2(percent > 3.5 && percent < 9, qPrintable(QString::number(percent)));
        }
        QVERIFY(both < kRounds / 50);
        const Span absence = run.line.absence(0x0A);
        QVERIFY(qAbs(absence.to - absence.from - 30 * kSecond) <= 1);
    }
};

REGISTER_TEST(AdversariesTest, NoApplication)
#include "tst_lineadversaries.moc"
