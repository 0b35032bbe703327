#include "tests/simulator/linerun.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"

namespace {

/// The body of the one frame that has come, or the bare answer byte.
QByteArray answer(LineRun& run, const QByteArray& body)
{
    run.send(body);
    run.run(LineRun::kSecond);
    QByteArray bytes = run.take();
    return framecodec::responseValidation(bytes) ? bytes : "invalid: " + bytes.toHex();
}

} // namespace

/// The simple boards that stand on the line in tests and benchmarks.
class LineBoardsTest : public TestCase
{
    Q_OBJECT
private slots:
    void answerWhatAConversationAsks();
    void traceEveryStatusToItsAnswer();
    void doWhatTheyAreTold();
};

void LineBoardsTest::answerWhatAConversationAsks()
{
    LineRun run;
    QCOMPARE(answer(run, "FE0A70"), "\x06");
    const LdbStatusDecoding status = decodeLdbStatus(answer(run, "FE0A737803"));
    QVERIFY(status.valid);
    QCOMPARE(status.status.state, LdbState::Measuring);
    QCOMPARE(answer(run, "FE0B737202").size(), 32);
    QCOMPARE(QByteArray::fromHex(answer(run, "FE0B737202")),
             run.boards.name(0x0B).leftJustified(16, '\0'));
    QCOMPARE(answer(run, "FE0B737804").size(), 24); // a frame of 28 bytes
    QCOMPARE(decodeFirmwareId(answer(run, "FE0B737804")).value_or(QString()).toLatin1(),
             run.boards.firmware(0x0B));
    QVERIFY(run.boards.firmware(0x0B) != run.boards.firmware(0x0C));
    QCOMPARE(decodeLdbSettings(answer(run, "FE0C737201")).value_or(LdbSettings()).address, 0x0C);
    run.boards.setPresent(0x0A, false);
    run.send("FE0A70");
    run.run(LineRun::kSecond);
    QVERIFY(run.arrived.empty());
    QVERIFY(run.last().isHeard && run.last().isHarmed());
    run.boards.setPresent(0x0A, true);
    QCOMPARE(answer(run, "FE0A70"), "\x06");
}

void LineBoardsTest::traceEveryStatusToItsAnswer()
{
    LineRun run;
    for (const int address : {0x0A, 0x0B, 0x0C}) {
        for (quint32 number = 1; number <= 3; ++number) {
            const QByteArray hexId =
                QByteArray::number(address, 16).rightJustified(2, '0').toUpper();
            const LdbStatus status = decodeLdbStatus(answer(run, "FE" + hexId + "737803")).status;
            const auto origin = LineBoards::origin(status);
            QVERIFY(origin);
            QCOMPARE(origin->address, address);
            QCOMPARE(origin->number, number);
            QCOMPARE(run.boards.statusAnswers(address), number);
            // One wrong value gives it away.
            for (quint16 LdbStatus::*field :
                 {&LdbStatus::primaryVoltage, &LdbStatus::secondaryVoltage,
                  &LdbStatus::primaryAuxiliary, &LdbStatus::secondaryAuxiliary,
                  &LdbStatus::primaryCurrent, &LdbStatus::secondaryCurrent}) {
                LdbStatus other = status;
                other.*field = static_cast<quint16>(other.*field ^ 0x0400);
                QVERIFY(!LineBoards::origin(other));
            }
        }
    }
}

void LineBoardsTest::doWhatTheyAreTold()
{
    LineRun run;
    QCOMPARE(answer(run, "FE0A7363160100"), "invalid: 15"); // one byte too much
    QCOMPARE(answer(run, "FE0A73631601"), "\x06");
    QCOMPARE(answer(run, "FE0A73631601"), "\x06");
    QCOMPARE(answer(run, "FE0A73780001"), "\x06");
    QCOMPARE(run.boards.timesDone(0x0A, "FE0A73631601"), 2);
    QCOMPARE(run.boards.timesDone(0x0A, "FE0A7363160100"), 0);
    QCOMPARE(run.boards.deeds(0x0A).size(), std::size_t{4});
    QVERIFY(!run.boards.deeds(0x0A).front().isAccepted);
    QCOMPARE(run.boards.deeds(0x0A).at(1).at, run.exchange(1).endedAt);
    QVERIFY(run.boards.settings(0x0A).audioMute);
    QVERIFY(decodeLdbSettings(answer(run, "FE0A737201")).value_or(LdbSettings()).audioMute);
    QVERIFY(run.boards.deeds(0x0B).empty());

    // A broadcast is obeyed and not answered, by those that are there.
    run.boards.setPresent(0x0C, false);
    run.send("FEFF73780001");
    run.run(LineRun::kSecond);
    QVERIFY(run.arrived.empty());
    QCOMPARE(run.boards.timesDone(0x0A, "FEFF73780001"), 1);
    QCOMPARE(run.boards.timesDone(0x0B, "FEFF73780001"), 1);
    QCOMPARE(run.boards.timesDone(0x0C, "FEFF73780001"), 0);
}

REGISTER_TEST(LineBoardsTest, NoApplication)
#include "tst_lineboards.moc"
