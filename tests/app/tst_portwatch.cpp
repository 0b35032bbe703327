#include "app/installation/portwatch.h"
#include "app/installation/sitecheck.h"
#include "tests/support/testprogram.h"

Q_DECLARE_METATYPE(PortIdentity)
Q_DECLARE_METATYPE(std::vector<PortIdentity>)

namespace {

using Kind = PortWatch::Verdict::Kind;
using Ports = std::vector<PortIdentity>;

PortIdentity adapter(const char* name, const char* serialNumber)
{
    return {name, serialNumber, 0x0403, 0x6001};
}

QString textOf(const PortWatch::Verdict& verdict)
{
    constexpr const char* kKinds[] = {"wait", "try", "ask"};
    return (QStringList(kKinds[static_cast<int>(verdict.kind)]) + verdict.names).join(' ');
}

std::vector<KnownLdb> remembered(int count)
{
    std::vector<KnownLdb> ldbs;
    for (int i = 1; i <= count; ++i) {
        ldbs.push_back({QString::number(i), "Hall " + QString::number(i)});
    }
    return ldbs;
}

QString textOf(SiteCheck::Verdict verdict)
{
    constexpr const char* kVerdicts[] = {"open", "same", "another"};
    return kVerdicts[static_cast<int>(verdict)];
}

} // namespace

/// Whether a port is back, and whether a bus is the one remembered.
class TestPortWatch : public TestCase
{
    Q_OBJECT
private slots:
    void portThatComesBack_data()
    {
        const Table<PortIdentity, Ports, Ports, bool, QString> row("lost", "before", "now",
                                                                   "isThere", "verdict");
        const PortIdentity mine = adapter("ttyUSB0", "A1");
        row("not there", mine, {mine}, {adapter("ttyUSB1", "B2")}, false, "wait");
        row("as it was", mine, {mine}, {mine}, true, "try ttyUSB0");
        row("other name", mine, {mine}, {adapter("COM7", "A1")}, false, "try COM7");
        row("another adapter of its name", mine, {mine}, {adapter("ttyUSB0", "B2")}, true, "wait");
        row("number given twice", mine, {mine}, {adapter("a", "A1"), adapter("b", "A1")}, false,
            "ask a b");
        const PortIdentity cheap = adapter("ttyUSB0", "");
        const PortIdentity twin = adapter("ttyUSB1", "");
        row("no number, other name", cheap, {cheap}, {adapter("ttyUSB4", "")}, false,
            "try ttyUSB4");
        row("no number, one with a number", cheap, {cheap}, {adapter("ttyUSB4", "A1")}, false,
            "wait");
        row("no number, two", cheap, {cheap}, {adapter("ttyUSB2", ""), twin}, false,
            "ask ttyUSB2 ttyUSB1");
        row("twin that was there all the time", cheap, {cheap, twin}, {twin}, false, "wait");
        row("beside its twin", cheap, {cheap, twin}, {twin, adapter("ttyUSB2", "")}, false,
            "try ttyUSB2");
        const PortIdentity pseudo{"/tmp/bus"};
        row("pseudo-terminal gone", pseudo, {}, {mine}, false, "wait");
        row("pseudo-terminal", pseudo, {}, {}, true, "try /tmp/bus");
    }

    void portThatComesBack()
    {
        QFETCH(PortIdentity, lost);
        QFETCH(Ports, before);
        QFETCH(Ports, now);
        QFETCH(bool, isThere);
        PortWatch watch(lost, before, 0);
        QTEST(textOf(watch.look(now, isThere, 1000)), "verdict");
    }

    void twinThatWasPulledOut()
    {
        const PortIdentity cheap = adapter("ttyUSB0", "");
        const PortIdentity twin = adapter("ttyUSB1", "");
        PortWatch watch(cheap, {cheap, twin}, 0);
        QCOMPARE(textOf(watch.look({}, false, 1000)), "wait");
        // Either may be the first to be back.
        QCOMPARE(textOf(watch.look({cheap, twin}, true, 2000)), "ask ttyUSB0 ttyUSB1");
        QCOMPARE(textOf(watch.look({cheap, twin}, true, 3000)), "wait"); // for the answer
        QCOMPARE(textOf(watch.look({twin}, true, 4000)), "try ttyUSB1");
    }

    void triesLessAndLessOften()
    {
        const PortIdentity mine = adapter("ttyUSB0", "A1");
        PortWatch watch(mine, {mine}, 0);
        QList<qint64> tries;
        for (qint64 second = 0; second < 40; ++second) {
            if (watch.look({mine}, true, second * 1000).kind == Kind::Try) {
                tries.append(second);
                watch.processFailure(second * 1000);
            }
        }
        QCOMPARE(tries, (QList<qint64>{0, 1, 3, 7, 15, 23, 31, 39}));
        QVERIFY(!watch.isLongAway(600000));
        QVERIFY(watch.isLongAway(600001));
    }

    void site_data()
    {
        // Of `known` LDBs so many answer the probes, so many of those tell another name, and so
        // many tell none.
        const Table<int, int, int, int, QString> row("known", "answering", "renamed", "mute",
                                                     "verdict");
        row("all as ever", 32, 32, 0, 0, "same");
        row("half of them", 32, 16, 0, 0, "same");
        row("fewer than half", 32, 15, 0, 0, "another");
        row("nobody", 5, 0, 0, 0, "another");
        row("one renamed", 8, 8, 1, 0, "same");
        row("two renamed", 8, 8, 2, 0, "another");
        row("three of many renamed", 32, 32, 3, 0, "same");
        row("four of many renamed", 32, 32, 4, 0, "another");
        row("a third the same", 32, 32, 21, 0, "another");
        row("one of three renamed", 3, 3, 1, 0, "same");
        row("one of two renamed", 2, 2, 1, 0, "another");
        row("the only one renamed", 1, 1, 1, 0, "another");
        row("the only one", 1, 1, 0, 0, "same");
        row("names not heard yet", 8, 8, 0, 2, "open");
        row("many other names already", 8, 8, 3, 3, "another");
    }

    void site()
    {
        QFETCH(int, known);
        QFETCH(int, answering);
        QFETCH(int, renamed);
        QFETCH(int, mute);
        SiteCheck check(remembered(known));
        check.processName("FD", "not remembered");
        check.processProbed(answering);
        for (int i = 1; i <= answering - mute; ++i) {
            check.processName(QString::number(i),
                              (i <= renamed ? "Room " : "Hall ") + QString::number(i));
        }
        QTEST(textOf(check.verdict()), "verdict");
    }

    /// Who has told his name and tells another one was renamed, be the site as small as it may.
    void renamedUnderOurEyes()
    {
        SiteCheck check(remembered(2));
        check.processProbed(2);
        check.processName("1", "Hall 1");
        check.processName("1", "Room 1");
        check.processName("2", "Hall 2");
        QCOMPARE(textOf(check.verdict()), "same");
    }

    void siteThatIsHeardNoMore_data()
    {
        const Table<int, QString> row("told", "verdict");
        row("half of the names", 4, "same");
        row("fewer", 3, "another");
    }

    void siteThatIsHeardNoMore()
    {
        QFETCH(int, told);
        SiteCheck check(remembered(8));
        for (int i = 1; i <= told; ++i) {
            check.processName(QString::number(i), "Hall " + QString::number(i));
        }
        QCOMPARE(textOf(check.verdict()), "open");
        QTEST(textOf(check.lastVerdict()), "verdict");
    }
};

REGISTER_TEST(TestPortWatch, QCoreApplication)

#include "tst_portwatch.moc"
