#include "serial/wire/framecodec.h"
#include "simulator/bus/lineboards.h"
#include "simulator/program/linehost.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"
#include "tests/support/virtualclock.h"

#include <QCoreApplication>

namespace {

const QByteArray kPoll = framecodec::createCommand("FE0A70");
const QByteArray kStatus = framecodec::createCommand("FE0A737803");
constexpr int kStatusBytes = 54;

/// A hosted line with everything that arrives, timed from the test's start.
class Host : public QObject
{
    Q_OBJECT
public:
    struct Arrival
    {
        int bytes;
        qint64 at; // µs
    };

    explicit Host(const LineOptions& options = paced(), const Adversaries& adversaries = {})
        : m_boards({0x0A, 0x0B})
        , host(Line(options, adversaries, m_boards), m_clock)
        , m_start(m_clock.microseconds())
    {
        connect(&host, &LineHost::arrived, this, [this](const QByteArray& bytes) {
            all += bytes;
            arrivals.append({bytes.size(), m_clock.microseconds() - m_start});
        });
    }

    static LineOptions paced()
    {
        LineOptions options;
        options.leastTurnaround = options.mostTurnaround = 1000;
        return options;
    }
    static LineOptions unpaced()
    {
        LineOptions options;
        options.byteTime = 0;
        options.leastTurnaround = options.mostTurnaround = 0;
        return options;
    }

private:
    VirtualClock m_clock;
    LineBoards m_boards;

public:
    LineHost host;
    QByteArray all;
    QList<Arrival> arrivals;

private:
    qint64 m_start;
};

} // namespace

/// A line in the time of a clock, which is virtual here.
class LineHostTest : public TestCase
{
    Q_OBJECT
private slots:
    void keepsThePaceOfTheLine();
    void takesNoTimeUnpaced();
    void bringsWhatNobodyAskedFor();
};

void LineHostTest::keepsThePaceOfTheLine()
{
    Host host;
    host.host.receive(kStatus);
    VirtualTime::current()->advance(200);
    QCOMPARE(host.all.size(), kStatusBytes);
    // No byte came before its time, the last one at it, and none cost a wake-up of its own.
    constexpr double kByte = 1041.667;
    const double begin = 14 * kByte + 1000;
    int count = 0;
    for (const Host::Arrival& arrival : qAsConst(host.arrivals)) {
        count += arrival.bytes;
        QVERIFY(static_cast<double>(arrival.at) >= begin + count * kByte - 1);
    }
    QVERIFY(static_cast<double>(host.arrivals.constLast().at) < begin + kStatusBytes * kByte + 3);
    QVERIFY(host.arrivals.size() > 3 && host.arrivals.size() < 10);

    // In pieces: the line waits for none of them longer than it has to.
    host.all.clear();
    const qint64 former = host.arrivals.constLast().at;
    host.host.receive(kPoll.left(4));
    VirtualTime::current()->advance(100);
    host.host.receive(kPoll.mid(4));
    VirtualTime::current()->advance(100);
    QCOMPARE(host.all, QByteArray("\x06"));
    QVERIFY(host.arrivals.constLast().at > former);
    const double pieceEnd = 300000 + 6 * kByte + 1000 + kByte;
    QVERIFY(qAbs(static_cast<double>(host.arrivals.constLast().at) - pieceEnd) < 3);
}

void LineHostTest::takesNoTimeUnpaced()
{
    Host host(Host::unpaced());
    host.host.receive(kPoll + kStatus);
    QCOMPARE(host.all.size(), 1 + kStatusBytes);
    QCOMPARE(host.arrivals.size(), 1);

    // What was asked to be late is late all the same.
    Adversaries late;
    late.lateAnswers = 100;
    late.lateFrom = late.lateTo = 50;
    host.host.setAdversaries(late);
    host.host.receive(kPoll);
    VirtualTime::current()->advance(49);
    QCOMPARE(host.arrivals.size(), 1);
    VirtualTime::current()->advance(1);
    QCOMPARE(host.arrivals.size(), 2);
}

void LineHostTest::bringsWhatNobodyAskedFor()
{
    Host host;
    Adversaries strays;
    strays.strayEvery = 1;
    host.host.setAdversaries(strays);
    VirtualTime::current()->advance(100000);
    QVERIFY(host.all.size() > 70 && host.all.size() < 130);
    host.host.setAdversaries({});
    host.all.clear();
    VirtualTime::current()->advance(100000);
    QVERIFY(host.all.isEmpty());

    Adversaries fromTheStart;
    fromTheStart.strayEvery = 1;
    Host other(Host::paced(), fromTheStart);
    VirtualTime::current()->advance(100000);
    QVERIFY(other.all.size() > 70);
}

REGISTER_TEST(LineHostTest, InVirtualTime<QCoreApplication>)
#include "tst_linehost.moc"
