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
    void garblesByChance();
    void delaysByChance();
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
    const auto lateness = [&bus](const QByteArray& request) {
        return bus.hear(request).answer.front().delay;
    };
    bus.command("late 0A 500 times 1");
    QCOMPARE(lateness("FE0A73780003"), 500);
    // What follows a late answer is late, too.
    bus.now = 100;
    QVERIFY(lateness(kPoll) > 400);
    QCOMPARE(lateness("FE0B70"), 0);
    // Late or not, it was obeyed when it was heard.
    bus.now = 1000;
    QCOMPARE(lateness(kPoll), 0);
    QCOMPARE(bus.state(), LdbState::ServiceMode);
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
    const std::vector<Transmission> pieces = bus.hear(kStatus).answer;
    QVERIFY(pieces.size() > 1);
    QByteArray whole;
    qint64 delay = -1;
    for (const Transmission& piece : pieces) {
        QVERIFY(piece.delay > delay);
        delay = piece.delay;
        whole += piece.bytes;
    }
    QVERIFY(isValid(whole));
    QCOMPARE(pieces.back().whole, whole);
    QCOMPARE(bus.hear(kPoll).answer.size(), std::size_t{1});
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

void WireFaultsTest::garblesByChance()
{
    TestBus bus;
    bus.command("bad-bus 100 0");
    for (int i = 0; i < 3000; ++i) {
        for (const QByteArray& request : {kStatus, kPoll}) {
            // As the tool takes bytes in: all that is left must be unusable.
            QByteArray bytes = bus.ask(request);
            QByteArray total;
            QVERIFY(!framecodec::processReceivedData(bytes, total) ||
                    !framecodec::responseValidation(total));
        }
    }
    bus.command("bad-bus 10 0");
    int garbled = 0;
    constexpr int kAnswers = 5000;
    for (int i = 0; i < kAnswers; ++i) {
        garbled += bus.ask(kPoll) == kAck ? 0 : 1;
    }
    QVERIFY(garbled > kAnswers * 8 / 100 && garbled < kAnswers * 12 / 100);
    bus.command("bad-bus off");
    QCOMPARE(bus.ask(kPoll), kAck);
}

void WireFaultsTest::delaysByChance()
{
    TestBus bus;
    constexpr int kAnswers = 1000;
    const auto countLate = [&bus](qint64 from, qint64 to) {
        int late = 0;
        for (int i = 0; i < kAnswers; ++i) {
            bus.now += 60000; // past every answer still to come
            const qint64 delay = bus.hear(kPoll).answer.front().delay;
            late += delay >= from && delay <= to ? 1 : 0;
            late += delay != 0 && (delay < from || delay > to) ? kAnswers : 0;
        }
        return late;
    };
    bus.command("bad-bus 0 50");
    const int late = countLate(130, 1800);
    QVERIFY(late > kAnswers * 4 / 10 && late < kAnswers * 6 / 10);
    bus.command("bad-bus 0 100 7 9");
    QCOMPARE(countLate(7, 9), kAnswers);
    bus.command("bad-bus 0 100");
    QCOMPARE(countLate(7, 9), kAnswers);
}

REGISTER_TEST(WireFaultsTest, NoApplication)
#include "tst_wirefaults.moc"
