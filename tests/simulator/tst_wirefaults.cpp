#include "tests/simulator/testbus.h"
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
    void spoilsWhatIsFramed();
    void refuses();
    void refusalsChangeNothing();
    void answersLate();
    void makesNoise();
    void sendsFragments();
    void lastsForANumberOfAnswers();
    void vanishesAndAppears();
};

void WireFaultsTest::spoilsWhatIsFramed()
{
    TestBus bus;
    bus.command("bad-check 0A");
    const QByteArray spoiled = bus.ask(kStatus);
    QCOMPARE(spoiled.size(), 54);
    QVERIFY(!isValid(spoiled));
    QCOMPARE(bus.ask(kPoll), kAck); // has no check digits
    bus.command("bad-check 0A off");
    bus.command("wrong-length all");
    const QByteArray shortened = bus.ask(kStatus);
    QVERIFY(isValid(shortened));
    QCOMPARE(shortened.size(), 52);
    QCOMPARE(bus.ask(kPoll), kAck);
}

void WireFaultsTest::refuses()
{
    const auto refused = [](const char* command) {
        const std::pair<const char*, const char*> requests[] = {{"status", "FE0A737803"},
                                                                {"flags", "FE0A73631401"},
                                                                {"delay", "FE0A7363170100"},
                                                                {"store", "FE0A737806"}};
        TestBus bus;
        bus.command(command);
        QStringList names;
        for (const auto& [name, request] : requests) {
            if (bus.ask(request) == kNak) {
                names.append(name);
            }
        }
        return names.join(' ');
    };
    QCOMPARE(refused("nak 0A"), "status flags delay store");
    QCOMPARE(refused("nak 0A changes"), "flags delay store");
    QCOMPARE(refused("nak 0A index 14"), "flags");
    QCOMPARE(refused("nak 0A off"), "");
}

void WireFaultsTest::refusalsChangeNothing()
{
    TestBus bus;
    const QByteArray before = bus.settingsRecord();
    bus.command("nak 0A changes");
    QCOMPARE(bus.ask("FE0A73631400"), kNak);
    QCOMPARE(bus.ask("FE0A73780003"), kNak);
    bus.command("nak 0A off");
    bus.command("silent 0A");
    QCOMPARE(bus.ask("FE0A73631400"), QByteArray());
    bus.command("silent 0A off");
    QCOMPARE(bus.settingsRecord(), before);
    QCOMPARE(bus.state(), LdbState::Measuring);
}

void WireFaultsTest::answersLate()
{
    TestBus bus;
    bus.command("late 0A 500 times 1");
    const auto late = bus.hear("FE0A73780003").answer;
    QVERIFY(late && late->delay == 500);
    // Late or not, it was obeyed when it was heard.
    QCOMPARE(bus.state(), LdbState::ServiceMode);
    const auto next = bus.hear(kPoll).answer;
    QVERIFY(next && next->delay == 0);
}

void WireFaultsTest::makesNoise()
{
    TestBus bus;
    bus.command("noise 0A");
    for (int i = 0; i < 100; ++i) {
        const QByteArray answer = bus.ask(kStatus);
        const int start = answer.indexOf('\x01');
        QVERIFY(start > 0);
        QVERIFY(isValid(answer.mid(start)));
        // Noise alone is no answer to anybody.
        QVERIFY(!answer.left(start).contains('\x04'));
        QVERIFY(!answer.left(start).contains('\x06'));
        QVERIFY(!answer.left(start).contains('\x15'));
    }
}

void WireFaultsTest::sendsFragments()
{
    TestBus bus;
    bus.command("fragments 0A");
    const auto status = bus.hear(kStatus).answer;
    QVERIFY(status && isValid(status->bytes));
    QCOMPARE(status->pieces, 3);
    QCOMPARE(status->pause, qint64{25});
    const auto ack = bus.hear(kPoll).answer;
    QVERIFY(ack && ack->pieces == 1);
}

void WireFaultsTest::lastsForANumberOfAnswers()
{
    for (const char* command : {"bad-check 0A times 2", "nak 0A times 2", "silent 0A on times 2"}) {
        TestBus bus;
        QCOMPARE(bus.command(command), QString());
        QVERIFY2(!isValid(bus.ask(kStatus)), command);
        QVERIFY2(!isValid(bus.ask(kStatus)), command);
        QVERIFY2(isValid(bus.ask(kStatus)), command);
        QVERIFY2(isValid(bus.ask(kStatus)), command);
    }
}

void WireFaultsTest::vanishesAndAppears()
{
    TestBus bus;
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

REGISTER_TEST(WireFaultsTest, NoApplication)
#include "tst_wirefaults.moc"
