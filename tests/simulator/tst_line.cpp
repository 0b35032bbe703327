#include "tests/simulator/linerun.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"

#include <array>
#include <map>
#include <set>

using Rate = double Adversaries::*;
Q_DECLARE_METATYPE(Rate)
Q_DECLARE_METATYPE(Harms)

namespace {

constexpr qint64 kSecond = LineRun::kSecond;
constexpr qint64 kTurnaround = LineRun::kTurnaround;
constexpr int kRequestBytes = 14;
constexpr int kStatusBytes = 54;
const QByteArray kStatus("FE0A737803");
const QByteArray kOtherStatus("FE0B737803");
const QByteArray kName("FE0A737202");
const QByteArray kPoll("FE0A70");

/// 10 bits at 9600 baud, rounded up to whole microseconds.
qint64 wireTime(int bytes)
{
    return (bytes * qint64{1041667} + 999) / 1000;
}

Adversaries everything()
{
    Adversaries all;
    all.flippedRequests = all.flippedAnswers = all.garbledAnswers = 3;
    all.lostRequests = all.lostAnswers = all.lateAnswers = 3;
    all.strayEvery = 1;
    all.burstEvery = 5;
    all.stallEvery = 20;
    all.vanishEvery = 100;
    return all;
}

/// The frames with right check digits in a stream, cut as a master does it.
QList<QByteArray> soundFrames(const QByteArray& stream)
{
    QList<QByteArray> frames;
    QByteArray frame;
    for (const char byte : stream) {
        if (byte == '\x01') {
            frame.clear();
        }
        frame.append(byte);
        QByteArray body = frame;
        if (byte == '\x04' && frame.startsWith('\x01') && framecodec::responseValidation(body)) {
            frames.append(frame);
        }
        if (byte == '\x04') {
            frame.clear();
        }
    }
    return frames;
}

/// Requests without regard to what else is on the line; gives what arrived.
std::vector<LineRun::Byte> crowd(LineRun& run, int requests)
{
    Chance chance(7);
    const std::array<QByteArray, 4> bodies{kStatus, kOtherStatus, kName, "FE0C737804"};
    for (int i = 0; i < requests; ++i) {
        run.send(bodies.at(static_cast<std::size_t>(chance.between(0, 3))));
        run.run(chance.between(10000, 150000));
    }
    run.run(20 * kSecond);
    return run.arrived;
}

} // namespace

/// The line between master and boards, in virtual time.
class LineTest : public TestCase
{
    Q_OBJECT
private slots:
    void takesTheTimeOfTheWire();
    void hearsWholeFramesOnly_data();
    void hearsWholeFramesOnly();
    void happensAtItsTimeHoweverItIsAsked();
    void repeatsItselfFromItsSeed();
    void keepsTheOrderOfABoardsAnswers();
    void letsAnswersOverlap_data();
    void letsAnswersOverlap();
    void letsARequestMeetAnAnswer_data();
    void letsARequestMeetAnAnswer();
    void harmsFrames_data();
    void harmsFrames();
    void harmsAsManyAsItIsTold();
    void sendsStrayBytes_data();
    void sendsStrayBytes();
    void straysSpoilWhatTheyFallOn_data();
    void straysSpoilWhatTheyFallOn();
    void stalls_data();
    void stalls();
    void letsBoardsVanish();
    void changesItsWaysAtATime();
    void knowsFramesThatNobodySent();
    void keepsABookOfBoundedLength();
    void forgetsWhatIsOnItsWay();
};

void LineTest::takesTheTimeOfTheWire()
{
    LineRun run;
    QCOMPARE(run.line.nextArrival(), Line::kNever);
    run.send(kStatus);
    const qint64 begin = wireTime(kRequestBytes) + kTurnaround;
    run.run(kSecond);
    QCOMPARE(run.arrived.size(), std::size_t{kStatusBytes});
    for (int i = 0; i < kStatusBytes; ++i) {
        const qint64 at = run.arrived[static_cast<std::size_t>(i)].at;
        QVERIFY2(qAbs(at - begin - wireTime(i + 1)) <= 2, qPrintable(QString::number(i)));
    }
    QCOMPARE(run.last().endedAt, wireTime(kRequestBytes));
    QVERIFY(run.last().isClean());
    QCOMPARE(run.last().answers.front().bytes, run.bytes());
    QCOMPARE(run.last().answers.front().arrivedAt, run.arrived.back().at);

    // Two requests at once leave one behind the other; a buffer hands bytes on eight at a time.
    run.take();
    const qint64 start = run.now;
    run.send(kPoll);
    run.send("FE0B70");
    run.run(kSecond);
    QCOMPARE(run.take(), QByteArray("\x06\x06"));
    QCOMPARE(run.last().endedAt, start + wireTime(20));
    run.send(kStatus);
    run.run(wireTime(kRequestBytes) + kTurnaround);
    int wakes = 0;
    QByteArray bytes;
    while (run.line.nextArrival(8) != Line::kNever) {
        bytes += run.line.takeArrived(run.line.nextArrival(8));
        ++wakes;
    }
    QCOMPARE(bytes.size(), kStatusBytes);
    QVERIFY2(wakes <= 9, qPrintable(QString::number(wakes)));
}

void LineTest::hearsWholeFramesOnly_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("answers");
    const QByteArray poll = framecodec::createCommand(kPoll);
    QTest::newRow("a start in the middle") << "\x01"
                                              "FE0A" +
                                                  poll
                                           << 1;
    QTest::newRow("noise between") << poll + "zzz" + poll << 2;
    QTest::newRow("wrong check digits") << poll.left(7) + "00\x04" << 0;
    QTest::newRow("nobody's address") << framecodec::createCommand("FE3370") << 0;
    QTest::newRow("no end") << "\x01" + QByteArray(100000, 'z') << 0;
    QTest::newRow("after no end") << "\x01" + QByteArray(5000, 'z') + poll << 1;
}

void LineTest::hearsWholeFramesOnly()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, answers);
    LineRun whole;
    whole.line.transmit(bytes, 0);
    LineRun pieces;
    for (const char byte : bytes) {
        pieces.line.transmit(QByteArray(1, byte), 0);
    }
    for (LineRun* run : {&whole, &pieces}) {
        run->run(200 * kSecond);
        QCOMPARE(run->bytes(), QByteArray(answers, '\x06'));
    }
}

/// The steps in which a caller goes make no difference.
void LineTest::happensAtItsTimeHoweverItIsAsked()
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

void LineTest::repeatsItselfFromItsSeed()
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

void LineTest::keepsTheOrderOfABoardsAnswers()
{
    Adversaries late;
    late.lateAnswers = 100;
    late.lateFrom = late.lateTo = 500;
    LineRun run(late);
    run.send(kStatus);
    run.line.setAdversaries({}, 50000);
    run.run(100000);
    // The board turns to this one only when the late answer has left.
    run.send(kName);
    run.send(kOtherStatus);
    run.run(kSecond);
    const LineAnswer& status = run.exchange(0).answers.front();
    const LineAnswer& name = run.exchange(1).answers.front();
    const LineAnswer& other = run.exchange(2).answers.front();
    QCOMPARE(run.bytes(), other.bytes + status.bytes + name.bytes);
    QCOMPARE(status.harms, Harms(Harm::Late));
    QCOMPARE(status.lateBy, qint64{500000});
    QCOMPARE(name.harms, Harms(Harm::Late));
    QVERIFY(qAbs(name.leftAt - status.leftAt - kTurnaround - wireTime(36)) <= 2);
    QVERIFY(!other.harms);
    // While it was the last exchange, answers came that were not its own.
    QCOMPARE(run.exchange(2).intrusions, Intrusions(Intrusion::OtherAnswer));
}

void LineTest::letsAnswersOverlap_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("areDamaged");
    QTest::newRow("full duplex") << static_cast<int>(LineKind::FullDuplex) << true;
    QTest::newRow("half duplex") << static_cast<int>(LineKind::HalfDuplex) << true;
    QTest::newRow("queuing converter") << static_cast<int>(LineKind::QueuingConverter) << false;
}

void LineTest::letsAnswersOverlap()
{
    QFETCH(int, kind);
    QFETCH(bool, areDamaged);
    Adversaries late;
    late.lateAnswers = 100;
    late.lateFrom = late.lateTo = 40;
    LineRun run(late, LineRun::options(static_cast<LineKind>(kind)));
    run.send(kStatus);
    run.line.setAdversaries({}, 20000);
    run.run(30000); // no answer before 59 ms
    run.send(kOtherStatus);
    run.run(kSecond);
    const LineAnswer& first = run.exchange(0).answers.front();
    const LineAnswer& second = run.exchange(1).answers.front();
    QCOMPARE(first.harms.testFlag(Harm::Overlap), areDamaged);
    QCOMPARE(second.harms.testFlag(Harm::Overlap), areDamaged);
    QCOMPARE(first.overlappedWith, areDamaged ? 0x0B : 0);
    if (areDamaged) {
        // One answer starts in the other: what both need together is shorter than two frames.
        QVERIFY(run.arrived.size() < std::size_t{2} * kStatusBytes);
        QVERIFY(run.arrived.size() > kStatusBytes);
        QVERIFY(soundFrames(run.bytes()).isEmpty());
    } else {
        QCOMPARE(soundFrames(run.bytes()), (QList<QByteArray>{second.bytes, first.bytes}));
        QVERIFY(first.leftAt >= second.leftAt + wireTime(kStatusBytes) - 2);
    }
}

void LineTest::letsARequestMeetAnAnswer_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("begin"); // of the second request, before the answer's end, in bytes
    QTest::addColumn<bool>("areDamaged");
    for (const int begin : {1, 5, 15}) {
        const auto row = [begin](const char* name, LineKind kind, bool areDamaged) {
            QTest::addRow("%s, %d bytes before the end", name, begin)
                << static_cast<int>(kind) << begin << areDamaged;
        };
        row("full duplex", LineKind::FullDuplex, false);
        row("half duplex", LineKind::HalfDuplex, true);
        row("queuing converter", LineKind::QueuingConverter, false);
    }
}

void LineTest::letsARequestMeetAnAnswer()
{
    QFETCH(int, kind);
    QFETCH(int, begin);
    QFETCH(bool, areDamaged);
    LineRun run({}, LineRun::options(static_cast<LineKind>(kind)));
    run.send(kStatus);
    const qint64 answerEnd = wireTime(kRequestBytes) + kTurnaround + wireTime(kStatusBytes);
    run.runUntil(answerEnd - wireTime(begin) + 500);
    run.send(kOtherStatus);
    run.run(kSecond);
    const Exchange& second = run.exchange(1);
    QCOMPARE(run.exchange(0).answers.front().harms.testFlag(Harm::Overlap), areDamaged);
    QCOMPARE(second.harms.testFlag(Harm::Overlap), areDamaged);
    QCOMPARE(second.isHeard, !areDamaged);
    QCOMPARE(second.answers.size(), std::size_t{areDamaged ? 0U : 1U});
    QCOMPARE(soundFrames(run.bytes()).size(), areDamaged ? 0 : 2);
    if (areDamaged) {
        QCOMPARE(run.arrived.size(), std::size_t{kStatusBytes});
        QCOMPARE(run.exchange(0).answers.front().overlappedWith, int{LineAnswer::kMaster});
    } else if (static_cast<LineKind>(kind) == LineKind::QueuingConverter) {
        QVERIFY(second.endedAt >= answerEnd + wireTime(kRequestBytes) - 2);
    }
}

void LineTest::harmsFrames_data()
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

void LineTest::harmsFrames()
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

void LineTest::harmsAsManyAsItIsTold()
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

void LineTest::sendsStrayBytes_data()
{
    QTest::addColumn<double>("every");
    QTest::addColumn<double>("bursts");
    QTest::addColumn<int>("together");
    QTest::newRow("single ones") << 3.0 << 0.0 << 1;
    QTest::newRow("bursts") << 0.0 << 30.0 << 20;
}

void LineTest::sendsStrayBytes()
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

void LineTest::straysSpoilWhatTheyFallOn_data()
{
    letsAnswersOverlap_data();
}

void LineTest::straysSpoilWhatTheyFallOn()
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

void LineTest::stalls_data()
{
    QTest::addColumn<bool>("areLosing");
    QTest::newRow("hold") << false;
    QTest::newRow("lose") << true;
}

void LineTest::stalls()
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

void LineTest::letsBoardsVanish()
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

void LineTest::changesItsWaysAtATime()
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

/// Whatever passes the check is either what a board sent, whole, or listed in the book.
void LineTest::knowsFramesThatNobodySent()
{
    for (const LineKind kind : {LineKind::FullDuplex, LineKind::HalfDuplex}) {
        LineOptions options = LineRun::options(kind);
        options.bookLength = 100000;
        options.mostTurnaround = 12000;
        Adversaries adversaries;
        adversaries.lateAnswers = 10;
        adversaries.strayEvery = 0.05;
        LineRun run(adversaries, options);
        crowd(run, 2500);
        QHash<QByteArray, int> sent;
        for (const Exchange& exchange : run.line.book().exchanges()) {
            for (const LineAnswer& answer : exchange.answers) {
                if (!answer.harms.testFlag(Harm::Overlap)) {
                    ++sent[answer.bytes];
                }
            }
        }
        QList<QByteArray> others;
        for (const QByteArray& frame : soundFrames(run.bytes())) {
            if (--sent[frame] < 0) {
                others.append(frame);
            }
        }
        QList<QByteArray> listed;
        for (const FalseFrame& frame : run.line.book().falseFrames()) {
            listed.append(frame.bytes);
        }
        std::sort(others.begin(), others.end());
        std::sort(listed.begin(), listed.end());
        QVERIFY(!listed.isEmpty());
        QCOMPARE(others, listed);
    }
}

void LineTest::keepsABookOfBoundedLength()
{
    LineOptions options = LineRun::options();
    options.bookLength = 100;
    Adversaries lossy;
    lossy.lostAnswers = 100;
    LineRun run({}, options);
    run.line.setAdversaries(lossy, 97 * kSecond);
    for (int i = 0; i < 100; ++i) {
        run.send(i % 2 == 0 ? kStatus : kOtherStatus);
        run.run(kSecond);
    }
    QCOMPARE(run.line.book().exchanges(0x0A, 10 * kSecond, 20 * kSecond).size(), std::size_t{6});
    QCOMPARE(run.line.book().unluckyInARow(0x0A, run.now), 1); // asked at 98 s
    QCOMPARE(run.line.book().unluckyInARow(0x0B, run.now), 2);
    QCOMPARE(run.line.book().unluckyInARow(0x0B, 98 * kSecond), 1);
    for (int i = 0; i < 1000; ++i) {
        run.send(kPoll);
        run.run(i % 7 == 0 ? 0 : 50000);
    }
    QCOMPARE(run.line.book().exchanges().size(), std::size_t{100});
    QCOMPARE(run.line.book().exchangeCount(), qint64{1100});
    QCOMPARE(run.last().number, qint64{1099});
}

void LineTest::forgetsWhatIsOnItsWay()
{
    LineRun run;
    run.send(kStatus);
    run.run(50000);
    run.send(kPoll);
    run.line.reset();
    run.take();
    QCOMPARE(run.line.nextArrival(), Line::kNever);
    run.run(kSecond);
    QVERIFY(run.arrived.empty());
    run.send(kPoll);
    run.run(kSecond);
    QCOMPARE(run.bytes(), QByteArray("\x06"));
}

REGISTER_TEST(LineTest, NoApplication)
#include "tst_line.moc"
