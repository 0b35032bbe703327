#include "tests/simulator/linerun.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"

#include <map>
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
    void repeatsItselfFromItsSeed();
    void happensAtItsTimeHoweverItIsAsked();
    void harmsFrames_data();
    void harmsFrames();
    void harmsAsManyAsItIsTold();
    void sendsStrayBytes_data();
    void sendsStrayBytes();
    void straysSpoilWhatTheyFallOn_data();
    void straysSpoilWhatTheyFallOn();
    void stalls_data();
    void stalls();
    void keepsTheOrderWhenAStallIsSwitchedOff();
    void letsBoardsVanish();
    void changesItsWaysAtATime();
};

void AdversariesTest::repeatsItselfFromItsSeed()
{
    const auto course = [](quint64 seed) {
        LineOptions options = LineRun::options(LineKind::HalfDuplex, seed);
        options.mostTurnaround = 12000;
        LineRun run(everything(), options);
        return crowd(run, 500);
    };
    const auto first = course(1);
    QVERIFY(first == course(1));
    QVERIFY(first != course(2));
}

/// The steps in which a caller goes make no difference.
void AdversariesTest::happensAtItsTimeHoweverItIsAsked()
{
    for (const LineKind kind :
         {LineKind::FullDuplex, LineKind::HalfDuplex, LineKind::QueuingConverter}) {
        LineOptions options = LineRun::options(kind);
        options.mostTurnaround = 12000;
        LineRun careful(everything(), options);
        LineRun coarse(everything(), options);
        QByteArray bytes;
        for (int i = 0; i < 300; ++i) {
            const QByteArray body = i % 3 == 0 ? kOtherStatus : kStatus;
            careful.send(body);
            coarse.send(body);
            careful.run(60000 + i * 300);
            coarse.now = careful.now;
            bytes += coarse.line.takeArrived(coarse.now);
        }
        QCOMPARE(bytes, careful.bytes());
        for (int i = 0; i < 300; ++i) {
            QCOMPARE(coarse.exchange(i).describe(), careful.exchange(i).describe());
        }
    }
}

void AdversariesTest::harmsFrames_data()
{
    QTest::addColumn<Rate>("rate");
    QTest::addColumn<Harms>("request");
    QTest::addColumn<Harms>("answer");
    QTest::addColumn<int>("arriving");
    const auto row = [](const char* name, Rate rate, Harms request, Harms answer, int arriving) {
        QTest::newRow(name) << rate << request << answer << arriving;
    };
    row("nothing", nullptr, {}, {}, kStatusBytes);
    row("flipped requests", &Adversaries::flippedRequests, Harm::Flip, {}, 0);
    row("lost requests", &Adversaries::lostRequests, Harm::Loss, {}, 0);
    row("flipped answers", &Adversaries::flippedAnswers, {}, Harm::Flip, kStatusBytes);
    row("garbled answers", &Adversaries::garbledAnswers, {}, Harm::Garble, kStatusBytes);
    row("lost answers", &Adversaries::lostAnswers, {}, Harm::Loss, 0);
    row("late answers", &Adversaries::lateAnswers, {}, Harm::Late, kStatusBytes);
}

void AdversariesTest::harmsFrames()
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
        QCOMPARE(bytes.size(), arriving);
        if (exchange.answers.empty()) {
            continue;
        }
        const LineAnswer& sent = exchange.answers.front();
        QCOMPARE(sent.harms, answer);
        QVERIFY(sent.hasLeft());
        QVERIFY(arriving == 0 || bytes == sent.sent);
        int changedBits = 0;
        for (int b = 0; b < sent.bytes.size(); ++b) {
            changedBits +=
                qPopulationCount(static_cast<quint8>(sent.bytes.at(b) ^ sent.sent.at(b)));
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

void AdversariesTest::harmsAsManyAsItIsTold()
{
    Adversaries adversaries;
    adversaries.flippedRequests = 2;
    adversaries.lostRequests = 4;
    adversaries.flippedAnswers = 6;
    adversaries.lostAnswers = 8;
    adversaries.lateAnswers = 10;
    LineOptions options = LineRun::options();
    options.bookLength = 20000;
    LineRun run(adversaries, options);
    for (int i = 0; i < 20000; ++i) {
        run.send(kPoll);
        run.run(3 * kSecond);
    }
    std::map<Harm, int> requests;
    std::map<Harm, int> answers;
    int heard = 0;
    constexpr Harm kHarms[] = {Harm::Flip, Harm::Loss, Harm::Late};
    for (const Exchange& exchange : run.line.book().exchanges()) {
        heard += exchange.isHeard ? 1 : 0;
        for (const Harm harm : kHarms) {
            requests[harm] += exchange.harms.testFlag(harm) ? 1 : 0;
            answers[harm] +=
                !exchange.answers.empty() && exchange.answers.front().harms.testFlag(harm) ? 1 : 0;
        }
    }
    // Six standard deviations of 20000 throws are less than 1.3 %.
    const auto isAbout = [](int count, int of, double percent) {
        return qAbs(100.0 * count / of - percent) < 1.3;
    };
    QVERIFY(isAbout(requests[Harm::Flip], 20000, 2));
    QVERIFY(isAbout(requests[Harm::Loss], 20000, 4));
    QVERIFY(isAbout(answers[Harm::Flip], heard, 6));
    QVERIFY(isAbout(answers[Harm::Loss], heard, 8));
    QVERIFY(isAbout(answers[Harm::Late], heard, 10));
}

void AdversariesTest::sendsStrayBytes_data()
{
    QTest::addColumn<double>("every");
    QTest::addColumn<double>("bursts");
    QTest::addColumn<int>("together");
    QTest::newRow("single ones") << 3.0 << 0.0 << 1;
    QTest::newRow("bursts") << 0.0 << 30.0 << 20;
}

void AdversariesTest::sendsStrayBytes()
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
    const QByteArray bytes = run.bytes();
    const std::set<char> known{0x06, 0x15, 0x04, 0x01, 0x55, 0x00};
    QHash<char, int> counts;
    int others = 0; // where two of them met
    for (const char byte : bytes) {
        ++counts[byte];
        others += known.count(byte) == 0 ? 1 : 0;
    }
    for (const char byte : known) {
        QVERIFY(counts.value(byte) > bytes.size() / 8);
    }
    QVERIFY(others < bytes.size() / 100);
    QVERIFY(run.last().intrusions.testFlag(Intrusion::Stray));
    // Those of a burst follow each other; bursts do not come at fixed times.
    std::set<qint64> gaps;
    for (std::size_t i = 1; i < run.arrived.size(); ++i) {
        const qint64 gap = run.arrived[i].at - run.arrived[i - 1].at;
        if (gap > wireTime(2)) {
            gaps.insert(gap / 100000);
        }
    }
    QVERIFY(gaps.size() > 50);
}

void AdversariesTest::straysSpoilWhatTheyFallOn_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("areDamaged");
    QTest::newRow("full duplex") << static_cast<int>(LineKind::FullDuplex) << true;
    QTest::newRow("half duplex") << static_cast<int>(LineKind::HalfDuplex) << true;
    QTest::newRow("queuing converter") << static_cast<int>(LineKind::QueuingConverter) << false;
}

void AdversariesTest::straysSpoilWhatTheyFallOn()
{
    QFETCH(int, kind);
    QFETCH(bool, areDamaged);
    Adversaries adversaries;
    adversaries.strayEvery = 0.1;
    LineRun run(adversaries, LineRun::options(static_cast<LineKind>(kind)));
    int overlapped = 0;
    int harmedRequests = 0;
    int lucky = 0;
    for (int i = 0; i < 300; ++i) {
        run.send(kStatus);
        run.run(200000);
        const Exchange& exchange = run.last();
        harmedRequests += exchange.harms.testFlag(Harm::Overlap) ? 1 : 0;
        const QByteArray bytes = run.take();
        if (exchange.answers.empty()) {
            continue;
        }
        const LineAnswer& answer = exchange.answers.front();
        overlapped += answer.harms.testFlag(Harm::Overlap) ? 1 : 0;
        QCOMPARE(answer.harms.testFlag(Harm::Overlap), answer.overlappedWith == LineAnswer::kStray);
        const bool isWhole = bytes.contains(answer.bytes);
        QVERIFY(isWhole || answer.harms.testFlag(Harm::Overlap));
        lucky += isWhole && answer.harms.testFlag(Harm::Overlap) ? 1 : 0;
    }
    QVERIFY(lucky <= 3); // garbage that equals the byte below it
    // Every tenth of a second, and an answer needs 56 ms of the 200.
    QCOMPARE(overlapped > 50, areDamaged);
    QCOMPARE(harmedRequests > 10, static_cast<LineKind>(kind) == LineKind::HalfDuplex);
}

void AdversariesTest::stalls_data()
{
    QTest::addColumn<bool>("areLosing");
    QTest::newRow("hold") << false;
    QTest::newRow("lose") << true;
}

void AdversariesTest::stalls()
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
        QVERIFY(std::count_if(run.arrived.begin() + 1, run.arrived.end(), [&](const auto& byte) {
                    return byte.at == (&byte - 1)->at;
                }) > 15000);
    }
}

void AdversariesTest::keepsTheOrderWhenAStallIsSwitchedOff()
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
        QCOMPARE(run.exchange(i).answers.front().arrivedAt, run.arrived.at(last).at);
    }
}

void AdversariesTest::letsBoardsVanish()
{
    Adversaries adversaries;
    adversaries.vanishEvery = 480;
    LineRun run(adversaries);
    qint64 absent[2] = {0, 0};
    qint64 both = 0;
    constexpr int kRounds = 40000;
    for (int i = 0; i < kRounds; ++i) {
        bool isAway[2] = {false, false};
        for (const int board : {0x0A, 0x0B}) {
            const qint64 start = run.now;
            const Span absence = run.line.absence(board);
            run.send(board == 0x0A ? kPoll : "FE0B70");
            run.run(kSecond / 2);
            const bool isHarmed = run.last().isHarmed();
            isAway[board - 0x0A] = isHarmed;
            QVERIFY(isHarmed || !absence.contains(start) || !absence.contains(run.now));
            QVERIFY(!isHarmed || absence.from < run.now);
            QCOMPARE(run.last().isHeard, !absence.contains(run.last().endedAt));
            QCOMPARE(run.take().isEmpty(), run.last().isHarmed());
            absent[board - 0x0A] += isAway[board - 0x0A] ? 1 : 0;
        }
        both += isAway[0] && isAway[1] ? 1 : 0;
    }
    // 30 s of 480 are 6.25 %; two boards that go on their own are away together for 0.4 %.
    for (const qint64 rounds : absent) {
        const double percent = 100.0 * static_cast<double>(rounds) / kRounds;
        QVERIFY2(percent > 3.5 && percent < 9, qPrintable(QString::number(percent)));
    }
    QVERIFY(both < kRounds / 50);
    const Span absence = run.line.absence(0x0A);
    QVERIFY(qAbs(absence.to - absence.from - 30 * kSecond) <= 1);
}

void AdversariesTest::changesItsWaysAtATime()
{
    LineRun run;
    run.line.setAdversaries(everything(), 60 * kSecond);
    run.line.setAdversaries({}, 120 * kSecond);
    int harmed[3] = {0, 0, 0};
    while (run.now < 180 * kSecond) {
        const auto minute = run.now / (60 * kSecond);
        run.send(kStatus);
        run.run(500000);
        harmed[minute] += run.last().isClean() ? 0 : 1;
    }
    QCOMPARE(harmed[0], 0);
    QVERIFY(harmed[1] > 20);
    QVERIFY(harmed[2] <= 10); // what was on its way at the end: late answers, a stall
    run.run(10 * kSecond);
    QCOMPARE(run.line.nextArrival(), Line::kNever);
}

REGISTER_TEST(AdversariesTest, NoApplication)
#include "tst_lineadversaries.moc"
