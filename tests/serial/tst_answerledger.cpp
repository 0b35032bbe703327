#include "serial/answerledger.h"
#include "tests/support/testcase.h"

namespace {

const QByteArray kStatus(50, '0');
const QByteArray kName = QByteArray("48616C6C").leftJustified(32, '0');
const QByteArray kFirmware = "4C4442203130";
const QByteArray kAck = "\x06";
const QByteArray kNak = "\x15";
QByteArray settings(const char* address)
{
    return QByteArray(address).leftJustified(56, '0');
}

PendingRequest pending(const char* hexId, AnswerShape shape)
{
    return {QString::fromLatin1(hexId), "body", shape};
}

constexpr qint64 kHorizon = 1500;

} // namespace

using Verdict = AnswerLedger::Verdict;

class TestAnswerLedger : public TestCase
{
    Q_OBJECT
private slots:
    void takesWhatFits_data();
    void takesWhatFits();
    void ownLateAnswerIsTaken();
    void surplusAnswerIsNotTheNextRequests();
    void lateAnswerOfTheSameShapeIsNotAnotherLdbs();
    void silentRequestCostsTheNextOneAnswer();
    void settingsAreToldApartByTheirAddress();
    void debtsEnd();
    void laterAnswerOfTheSameLdbSettlesItsDebts();
    void silentProbesDoNotEatAnswers();
};

void TestAnswerLedger::takesWhatFits_data()
{
    QTest::addColumn<int>("shape");
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<bool>("taken");

    auto row = [](const char* name, AnswerShape shape, const QByteArray& answer, bool taken) {
        QTest::newRow(name) << static_cast<int>(shape) << answer << taken;
    };
    row("status", AnswerShape::Status, kStatus, true);
    row("bare ACK is no status", AnswerShape::Status, kAck, false);
    row("49 characters are no status", AnswerShape::Status, kStatus.left(49), false);
    row("51 characters are no status", AnswerShape::Status, kStatus + "0", false);
    row("name", AnswerShape::Name, kName, true);
    row("status is no name", AnswerShape::Name, kStatus, false);
    row("name of no digits", AnswerShape::Name, QByteArray(32, 'Z'), false);
    row("firmware", AnswerShape::Firmware, kFirmware, true);
    row("ten digits are no firmware", AnswerShape::Firmware, kFirmware.left(10), false);
    row("zero byte is no firmware", AnswerShape::Firmware, kFirmware + "00", false);
    row("settings", AnswerShape::Settings, settings("0A"), true);
    row("acknowledge", AnswerShape::Acknowledge, kAck, true);
    row("refusal", AnswerShape::Acknowledge, kNak, true);
    row("refused request", AnswerShape::Settings, kNak, true);
    row("probe takes all", AnswerShape::Any, kStatus, true);
}

void TestAnswerLedger::takesWhatFits()
{
    QFETCH(int, shape);
    QFETCH(QByteArray, answer);
    QFETCH(bool, taken);

    AnswerLedger ledger(kHorizon);
    ledger.begin(pending("0A", static_cast<AnswerShape>(shape)));
    ledger.transmitted(0);
    QCOMPARE(ledger.judge(answer, 50), taken ? Verdict::Take : Verdict::Misfit);
}

void TestAnswerLedger::ownLateAnswerIsTaken()
{
    AnswerLedger ledger(kHorizon);
    ledger.begin(pending("0A", AnswerShape::Settings));
    ledger.transmitted(0);
    ledger.transmitted(120);
    QCOMPARE(ledger.judge(settings("0A"), 130), Verdict::Take);
}

void TestAnswerLedger::surplusAnswerIsNotTheNextRequests()
{
    AnswerLedger ledger(kHorizon);
    ledger.begin(pending("0A", AnswerShape::Acknowledge));
    ledger.transmitted(0);
    ledger.transmitted(120);
    QCOMPARE(ledger.judge(kAck, 130), Verdict::Take);
    ledger.begin(pending("0B", AnswerShape::Acknowledge));
    ledger.transmitted(140);
    QVERIFY(ledger.isOwed(150));
    QCOMPARE(ledger.judge(kAck, 250), Verdict::Drop);
    QCOMPARE(ledger.judge(kNak, 270), Verdict::Take);
}

void TestAnswerLedger::lateAnswerOfTheSameShapeIsNotAnotherLdbs()
{
    AnswerLedger ledger(kHorizon);
    ledger.begin(pending("0A", AnswerShape::Firmware));
    ledger.transmitted(0);
    ledger.begin(pending("0B", AnswerShape::Firmware)); // given up
    ledger.transmitted(120);
    QCOMPARE(ledger.judge(kFirmware, 130), Verdict::Drop);
    QCOMPARE(ledger.judge(kFirmware, 140), Verdict::Take);
}

void TestAnswerLedger::silentRequestCostsTheNextOneAnswer()
{
    AnswerLedger ledger(kHorizon);
    ledger.begin(pending("0A", AnswerShape::Acknowledge));
    for (const qint64 at : {0, 120, 240}) {
        ledger.transmitted(at);
    }
    ledger.begin(pending("0A", AnswerShape::Acknowledge)); // given up
    ledger.transmitted(360);
    QCOMPARE(ledger.judge(kAck, 380), Verdict::Drop);
    ledger.transmitted(480);
    QCOMPARE(ledger.judge(kAck, 500), Verdict::Take);
}

void TestAnswerLedger::settingsAreToldApartByTheirAddress()
{
    AnswerLedger ledger(kHorizon);
    ledger.begin(pending("0A", AnswerShape::Settings));
    ledger.transmitted(0);
    ledger.begin(pending("0B", AnswerShape::Settings));
    ledger.transmitted(120);
    QCOMPARE(ledger.judge(settings("0B"), 130), Verdict::Take);
    ledger.begin(pending("0C", AnswerShape::Settings));
    ledger.transmitted(200);
    QCOMPARE(ledger.judge(settings("0A"), 210), Verdict::Drop);
    QCOMPARE(ledger.judge(settings("0C"), 220), Verdict::Take);
}

void TestAnswerLedger::debtsEnd()
{
    AnswerLedger ledger(kHorizon);
    ledger.begin(pending("0A", AnswerShape::Acknowledge));
    ledger.transmitted(0);
    ledger.begin(pending("0B", AnswerShape::Acknowledge));
    ledger.transmitted(1490);
    QVERIFY(ledger.isOwed(kHorizon - 1));
    QVERIFY(!ledger.isOwed(kHorizon));
    QCOMPARE(ledger.judge(kAck, kHorizon), Verdict::Take);
}

void TestAnswerLedger::laterAnswerOfTheSameLdbSettlesItsDebts()
{
    AnswerLedger ledger(kHorizon);
    ledger.begin(pending("0A", AnswerShape::Status));
    ledger.transmitted(0);
    ledger.transmitted(500);
    QCOMPARE(ledger.judge(kStatus, 520), Verdict::Take);
    ledger.begin(pending("0A", AnswerShape::Name));
    ledger.transmitted(530);
    QCOMPARE(ledger.judge(kName, 550), Verdict::Take);
    ledger.begin(pending("0B", AnswerShape::Status));
    ledger.transmitted(560);
    QVERIFY(!ledger.isOwed(561));
    QCOMPARE(ledger.judge(kStatus, 580), Verdict::Take);
}

void TestAnswerLedger::silentProbesDoNotEatAnswers()
{
    AnswerLedger ledger(kHorizon);
    for (int i = 0; i < 5; ++i) {
        ledger.begin(pending("0A", AnswerShape::Any));
        ledger.transmitted(0);
    }
    ledger.begin(pending("0B", AnswerShape::Status));
    ledger.transmitted(10);
    QCOMPARE(ledger.judge(kAck, 20), Verdict::Drop); // a late probe's
    QCOMPARE(ledger.judge(kStatus, 30), Verdict::Take);
}

QTEST_GUILESS_MAIN(TestAnswerLedger)
#include "tst_answerledger.moc"
