#include "tests/simulator/testbus.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"

namespace {
const QByteArray kAck("\x06");
const QByteArray kNak("\x15");
} // namespace

/// What the boards of the simulated bus answer and do, byte for byte and state by state.
class BusSimulatorTest : public TestCase
{
    Q_OBJECT
private slots:
    void answers_data();
    void answers();
    void takesOrRefusesAChange_data();
    void takesOrRefusesAChange();
    void hearsNothingBroken();
    void obeysBroadcasts();
    void runsThroughItsStates_data();
    void runsThroughItsStates();
    void refusesWhileBusy();
    void leavesServiceModeByAnLdbResetOnly();
    void startsInServiceModeWhenToldTo();
    void factoryResetRestoresTheDefaults();
    void reportsFaults_data();
    void reportsFaults();
    void repairsARunningLoopAtOnce();
    void fencesOffAShortThatAppearsInAStartingLoop();
    void forgetsOnFimReset();
    void complainsOfImpossibleCommands();
    void movesLikeARealLoop();
};

void BusSimulatorTest::answers_data()
{
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<QByteArray>("answer");
    // Check digits worked out by hand.
    QTest::newRow("poll") << QByteArray("FE0A70") << kAck;
    QTest::newRow("name") << QByteArray("FE0A737202")
                          << QByteArray("\x01"
                                        "50756D7020686F757365000000000000"
                                        "22\x04");
    QTest::newRow("firmware id") << QByteArray("FE0A737804")
                                 << QByteArray("\x01"
                                               "4C444231362056332E3231"
                                               "DF\x04");
    QTest::newRow("settings") << QByteArray("FE0A737201")
                              << QByteArray("\x01"
                                            "0A0000001300000A00"
                                            "50756D7020686F757365000000000000"
                                            "000600"
                                            "F3\x04");
    QTest::newRow("store settings") << QByteArray("FE0A737806") << kAck;
    QTest::newRow("poll with data") << QByteArray("FE0A7000") << kNak;
    QTest::newRow("unknown kind") << QByteArray("FE0A737A01") << kNak;
    QTest::newRow("no index") << QByteArray("FE0A7378") << kNak;
    QTest::newRow("read of an unknown parameter") << QByteArray("FE0A737214") << kNak;
    QTest::newRow("read with data") << QByteArray("FE0A73720200") << kNak;
    QTest::newRow("status with data") << QByteArray("FE0A73780300") << kNak;
    QTest::newRow("unknown action") << QByteArray("FE0A737805") << kNak;
    QTest::newRow("change of the whole record") << QByteArray("FE0A73630100") << kNak;
    QTest::newRow("unknown control") << QByteArray("FE0A73780004") << kNak;
    QTest::newRow("control with too much data") << QByteArray("FE0A7378000001") << kNak;
    QTest::newRow("nobody there") << QByteArray("FE0C70") << QByteArray();
    QTest::newRow("broadcast") << QByteArray("FEFF70") << QByteArray();
    QTest::newRow("not from the master") << QByteArray("0B0A70") << QByteArray();
    QTest::newRow("no address") << QByteArray("FE0") << QByteArray();
    QTest::newRow("lower-case digits") << QByteArray("FE0A73631401").replace("14", "1a") << kNak;
}

void BusSimulatorTest::answers()
{
    QFETCH(QByteArray, request);
    QFETCH(QByteArray, answer);
    TestBus bus;
    QCOMPARE(bus.ask(request), answer);
    QCOMPARE(bus.state(), LdbState::Measuring);
}

void BusSimulatorTest::takesOrRefusesAChange_data()
{
    QTest::addColumn<QByteArray>("indexAndData");
    // Position in the settings record and what must stand there; nothing for a refusal.
    QTest::addColumn<int>("position");
    QTest::addColumn<QByteArray>("expected");
    const QByteArray fifteen = QByteArray("41").repeated(15);
    QTest::newRow("name") << QByteArray("025761726D") << 18
                          << QByteArray("5761726D").leftJustified(32, '0');
    QTest::newRow("longest name") << "02" + fifteen << 18 << fifteen + "00";
    QTest::newRow("name too long") << "0241" + fifteen << 0 << QByteArray();
    QTest::newRow("lower-case name") << QByteArray("025a") << 0 << QByteArray();
    QTest::newRow("flags") << QByteArray("141F") << 8 << QByteArray("1F");
    QTest::newRow("unknown flag") << QByteArray("1420") << 0 << QByteArray();
    QTest::newRow("flags too short") << QByteArray("141") << 0 << QByteArray();
    QTest::newRow("mute") << QByteArray("1601") << 12 << QByteArray("01");
    QTest::newRow("neither mute nor loud") << QByteArray("1602") << 0 << QByteArray();
    QTest::newRow("delay, low byte first") << QByteArray("170500") << 14 << QByteArray("0500");
    QTest::newRow("delay of five digits") << QByteArray("1710001") << 0 << QByteArray();
    QTest::newRow("number of FIMs") << QByteArray("03FF00") << 52 << QByteArray("FF00");
    QTest::newRow("unknown parameter") << QByteArray("1800") << 0 << QByteArray();
}

void BusSimulatorTest::takesOrRefusesAChange()
{
    QFETCH(QByteArray, indexAndData);
    QFETCH(int, position);
    QFETCH(QByteArray, expected);
    TestBus bus;
    QByteArray before = bus.settingsRecord();
    const bool isTaken = !expected.isEmpty();
    QCOMPARE(bus.ask("FE0A7363" + indexAndData), isTaken ? kAck : kNak);
    QByteArray after = bus.settingsRecord();
    QVERIFY(framecodec::responseValidation(before) && framecodec::responseValidation(after));
    QCOMPARE(after, before.replace(position, expected.size(), expected));

    // Remembered through a restart.
    bus.ask("FE0A73780001");
    bus.now += 3600000;
    QByteArray later = bus.settingsRecord();
    QVERIFY(framecodec::responseValidation(later));
    QCOMPARE(later, after);
}

void BusSimulatorTest::hearsNothingBroken()
{
    TestBus bus;
    const QByteArray before = bus.settingsRecord();
    const QByteArray wrongCheckDigits("\x01"
                                      "FE0A7363141F00\x04");
    for (const QByteArray& frame : {wrongCheckDigits, kAck}) {
        QVERIFY(!bus.hearRaw(frame).answer);
        QCOMPARE(bus.settingsRecord(), before);
    }
}

void BusSimulatorTest::obeysBroadcasts()
{
    TestBus bus;
    bus.command("silent 0B");
    bus.command("nak C7 changes");
    QCOMPARE(bus.ask("FEFF73780003"), QByteArray());
    QCOMPARE(bus.ask("FEFF73630201"), QByteArray());
    QCOMPARE(bus.state("0A"), LdbState::ServiceMode);
    QVERIFY(bus.settingsRecord("0A").contains("0100000000000000"));
    // What was not heard, and what was refused, changed nothing.
    bus.command("silent 0B off");
    QVERIFY(bus.state("0B") != LdbState::ServiceMode);
    QVERIFY(bus.state("C7") != LdbState::ServiceMode);
}

void BusSimulatorTest::runsThroughItsStates_data()
{
    QTest::addColumn<QByteArray>("control");
    QTest::addColumn<QString>("preparation");
    QTest::addColumn<QList<QPair<int, int>>>("course"); // ms after the command, state
    using Course = QList<QPair<int, int>>;
    QTest::newRow("LDB reset") << QByteArray("01") << QString()
                               << Course{{0, 0},      {7999, 0},   {8000, 20},  {27999, 20},
                                         {28000, 10}, {67999, 10}, {68000, 20}, {88000, 10}};
    QTest::newRow("FIM reset") << QByteArray("00") << QString()
                               << Course{{0, 40},     {9999, 40},  {10000, 42},
                                         {14999, 42}, {15000, 20}, {35000, 10}};
    QTest::newRow("failing FIM reset") << QByteArray("00") << QStringLiteral("resets-fail 0A")
                                       << Course{{0, 40}, {10000, 41}, {14999, 41}, {15000, 20}};
    QTest::newRow("service mode") << QByteArray("03") << QString()
                                  << Course{{0, 30}, {3600000, 30}};
    QTest::newRow("factory reset")
        << QByteArray("02") << QString()
        << Course{{0, 50}, {119999, 50}, {120000, 52}, {179999, 52}, {180000, 0}, {188000, 20}};
    QTest::newRow("failing factory reset")
        << QByteArray("02") << QStringLiteral("resets-fail 0A")
        << Course{{0, 50}, {119999, 50}, {120000, 51}, {180000, 0}};
}

void BusSimulatorTest::runsThroughItsStates()
{
    QFETCH(QByteArray, control);
    QFETCH(QString, preparation);
    using Course = QList<QPair<int, int>>;
    QFETCH(Course, course);
    TestBus bus;
    bus.now = 5000;
    bus.command(qPrintable(preparation));
    QCOMPARE(bus.ask("FE0A737800" + control), kAck);
    for (const auto& [time, state] : course) {
        bus.now = 5000 + time;
        QCOMPARE(static_cast<int>(bus.state()), state);
    }
    // However late somebody looks, the states have gone on by themselves.
    TestBus unwatched;
    unwatched.now = 5000;
    unwatched.command(qPrintable(preparation));
    unwatched.ask("FE0A737800" + control);
    unwatched.now = 5000 + course.constLast().first;
    QCOMPARE(static_cast<int>(unwatched.state()), course.constLast().second);
}

void BusSimulatorTest::refusesWhileBusy()
{
    const QByteArray mute("73631601");
    const auto control = [](LdbControl code) {
        return QByteArray("737800") +
               QByteArray::number(static_cast<int>(code)).rightJustified(2, '0');
    };
    // What becomes of a request so many ms after a first one.
    const auto outcome = [&](LdbControl first, int wait, const QByteArray& request) {
        TestBus bus;
        bus.ask("FE0A" + control(first));
        bus.now = wait;
        const LdbState state = bus.state();
        const QByteArray settings = bus.settingsRecord();
        const QByteArray answer = bus.ask("FE0A" + request);
        const bool hasChanged = bus.state() != state || bus.settingsRecord() != settings;
        if (answer == kNak) {
            return hasChanged ? QStringLiteral("refused, but obeyed") : QStringLiteral("refused");
        }
        return answer == kAck ? QStringLiteral("taken") : QStringLiteral("unanswered");
    };
    QCOMPARE(outcome(LdbControl::FactoryReset, 1000, control(LdbControl::LdbReset)), "refused");
    QCOMPARE(outcome(LdbControl::FactoryReset, 1000, mute), "refused");
    QCOMPARE(outcome(LdbControl::FactoryReset, 125000, control(LdbControl::LdbReset)), "taken");
    QCOMPARE(outcome(LdbControl::FactoryReset, 125000, control(LdbControl::FimReset)), "refused");
    QCOMPARE(outcome(LdbControl::LdbReset, 1000, control(LdbControl::LdbReset)), "taken");
    QCOMPARE(outcome(LdbControl::LdbReset, 1000, control(LdbControl::ServiceMode)), "refused");
    QCOMPARE(outcome(LdbControl::ServiceMode, 1000, control(LdbControl::FimReset)), "taken");
    QCOMPARE(outcome(LdbControl::ServiceMode, 1000, control(LdbControl::FactoryReset)), "refused");
}

void BusSimulatorTest::leavesServiceModeByAnLdbResetOnly()
{
    TestBus bus;
    bus.ask("FE0A73780003");
    bus.ask("FE0A73780000");
    bus.now += 60000;
    QCOMPARE(bus.state(), LdbState::ServiceMode);
    bus.ask("FE0A73780001");
    bus.now += 60000;
    QVERIFY(bus.state() != LdbState::ServiceMode);
}

void BusSimulatorTest::startsInServiceModeWhenToldTo()
{
    TestBus bus;
    bus.ask("FE0A73631408");
    bus.ask("FE0A73780001");
    QCOMPARE(bus.state(), LdbState::Booting);
    bus.now += 8000;
    QCOMPARE(bus.state(), LdbState::ServiceMode);
    bus.ask("FE0A73631413");
    bus.ask("FE0A73780001");
    bus.now += 8000;
    QCOMPARE(bus.state(), LdbState::Measuring);
}

void BusSimulatorTest::factoryResetRestoresTheDefaults()
{
    TestBus bus;
    const QByteArray fresh = bus.settingsRecord();
    for (const char* change : {"141C", "170000", "1601"}) {
        QCOMPARE(bus.ask(QByteArray("FE0A7363") + change), kAck);
    }
    QVERIFY(bus.settingsRecord() != fresh);
    bus.command("open 0A");
    bus.ask("FE0A73780002");
    bus.now += 60000;
    // The loop is without power meanwhile.
    QCOMPARE(bus.status().primaryVoltage, quint16{0});
    QCOMPARE(bus.status().secondaryCurrent, quint16{0});
    QCOMPARE(bus.status().loopState(), LdbLoopState::Ok);
    bus.now += 61000;
    QCOMPARE(bus.settingsRecord(), fresh);

    // The name and the number of FIMs belong to the place.
    bus.ask("FE0A73630241");
    bus.ask("FE0A7363030900");
    const QByteArray named = bus.settingsRecord();
    QVERIFY(named != fresh);
    bus.ask("FE0A73780001");
    bus.now += 10000;
    bus.ask("FE0A73780002");
    bus.now += 121000;
    QCOMPARE(bus.settingsRecord(), named);
}

void BusSimulatorTest::reportsFaults_data()
{
    QTest::addColumn<QString>("commands"); // one after the other
    QTest::addColumn<int>("loop");
    QTest::addColumn<int>("earth");
    QTest::addColumn<int>("amplifier");
    const auto row = [](const char* commands, int loop, int earth, int amplifier) {
        QTest::newRow(commands) << QString::fromLatin1(commands) << loop << earth << amplifier;
    };
    row("", 0, 0, 0);
    row("open 0A", 1, 0, 0);
    row("open 0A, open 0A memory", 2, 0, 0);
    row("open 0A memory, open 0A clear", 0, 0, 0);
    row("open 0A, change 170000", 0, 0, 0);
    row("short 0A", 4, 0, 0);
    row("short 0A present, short 0A memory", 8, 0, 0);
    row("short 0A, open 0A memory", 6, 0, 0);
    row("short 0A after 4, open 0A after 1", 4, 0, 0);
    row("dc-leakage 0A", 16, 0, 0);
    row("open 0A memory, short 0A memory, dc-leakage 0A memory", 42, 0, 0);
    row("secondary-port 0A disconnected", 1, 0, 0);
    row("earth-leakage all after 2", 0, 4, 0);
    row("earth-leakage 0A memory", 0, 8, 0);
    row("earth-leakage 0A, change 1411", 0, 0, 0);
    row("earth-wire 0A, change 1417", 0, 1, 0);
    row("earth-wire 0A memory, earth-leakage 0A, change 1417", 0, 6, 0);
    row("amplifier 0A disconnected", 0, 0, 2);
    row("amplifier 0A not-supported", 0, 0, 254);
    row("amplifier 0A disconnected, change 1403", 0, 0, 0);
}

void BusSimulatorTest::reportsFaults()
{
    QFETCH(QString, commands);
    QFETCH(int, loop);
    QFETCH(int, earth);
    QFETCH(int, amplifier);
    TestBus bus;
    for (const QString& command : commands.split(QStringLiteral(", "), Qt::SkipEmptyParts)) {
        if (command.startsWith(QLatin1String("change "))) {
            QCOMPARE(bus.ask("FE0A7363" + command.mid(7).toLatin1()), kAck);
        } else {
            QCOMPARE(bus.command(qPrintable(command)), QString());
        }
    }
    const LdbStatus status = bus.status();
    QCOMPARE(static_cast<int>(status.loopState()), loop);
    QCOMPARE(static_cast<int>(status.earthState()), earth);
    QCOMPARE(static_cast<int>(status.amplifier), amplifier);
}

void BusSimulatorTest::repairsARunningLoopAtOnce()
{
    TestBus bus;
    const int before = bus.status().primaryCurrent;
    bus.command("open 0A after 0");
    bus.now = 1000;
    const LdbStatus open = bus.status();
    QVERIFY(open.primaryCurrent < before - 80); // three FIMs less on this side
    bus.command("open 0A clear");
    QVERIFY(qAbs(bus.status().primaryCurrent - before) < 10);

    bus.command("port-short 0A secondary memory");
    bus.command("mode 0A check-settings");
    const LdbStatus status = bus.status();
    QCOMPARE(status.primaryPortShort, quint8{0});
    QCOMPARE(status.secondaryPortShort, quint8{2});
    QCOMPARE(status.state, LdbState::CheckSettings);
    bus.command("mode 0A normal");
    QCOMPARE(bus.state(), LdbState::Measuring);
}

void BusSimulatorTest::fencesOffAShortThatAppearsInAStartingLoop()
{
    TestBus bus;
    bus.ask("FE0A73780001");
    bus.now = 60000; // two FIMs up from either side
    bus.command("short 0A after 1");
    QCOMPARE(bus.status().loopState(), LdbLoopState::Short);
    QVERIFY(bus.status().primaryCurrent > 600);
    bus.now += 3000;
    QCOMPARE(static_cast<int>(bus.status().loopState()), 9); // remembered, and open there
    QVERIFY(bus.status().primaryCurrent < 300);

    // Repaired, the loop closes by itself.
    bus.command("short 0A clear");
    bus.now += 200000;
    QCOMPARE(bus.status().loopState(), LdbLoopState::OpenMemory);
}

void BusSimulatorTest::forgetsOnFimReset()
{
    TestBus bus;
    for (const char* command : {"open 0A memory", "earth-leakage 0A memory", "dc-leakage 0A"}) {
        bus.command(command);
    }
    bus.ask("FE0A73780000");
    bus.now += 20000;
    const LdbStatus status = bus.status();
    QCOMPARE(status.loopState(), LdbLoopState::DcLeakage); // still there
    QCOMPARE(status.earthState(), LdbEarthState::Ok);
}

void BusSimulatorTest::complainsOfImpossibleCommands()
{
    TestBus bus;
    QCOMPARE(bus.command("open 0C"), QStringLiteral("no LDB at 0C"));
    QCOMPARE(bus.command("short all after 7"), QStringLiteral("the loop of 0A has only 6 FIMs"));
    QCOMPARE(bus.status().loopState(), LdbLoopState::Ok);
}

void BusSimulatorTest::movesLikeARealLoop()
{
    TestBus bus(7);
    TestBus twin(7); // chance repeats itself with the same seed
    QSet<int> voltages;
    int lowest = 100000;
    int highest = 0;
    for (int i = 0; i < 2000; ++i) {
        bus.now += 1000;
        const LdbStatus status = bus.status();
        twin.now = bus.now;
        QCOMPARE(twin.status().primaryVoltage, status.primaryVoltage);
        voltages.insert(status.primaryVoltage);
        lowest = qMin(lowest, int{status.primaryCurrent});
        highest = qMax(highest, int{status.primaryCurrent});
        QVERIFY(status.secondaryVoltage > 24000 && status.secondaryVoltage < 28000);
    }
    QVERIFY(voltages.size() > 100);
    QVERIFY(highest > lowest);
    QVERIFY(highest - lowest < 11); // never as much as a FIM's step
}

REGISTER_TEST(BusSimulatorTest, NoApplication)
#include "tst_bussimulator.moc"
