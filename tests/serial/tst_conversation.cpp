#include "tests/serial/scriptedtalk.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"

Q_DECLARE_METATYPE(ScriptedTalk::Said)

namespace {

using Said = ScriptedTalk::Said;
using Answers = std::optional<QList<Said>>;

const QByteArray kAck("\x06");
const QByteArray kNak("\x15");
const QList<Said> kSilence;

// The questions of a turn.
const QByteArray kStatus("737803");
const QByteArray kName("737202");
const QByteArray kFirmware("737804");
const QByteArray kSettings("737201");
const QByteArray kPoll("70");

QByteArray ask(const char* hexId, const QByteArray& request)
{
    return "FE" + QByteArray(hexId) + request;
}

QList<QByteArray> turnOf(const char* hexId)
{
    return {ask(hexId, kStatus), ask(hexId, kName), ask(hexId, kFirmware)};
}

/// The first answers to one request; then the healthy boards answer.
ScriptedTalk::Script first(const QByteArray& body, const QList<QList<Said>>& answers)
{
    return [=, given = 0](const QByteArray& asked, int) mutable -> Answers {
        if (asked != body || given >= answers.size()) {
            return std::nullopt;
        }
        return answers.at(given++);
    };
}

/// A talk that has been through its scan and `rounds` rounds, and is about to begin the next one.
void settle(ScriptedTalk& talk, const char* firstLdb, int rounds)
{
    talk.scan();
    for (int i = 0; i <= rounds; ++i) {
        talk.nextOf(ask(firstLdb, kFirmware));
    }
    talk.forgetEvents();
}

bool about(double a, double b)
{
    return qAbs(a - b) < 0.1;
}

// Milliseconds.
constexpr double kHorizon = 1560;
constexpr double kLongHorizon = 1960;
constexpr double kQuiet = 40;

} // namespace

class TestConversation : public TestCase
{
    Q_OBJECT
private slots:
    void scansThenCycles();
    void anEmptyBusEndsIt();
    void aBadPollingAnswer_data();
    void aBadPollingAnswer();
    void lossAfterTooManyMisses_data();
    void lossAfterTooManyMisses();
    void anAnsweredCommandForgivesMisses();
    void theLostIsProbedAndProvesItself();
    void aRepeatedPollsSecondAnswerIsWaitedOut();
    void anAnswerSoonerThanUsualIsNobodys();
    void anLdbMayBecomeFaster();
    void anLdbMayAnswerCommandsAtAnotherTime_data();
    void anLdbMayAnswerCommandsAtAnotherTime();
    void lateAnswersLengthenTheHorizon();
    void aDamagedAnswerIsNotLate();
    void anAnswerHeldBackIsNobodys();
    void anLdbMayBecomeSlower();
    void aFrameThatHasBegunIsLetEnd();
    void aCommandsLateAnswerIsLetEnd();
    void aLineThatIsNeverQuietIsTold();
    void commandWindows_data();
    void commandWindows();
    void acknowledgements_data();
    void acknowledgements();
    void aWriteWaitsForASilentProbe();
    void equalReadsAreSentOnce();
    void whatIsKeptNeedsTwo();
    void ghostsLeaveTheList();
    void anUncleanScanIsCompletedInTheBackground();
    void endsInTheMiddle();
    void oneAlone();
};

void TestConversation::scansThenCycles()
{
    ScriptedTalk talk({"03", "0A"});
    talk.setScript([](const QByteArray& body, int) -> Answers {
        if (body == ask("02", kPoll)) {
            return QList<Said>{{8, kNak}}; // at an address, yet no LDB
        }
        return std::nullopt;
    });
    talk.scan();
    QCOMPARE(talk.sent().size(), 254); // the first status is on its way
    for (int address = 1; address <= 253; ++address) {
        QCOMPARE(talk.sent().at(address - 1).body,
                 "FE" + QByteArray::number(address, 16).toUpper().rightJustified(2, '0') + "70");
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
    QCOMPARE(records.at(0).roundTime, records.at(1).roundTime);
    QVERIFY(records.at(2).roundTime > records.at(0).roundTime);
    QCOMPARE(talk.told<event::StateChange>().size(), 2);
    // On a clean line a question follows its predecessor's answer at once, and nothing is said.
    const auto& sent = talk.sent();
    constexpr double kBytes = 3 * 14 + 54 + 36 + 26;
    QVERIFY(about(sent.at(259).at - sent.at(253).at, 2 * (3 * 8 + kBytes * 1.042)));
    QCOMPARE(talk.diagnostics(), QString());
}

void TestConversation::anEmptyBusEndsIt()
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

void TestConversation::aBadPollingAnswer_data()
{
    QTest::addColumn<QList<Said>>("answer"); // to the status question
    QTest::addColumn<QByteArray>("next");
    QTest::addColumn<double>("after"); // the question
    QTest::addColumn<bool>("isMiss");

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
    row("another kind", {{inTime, ScriptedTalk::name("no status")}}, kName, usual + kQuiet, true);
    row("no number", {{inTime, ScriptedTalk::frame(QByteArray(49, '0') + "g")}}, kName,
        usual + kQuiet, true);
    row("a stray byte before it", {{10, "\x55"}, {inTime, good}}, kName, usual + kQuiet, false);
    row("a stray byte behind it", {{inTime, good + kAck}}, kName, usual + kQuiet, false);
    row("two at once", {{inTime, good + good}}, kName, usual + kQuiet, false);
    row("a refusal", {{8, kNak}}, kStatus, kHorizon, false);
    row("stray bytes", {{8, "\x01\x04"}, {9, kAck}, {30, "\x01"}}, kStatus, kHorizon, false);
}

void TestConversation::aBadPollingAnswer()
{
    QFETCH(QList<Said>, answer);
    QFETCH(double, after);
    ScriptedTalk talk({"03"});
    settle(talk, "03", 20);
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

void TestConversation::lossAfterTooManyMisses_data()
{
    QTest::addColumn<int>("forgiven");
    QTest::addColumn<int>("silentQuestions"); // each of two transmissions, from the status on
    QTest::addColumn<bool>("isLost");

    QTest::newRow("limit 0, first miss") << 0 << 1 << true;
    QTest::newRow("limit 1, one miss") << 1 << 1 << false;
    QTest::newRow("limit 1, two misses") << 1 << 2 << true;
    QTest::newRow("limit 3, three misses") << 3 << 3 << false;
    QTest::newRow("limit 3, four misses") << 3 << 4 << true;
}

void TestConversation::lossAfterTooManyMisses()
{
    QFETCH(int, forgiven);
    QFETCH(int, silentQuestions);
    QFETCH(bool, isLost);
    ScriptedTalk talk({"03"}, forgiven);
    settle(talk, "03", 2);
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

void TestConversation::anAnsweredCommandForgivesMisses()
{
    ScriptedTalk talk({"03"}, 3);
    settle(talk, "03", 2);
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

void TestConversation::theLostIsProbedAndProvesItself()
{
    ScriptedTalk talk({"03", "0A"}, 0);
    settle(talk, "03", 2);
    talk.setPresent({"0A"});
    talk.nextOf(ask("03", kStatus));
    talk.nextOf(ask("03", kStatus));
    // Given up: nothing more of it this turn, then one probe a round.
    QCOMPARE(talk.nextBodies(8), turnOf("0A") + QList<QByteArray>{ask("03", kPoll)} + turnOf("0A") +
                                     QList<QByteArray>{ask("03", kPoll)});
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

void TestConversation::aRepeatedPollsSecondAnswerIsWaitedOut()
{
    // Both transmissions are answered, the first after the second was sent, and two LDBs must not
    // be taken for each other.
    for (const int rounds : {2, 20}) { // before the usual time is known, and after
        ScriptedTalk talk({"03", "0A"});
        settle(talk, "03", rounds);
        const QByteArray status = ask("03", kStatus);
        talk.setScript(
            first(status, {{ScriptedTalk::late(status, 1600)}, {ScriptedTalk::late(status, 600)}}));
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
        QCOMPARE(talk.nextBodies(2), (QList<QByteArray>{ask("03", kFirmware), ask("0A", kStatus)}));
    }
}

void TestConversation::anAnswerSoonerThanUsualIsNobodys()
{
    ScriptedTalk talk({"03", "0A"});
    settle(talk, "03", 20);
    // What 03 sent much too late comes when 0A has just been asked.
    const QByteArray status = ask("0A", kStatus);
    talk.setScript(first(status, {{{20, ScriptedTalk::status(3)}, ScriptedTalk::usual(status)}}));
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

void TestConversation::anLdbMayBecomeFaster()
{
    ScriptedTalk talk({"03"});
    talk.setScript([](const QByteArray& body, int count) -> Answers {
        const bool isSlow = body == ask("03", kStatus) && count < 40;
        return isSlow ? Answers(QList<Said>{ScriptedTalk::late(body, 50)}) : std::nullopt;
    });
    talk.scan();
    talk.run(20000);
    talk.forgetEvents();
    talk.run(20000);
    QVERIFY(talk.told<event::Record>().size() > 80);
    QVERIFY(talk.told<event::Loss>().isEmpty());
}

void TestConversation::anLdbMayAnswerCommandsAtAnotherTime_data()
{
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<double>("before"); // ms that its answer takes longer than others' ...
    QTest::addColumn<double>("after");  // ... and later on

    QTest::newRow("a write, later") << QByteArray("7363170A00") << 0.0 << 40.0;
    QTest::newRow("a write, sooner") << QByteArray("7363170A00") << 40.0 << 0.0;
    QTest::newRow("a read, sooner") << kSettings << 30.0 << 0.0;
}

void TestConversation::anLdbMayAnswerCommandsAtAnotherTime()
{
    QFETCH(QByteArray, request);
    QFETCH(double, before);
    QFETCH(double, after);
    const QByteArray body = ask("03", request);
    ScriptedTalk talk({"03"});
    double by = before;
    talk.setScript([&](const QByteArray& asked, int) -> Answers {
        return asked == body ? Answers(QList<Said>{ScriptedTalk::late(asked, by)}) : std::nullopt;
    });
    settle(talk, "03", 2);
    QList<int> transmissions;
    for (int i = 0; i < 20; ++i) {
        by = i < 17 ? before : after;
        const auto sentBefore = talk.sent().size();
        talk.forgetEvents();
        talk.queue(request == kSettings ? requests::read("03", 1)
                                        : requests::change("03", 0x17, "0A00"));
        talk.run(5000);
        const auto sent = talk.sent().mid(sentBefore);
        transmissions.append(static_cast<int>(
            std::count_if(sent.begin(), sent.end(),
                          [&](const ScriptedTalk::Sent& one) { return one.body == body; })));
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

void TestConversation::lateAnswersLengthenTheHorizon()
{
    ScriptedTalk talk({"03", "0A"});
    settle(talk, "03", 2);
    const QByteArray status = ask("03", kStatus);
    talk.setScript(first(status, {{ScriptedTalk::late(status, 1000)}}));
    talk.nextOf(status);
    QCOMPARE(talk.next().body, ask("03", kName)); // late, and right
    talk.setPresent({"0A"});
    const double asked = talk.nextOf(status);
    QVERIFY(about(talk.nextOf(status) - asked, kLongHorizon));
}

void TestConversation::aDamagedAnswerIsNotLate()
{
    ScriptedTalk talk({"03"});
    settle(talk, "03", 20);
    const QByteArray status = ask("03", kStatus);
    Said noEnd = ScriptedTalk::usual(status); // told from others by the pause behind it
    noEnd.bytes[noEnd.bytes.size() - 1] = '\x05';
    talk.setScript(first(status, {kSilence, {noEnd}, kSilence}));
    talk.nextOf(status);
    talk.nextOf(status);
    QCOMPARE(talk.next().body, ask("03", kName));
    const double asked = talk.nextOf(status);
    QVERIFY(about(talk.nextOf(status) - asked, kHorizon));
}

void TestConversation::anAnswerHeldBackIsNobodys()
{
    // 03 stays silent; what it said comes when 0A, which is gone, has been asked.
    ScriptedTalk talk({"03", "0A"});
    settle(talk, "03", 20);
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

void TestConversation::anLdbMayBecomeSlower()
{
    ScriptedTalk talk({"03", "0A"});
    settle(talk, "03", 20);
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

void TestConversation::aFrameThatHasBegunIsLetEnd()
{
    ScriptedTalk talk({"03"});
    settle(talk, "03", 2);
    const QByteArray good = ScriptedTalk::status(3);
    const double end = kHorizon - 14 * 1.042;
    talk.setScript(
        first(ask("03", kStatus), {{{end - 20, good.left(30)}, {end + 5, good.mid(30)}}}));
    const double asked = talk.nextOf(ask("03", kStatus));
    talk.forgetEvents();
    const ScriptedTalk::Sent next = talk.next();
    QCOMPARE(next.body, ask("03", kName));
    QVERIFY(about(next.at - asked, kHorizon + 5));
    QCOMPARE(talk.told<event::Record>().size(), 1);
}

void TestConversation::aCommandsLateAnswerIsLetEnd()
{
    // Its answer is on its way when the last wait ends; a stray byte in that wait changes nothing.
    for (const QList<Said>& before : {QList<Said>(), QList<Said>{{300, "\x55"}}}) {
        ScriptedTalk talk({"03"});
        settle(talk, "03", 2);
        const QByteArray good = ScriptedTalk::settings("03");
        const double end = kHorizon - 14 * 1.042;
        const QList<Said> late{{end - 20, good.left(30)}, {end + 5, good.mid(30)}};
        talk.setScript(first(ask("03", kSettings), {kSilence, kSilence, before + late}));
        talk.queue(requests::read("03", 1));
        talk.nextOf(ask("03", kSettings));
        talk.nextOf(ask("03", kSettings));
        const double asked = talk.nextOf(ask("03", kSettings));
        const ScriptedTalk::Sent next = talk.next();
        // With a stray byte before it, it is not believed; else it tells that answers come late.
        const bool isBelieved = before.isEmpty();
        QVERIFY2(about(next.at - asked, isBelieved ? kLongHorizon : kHorizon + 5 + kQuiet),
                 qPrintable(QString::number(next.at - asked)));
        QCOMPARE(talk.told<event::CommandDone>().last().answer,
                 isBelieved ? good.mid(1, 56) : QByteArray());
        QVERIFY(!talk.diagnostics().contains("never quiet"));
    }
}

void TestConversation::aLineThatIsNeverQuietIsTold()
{
    ScriptedTalk talk({"03"});
    settle(talk, "03", 2);
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

void TestConversation::commandWindows_data()
{
    // Of a settings question to 0A.
    QTest::addColumn<QList<QList<Said>>>("answers"); // to each transmission
    QTest::addColumn<int>("transmissions");
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<double>("next"); // what is asked next, after the last transmission

    const Said usual = ScriptedTalk::usual(ask("0A", kSettings));
    const QByteArray body = usual.bytes.mid(1, 56);
    const double atOnce = 14 * 1.042 + usual.after;
    QByteArray wrong = usual.bytes;
    wrong[9] = '7';
    const Said foreign{30, ScriptedTalk::settings("03")};
    const auto late = [&](double by) {
        return Said{usual.after + by, usual.bytes};
    };
    QTest::newRow("at once") << QList<QList<Said>>{{usual}} << 1 << body << atOnce;
    QTest::newRow("never") << QList<QList<Said>>{kSilence, kSilence, kSilence} << 3 << QByteArray()
                           << kHorizon;
    QTest::newRow("the second") << QList<QList<Said>>{kSilence, {usual}} << 2 << body << kHorizon;
    QTest::newRow("a late first, and the second")
        << QList<QList<Said>>{{late(60)}, {late(10)}} << 2 << body << atOnce + 10 + kQuiet;
    QTest::newRow("while it is waited out")
        << QList<QList<Said>>{kSilence, kSilence, {late(900)}} << 3 << body << kHorizon + 400;
    QTest::newRow("another's, then its own")
        << QList<QList<Said>>{{foreign, usual}, {usual}} << 2 << body << kHorizon + 400;
    QTest::newRow("damaged") << QList<QList<Said>>{{{usual.after, wrong}}, {usual}} << 2 << body
                             << kHorizon;
}

void TestConversation::commandWindows()
{
    QFETCH(QList<QList<Said>>, answers);
    QFETCH(int, transmissions);
    QFETCH(QByteArray, answer);
    QFETCH(double, next);
    ScriptedTalk talk({"03", "0A"});
    settle(talk, "03", 2);
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

void TestConversation::acknowledgements_data()
{
    QTest::addColumn<QList<Said>>("answer"); // to each of the transmissions of a write
    QTest::addColumn<QByteArray>("told");
    QTest::addColumn<int>("transmissions");

    QTest::newRow("accepted") << QList<Said>{{9, kAck}} << kAck << 1;
    QTest::newRow("refused") << QList<Said>{{9, kNak}} << kNak << 1;
    QTest::newRow("nothing") << kSilence << QByteArray() << 3;
    QTest::newRow("something behind it")
        << QList<Said>{{9, kAck}, {20, "\x55"}} << QByteArray() << 3;
    QTest::newRow("something before it")
        << QList<Said>{{5, "\x55"}, {9, kAck}} << QByteArray() << 3;
    QTest::newRow("too late for one") << QList<Said>{{400, kAck}} << QByteArray() << 3;
    QTest::newRow("a frame") << QList<Said>{{70, ScriptedTalk::status(3)}} << QByteArray() << 3;
}

void TestConversation::acknowledgements()
{
    QFETCH(QList<Said>, answer);
    ScriptedTalk talk({"03"});
    settle(talk, "03", 2);
    const Request write = requests::change("03", 0x17, "0A00");
    talk.setScript([&](const QByteArray& body, int) -> Answers {
        return body == write.body ? Answers(answer) : std::nullopt;
    });
    talk.queue(write);
    talk.run(10000);
    const auto done = talk.told<event::CommandDone>();
    QCOMPARE(done.size(), 1);
    QTEST(done.first().answer, "told");
    const auto& sent = talk.sent();
    QTEST(static_cast<int>(std::count_if(
              sent.begin(), sent.end(),
              [&](const ScriptedTalk::Sent& request) { return request.body == write.body; })),
          "transmissions");
    // What stray bytes there were has harmed no record.
    QCOMPARE(talk.told<event::Record>().last().status.primaryVoltage, quint16(3));
}

void TestConversation::aWriteWaitsForASilentProbe()
{
    ScriptedTalk talk({"03", "0A"}, 0);
    settle(talk, "03", 2);
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

void TestConversation::equalReadsAreSentOnce()
{
    ScriptedTalk talk({"03"});
    settle(talk, "03", 2);
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

void TestConversation::whatIsKeptNeedsTwo()
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
        const auto before = talk.sent().size();
        talk.queue(requests::firmware("03"));
        while (talk.told<event::CommandDone>().isEmpty()) {
            talk.run(10);
        }
        // The polling asks once in between.
        const auto sent = talk.sent().mid(before);
        const auto count = std::count_if(sent.begin(), sent.end(), [](const auto& request) {
            return request.body == ask("03", kFirmware);
        });
        return QString::number(count - 1) + " " +
               QByteArray::fromHex(talk.told<event::CommandDone>().last().answer);
    };
    QCOMPARE(asked(), QString("1 LDB16 V1.00"));
    talk.nextOf(ask("03", kFirmware));
    talk.run(60);
    firmware = "LDB16 V2.00"; // since the polling has heard the former one last
    talk.nextOf(ask("03", kStatus));
    QCOMPARE(asked(), QString("1 LDB16 V2.00"));
}

void TestConversation::ghostsLeaveTheList()
{
    ScriptedTalk talk({"05"});
    talk.setScript([](const QByteArray& body, int count) -> Answers {
        if (body == ask("05", kPoll) && count == 1) {
            return QList<Said>{{130, kAck}}; // in the next address's window
        }
        return std::nullopt;
    });
    talk.scan();
    QCOMPARE(talk.told<event::ListChange>().last().hexIds, QStringList{"06"});
    talk.run(3200);
    // Nobody is left; the search that an unclean scan calls for has nobody to go along with.
    QCOMPARE(talk.told<event::ListChange>().last().hexIds, QStringList());
    QVERIFY(talk.told<event::Loss>().isEmpty() && talk.told<event::Record>().isEmpty());

    ScriptedTalk two({"05", "80"});
    two.setScript([](const QByteArray& body, int count) -> Answers {
        if (body == ask("05", kPoll) && count == 1) {
            return QList<Said>{{130, kAck}};
        }
        return std::nullopt;
    });
    two.scan();
    two.run(10000);
    QCOMPARE(two.told<event::ListChange>().last().hexIds, QStringList({"80", "05"}));
    QVERIFY(two.told<event::Loss>().isEmpty());
}

void TestConversation::anUncleanScanIsCompletedInTheBackground()
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
    QCOMPARE(talk.nextBodies(7), turnOf("0A") + QList<QByteArray>{ask("0B", kPoll)} + turnOf("03"));
    talk.run(300000);
    talk.forgetEvents();
    const auto before = talk.sent().size();
    talk.run(10000);
    for (const auto& request : talk.sent().mid(before)) {
        QVERIFY(!request.body.endsWith(kPoll)); // once is enough
    }
}

void TestConversation::endsInTheMiddle()
{
    ScriptedTalk talk({"03"});
    settle(talk, "03", 2);
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

void TestConversation::oneAlone()
{
    ScriptedTalk talk({"03", "0A"});
    settle(talk, "03", 2);
    talk.conversation().pollAlone("77"); // not to be found
    talk.nextOf(ask("0A", kFirmware));
    talk.conversation().pollAlone("0A");
    QCOMPARE(talk.nextBodies(6), turnOf("0A") + turnOf("0A"));
    talk.forgetEvents();
    talk.run(1000);
    const auto records = talk.told<event::Record>();
    for (int i = 1; i < records.size(); ++i) {
        QVERIFY(records.at(i).roundTime > records.at(i - 1).roundTime);
    }
    talk.conversation().pollAlone({});
    talk.nextOf(ask("03", kStatus));
    QCOMPARE(talk.nextBodies(3), turnOf("03").mid(1) + QList<QByteArray>{ask("0A", kStatus)});
}

REGISTER_TEST(TestConversation, NoApplication)
#include "tst_conversation.moc"
