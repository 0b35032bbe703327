#include "tests/serial/scriptedtalk.h"
#include "tests/support/badlines.h"
#include "tests/support/testprogram.h"

#include <QMap>

using namespace scriptedtalk;

namespace {

constexpr qint64 kSecond = 1000000;
constexpr qint64 kMinute = 60 * kSecond;

LineRig::Setup site(int ldbs)
{
    LineRig::Setup setup;
    setup.addresses.clear();
    for (int i = 0; i < ldbs; ++i) {
        setup.addresses.push_back(3 + 6 * i);
    }
    return setup;
}

/// Those of a site, by the names that they have.
StartPlan known(LineRig& rig, int ldbs)
{
    StartPlan plan{StartPlan::Kind::Known, {}};
    for (const int address : site(ldbs).addresses) {
        plan.ldbs.push_back({busaddress::toHexId(address), rig.boards().name(address)});
    }
    return plan;
}

StartPlan known(const QStringList& hexIds, const QString& name)
{
    StartPlan plan{StartPlan::Kind::Known, {}};
    for (const QString& hexId : hexIds) {
        plan.ldbs.push_back({hexId, name.arg(hexId)});
    }
    return plan;
}

const StartPlan kResume{StartPlan::Kind::Resume, {}};

QSet<QString> toldOf(const QList<event::Record>& records)
{
    QSet<QString> ids;
    for (const event::Record& record : records) {
        ids.insert(record.hexId);
    }
    return ids;
}

QString text(LineRig& rig, quint64 seed)
{
    return QString::number(seed) + ": " + rig.complaints().join('\n') + "\n" +
           rig.conversation().describe();
}

} // namespace

/// Runs that know their LDBs, and those that go on.
class TestStarts : public TestCase
{
    Q_OBJECT
private slots:
    void aKnownSiteIsThereAtOnce()
    {
        LineRig rig(site(32));
        QMap<QString, qint64> firstAt;
        qint64 probedAt = 0;
        rig.listen([&](const Event& event) {
            if (const auto* record = std::get_if<event::Record>(&event)) {
                if (!firstAt.contains(record->hexId)) {
                    firstAt.insert(record->hexId, rig.now());
                }
            } else if (const auto* probed = std::get_if<event::KnownProbed>(&event)) {
                QCOMPARE(probed->answered, 32);
                QCOMPARE(probed->asked, 32);
                probedAt = rig.now();
            }
        });
        rig.start(known(rig, 32));
        QCOMPARE(rig.found().size(), 32);
        QVERIFY(rig.runUntil([&] { return firstAt.size() == 32; }, 10 * kSecond));
        const auto first = *std::min_element(firstAt.begin(), firstAt.end());
        QVERIFY2(first <= kSecond, qPrintable(QString::number(first)));
        QVERIFY2(rig.now() <= 4 * kSecond, qPrintable(QString::number(rig.now())));
        qInfo("the first after %.2f s, all after %.2f s", static_cast<double>(first) / kSecond,
              static_cast<double>(rig.now()) / kSecond);
        rig.run(kMinute);
        QVERIFY(probedAt > 0);
        QVERIFY2(rig.tally().wrong == 0, qPrintable(text(rig, 1)));
    }

    void knownOnesAreAwaitedTillTheyAnswer()
    {
        ScriptedTalk talk({"03", "0A"});
        // Not in the order of addresses, one twice, and one that no bus has.
        talk.start(known({"20", "0A", "03", "0A", "FE"}, "former %1"));
        QCOMPARE(talk.told<event::ListChange>().last().hexIds, QStringList({"03", "0A", "20"}));
        QCOMPARE(talk.told<event::AwaitedChange>().size(), 3);
        QVERIFY(!talk.told<event::ScanState>().last().isRunning);
        QCOMPARE(talk.sent().last().body, ask("03", kPoll));
        QCOMPARE(talk.nextBodies(4), (QList<QByteArray>{ask("03", kStatus), ask("0A", kPoll),
                                                        ask("0A", kStatus), ask("20", kPoll)}));
        const double probed = talk.now();
        QVERIFY(talk.told<event::KnownProbed>().isEmpty());
        QCOMPARE(talk.next().body, ask("03", kStatus));
        QVERIFY(about(talk.now() - probed, 120));
        const auto result = talk.told<event::KnownProbed>();
        QVERIFY(result.size() == 1 && result.first().answered == 2 && result.first().asked == 3);
        QCOMPARE(talk.told<event::Record>().size(), 2);
        QCOMPARE(talk.told<event::Record>().first().name, QString("former 03"));
        QCOMPARE(talk.told<event::RoundBegun>().size(), 2);
        QCOMPARE(talk.told<event::RoundEnded>().size(), 1);

        // The other addresses are probed behind the turns, but not while commands wait, one is
        // polled alone, or the search is held.
        QCOMPARE(talk.nextBodies(3), turnOf("03").mid(1) + QList<QByteArray>{ask("01", kPoll)});
        QCOMPARE(talk.nextBodies(4), turnOf("0A") + QList<QByteArray>{ask("02", kPoll)});
        talk.conversation().holdSearch(true);
        QCOMPARE(talk.nextBodies(5),
                 QList<QByteArray>{ask("20", kPoll)} + turnOf("03") + turnOf("0A").mid(0, 1));
        talk.conversation().holdSearch(false);
        talk.queue(requests::read("03", 1));
        QCOMPARE(talk.nextBodies(4),
                 (turnOf("0A").mid(1) + QList<QByteArray>{ask("03", kSettings), ask("04", kPoll)}));
        talk.conversation().pollAlone("0A");
        talk.nextOf(ask("0A", kStatus));
        QCOMPARE(talk.nextBodies(5), turnOf("0A").mid(1) + turnOf("0A"));
        talk.conversation().pollAlone({});

        // The first name heard counts; who stays silent is no loss, and nothing is told of it.
        talk.setPresent({"03", "0A", "30"});
        talk.forgetEvents();
        talk.nextOf(ask("30", kPoll));
        talk.run(2000);
        QCOMPARE(talk.told<event::Record>().last().name.left(4), QString("LDB "));
        QCOMPARE(toldOf(talk.told<event::Record>()), (QSet<QString>{"03", "0A", "30"}));
        QVERIFY(talk.told<event::Loss>().isEmpty());
        QVERIFY(talk.told<event::AwaitedChange>().isEmpty());
        talk.setPresent({"03", "0A", "20", "30"});
        talk.run(2000);
        QCOMPARE(talk.told<event::AwaitedChange>().size(), 1);
        QVERIFY(toldOf(talk.told<event::Record>()).contains("20"));
        // From now on it can be lost.
        talk.setPresent({"03", "0A", "30"});
        talk.run(60000);
        QCOMPARE(talk.told<event::Loss>().size(), 1);
    }

    /// Whoever does not answer a scan, though he is known from before, is lost.
    void whoIsExpectedIsLostBehindAScan_data()
    {
        // Announced: before the scan has begun, in it, behind it, or not at all.
        const Table<QString, QStringList, QStringList> row("when", "announced", "lost");
        row("not heard yet", "never", {}, {"20", "30"});
        row("another site", "before", {}, {});
        row("yet another", "before", {"03", "40"}, {"40"});
        row("said in the scan", "in", {"03", "40"}, {"40"});
        row("said behind it", "behind", {"20", "40"}, {"20", "40"});
    }

    void whoIsExpectedIsLostBehindAScan()
    {
        QFETCH(QString, when);
        QFETCH(QStringList, announced);
        QFETCH(QStringList, lost);
        ScriptedTalk talk({"03", "0A"});
        talk.start(known({"03", "20", "30"}, "former %1"));
        talk.run(5000);
        const auto announce = [&](const QString& now) {
            if (now == when) {
                talk.conversation().expect(known(announced, "former %1").ldbs);
            }
        };
        talk.conversation().requestScan();
        announce("before");
        talk.nextOf(ask("08", kPoll));
        announce("in");
        talk.nextOf(ask("FD", kPoll));
        talk.run(3000);
        announce("behind");
        talk.run(3000);
        talk.forgetEvents();
        // Each of them is told lost in the next rounds.
        talk.run(20000);
        QCOMPARE(talk.told<event::ListChange>().size(), 0);
        QStringList told;
        for (const event::Record& record : talk.told<event::Record>()) {
            if (record.status.state == LdbState::Disconnected && !told.contains(record.hexId)) {
                told.append(record.hexId);
                QCOMPARE(record.name, "former " + record.hexId);
            }
        }
        told.sort();
        QCOMPARE(told, lost);
        QVERIFY(talk.told<event::Loss>().isEmpty());
        // Another scan does not forget them.
        talk.conversation().requestScan();
        talk.nextOf(ask("FD", kPoll));
        talk.run(3000);
        QCOMPARE(talk.told<event::ListChange>().last().hexIds, QStringList({"03", "0A"}) + lost);
        QVERIFY(talk.told<event::Loss>().isEmpty());
    }

    void whoWasGivenUpComesBackWhenHeAnswers()
    {
        ScriptedTalk talk({"03", "0A", "20"});
        talk.settle("03", 2);
        talk.setPresent({"03"});
        talk.run(60000);
        talk.conversation().dismiss("0A");
        talk.conversation().dismiss("20");
        talk.run(5000);
        QCOMPARE(talk.told<event::ListChange>().last().hexIds, QStringList{"03"});
        // One of the two behind each turn, and nothing else.
        const QList<QByteArray> bodies = talk.nextBodies(8);
        QCOMPARE(bodies.count(ask("0A", kPoll)) + bodies.count(ask("20", kPoll)), 2);
        QCOMPARE(bodies.count(ask("0A", kPoll)), 1);
        talk.setPresent({"03", "20"});
        talk.run(3000);
        QCOMPARE(talk.told<event::ListChange>().last().hexIds, QStringList({"03", "20"}));
        talk.forgetEvents();
        talk.run(3000);
        QCOMPARE(toldOf(talk.told<event::Record>()), (QSet<QString>{"03", "20"}));
        QCOMPARE(talk.nextBodies(28).count(ask("20", kPoll)), 0);
    }

    void aGhostAmongTheKnownStaysAwaited()
    {
        // The ACK of 05 comes in the window of 06, which is not there.
        ScriptedTalk talk({"05"});
        talk.setScript(first(ask("05", kPoll), {{{130, kAck}}}));
        talk.start(known({"05", "06"}, "%1"));
        talk.run(20000);
        QCOMPARE(talk.told<event::ListChange>().last().hexIds, QStringList({"05", "06"}));
        QCOMPARE(toldOf(talk.told<event::Record>()), QSet<QString>{"05"});
        QVERIFY(talk.told<event::Loss>().isEmpty());
    }

    void aRunGoesOnWithoutASearch()
    {
        ScriptedTalk talk({"03", "0A", "20"});
        talk.settle("03", 2);
        talk.setPresent({"03", "20"});
        talk.run(60000); // 0A is lost
        QCOMPARE(talk.told<event::Loss>().size(), 1);
        talk.queue(requests::execute("03", 7));
        talk.queue(requests::execute("20", 7));
        talk.nextOf("FE03737807");
        talk.cut();
        QCOMPARE(talk.told<event::CommandDone>().size(), 1);
        talk.run(5000);
        talk.forgetEvents();
        const auto before = talk.sent().size();
        talk.start(kResume);
        talk.run(20000);
        QCOMPARE(talk.told<event::ListChange>().last().hexIds, QStringList({"03", "0A", "20"}));
        QCOMPARE(talk.told<event::Record>().first().status.state, LdbState::Disconnected);
        QVERIFY(talk.told<event::Loss>().isEmpty());
        QCOMPARE(talk.told<event::StateChange>().size(), 3);
        QCOMPARE(talk.sent().at(before).body, ask("03", kStatus));
        for (const auto& sent : talk.sent().mid(before)) {
            QVERIFY(!sent.body.contains("737807"));
            QVERIFY(!sent.body.endsWith(kPoll) || sent.body == ask("0A", kPoll));
        }
    }

    void withoutLdbsToGoOnWithItScans()
    {
        ScriptedTalk talk({"03", "20"});
        talk.start(kResume);
        talk.nextOf(ask("10", kPoll));
        talk.cut(); // the scan has found one of two
        talk.start(kResume);
        QCOMPARE(talk.sent().last().body, ask("01", kPoll));
        talk.run(60000);
        QCOMPARE(talk.told<event::ListChange>().last().hexIds, QStringList({"03", "20"}));
    }

    void cutsAtAnyMoment()
    {
        // Whatever is under way: nothing that waited is sent after a cut, nothing is sent twice,
        // what was lost stays so, and nobody else is told lost. What still comes to a question of
        // before the cut is nobody's value.
        for (quint64 seed = 1; seed <= 300; ++seed) {
            const int ldbs = seed % 2 == 0 ? 8 : 40;
            LineRig::Setup setup = site(ldbs);
            setup.seed = seed;
            setup.kind = kLineKinds[seed % 3].kind;
            LineRig rig(setup);
            Chance chance(seed);
            if (seed % 8 == 0) {
                rig.scan();
            } else {
                rig.start(known(rig, ldbs));
            }
            rig.run(chance.between(5 * kSecond, 15 * kSecond));
            const int lost = setup.addresses.at(2);
            rig.boards().setPresent(lost, false);
            QVERIFY(rig.runUntil([&] { return rig.lost().size() == 1; }, kMinute));
            const int losses = rig.tally().losses;
            Adversaries late;
            late.lateAnswers = 10;
            rig.line().setAdversaries(late, rig.now());

            QList<QByteArray> sent;
            rig.listen([&](const Event& event) {
                const auto* exchange = std::get_if<Exchange>(&event);
                if (exchange && exchange->kind == ExchangeKind::Action) {
                    sent.append(exchange->request);
                }
            });
            for (std::size_t i = 3; i < 8; ++i) {
                rig.queue(requests::execute(busaddress::toHexId(setup.addresses.at(i)),
                                            static_cast<int>(LdbAction::StoreSettings)));
            }
            rig.run(chance.between(0, 4 * kSecond));
            rig.cut();
            const QList<QByteArray> before = sent;
            rig.run(chance.between(0, seed % 5 == 0 ? 12 * kSecond : kSecond));
            rig.line().setAdversaries({}, rig.now());
            rig.start(kResume);
            rig.run(20 * kSecond); // the names are told anew
            QVERIFY2(sent == before, qPrintable(text(rig, seed)));
            QVERIFY2(rig.tally().wrong == 0, qPrintable(text(rig, seed)));
            QVERIFY2(rig.tally().losses == losses, qPrintable(text(rig, seed)));
            QCOMPARE(rig.found().size(), ldbs);
            QCOMPARE(rig.lost(), QSet<QString>{busaddress::toHexId(lost)});
        }
    }
};

REGISTER_TEST(TestStarts, QCoreApplication)
#include "tst_starts.moc"
