#include "tests/serial/scriptedtalk.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"

using namespace scriptedtalk;

/// When commands are sent and repeated, and what is taken for their answers.
class TestCommands : public TestCase
{
    Q_OBJECT
private slots:
    void commandWindows_data()
    {
        // Of a settings question to 0A: what is answered to each transmission, how many there are,
        // the answer believed, and when the next question comes after the last one.
        const Table<QList<QList<Said>>, int, QByteArray, double> row("answers", "transmissions",
                                                                     "answer", "next");
        const Said usual = ScriptedTalk::usual(ask("0A", kSettings));
        const QByteArray body = usual.bytes.mid(1, 56);
        const double atOnce = 14 * 1.042 + usual.after;
        QByteArray wrong = usual.bytes;
        wrong[9] = '7';
        const Said foreign{30, ScriptedTalk::settings("03")};
        const auto late = [&](double by) {
            return Said{usual.after + by, usual.bytes};
        };
        row("at once", {{usual}}, 1, body, atOnce);
        row("never", {kSilence, kSilence, kSilence}, 3, {}, kHorizon);
        row("the second", {kSilence, {usual}}, 2, body, kHorizon);
        row("a late first, and the second", {{late(60)}, {late(10)}}, 2, body,
            atOnce + 10 + kQuiet);
        row("while it is waited out", {kSilence, kSilence, {late(900)}}, 3, body, kHorizon + 400);
        row("another's, then its own", {{foreign, usual}, {usual}}, 2, body, kHorizon + 400);
        row("damaged", {{{usual.after, wrong}}, {usual}}, 2, body, kHorizon);
    }

    void commandWindows()
    {
        QFETCH(QList<QList<Said>>, answers);
        QFETCH(int, transmissions);
        QFETCH(QByteArray, answer);
        QFETCH(double, next);
        ScriptedTalk talk({"03", "0A"});
        talk.settle("03", 2);
        talk.setScript(first(ask("0A", kSettings), answers));
        talk.queue(requests::read("0A", 1));
        talk.nextOf(ask("0A", kSettings));
        QList<ScriptedTalk::Sent> sent{talk.sent().last()};
        while (sent.last().body == ask("0A", kSettings)) {
            sent.append(talk.next());
        }
        QCOMPARE(sent.size() - 1, transmissions);
        const auto done = talk.told<event::CommandDone>();
        QCOMPARE(done.size(), 1);
        QCOMPARE(done.first().answer, answer);
        QCOMPARE(sent.last().body, ask("0A", kStatus));
        const double waited = sent.last().at - sent.at(transmissions - 1).at;
        QVERIFY2(about(waited, next), qPrintable(QString::number(waited)));
        if (transmissions == 3) {
            QVERIFY(about(sent.at(1).at - sent.at(0).at, 120));
        }
    }

    void acknowledgements_data()
    {
        // "answer": to each of the transmissions of a write
        const Table<QList<Said>, QByteArray, int> row("answer", "told", "transmissions");
        row("accepted", {{9, kAck}}, kAck, 1);
        row("refused", {{9, kNak}}, kNak, 1);
        row("nothing", kSilence, {}, 3);
        row("something behind it", {{9, kAck}, {20, "\x55"}}, {}, 3);
        row("something before it", {{5, "\x55"}, {9, kAck}}, {}, 3);
        row("too late for one", {{400, kAck}}, {}, 3);
        row("a frame", {{70, ScriptedTalk::status(3)}}, {}, 3);
    }

    void acknowledgements()
    {
        QFETCH(QList<Said>, answer);
        ScriptedTalk talk({"03"});
        talk.settle("03", 2);
        const Request write = requests::change("03", 0x17, "0A00");
        talk.setScript([&](const QByteArray& body, int) -> Answers {
            return body == write.body ? Answers(answer) : std::nullopt;
        });
        talk.queue(write);
        talk.run(10000);
        const auto done = talk.told<event::CommandDone>();
        QCOMPARE(done.size(), 1);
        QTEST(done.first().answer, "told");
        QTEST(talk.timesSent(write.body), "transmissions");
        // What stray bytes there were has harmed no record.
        QCOMPARE(talk.told<event::Record>().last().status.primaryVoltage, quint16(3));
    }

    void aCommandsLateAnswerIsLetEnd()
    {
        // Its answer is on its way when the last wait ends; a stray byte in that wait changes
        // nothing.
        for (const QList<Said>& before : {QList<Said>(), QList<Said>{{300, "\x55"}}}) {
            ScriptedTalk talk({"03"});
            talk.settle("03", 2);
            const QByteArray good = ScriptedTalk::settings("03");
            const double end = kHorizon - 14 * 1.042;
            const QList<Said> late{{end - 20, good.left(30)}, {end + 5, good.mid(30)}};
            talk.setScript(first(ask("03", kSettings), {kSilence, kSilence, before + late}));
            talk.queue(requests::read("03", 1));
            talk.nextOf(ask("03", kSettings));
            talk.nextOf(ask("03", kSettings));
            const double asked = talk.nextOf(ask("03", kSettings));
            const ScriptedTalk::Sent next = talk.next();
            // With a stray byte before it, it is not believed; else it tells that answers come
            // late.
            const bool isBelieved = before.isEmpty();
            QVERIFY2(about(next.at - asked, isBelieved ? kLongHorizon : kHorizon + 5 + kQuiet),
                     qPrintable(QString::number(next.at - asked)));
            QCOMPARE(talk.told<event::CommandDone>().last().answer,
                     isBelieved ? good.mid(1, 56) : QByteArray());
            QVERIFY(!talk.diagnostics().contains("never quiet"));
        }
    }

    void anLdbMayAnswerCommandsAtAnotherTime_data()
    {
        // "before": ms that its answer takes longer than others' ...
        // "after": ... and later on
        const Table<QByteArray, double, double> row("request", "before", "after");
        row("a write, later", "7363170A00", 0.0, 40.0);
        row("a write, sooner", "7363170A00", 40.0, 0.0);
        row("a read, sooner", kSettings, 30.0, 0.0);
    }

    void anLdbMayAnswerCommandsAtAnotherTime()
    {
        QFETCH(QByteArray, request);
        QFETCH(double, before);
        QFETCH(double, after);
        const QByteArray body = ask("03", request);
        ScriptedTalk talk({"03"});
        double by = before;
        talk.setScript([&](const QByteArray& asked, int) -> Answers {
            return asked == body ? Answers(QList<Said>{ScriptedTalk::late(asked, by)})
                                 : std::nullopt;
        });
        talk.settle("03", 2);
        QList<int> transmissions;
        for (int i = 0; i < 20; ++i) {
            by = i < 17 ? before : after;
            const int sentBefore = talk.timesSent(body);
            talk.forgetEvents();
            talk.queue(request == kSettings ? requests::read("03", 1)
                                            : requests::change("03", 0x17, "0A00"));
            talk.run(5000);
            transmissions.append(talk.timesSent(body) - sentBefore);
            QCOMPARE(talk.told<event::CommandDone>().size(), 1);
            QVERIFY2(!talk.told<event::CommandDone>().first().answer.isEmpty(),
                     qPrintable(QString::number(i)));
        }
        // Asked again once; then that is its usual time.
        // Once the usual time is known, one repeat tells that it has changed.
        QList<int> expected;
        for (int i = 0; i < 20; ++i) {
            expected.append(i == 17 ? 2 : 1);
        }
        QCOMPARE(transmissions, expected);
    }

    void aWriteWaitsForASilentProbe()
    {
        ScriptedTalk talk({"03", "0A"}, 0);
        talk.settle("03", 2);
        talk.setPresent({"03"});
        const double probed = talk.nextOf(ask("0A", kPoll));
        talk.queue(requests::change("03", 0x17, "0A00"));
        const double written = talk.nextOf("FE037363170A00");
        QVERIFY2(about(written - probed, kHorizon), qPrintable(QString::number(written - probed)));
        // A broadcast waits for nobody, and nobody answers it.
        talk.nextOf(ask("0A", kPoll));
        talk.forgetEvents();
        talk.queue(requests::execute("FF", 0, "03"));
        const double first = talk.nextOf("FEFF73780003");
        QVERIFY(about(talk.next().at - first, 120));
        QVERIFY(about(talk.next().at - first, 240));
        const ScriptedTalk::Sent after = talk.next();
        QVERIFY(after.body != "FEFF73780003" && about(after.at - first, 360));
        QCOMPARE(talk.told<event::CommandDone>().size(), 1);
    }

    void equalReadsAreSentOnce()
    {
        ScriptedTalk talk({"03"});
        talk.settle("03", 2);
        const Request read = requests::read("03", 1);
        const Request write = requests::change("03", 0x17, "0A00");
        for (const Request& request : {read, requests::firmware("03"), read, write, read, read}) {
            talk.queue(request);
        }
        talk.run(3000);
        const auto done = talk.told<event::CommandDone>();
        QList<std::vector<quint64>> numbers;
        for (const auto& command : done) {
            numbers.append(command.numbers);
        }
        // The write keeps the reads before it and behind it apart.
        QCOMPARE(numbers, (QList<std::vector<quint64>>{{1, 3}, {2}, {4}, {5, 6}}));
        QList<int> lengths;
        for (const auto& queue : talk.told<event::QueueLength>()) {
            lengths.append(queue.commands);
        }
        QCOMPARE(lengths.mid(0, 6), (QList<int>{1, 2, 2, 3, 4, 4}));
        QCOMPARE(lengths.last(), 0);
    }

    void endsInTheMiddle()
    {
        ScriptedTalk talk({"03"});
        talk.settle("03", 2);
        talk.queue(requests::change("03", 0x17, "0A00"));
        talk.queue(requests::change("03", 0x16, "01"));
        talk.nextOf("FE037363170A00");
        talk.conversation().lineGone();
        talk.run(5000);
        // The one on the wire may have been heard; the other was never sent.
        const auto done = talk.told<event::CommandDone>();
        QCOMPARE(done.size(), 1);
        QCOMPARE(done.first().numbers, std::vector<quint64>{1});
        QCOMPARE(done.first().answer, QByteArray());
        QCOMPARE(talk.told<event::QueueLength>().last().commands, 0);
        QCOMPARE(talk.sent().last().body, QByteArray("FE037363170A00"));
        talk.start();
        QCOMPARE(talk.sent().last().body, ask("01", kPoll));
    }
};

REGISTER_TEST(TestCommands, NoApplication)
#include "tst_commands.moc"
