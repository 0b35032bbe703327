#include "tests/serial/scriptedtalk.h"
#include "tests/support/testprogram.h"

using namespace scriptedtalk;

/// The search for LDBs, before the polling and beside it.
class TestScan : public TestCase
{
    Q_OBJECT
private slots:
    void scansThenCycles()
    {
        ScriptedTalk talk({"03", "0A"});
        talk.setScript(first(ask("02", kPoll), {{{8, kNak}}})); // at an address, yet no LDB
        talk.scan();
        QCOMPARE(talk.sent().size(), 254); // the first status is on its way
        for (int address = 1; address <= 253; ++address) {
            QCOMPARE(talk.sent().at(address - 1).body,
                     "FE" + QByteArray::number(address, 16).toUpper().rightJustified(2, '0') +
                         "70");
        }
        QVERIFY(about(talk.sent().at(100).at - talk.sent().at(99).at, 120));
        const auto progress = talk.told<event::ScanProgress>();
        QCOMPARE(progress.size(), 253);
        QVERIFY(progress.first().checked == 1 && progress.first().found == 0);
        QVERIFY(progress.last().checked == 253 && progress.last().found == 2);
        QCOMPARE(talk.told<event::ListChange>().last().hexIds, QStringList({"03", "0A"}));

        QCOMPARE(talk.sent().last().body, ask("03", kStatus));
        const QList<QByteArray> round = turnOf("03") + turnOf("0A");
        QCOMPARE(talk.nextBodies(11), (round + round).mid(1));
        talk.run(100);
        const auto records = talk.told<event::Record>();
        QCOMPARE(records.size(), 4);
        QCOMPARE(records.at(0).name, QString());
        QCOMPARE(records.at(2).name, QString("LDB 03"));
        QCOMPARE(records.at(3).hexId, QString("0A"));
        QCOMPARE(records.at(3).status.primaryVoltage, quint16(0x0A));
        // All of one round carry one time.
        QCOMPARE(records.at(0).time, records.at(1).time);
        QVERIFY(records.at(2).time > records.at(0).time);
        QCOMPARE(talk.told<event::StateChange>().size(), 2);
        // On a clean line a question follows its predecessor's answer at once, and nothing is said.
        const auto& sent = talk.sent();
        constexpr double kBytes = 3 * 14 + 54 + 36 + 26;
        QVERIFY(about(sent.at(259).at - sent.at(253).at, 2 * (3 * 8 + kBytes * 1.042)));
        QCOMPARE(talk.diagnostics(), QString());
    }

    void anEmptyBusEndsIt()
    {
        ScriptedTalk talk({});
        talk.scan();
        QCOMPARE(talk.told<event::Stopped>().size(), 1);
        QVERIFY(talk.conversation().isStopped());
        QCOMPARE(talk.conversation().deadline(), Conversation::kNever);
        QCOMPARE(talk.sent().size(), 253);
        QVERIFY(about(talk.now(), 253 * 120));
        talk.queue(requests::status("03"));
        QVERIFY(talk.told<event::QueueLength>().isEmpty());
    }

    void ghostsLeaveTheList()
    {
        const QList<Said> late{{130, kAck}}; // in the next address's window
        ScriptedTalk talk({"05"});
        talk.setScript(first(ask("05", kPoll), {late}));
        talk.scan();
        QCOMPARE(talk.told<event::ListChange>().last().hexIds, QStringList{"06"});
        talk.run(3200);
        // Nobody is left; the search that an unclean scan calls for has nobody to go along with.
        QCOMPARE(talk.told<event::ListChange>().last().hexIds, QStringList());
        QVERIFY(talk.told<event::Loss>().isEmpty() && talk.told<event::Record>().isEmpty());

        ScriptedTalk two({"05", "80"});
        two.setScript(first(ask("05", kPoll), {late}));
        two.scan();
        two.run(10000);
        QCOMPARE(two.told<event::ListChange>().last().hexIds, QStringList({"80", "05"}));
        QVERIFY(two.told<event::Loss>().isEmpty());
    }

    void anUncleanScanIsCompletedInTheBackground()
    {
        ScriptedTalk talk({"03", "0A"});
        talk.setScript([](const QByteArray& body, int count) -> Answers {
            if (count == 1 && body == ask("0A", kPoll)) {
                return kSilence; // missed ...
            }
            if (count == 1 && body == ask("03", kName)) {
                return kSilence; // ... and the first round is not clean either
            }
            return std::nullopt;
        });
        talk.scan();
        talk.nextOf(ask("03", kFirmware));
        // One address after each turn; none is asked while commands wait.
        QCOMPARE(talk.next().body, ask("01", kPoll));
        QCOMPARE(talk.nextBodies(3), turnOf("03"));
        QCOMPARE(talk.next().body, ask("02", kPoll));
        talk.queue(requests::read("03", 1));
        talk.queue(requests::firmware("03"));
        QCOMPARE(talk.nextBodies(4), turnOf("03") + QList<QByteArray>{ask("03", kSettings)});
        QCOMPARE(talk.nextBodies(4), turnOf("03") + QList<QByteArray>{ask("03", kFirmware)});
        QCOMPARE(talk.next().body, ask("04", kPoll)); // 03 is known
        talk.nextOf(ask("0A", kPoll));
        QCOMPARE(talk.nextBodies(7),
                 turnOf("0A") + QList<QByteArray>{ask("0B", kPoll)} + turnOf("03"));
        talk.run(300000);
        talk.forgetEvents();
        const auto before = talk.sent().size();
        talk.run(10000);
        for (const auto& request : talk.sent().mid(before)) {
            QVERIFY(!request.body.endsWith(kPoll)); // once is enough
        }
    }
};

REGISTER_TEST(TestScan, QCoreApplication)
#include "tst_scan.moc"
