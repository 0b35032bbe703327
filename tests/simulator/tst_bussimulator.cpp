#include "serial/ldb/ldbsettings.h"
#include "serial/ldb/ldbstatus.h"
#include "serial/wire/framecodec.h"
#include "simulator/bus/bussimulator.h"
#include "tests/support/testprogram.h"

namespace {
const QByteArray kAck("\x06");
const QByteArray kNak("\x15");
const QByteArray kPoll("FE0A70");
const QByteArray kStatus("FE0A737803");

bool isValid(QByteArray answer)
{
    return framecodec::responseValidation(answer);
}

/// A simulated bus with three boards (0A, 0B and C7) and a clock that stands still unless a test
/// moves it.
class BoardsAlone
{
public:
    explicit BoardsAlone(quint32 seed = 1)
        : m_bus(scenario(), seed, 0)
    {
    }

    qint64 now = 0; ///< ms

    static Scenario scenario()
    {
        const ScenarioReading reading = readScenario(R"({"ldbs": [
            {"address": "0A", "name": "Pump house", "fims": 6},
            {"address": "0B", "fims": 4},
            {"address": "C7", "fims": 9}]})");
        return reading.scenario.value_or(Scenario());
    }

    HeardRequest hear(const QByteArray& body)
    {
        return m_bus.hear(framecodec::createCommand(body), now);
    }
    HeardRequest hearRaw(const QByteArray& frame) { return m_bus.hear(frame, now); }

    /// The bytes of the answer; empty for silence.
    QByteArray ask(const QByteArray& body)
    {
        const HeardRequest hearing = hear(body);
        return hearing.answer ? hearing.answer->bytes : QByteArray();
    }

    LdbStatus status(const QByteArray& hexId = "0A")
    {
        QByteArray answer = ask("FE" + hexId + "737803");
        return framecodec::responseValidation(answer) ? decodeLdbStatus(answer).status
                                                      : LdbStatus::disconnected();
    }
    LdbState state(const QByteArray& hexId = "0A") { return status(hexId).state; }
    QByteArray settingsRecord(const QByteArray& hexId = "0A")
    {
        return ask("FE" + hexId + "737201");
    }

    /// What the trainer's command says, empty when all is well.
    QString command(const char* text)
    {
        const CommandParsing parsing = parseSimulatorCommand(QLatin1String(text));
        return parsing.command ? m_bus.execute(*parsing.command, now) : parsing.error;
    }
    /// Steps with a comma between them: commands of the trainer, and requests to 0A, which are
    /// told by their digits. What is wrong with the first that fails, or nothing.
    QString prepare(const QString& steps)
    {
        for (const QString& step : steps.split(QStringLiteral(", "), Qt::SkipEmptyParts)) {
            const bool isRequest = step.startsWith(QLatin1Char('7'));
            QString error = !isRequest                                ? command(qPrintable(step))
                            : ask("FE0A" + step.toLatin1()) != "\x06" ? step
                                                                      : QString();
            if (!error.isEmpty()) {
                return error;
            }
        }
        return {};
    }

private:
    BusSimulator m_bus;
};

} // namespace

/// What the boards of the simulated bus answer and do, byte for byte and state by state, and what
/// the trainer can do to the answers on their way.
class BusSimulatorTest : public TestCase
{
    Q_OBJECT
private slots:
    void answers_data()
    {
        const Table<QByteArray, QByteArray> row("request", "answer");
        const QByteArray start("\x01");
        // Check digits worked out by hand.
        row("poll", "FE0A70", kAck);
        row("name", "FE0A737202", start + "50756D7020686F757365000000000000" + "22\x04");
        row("firmware id", "FE0A737804", start + "4C444231362056332E3231" + "DF\x04");
        row("settings", "FE0A737201",
            start + "0A0000001300000A00" + "50756D7020686F757365000000000000" + "000600" +
                "F3\x04");
        row("store settings", "FE0A737806", kAck);
        for (const char* request :
             {"FE0A7000", "FE0A737A01", "FE0A7378", "FE0A737214", "FE0A73720200", "FE0A73780300",
              "FE0A737805", "FE0A73630100", "FE0A73780004", "FE0A7378000001", "FE0A73631a01"}) {
            row(request, request, kNak);
        }
        row("nobody there", "FE0C70", {});
        row("broadcast", "FEFF70", {});
        row("not from the master", "0B0A70", {});
        row("no address", "FE0", {});
    }

    void answers()
    {
        QFETCH(QByteArray, request);
        QFETCH(QByteArray, answer);
        BoardsAlone bus;
        QCOMPARE(bus.ask(request), answer);
        QCOMPARE(bus.state(), LdbState::Measuring);
        QVERIFY(!bus.hearRaw("\x01" + request + "00\x04").answer); // wrong check digits
    }

    void takesOrRefusesAChange_data()
    {
        // Position in the settings record and what must stand there; nothing for a refusal.
        addColumns<QByteArray, int, QByteArray>("indexAndData", "position", "expected");
        const QByteArray fifteen = QByteArray("41").repeated(15);
        const auto row = [](const QByteArray& indexAndData, int position,
                            const QByteArray& expected) {
            QTest::newRow(indexAndData.constData()) << indexAndData << position << expected;
        };
        row("025761726D", 18, QByteArray("5761726D").leftJustified(32, '0'));
        row("02" + fifteen, 18, fifteen + "00");
        row("141F", 8, "1F");
        row("1601", 12, "01");
        row("170500", 14, "0500"); // low byte first
        row("03FF00", 52, "FF00");
        for (const char* refused : {"025a", "1420", "141", "1602", "1710001", "1800"}) {
            row(refused, 0, {});
        }
        row("0241" + fifteen, 0, {});
    }

    void takesOrRefusesAChange()
    {
        QFETCH(QByteArray, indexAndData);
        QFETCH(int, position);
        QFETCH(QByteArray, expected);
        BoardsAlone bus;
        QByteArray record = bus.settingsRecord();
        QCOMPARE(bus.ask("FE0A7363" + indexAndData), expected.isEmpty() ? kNak : kAck);
        QVERIFY(framecodec::responseValidation(record));
        record.replace(position, expected.size(), expected);
        QCOMPARE(bus.settingsRecord(), framecodec::createCommand(record));
        // Remembered through a restart.
        bus.ask("FE0A73780001");
        bus.now += 3600000;
        QCOMPARE(bus.settingsRecord(), framecodec::createCommand(record));
    }

    void obeysBroadcasts()
    {
        BoardsAlone bus;
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

    void runsThroughItsStates_data()
    {
        // "preparation": as BoardsAlone::prepare has it
        // "course": ms after the command and the state, in turn
        const Table<QByteArray, QString, QList<int>> row("control", "preparation", "course");
        row("LDB reset", "01", "",
            {0, 0, 7999, 0, 8000, 20, 27999, 20, 28000, 10, 67999, 10, 68000, 20, 88000, 10});
        row("FIM reset", "00", "", {0, 40, 9999, 40, 10000, 42, 14999, 42, 15000, 20, 35000, 10});
        row("failing FIM reset", "00", "resets-fail 0A", {0, 40, 10000, 41, 14999, 41, 15000, 20});
        row("service mode", "03", "", {0, 30, 3600000, 30});
        row("FIM reset in service mode", "00", "73780003", {0, 40, 10000, 42, 15000, 30});
        row("LDB reset with Start in Service Mode", "01", "73631408", {0, 0, 8000, 30});
        row("LDB reset in service mode", "01", "73780003", {0, 0, 8000, 20});
        row("factory reset", "02", "",
            {0, 50, 119999, 50, 120000, 52, 179999, 52, 180000, 0, 188000, 20});
        row("failing factory reset", "02", "resets-fail 0A",
            {0, 50, 119999, 50, 120000, 51, 180000, 0});
    }

    void runsThroughItsStates()
    {
        QFETCH(QByteArray, control);
        QFETCH(QString, preparation);
        QFETCH(QList<int>, course);
        // Watched, and looked at once only: the states go on by themselves.
        for (const int first : {0, course.size() - 2}) {
            BoardsAlone bus;
            bus.now = 5000;
            QCOMPARE(bus.prepare(preparation), QString());
            QCOMPARE(bus.ask("FE0A737800" + control), kAck);
            for (int i = first; i < course.size(); i += 2) {
                bus.now = 5000 + course.at(i);
                QCOMPARE(static_cast<int>(bus.state()), course.at(i + 1));
            }
        }
    }

    void refusesWhileBusy()
    {
        const QByteArray fimReset("73780000");
        const QByteArray ldbReset("73780001");
        const QByteArray factoryReset("73780002");
        const QByteArray serviceMode("73780003");
        // What becomes of a request so many ms after a first one.
        const auto isTaken = [](const QByteArray& first, int wait, const QByteArray& request) {
            BoardsAlone bus;
            bus.ask("FE0A" + first);
            bus.now = wait;
            const LdbState state = bus.state();
            const QByteArray settings = bus.settingsRecord();
            const bool isAccepted = bus.ask("FE0A" + request) == kAck;
            const bool hasChanged = bus.state() != state || bus.settingsRecord() != settings;
            return isAccepted || hasChanged;
        };
        QVERIFY(!isTaken(factoryReset, 1000, ldbReset));
        QVERIFY(!isTaken(factoryReset, 1000, "73631601"));
        QVERIFY(isTaken(factoryReset, 125000, ldbReset));
        QVERIFY(!isTaken(factoryReset, 125000, fimReset));
        QVERIFY(isTaken(ldbReset, 1000, ldbReset));
        QVERIFY(!isTaken(ldbReset, 1000, serviceMode));
        QVERIFY(isTaken(serviceMode, 1000, fimReset));
        QVERIFY(!isTaken(serviceMode, 1000, factoryReset));
    }

    void factoryResetRestoresTheDefaults()
    {
        BoardsAlone bus;
        // The name and the number of FIMs belong to the place.
        bus.ask("FE0A73630241");
        bus.ask("FE0A7363030900");
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
    }

    void reportsFaults_data()
    {
        // The tag: as BoardsAlone::prepare has it.
        const Table<int, int, int> row("loop", "earth", "amplifier");
        row("open 0A", 1, 0, 0);
        row("open 0A, open 0A memory", 2, 0, 0);
        row("open 0A memory, open 0A clear", 0, 0, 0);
        row("open 0A, 7363170000", 0, 0, 0);
        row("short 0A", 4, 0, 0);
        row("short 0A present, short 0A memory", 8, 0, 0);
        row("short 0A, open 0A memory", 6, 0, 0);
        row("short 0A after 4, open 0A after 1", 4, 0, 0);
        row("dc-leakage 0A", 16, 0, 0);
        row("open 0A memory, short 0A memory, dc-leakage 0A memory", 42, 0, 0);
        row("secondary-port 0A disconnected", 1, 0, 0);
        row("earth-leakage all after 2", 0, 4, 0);
        row("earth-leakage 0A memory", 0, 8, 0);
        row("earth-leakage 0A, 73631411", 0, 0, 0);
        row("earth-wire 0A, 73631417", 0, 1, 0);
        row("earth-wire 0A memory, earth-leakage 0A, 73631417", 0, 6, 0);
        // A FIM reset forgets what is only remembered.
        row("open 0A memory, earth-leakage 0A memory, dc-leakage 0A, 73780000", 16, 0, 0);
        row("amplifier 0A disconnected", 0, 0, 2);
        row("amplifier 0A not-supported", 0, 0, 254);
        row("amplifier 0A disconnected, 73631403", 0, 0, 0);
    }

    void reportsFaults()
    {
        QFETCH(int, loop);
        QFETCH(int, earth);
        QFETCH(int, amplifier);
        BoardsAlone bus;
        QCOMPARE(bus.prepare(QTest::currentDataTag()), QString());
        bus.now += 20000;
        const LdbStatus status = bus.status();
        QCOMPARE(static_cast<int>(status.loopState()), loop);
        QCOMPARE(static_cast<int>(status.earthState()), earth);
        QCOMPARE(static_cast<int>(status.amplifier), amplifier);
    }

    void repairsARunningLoopAtOnce()
    {
        BoardsAlone bus;
        const int before = bus.status().primaryCurrent;
        bus.command("open 0A after 0");
        bus.now = 1000;
        const LdbStatus open = bus.status();
        QVERIFY(open.primaryCurrent < before - 80); // three FIMs less on this side
        bus.command("open 0A clear");
        QVERIFY(qAbs(bus.status().primaryCurrent - before) < 10);

        bus.command("port-short 0A secondary memory");
        bus.command("mode 0A check-settings");
        QCOMPARE(bus.status().primaryPortShort, quint8{0});
        QCOMPARE(bus.status().secondaryPortShort, quint8{2});
        QCOMPARE(bus.state(), LdbState::CheckSettings);
        bus.command("mode 0A normal");
        QCOMPARE(bus.state(), LdbState::Measuring);
    }

    void fencesOffAShortThatAppearsInAStartingLoop()
    {
        BoardsAlone bus;
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

    void complainsOfImpossibleCommands()
    {
        BoardsAlone bus;
        QCOMPARE(bus.command("open 0C"), QStringLiteral("no LDB at 0C"));
        QCOMPARE(bus.command("short all after 7"),
                 QStringLiteral("the loop of 0A has only 6 FIMs"));
        QCOMPARE(bus.status().loopState(), LdbLoopState::Ok);
    }

    void movesLikeARealLoop()
    {
        BoardsAlone bus(7);
        BoardsAlone twin(7); // chance repeats itself with the same seed
        QSet<quint16> voltages;
        for (int i = 0; i < 500; ++i) {
            twin.now = bus.now += 1000;
            const quint16 voltage = bus.status().primaryVoltage;
            QCOMPARE(twin.status().primaryVoltage, voltage);
            voltages.insert(voltage);
        }
        QVERIFY(voltages.size() > 100);
    }

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

REGISTER_TEST(BusSimulatorTest, QCoreApplication)
#include "tst_bussimulator.moc"
