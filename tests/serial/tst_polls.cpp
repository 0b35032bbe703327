#include "tests/serial/scriptedtalk.h"
#include "tests/support/testprogram.h"

using namespace scriptedtalk;

/// What a turn asks, and what becomes of the answers: believed, missed, late, lost.
class TestPolls : public TestCase
{
    Q_OBJECT
private slots:
    void aLongRoundTakesANewNameAtOnce()
    {
        QStringList ids;
        for (int address = 1; address <= 40; ++address) {
            ids.append(busaddress::toHexId(address));
        }
        ScriptedTalk talk(ids);
        talk.scan();
        talk.run(90000);
        const auto nameTold = [&talk] {
            QString name;
            for (const auto& record : talk.told<event::Record>()) {
                name = record.hexId == "05" ? record.name : name;
            }
            return name;
        };
        QByteArray name = "former";
        talk.setScript([&name](const QByteArray& body, int) -> Answers {
            if (body == ask("05", kName)) {
                const QByteArray bytes = ScriptedTalk::name(name);
                return QList<Said>{{8 + bytes.size() * ScriptedTalk::kByte, bytes}};
            }
            if (body == ask("05", kSettings)) {
                const QByteArray bytes = ScriptedTalk::frame(
                    "05000000030000"
                    "0A00" +
                    QByteArray("read").toHex().leftJustified(32, '0') + "001400");
                return QList<Said>{{8 + bytes.size() * ScriptedTalk::kByte, bytes}};
            }
            return std::nullopt;
        });
        // Asked once more, and not in ten rounds.
        talk.nextOf(ask("05", kName));
        QCOMPARE(talk.nextBodies(2), (QList<QByteArray>{ask("05", kName), ask("05", kFirmware)}));
        QCOMPARE(nameTold(), QString("LDB 05"));
        talk.nextOf(ask("05", kStatus));
        talk.run(100);
        QCOMPARE(nameTold(), QString("former"));
        // Settings name their LDB: they need no second.
        talk.queue(requests::read("05", 1));
        talk.nextOf(ask("05", kSettings));
        talk.nextOf(ask("05", kStatus));
        talk.run(100);
        QCOMPARE(nameTold(), QString("read"));
    }

    void aBadPollingAnswer_data()
    {
        // What is answered to the status question, what is asked next, and how long after it.
        addColumns<QList<Said>, QByteArray, double, bool>("answer", "next", "after", "isMiss");

        const double requestTime = 14 * ScriptedTalk::kByte;
        const double usual = requestTime + ScriptedTalk::usual(ask("03", kStatus)).after;
        const QByteArray good = ScriptedTalk::usual(ask("03", kStatus)).bytes;
        const double inTime = ScriptedTalk::usual(ask("03", kStatus)).after;
        QByteArray wrong = good;
        wrong[7] = wrong.at(7) == '0' ? '1' : '0';
        QByteArray noEnd = good;
        noEnd[noEnd.size() - 1] = '\x05';
        QByteArray split = good; // ends in its middle
        split[20] = '\x04';
        const auto row = [&](const char* name, const QList<Said>& answer, const QByteArray& next,
                             double after, bool isMiss) {
            QTest::newRow(name) << answer << ask("03", next) << after << isMiss;
        };
        row("silence", kSilence, kStatus, kHorizon, false);
        row("wrong check digits", {{inTime, wrong}}, kName, usual + kQuiet, true);
        row("no end", {{inTime, noEnd}}, kName, usual + kQuiet, true);
        row("an end in its middle", {{inTime - 30, split.left(21)}, {inTime, split.mid(21)}}, kName,
            usual + kQuiet, true);
        row("another kind", {{inTime, ScriptedTalk::name("no status")}}, kName, usual + kQuiet,
            true);
        row("no number", {{inTime, ScriptedTalk::frame(QByteArray(49, '0') + "g")}}, kName,
            usual + kQuiet, true);
        row("a stray byte before it", {{10, "\x55"}, {inTime, good}}, kName, usual + kQuiet, false);
        row("a stray byte behind it", {{inTime, good + kAck}}, kName, usual + kQuiet, false);
        row("two at once", {{inTime, good + good}}, kName, usual + kQuiet, false);
        const double end = kHorizon - requestTime;
        row("one that has begun in time", {{end - 20, good.left(30)}, {end + 5, good.mid(30)}},
            kName, kHorizon + 5, false);
        row("a refusal", {{8, kNak}}, kStatus, kHorizon, false);
        row("stray bytes", {{8, "\x01\x04"}, {9, kAck}, {30, "\x01"}}, kStatus, kHorizon, false);
    }

    void aBadPollingAnswer()
    {
        QFETCH(QList<Said>, answer);
        QFETCH(double, after);
        ScriptedTalk talk({"03"});
        talk.settle("03", 20);
        const double asked = talk.nextOf(ask("03", kStatus));
        talk.run(100); // this one is answered well
        talk.forgetEvents();
        talk.setScript(first(ask("03", kStatus), {answer}));
        const double bad = talk.nextOf(ask("03", kStatus));
        QVERIFY(bad > asked);
        const ScriptedTalk::Sent next = talk.next();
        QTEST(next.body, "next");
        QVERIFY2(about(next.at - bad, after), qPrintable(QString::number(next.at - bad)));
        QTEST(talk.diagnostics().contains("miss 1"), "isMiss");
        talk.run(1700);
        for (const auto& record : talk.told<event::Record>()) {
            QCOMPARE(record.status.primaryVoltage, quint16(3));
        }
    }

    void lossAfterTooManyMisses_data()
    {
        // Silent questions are of two transmissions each, from the status on.
        const Table<int, int, bool> row("forgiven", "silentQuestions", "isLost");
        row("limit 0, first miss", 0, 1, true);
        row("limit 1, one miss", 1, 1, false);
        row("limit 1, two misses", 1, 2, true);
        row("limit 3, three misses", 3, 3, false);
        row("limit 3, four misses", 3, 4, true);
    }

    void lossAfterTooManyMisses()
    {
        QFETCH(int, forgiven);
        QFETCH(int, silentQuestions);
        QFETCH(bool, isLost);
        ScriptedTalk talk({"03"}, forgiven);
        talk.settle("03", 2);
        int silent = 0;
        talk.setScript([&](const QByteArray& body, int) -> Answers {
            if (body == ask("03", kPoll) || silent == 2 * silentQuestions) {
                return std::nullopt;
            }
            ++silent;
            return kSilence;
        });
        talk.run(20000);
        QCOMPARE(talk.told<event::Loss>().size(), isLost ? 1 : 0);
        const auto records = talk.told<event::Record>();
        const auto isDisconnected = [](const event::Record& record) {
            return record.status.state == LdbState::Disconnected && record.name == "LDB 03";
        };
        QCOMPARE(std::any_of(records.begin(), records.end(), isDisconnected), isLost);
        QVERIFY(records.last().status.state != LdbState::Disconnected); // it answers again
        QCOMPARE(records.last().name, QString("LDB 03"));
    }

    void anAnsweredCommandForgivesMisses()
    {
        ScriptedTalk talk({"03"}, 3);
        talk.settle("03", 2);
        talk.setScript([](const QByteArray& body, int) -> Answers {
            return body == ask("03", kSettings) ? std::nullopt : Answers(kSilence);
        });
        // Two misses a turn, and an answer behind them.
        for (int turn = 0; turn < 3; ++turn) {
            talk.nextOf(ask("03", kStatus));
            talk.queue(requests::read("03", 1));
            talk.nextOf(ask("03", kSettings));
            QVERIFY(talk.told<event::Loss>().isEmpty());
        }
        talk.run(2 * 4 * kHorizon + 1000);
        QCOMPARE(talk.told<event::Loss>().size(), 1);
    }

    void theLostIsProbedAndProvesItself()
    {
        ScriptedTalk talk({"03", "0A"}, 0);
        talk.settle("03", 2);
        talk.setPresent({"0A"});
        talk.nextOf(ask("03", kStatus));
        talk.nextOf(ask("03", kStatus));
        // Given up: nothing more of it this turn, then one probe a round.
        QCOMPARE(talk.nextBodies(8), turnOf("0A") + QList<QByteArray>{ask("03", kPoll)} +
                                         turnOf("0A") + QList<QByteArray>{ask("03", kPoll)});
        QCOMPARE(talk.told<event::Loss>().size(), 1);
        // A stray ACK: its status stays silent, and that is no second loss.
        talk.say(30, kAck);
        QCOMPARE(talk.nextBodies(3),
                 (QList<QByteArray>{ask("03", kStatus), ask("03", kStatus), ask("0A", kStatus)}));
        QCOMPARE(talk.told<event::Loss>().size(), 1);
        talk.setPresent({"03", "0A"});
        talk.forgetEvents();
        talk.nextOf(ask("03", kPoll));
        QCOMPARE(talk.nextBodies(4), turnOf("03") + QList<QByteArray>{ask("03", kStatus)});
        const auto states = talk.told<event::StateChange>();
        QCOMPARE(states.size(), 1);
        QVERIFY(states.first().state == LdbState::Quiescent);
    }

    void stateIsToldWhenItChanges()
    {
        ScriptedTalk talk({"03"});
        QList<QList<Said>> answers;
        for (const char* state : {"0A", "0A", "14", "14", "0A", "1E", "1E"}) {
            answers.append({{70, ScriptedTalk::frame(QByteArray(50, '0').replace(10, 2, state))}});
        }
        talk.setScript(first(ask("03", kStatus), answers));
        talk.settle("03", 0);
        talk.run(3000);
        QList<int> told;
        for (const auto& change : talk.told<event::StateChange>()) {
            told.append(static_cast<int>(change.state));
        }
        QCOMPARE(told, (QList<int>{20, 10, 30, 10}));
    }

    void aRepeatedPollsSecondAnswerIsWaitedOut()
    {
        // Both transmissions are answered, the first after the second was sent, and two LDBs must
        // not be taken for each other.
        for (const int rounds : {2, 20}) { // before the usual time is known, and after
            ScriptedTalk talk({"03", "0A"});
            talk.settle("03", rounds);
            const QByteArray status = ask("03", kStatus);
            talk.setScript(first(
                status, {{ScriptedTalk::late(status, 1600)}, {ScriptedTalk::late(status, 600)}}));
            talk.nextOf(status);
            talk.forgetEvents();
            QCOMPARE(talk.next().body, status);
            const ScriptedTalk::Sent next = talk.next();
            QCOMPARE(next.body, ask("03", kName));
            talk.run(0);
            QCOMPARE(talk.told<event::Record>().size(), 1);
            // The second one has come, and the line was quiet after it.
            QVERIFY(about(next.at - talk.sent().at(talk.sent().size() - 2).at,
                          14 * 1.042 + ScriptedTalk::late(status, 600).after + kQuiet));
            QCOMPARE(talk.nextBodies(2),
                     (QList<QByteArray>{ask("03", kFirmware), ask("0A", kStatus)}));
        }
    }

    void anAnswerSoonerThanUsualIsNobodys()
    {
        ScriptedTalk talk({"03", "0A"});
        talk.settle("03", 20);
        // What 03 sent much too late comes when 0A has just been asked.
        const QByteArray status = ask("0A", kStatus);
        talk.setScript(
            first(status, {{{20, ScriptedTalk::status(3)}, ScriptedTalk::usual(status)}}));
        talk.nextOf(status);
        talk.forgetEvents();
        QCOMPARE(talk.next().body, ask("0A", kName));
        QVERIFY(talk.told<event::Record>().isEmpty());
        QVERIFY2(!talk.diagnostics().contains(": miss"), qPrintable(talk.diagnostics()));
        QVERIFY2(talk.diagnostics().contains("sooner than usual"), qPrintable(talk.diagnostics()));
        // From now on answers are waited for longer, for ten minutes.
        talk.setPresent({"03"});
        const double asked = talk.nextOf(status);
        QVERIFY(about(talk.nextOf(status) - asked, kLongHorizon));
        talk.setPresent({"03", "0A"});
        talk.run(600000);
        talk.setPresent({"03"});
        const double later = talk.nextOf(status);
        QVERIFY(about(talk.nextOf(status) - later, kHorizon));
    }

    void onlyLateAnswersLengthenTheHorizon()
    {
        const QByteArray status = ask("03", kStatus);
        Said noEnd = ScriptedTalk::usual(status); // told from others by the pause behind it
        noEnd.bytes[noEnd.bytes.size() - 1] = '\x05';
        for (const bool isLate : {false, true}) {
            ScriptedTalk talk({"03", "0A"});
            talk.settle("03", isLate ? 2 : 20);
            talk.setScript(isLate ? first(status, {{ScriptedTalk::late(status, 1000)}})
                                  : first(status, {kSilence, {noEnd}}));
            talk.nextOf(status);
            talk.nextBodies(isLate ? 0 : 1);
            QCOMPARE(talk.next().body, ask("03", kName)); // late, and right; or damaged
            talk.setPresent({"0A"});
            const double asked = talk.nextOf(status);
            QVERIFY(about(talk.nextOf(status) - asked, isLate ? kLongHorizon : kHorizon));
        }
    }

    void anAnswerHeldBackIsNobodys()
    {
        // 03 stays silent; what it said comes when 0A, which is gone, has been asked.
        ScriptedTalk talk({"03", "0A"});
        talk.settle("03", 20);
        talk.setPresent({"0A"});
        talk.nextOf(ask("03", kStatus));
        talk.setScript(first(ask("0A", kStatus), {{{90, ScriptedTalk::status(3)}}, kSilence}));
        talk.nextOf(ask("0A", kStatus));
        talk.forgetEvents();
        talk.nextOf(ask("0A", kStatus));
        talk.nextOf(ask("0A", kFirmware));
        QVERIFY(talk.told<event::Record>().isEmpty());
        QVERIFY2(talk.diagnostics().contains("later than usual"), qPrintable(talk.diagnostics()));
    }

    void anLdbMayBecomeSlower()
    {
        ScriptedTalk talk({"03", "0A"});
        talk.settle("03", 20);
        talk.setPresent({"0A"}); // a silence ...
        talk.setScript(
            [](const QByteArray& body, int) -> Answers { // ... and 0A answers late from now on
                return body.mid(2, 2) == "0A" ? Answers(QList<Said>{ScriptedTalk::late(body, 60)})
                                              : std::nullopt;
            });
        talk.run(60000);
        talk.forgetEvents();
        talk.run(20000);
        QVERIFY(talk.told<event::Record>().size() > 30);
        talk.run(0);
        for (const auto& record : talk.told<event::Record>()) {
            QCOMPARE(record.status.state == LdbState::Disconnected, record.hexId == "03");
        }
    }

    void aLineThatIsNeverQuietIsTold()
    {
        ScriptedTalk talk({"03"});
        talk.settle("03", 2);
        for (int i = 0; i < 1000; ++i) {
            talk.say(i * 10, "0123456789");
        }
        const double asked = talk.nextOf(ask("03", kStatus));
        const ScriptedTalk::Sent next = talk.next();
        // Bounded by the horizon, whatever comes.
        QVERIFY2(next.at - asked <= kHorizon + 101, qPrintable(QString::number(next.at - asked)));
        QVERIFY2(talk.diagnostics().contains("never quiet"), qPrintable(talk.diagnostics()));
        talk.run(60000);
        QCOMPARE(talk.told<event::Record>().last().status.primaryVoltage, quint16(3));
    }

    void whatIsKeptNeedsTwo()
    {
        ScriptedTalk talk({"03"});
        QByteArray name("first");
        QByteArray firmware("LDB16 V1.00");
        talk.setScript([&](const QByteArray& body, int) -> Answers {
            if (body == ask("03", kName)) {
                return QList<Said>{{46, ScriptedTalk::name(name)}};
            }
            if (body == ask("03", kFirmware)) {
                return QList<Said>{{35, ScriptedTalk::firmware(firmware)}};
            }
            return std::nullopt;
        });
        const auto nameShown = [&talk] {
            talk.nextOf(ask("03", kName));
            return talk.told<event::Record>().last().name;
        };
        talk.scan();
        QCOMPARE(nameShown(), QString());
        QCOMPARE(nameShown(), QString("first"));
        name = "other";
        QCOMPARE(nameShown(), QString("first"));
        name = "first";
        QCOMPARE(nameShown(), QString("first")); // heard once, and then the known one again
        name = "other";
        nameShown();
        QCOMPARE(nameShown(), QString("first"));
        QCOMPARE(nameShown(), QString("other"));

        const auto asked = [&talk] {
            talk.forgetEvents();
            const int before = talk.timesSent(ask("03", kFirmware));
            talk.queue(requests::firmware("03"));
            for (int i = 0; i < 1000 && talk.told<event::CommandDone>().isEmpty(); ++i) {
                talk.run(10);
            }
            // The polling asks once in between.
            return QString::number(talk.timesSent(ask("03", kFirmware)) - before - 1) + " " +
                   QByteArray::fromHex(talk.told<event::CommandDone>().last().answer);
        };
        QCOMPARE(asked(), QString("1 LDB16 V1.00"));
        talk.nextOf(ask("03", kFirmware));
        talk.run(60);
        firmware = "LDB16 V2.00"; // since the polling has heard the former one last
        talk.nextOf(ask("03", kStatus));
        QCOMPARE(asked(), QString("1 LDB16 V2.00"));
    }

    void oneAlone()
    {
        ScriptedTalk talk({"03", "0A"});
        talk.settle("03", 2);
        talk.conversation().pollAlone("77"); // not to be found
        talk.nextOf(ask("0A", kFirmware));
        talk.conversation().pollAlone("0A");
        QCOMPARE(talk.nextBodies(6), turnOf("0A") + turnOf("0A"));
        talk.forgetEvents();
        talk.run(1000);
        const auto records = talk.told<event::Record>();
        for (int i = 1; i < records.size(); ++i) {
            QVERIFY(records.at(i).time > records.at(i - 1).time);
        }
        talk.conversation().pollAlone({});
        talk.nextOf(ask("03", kStatus));
        QCOMPARE(talk.nextBodies(3), turnOf("03").mid(1) + QList<QByteArray>{ask("0A", kStatus)});
    }
};

REGISTER_TEST(TestPolls, QCoreApplication)
#include "tst_polls.moc"
