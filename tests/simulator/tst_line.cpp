#include "tests/simulator/linerun.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"

using namespace linerun;

/// The times and the order of what is on the line, what overlaps, and the book of it.
class LineTest : public TestCase
{
    Q_OBJECT
private slots:
    void takesTheTimeOfTheWire();
    void hearsWholeFramesOnly_data();
    void hearsWholeFramesOnly();
    void keepsTheOrderOfABoardsAnswers();
    void letsAnswersOverlap_data();
    void letsAnswersOverlap();
    void letsARequestMeetAnAnswer_data();
    void letsARequestMeetAnAnswer();
    void letsAnAnswerBeginInARequest_data();
    void letsAnAnswerBeginInARequest();
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

void LineTest::letsAnAnswerBeginInARequest_data()
{
    QTest::addColumn<qint64>("begin"); // µs from the second request's first bit
    QTest::newRow("with the first bit") << qint64{1};
    QTest::newRow("in the middle") << qint64{7000};
    QTest::newRow("with the last bit") << wireTime(kPollBytes) - 100;
}

void LineTest::letsAnAnswerBeginInARequest()
{
    QFETCH(qint64, begin);
    for (const LineKind kind : {LineKind::FullDuplex, LineKind::HalfDuplex}) {
        const bool areDamaged = kind == LineKind::HalfDuplex;
        LineOptions options = LineRun::options(kind);
        options.leastTurnaround = options.mostTurnaround = 4 * kTurnaround;
        LineRun run({}, options);
        run.send(kStatus);
        run.runUntil(wireTime(kRequestBytes) + options.leastTurnaround - begin);
        run.send("FE3370"); // nobody answers it
        run.run(kSecond);
        QCOMPARE(run.exchange(0).answers.front().harms.testFlag(Harm::Overlap), areDamaged);
        QCOMPARE(soundFrames(run.bytes()).size(), areDamaged ? 0 : 1);
        QCOMPARE(run.last().harms.testFlag(Harm::Overlap), areDamaged);
    }
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
