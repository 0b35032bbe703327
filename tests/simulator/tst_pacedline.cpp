#include "simulator/pacedline.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"
#include "tests/support/virtualtime.h"

#include <QCoreApplication>

namespace {

/// The dispatcher's time. What is shorter than its milliseconds passes only where somebody waits.
class VirtualClock : public SimulationClock
{
public:
    qint64 microseconds() const override
    {
        return qMax(VirtualTime::current()->now() * 1000, m_waitedUntil);
    }
    void wait(qint64 microseconds) const override
    {
        QVERIFY2(microseconds < 1000, "blocks for longer than it may");
        m_waitedUntil = this->microseconds() + microseconds;
    }

private:
    mutable qint64 m_waitedUntil = 0;
};

const QByteArray kPoll("\x01"
                       "FE0A70DE\x04"); // 10 bytes
const QByteArray kAnswer = QByteArray(54, 'x');

struct Event
{
    QByteArray bytes;
    qint64 at = 0; // µs since the test's start
};

/// A line with everything that comes out of it, timed.
class Recorder : public QObject
{
    Q_OBJECT
public:
    explicit Recorder(PacedLine::Pace pace)
        : line(pace, m_clock)
        , m_start(m_clock.microseconds())
    {
        connect(&line, &PacedLine::heard, this, [this](const QByteArray& frame, qint64 heardAt) {
            heard.append({frame, heardAt - m_start});
            if (!answer.isEmpty()) {
                line.send(answer, heardAt, delay, answer.size());
            }
        });
        connect(&line, &PacedLine::transmit, this, [this](const QByteArray& bytes) {
            sent.append({bytes, m_clock.microseconds() - m_start});
        });
        connect(&line, &PacedLine::sent, this, [this](int tag, qint64 sentAt) {
            finished.append({QByteArray::number(tag), sentAt - m_start});
        });
    }

    qint64 now() const { return m_clock.microseconds(); }
    QByteArray allSent() const
    {
        QByteArray bytes;
        for (const Event& event : sent) {
            bytes += event.bytes;
        }
        return bytes;
    }

private:
    VirtualClock m_clock;

public:
    PacedLine line;
    QByteArray answer;
    qint64 delay = 0;
    QList<Event> heard;
    QList<Event> sent;
    QList<Event> finished;

private:
    qint64 m_start;
};

} // namespace

/// The pace of the line, in virtual time: 10 bits a byte at 9600 baud are 1041.667 µs.
class PacedLineTest : public TestCase
{
    Q_OBJECT
private slots:
    void hearsAFrameWhenItsLastByteHasCome();
    void answersAtThePaceOfTheLine();
    void answersDoNotOverlap();
    void cutsFramesOutOfAnything_data();
    void cutsFramesOutOfAnything();
    void forgetsEverythingOnReset();
    void takesNoTimeUnpaced();
};

void PacedLineTest::hearsAFrameWhenItsLastByteHasCome()
{
    Recorder recorder(PacedLine::Pace::Baud9600);
    recorder.line.receive(kPoll);
    VirtualTime::current()->advance(9); // 10 bytes need 10.417 ms
    QVERIFY(recorder.heard.isEmpty());
    VirtualTime::current()->advance(2);
    QCOMPARE(recorder.heard.size(), 1);
    QCOMPARE(recorder.heard.constFirst().bytes, kPoll);
    QCOMPARE(recorder.heard.constFirst().at, 10416);

    // In pieces: the line waits for none of them longer than it has to.
    recorder.line.receive(kPoll.left(4));
    VirtualTime::current()->advance(100);
    recorder.line.receive(kPoll.mid(4));
    VirtualTime::current()->advance(5);
    QCOMPARE(recorder.heard.size(), 1);
    VirtualTime::current()->advance(2);
    QCOMPARE(recorder.heard.size(), 2);
    QCOMPARE(recorder.heard.at(1).at, 11000 + 100000 + 6250);

    // Two at once: the second queues on the wire.
    Recorder busy(PacedLine::Pace::Baud9600);
    busy.line.receive(kPoll + kPoll);
    VirtualTime::current()->advance(30);
    QCOMPARE(busy.heard.size(), 2);
    QCOMPARE(busy.heard.at(1).at, 20833);
}

void PacedLineTest::answersAtThePaceOfTheLine()
{
    Recorder recorder(PacedLine::Pace::Baud9600);
    recorder.answer = kAnswer;
    recorder.line.receive(kPoll);
    VirtualTime::current()->advance(200);
    QCOMPARE(recorder.allSent(), kAnswer);
    // 10 bytes, 1 ms turnaround, 54 bytes.
    QCOMPARE(recorder.finished.size(), 1);
    QCOMPARE(recorder.finished.constFirst().bytes, QByteArray("54"));
    QCOMPARE(recorder.finished.constFirst().at, 10416 + 1000 + 56250);
    // No byte came before its time.
    int count = 0;
    for (const Event& event : qAsConst(recorder.sent)) {
        count += event.bytes.size();
        QVERIFY(event.at >= 11416 + qint64{1041} * count);
    }
    QVERIFY(recorder.sent.size() > 3);
}

void PacedLineTest::answersDoNotOverlap()
{
    Recorder recorder(PacedLine::Pace::Baud9600);
    const qint64 now = recorder.now();
    recorder.line.send("late", now, 20);
    recorder.line.send(QByteArray(30, 'a'), now, 0); // 31 ms on the wire
    recorder.line.send("soon", now, 10);
    VirtualTime::current()->advance(200);
    QCOMPARE(recorder.allSent(), QByteArray(30, 'a') + "soonlate");
    QVERIFY(recorder.sent.constLast().at >= 39578);

    // A piece that should have left long ago does not leave at once: the wire was taken until now.
    Recorder lagging(PacedLine::Pace::Baud9600);
    const qint64 longAgo = lagging.now();
    lagging.line.send(QByteArray(30, 'a'), longAgo);
    VirtualTime::current()->advance(40);
    lagging.line.send(QByteArray(30, 'b'), longAgo);
    VirtualTime::current()->advance(100);
    QCOMPARE(lagging.finished.constLast().at, 1000 + 2 * 31250);
}

void PacedLineTest::cutsFramesOutOfAnything_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("frames");
    QTest::newRow("a start in the middle") << QByteArray("\x01"
                                                         "FE0A") +
                                                  kPoll
                                           << 1;
    QTest::newRow("noise between") << kPoll + "zzz" + kPoll << 2;
    QTest::newRow("no end") << QByteArray("\x01") + QByteArray(100000, 'z') << 0;
    QTest::newRow("after no end") << QByteArray("\x01") + QByteArray(5000, 'z') + kPoll << 1;
}

void PacedLineTest::cutsFramesOutOfAnything()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, frames);
    for (const PacedLine::Pace pace : {PacedLine::Pace::Baud9600, PacedLine::Pace::Unpaced}) {
        Recorder recorder(pace);
        recorder.line.receive(bytes);
        VirtualTime::current()->advance(200000);
        QCOMPARE(recorder.heard.size(), frames);
        for (const Event& event : qAsConst(recorder.heard)) {
            QCOMPARE(event.bytes, kPoll);
        }
    }
}

void PacedLineTest::forgetsEverythingOnReset()
{
    Recorder recorder(PacedLine::Pace::Baud9600);
    recorder.line.send(kAnswer, recorder.now());
    recorder.line.receive(kPoll);
    VirtualTime::current()->advance(5);
    recorder.line.reset();
    recorder.sent.clear();
    VirtualTime::current()->advance(1000);
    QVERIFY(recorder.heard.isEmpty());
    QVERIFY(recorder.sent.isEmpty());
}

void PacedLineTest::takesNoTimeUnpaced()
{
    Recorder recorder(PacedLine::Pace::Unpaced);
    recorder.answer = kAnswer;
    recorder.line.receive(kPoll + kPoll);
    QCOMPARE(recorder.heard.size(), 2);
    QCOMPARE(recorder.allSent(), kAnswer + kAnswer);
    QCOMPARE(recorder.sent.size(), 2);

    // What was asked to be late is late all the same.
    recorder.delay = 50;
    recorder.line.receive(kPoll);
    VirtualTime::current()->advance(49);
    QCOMPARE(recorder.sent.size(), 2);
    VirtualTime::current()->advance(1);
    QCOMPARE(recorder.sent.size(), 3);
}

REGISTER_TEST(PacedLineTest, InVirtualTime<QCoreApplication>)
#include "tst_pacedline.moc"
