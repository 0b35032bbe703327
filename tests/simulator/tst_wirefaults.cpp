#include "tests/simulator/boardsalone.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"

namespace {

const QByteArray kAck("\x06");
const QByteArray kNak("\x15");
const QByteArray kStatus("FE0A737803");
const QByteArray kPoll("FE0A70");

bool isValid(QByteArray answer)
{
    return framecodec::responseValidation(answer);
}

} // namespace

/// What the trainer can do to the answers on their way.
class WireFaultsTest : public TestCase
{
    Q_OBJECT
private slots:
    void spoilsWhatIsFramed()
    {
        BoardsAlone bus;
        bus.command("bad-check 0A");
        QCOMPARE(bus.ask(kStatus).size(), 54);
        QVERIFY(!isValid(bus.ask(kStatus)));
        QCOMPARE(bus.ask(kPoll), kAck); // has no check digits
        bus.command("bad-check 0A off");
        bus.command("wrong-length all");
        QCOMPARE(bus.ask(kStatus).size(), 52);
        QVERIFY(isValid(bus.ask(kStatus)));
        QCOMPARE(bus.ask(kPoll), kAck);
    }

    void refuses_data()
    {
        const Table<QString, QStringList> row("command", "refused");
        const QStringList changes{"FE0A73631401", "FE0A7363170100", "FE0A73780003", "FE0A737806"};
        row("all", "nak 0A", QStringList{"FE0A737803"} + changes);
        row("changes", "nak 0A changes", changes);
        row("one parameter", "nak 0A index 14", QStringList(changes.first()));
        row("none", "nak 0A off", {});
    }

    void refuses()
    {
        QFETCH(QString, command);
        QFETCH(QStringList, refused);
        BoardsAlone bus;
        const QByteArray settings = bus.settingsRecord();
        bus.command(qPrintable(command));
        for (const char* request :
             {"FE0A737803", "FE0A73631401", "FE0A7363170100", "FE0A737806", "FE0A73780003"}) {
            QCOMPARE(bus.ask(request) == kNak, refused.contains(request));
        }
        // What is refused changes nothing.
        bus.command("nak 0A off");
        QCOMPARE(bus.settingsRecord() == settings, refused.contains("FE0A7363170100"));
        QCOMPARE(bus.state() == LdbState::Measuring, refused.contains("FE0A73780003"));
    }

    void answersLate()
    {
        BoardsAlone bus;
        bus.command("late 0A 500 times 1");
        const auto late = bus.hear("FE0A73780003").answer;
        QVERIFY(late && late->delay == 500);
        // Late or not, it was obeyed when it was heard.
        QCOMPARE(bus.state(), LdbState::ServiceMode);
        const auto next = bus.hear(kPoll).answer;
        QVERIFY(next && next->delay == 0);
    }

    void makesNoise()
    {
        BoardsAlone bus;
        bus.command("noise 0A");
        for (int i = 0; i < 100; ++i) {
            const QByteArray answer = bus.ask(kStatus);
            const QByteArray noise = answer.left(answer.indexOf('\x01'));
            QVERIFY(!noise.isEmpty() && isValid(answer.mid(noise.size())));
            // Noise alone is no answer to anybody.
            QVERIFY(!noise.contains('\x04') && !noise.contains('\x06') && !noise.contains('\x15'));
        }
    }

    void sendsFragments()
    {
        BoardsAlone bus;
        bus.command("fragments 0A");
        const auto status = bus.hear(kStatus).answer;
        QVERIFY(status && isValid(status->bytes));
        QCOMPARE(status->pieces, 3);
        QCOMPARE(status->pause, qint64{25});
        QCOMPARE(bus.hear(kPoll).answer->pieces, 1);
    }

    void lastsForANumberOfAnswers()
    {
        for (const char* command :
             {"bad-check 0A times 2", "nak 0A times 2", "silent 0A on times 2"}) {
            BoardsAlone bus;
            QCOMPARE(bus.command(command), QString());
            for (const bool isValidAgain : {false, false, true, true}) {
                QVERIFY2(isValid(bus.ask(kStatus)) == isValidAgain, command);
            }
        }
    }

    void vanishesAndAppears()
    {
        BoardsAlone bus;
        bus.command("vanish 0A");
        QCOMPARE(bus.ask(kPoll), QByteArray());
        bus.ask("FEFF73780003");
        bus.now = 60000;
        bus.command("appear 0A");
        QCOMPARE(bus.state(), LdbState::Booting);
        bus.now += 10000;
        QCOMPARE(bus.state(), LdbState::Measuring);
        bus.command("appear 0A"); // has been there: no second boot
        QCOMPARE(bus.state(), LdbState::Measuring);

        QCOMPARE(bus.ask("FE3370"), QByteArray());
        bus.command("appear 33");
        QCOMPARE(bus.ask("FE3370"), kAck);
    }
};

REGISTER_TEST(WireFaultsTest, NoApplication)
#include "tst_wirefaults.moc"
