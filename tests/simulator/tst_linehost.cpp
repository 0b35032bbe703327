#include "serial/wire/framecodec.h"
#include "simulator/bus/lineboards.h"
#include "simulator/program/linehost.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"
#include "tests/support/virtualclock.h"

#include <QCoreApplication>

namespace {

struct Arrival
{
    int bytes;
    qint64 at; // µs
};

} // namespace

/// A line in the time of a clock, which is virtual here.
class LineHostTest : public TestCase
{
    Q_OBJECT
private slots:
    void keepsThePaceOfTheLine()
    {
        const VirtualClock clock;
        LineBoards boards({0x0A});
        LineOptions options;
        options.leastTurnaround = options.mostTurnaround = 1000;
        LineHost host(Line(options, {}, boards), clock);
        const qint64 start = clock.microseconds();
        QByteArray all;
        QList<Arrival> arrivals;
        connect(&host, &LineHost::arrived, this, [&](const QByteArray& bytes) {
            all += bytes;
            arrivals.append({bytes.size(), clock.microseconds() - start});
        });
        constexpr int kStatusBytes = 54;
        host.receive(framecodec::createCommand("FE0A737803"));
        VirtualTime::current()->advance(200);
        QCOMPARE(all.size(), kStatusBytes);
        // No byte came before its time, the last one at it, and none cost a wake-up of its own.
        const auto wireTime = [](int bytes) {
            return bytes * qint64{1041667} / 1000;
        };
        const qint64 begin = wireTime(14) + 1000;
        int count = 0;
        for (const Arrival& arrival : qAsConst(arrivals)) {
            count += arrival.bytes;
            QVERIFY(arrival.at >= begin + wireTime(count) - 1);
        }
        QVERIFY(arrivals.constLast().at < begin + wireTime(kStatusBytes) + 4);
        QVERIFY(arrivals.size() > 3 && arrivals.size() < 10);

        // In pieces: the line waits for none of them longer than it has to.
        all.clear();
        const QByteArray poll = framecodec::createCommand("FE0A70");
        host.receive(poll.left(4));
        VirtualTime::current()->advance(100);
        host.receive(poll.mid(4));
        VirtualTime::current()->advance(100);
        QCOMPARE(all, QByteArray("\x06"));
        QVERIFY(qAbs(arrivals.constLast().at - 300000 - 1000 - wireTime(7)) < 4);
    }
};

REGISTER_TEST(LineHostTest, InVirtualTime<QCoreApplication>)
#include "tst_linehost.moc"
