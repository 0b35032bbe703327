#include "tests/simulator/linerun.h"
#include "tests/support/testprogram.h"

using namespace linerun;

/// The times and the order of what is on the line, what overlaps, and the book of it.
class LineTest : public TestCase
{
    Q_OBJECT
private slots:
    void takesTheTimeOfTheWire()
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

    void hearsWholeFramesOnly_data()
    {
        const Table<QByteArray, int> row("bytes", "answers");
        const QByteArray poll = framecodec::createCommand(kPoll);
        row("a start in the middle", poll.left(5) + poll, 1);
        row("noise between", poll + "zzz" + poll, 2);
        row("wrong check digits", poll.left(7) + "00\x04", 0);
        row("nobody's address", framecodec::createCommand("FE3370"), 0);
        row("no end", "\x01" + QByteArray(100000, 'z'), 0);
        row("after no end", "\x01" + QByteArray(5000, 'z') + poll, 1);
    }

    void hearsWholeFramesOnly()
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

    void keepsTheOrderOfABoardsAnswers()
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
        const LineAnswer& status = run.answer(0);
        const LineAnswer& name = run.answer(1);
        const LineAnswer& other = run.answer(2);
        QCOMPARE(run.bytes(), other.bytes + status.bytes + name.bytes);
        QCOMPARE(status.harms, Harms(Harm::Late));
        QCOMPARE(status.lateBy, qint64{500000});
        QCOMPARE(name.harms, Harms(Harm::Late));
        QVERIFY(qAbs(name.leftAt - status.leftAt - kTurnaround - wireTime(36)) <= 2);
        QVERIFY(!other.harms);
        // While it was the last exchange, answers came that were not its own.
        QCOMPARE(run.exchange(2).intrusions, Intrusions(Intrusion::OtherAnswer));
    }

    void letsAnswersOverlap_data() { addKinds(); }
    void letsAnswersOverlap()
    {
        QFETCH(LineKind, kind);
        QFETCH(bool, withAnswers);
        Adversaries late;
        late.lateAnswers = 100;
        late.lateFrom = late.lateTo = 40;
        LineRun run(late, LineRun::options(kind));
        run.send(kStatus);
        run.line.setAdversaries({}, 20000);
        run.run(30000); // no answer before 59 ms
        run.send(kOtherStatus);
        run.run(kSecond);
        const LineAnswer& first = run.answer(0);
        const LineAnswer& second = run.answer(1);
        QCOMPARE(first.harms.testFlag(Harm::Overlap), withAnswers);
        QCOMPARE(second.harms.testFlag(Harm::Overlap), withAnswers);
        QCOMPARE(soundFrames(run.bytes()), withAnswers
                                               ? QList<QByteArray>()
                                               : (QList<QByteArray>{second.bytes, first.bytes}));
        // Of what overlaps, one starts in the other: together they are shorter than two frames.
        QCOMPARE(run.arrived.size() < std::size_t{2} * kStatusBytes, withAnswers);
        QVERIFY(withAnswers || first.leftAt >= second.leftAt + wireTime(kStatusBytes) - 2);
    }

    void letsARequestMeetAnAnswer_data() { addKinds(); }
    void letsARequestMeetAnAnswer()
    {
        QFETCH(LineKind, kind);
        QFETCH(bool, withRequests);
        LineOptions options = LineRun::options(kind);
        options.leastTurnaround = options.mostTurnaround = 4 * kTurnaround;
        const qint64 answerBegin = wireTime(kRequestBytes) + options.leastTurnaround;
        const qint64 answerEnd = answerBegin + wireTime(kStatusBytes);
        // The answer begins with the request's last bit, in its middle, with its first one; and the
        // request begins in the answer, and in its last byte.
        for (const qint64 begin :
             {answerBegin - wireTime(kPollBytes) + 100, answerBegin - 7000, answerBegin - 1,
              answerEnd - wireTime(10) + 500, answerEnd - wireTime(1) + 500}) {
            LineRun run({}, options);
            run.send(kStatus);
            run.runUntil(begin);
            run.send("FE0B70");
            run.run(kSecond);
            const LineExchange& second = run.exchange(1);
            const bool isQueued = kind == LineKind::QueuingConverter && begin > answerBegin;
            QCOMPARE(second.harms.testFlag(Harm::Overlap), withRequests);
            QCOMPARE(second.isHeard, !withRequests);
            QVERIFY(!isQueued || second.endedAt >= answerEnd + wireTime(kPollBytes) - 2);
            if (withRequests) {
                QVERIFY(soundFrames(run.bytes()).isEmpty());
                QCOMPARE(run.arrived.size(), std::size_t{kStatusBytes});
                QVERIFY(run.answer(0).harms.testFlag(Harm::Overlap));
            } else if (begin > answerBegin) {
                QVERIFY(!run.answer(0).harms);
                QCOMPARE(soundFrames(run.bytes()).size(), 1);
                QCOMPARE(run.arrived.size(), std::size_t{kStatusBytes + 1});
            }
        }
    }

    /// Whatever passes the check is either what a board sent, whole, or listed in the book.
    void knowsFramesThatNobodySent()
    {
        for (const LineKind kind : {LineKind::FullDuplex, LineKind::HalfDuplex}) {
            LineOptions options = LineRun::options(kind);
            options.bookLength = 100000;
            options.mostTurnaround = 12000;
            Adversaries adversaries;
            adversaries.lateAnswers = 10;
            adversaries.strayEvery = 0.05;
            LineRun run(adversaries, options);
            // Requests without regard to what else is on the line.
            Chance chance(7);
            const QByteArray bodies[] = {kStatus, kOtherStatus, kName, "FE0C737804"};
            for (int i = 0; i < 2500; ++i) {
                run.send(bodies[chance.between(0, 3)]);
                run.run(chance.between(10000, 150000));
            }
            run.run(20 * kSecond);
            QList<QByteArray> others = soundFrames(run.bytes());
            for (const LineExchange& exchange : run.line.book().exchanges()) {
                for (const LineAnswer& answer : exchange.answers) {
                    if (!answer.harms.testFlag(Harm::Overlap)) {
                        others.removeOne(answer.bytes);
                    }
                }
            }
            const auto& frames = run.line.book().falseFrames();
            QList<QByteArray> listed(frames.begin(), frames.end());
            std::sort(others.begin(), others.end());
            std::sort(listed.begin(), listed.end());
            QVERIFY(!listed.isEmpty());
            QCOMPARE(others, listed);
        }
    }

    void keepsABookOfBoundedLength()
    {
        LineOptions options = LineRun::options();
        options.bookLength = 100;
        LineRun run({}, options);
        for (int i = 0; i < 1000; ++i) {
            run.send(kPoll);
            run.run(i % 7 == 0 ? 0 : 50000);
        }
        QCOMPARE(run.line.book().exchanges().size(), std::size_t{100});
        QCOMPARE(run.line.book().exchangeCount(), qint64{1000});
        QCOMPARE(run.last().number, qint64{999});
    }

    void forgetsWhatIsOnItsWay()
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
};

REGISTER_TEST(LineTest, QCoreApplication)
#include "tst_line.moc"
