#include "simulator/bus/adversarycommand.h"
#include "simulator/bus/scenario.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"

#include <QDir>

namespace {

/// One healthy LDB at 0A with six FIMs and, in its place, what the test adds.
QByteArray withRoot(const char* more)
{
    return QByteArray(R"({"ldbs": [{"address": "0A", "fims": 6}], )") + more + "}";
}

QByteArray withLdb(const char* more)
{
    return QByteArray(R"({"ldbs": [{"address": "0A", "fims": 6}, {)") + more + "}]}";
}

/// What these commands make of a good line.
Adversaries said(const std::vector<const char*>& commands)
{
    Adversaries adversaries;
    for (const char* text : commands) {
        const auto command = parseSimulatorCommand(text).command;
        if (!command || !applyToAdversaries(*command, adversaries)) {
            qWarning("no command about the line: %s", text);
        }
    }
    return adversaries;
}

} // namespace

/// The scenario format and the commands that it shares with the trainer's keyboard.
class ScenarioTest : public TestCase
{
    Q_OBJECT
private slots:
    void readsEverything()
    {
        const ScenarioReading reading = readScenario(R"({
            "description": "all keys", "seed": 42,
            "timing": {"bootSeconds": 3, "measuringSeconds": 4.5, "quiescentSeconds": 5,
                       "fimResetSeconds": 6, "factoryResetSeconds": 7, "factoryResetWaitSeconds": 20},
            "badBus": {"garbledPercent": 1.5, "latePercent": 2, "lateFromMs": 200, "lateToMs": 300},
            "line": {"kind": "half", "turnaroundFromMs": 4, "turnaroundToMs": 12,
                     "flippedRequestsPercent": 1, "flippedAnswersPercent": 2,
                     "lostRequestsPercent": 3, "lostAnswersPercent": 4, "strayEverySeconds": 3,
                     "burstEverySeconds": 30, "stallEverySeconds": 60, "stallsLose": true,
                     "vanishEverySeconds": 480, "vanishForSeconds": 20},
            "ldbs": [{"address": "c7", "name": "Pümpe", "firmware": "X123456", "fims": 12,
                      "configuredFims": 300, "openDetectionDelay": 0, "audioMute": true,
                      "serviceMode": true, "generalFaultOutput": false, "earthLeakageDetection": false,
                      "earthWireOpenDetection": true, "startInServiceMode": true,
                      "amplifierDetection": false, "faults": ["short present after 3", "silent"]}],
            "events": [{"at": 1.25, "do": "open C7 after 12"}, {"at": 5, "every": 60, "do": "cut"}]})");
        QCOMPARE(reading.error, QString());
        const Scenario& scenario = *reading.scenario;
        QCOMPARE(scenario.seed, 42U);
        const LdbTiming& timing = scenario.timing;
        QCOMPARE((QList<qint64>{timing.booting, timing.measuring, timing.quiescent, timing.fimReset,
                                timing.factoryReset, timing.factoryResetOutcome}),
                 (QList<qint64>{3000, 4500, 5000, 6000, 7000, 20000}));
        QCOMPARE(scenario.line.kind, LineKind::HalfDuplex);
        QVERIFY(scenario.line.leastTurnaround == 4 && scenario.line.mostTurnaround == 12);
        QVERIFY(scenario.line.adversaries ==
                said({"bad-bus 1.5 2 200 300", "flips 1 2", "losses 3 4", "stray 3 30",
                      "stalls lose 60", "vanishing 480 for 20"}));
        QCOMPARE(scenario.ldbs.size(), std::size_t{1});
        const ScenarioLdb& ldb = scenario.ldbs.front();
        QCOMPARE(ldb.spec.firmware, QByteArray("X123456"));
        QVERIFY(ldb.spec.address == 0xC7 && ldb.spec.fims == 12 && ldb.spec.isInServiceMode);
        QCOMPARE(ldb.spec.settings.name, QByteArray("P\xC3\xBCmpe"));
        QVERIFY(ldb.spec.settings.numberOfFims == 300 && ldb.spec.settings.openDetectionDelay == 0);
        QVERIFY(ldb.spec.settings.audioMute && ldb.spec.settings.flags == 0x0C);
        QCOMPARE(ldb.faults.size(), std::size_t{2});
        const SimulatorCommand& fault = ldb.faults.front();
        QVERIFY(fault.loopFault == LoopFaultKind::Short && fault.address == 0xC7 &&
                fault.afterFim == 3);
        QCOMPARE(scenario.events.size(), std::size_t{2});
        QVERIFY(scenario.events.front().at == 1250 && scenario.events.front().every == 0);
        QCOMPARE(scenario.events.back().every, 60000);
        QCOMPARE(scenario.events.back().command.verb, CommandVerb::Cut);
    }

    void fillsARangeOfAddresses()
    {
        const ScenarioReading reading =
            readScenario(R"({"ldbs": [{"address": "01-FD", "name": "Zone %1"}]})");
        QCOMPARE(reading.error, QString());
        QCOMPARE(reading.scenario->ldbs.size(), std::size_t{253});
        QCOMPARE(reading.scenario->ldbs.back().spec.settings.name, QByteArray("Zone 253"));
    }

    void namesTheKeyThatIsWrong_data()
    {
        // "error": its beginning
        const Table<QByteArray, QString> row("json", "error");
        row("no JSON", "{\n\"ldbs\": [}", "line 2: ");
        row("no object", "[]", "the file must hold one object");
        row("no LDBs", "{}", "ldbs: is missing");
        row("LDB no object", R"({"ldbs": [3]})", "ldbs[0]: must be an object");
        row("timing no object", withRoot(R"("timing": [])"), "timing: must be an object");
        row("event no object", withRoot(R"("events": ["cut"])"), "events[0]: must be an object");
        row("to before from", withRoot(R"("badBus": {"lateFromMs": 9, "lateToMs": 5})"),
            "badBus.lateToMs: ");
        row("event beyond the loop", withRoot(R"("events": [{"do": "open 0A after 7"}])"),
            "events[0].do: the loop has only 6 FIMs");
        row("unknown key", withRoot(R"("lbds": [])"), "lbds: is no key");
        row("unknown key over two lines", withRoot(R"("a\nb": [])"), "a b: is no key");
        row("seed below zero", withRoot(R"("seed": -1)"), "seed: must be a number from 0");
        row("no time at all", withRoot(R"("timing": {"bootSeconds": 0})"), "timing.bootSeconds: ");
        row("half a millisecond", withRoot(R"("badBus": {"lateFromMs": 1.5})"),
            "badBus.lateFromMs: must be a whole number");
        row("unknown kind of line", withRoot(R"("line": {"kind": "thin"})"), "line.kind: must be");
        row("strays without a pause", withRoot(R"("line": {"strayEverySeconds": 0.001})"),
            "line.strayEverySeconds: ");
        row("turnaround to before from",
            withRoot(R"("line": {"turnaroundFromMs": 9, "turnaroundToMs": 5})"),
            "line.turnaroundToMs: ");
        row("no address", withLdb(R"("name": "x")"), "ldbs[1].address: must be a bus address");
        row("address no text", withLdb(R"("address": 11)"), "ldbs[1].address: must be a text");
        row("address twice", withLdb(R"("address": "0A")"), "ldbs[1].address: 0A is taken twice");
        row("name too long", withLdb(R"("address": "0B", "name": "sixteen letters!")"),
            "ldbs[1].name: must fit");
        row("firmware too short", withLdb(R"("address": "0B", "firmware": "V1")"),
            "ldbs[1].firmware: ");
        row("flag no flag", withLdb(R"("address": "0B", "audioMute": 1)"),
            "ldbs[1].audioMute: must be true or false");
        row("too many FIMs", withLdb(R"("address": "0B", "fims": 128)"), "ldbs[1].fims: ");
        row("unknown fault", withLdb(R"("address": "0B", "faults": ["opne"])"),
            "ldbs[1].faults[0]: unknown command \"opne\"");
        row("fault beyond the loop",
            withLdb(R"("address": "0B", "fims": 3, "faults": ["open after 4"])"),
            "ldbs[1].faults[0]: the loop has only 3 FIMs");
        row("event without command", withRoot(R"("events": [{"at": 3}])"),
            "events[0].do: is empty");
        row("event of no LDB", withRoot(R"("events": [{"do": "open 0B"}])"),
            "events[0].do: no LDB at 0B");
    }

    void namesTheKeyThatIsWrong()
    {
        QFETCH(QByteArray, json);
        QFETCH(QString, error);
        const ScenarioReading reading = readScenario(json);
        QVERIFY(!reading.scenario);
        QVERIFY2(reading.error.startsWith(error), qPrintable(reading.error));
        QVERIFY(!reading.error.contains(QLatin1Char('\n')));
    }

    void readsWhatIsShipped()
    {
        const QFileInfoList files =
            QDir(QStringLiteral(SCENARIO_FOLDER)).entryInfoList({QStringLiteral("*.json")});
        QVERIFY(files.size() >= 10);
        for (const QFileInfo& file : files) {
            QCOMPARE(readScenarioFile(file.filePath()).error, QString());
        }
        QCOMPARE(defaultScenario().ldbs.size(), std::size_t{8});
    }

    void refusesCommands()
    {
        const QString commands(
            "fly, open, open FE, open zz, open 0A after, open 0A after 128, "
            "open 0A present after 3 4, port-short 0A third, amplifier 0A loud, "
            "mode 0A 253, secondary-port 0A, late 0A 0, late 0A 60001, "
            "silent 0A maybe, bad-check 0A times 0, nak 0A index 100, bad-bus 1, "
            "bad-bus 1 101, bad-bus 1 1 5, bad-bus 1 1 5 4, bad-bus nan 1, "
            "line thin, flips 1, losses 1 101, late-answers 1 5, stray 0, stalls 60, "
            "stalls hold 0, vanishing 480 30, cut 3");
        for (const QString& text : commands.split(", ")) {
            const CommandParsing parsing = parseSimulatorCommand(text);
            QVERIFY2(!parsing.command && !parsing.error.isEmpty(), qPrintable(text));
        }
    }

    void changesOneAdversaryAtATime()
    {
        Adversaries expected;
        expected.flippedRequests = 1;
        expected.flippedAnswers = 2;
        expected.lostRequests = 3;
        expected.lostAnswers = 4;
        expected.lateFrom = 6;
        expected.lateTo = 7;
        expected.strayEvery = 8;
        expected.burstEvery = 9;
        expected.stall = Adversaries::Stall::Lose;
        expected.stallEvery = 10;
        expected.vanishEvery = 11;
        expected.vanishFor = 12;
        expected.garbledAnswers = 13;
        expected.lateAnswers = 14;
        std::vector<const char*> commands{"flips 1 2",    "losses 3 4",     "late-answers 5 6 7",
                                          "stray 8 9",    "stalls lose 10", "vanishing 11 for 12",
                                          "bad-bus 13 14"};
        QVERIFY(said(commands) == expected); // the range of lateness stays
        for (const char* off : {"flips off", "losses off", "bad-bus off", "late-answers off",
                                "stray off", "stalls off", "vanishing off"}) {
            commands.push_back(off);
        }
        Adversaries none;
        none.lateFrom = 6;
        none.lateTo = 7;
        QVERIFY(said(commands) == none);
        QVERIFY(
            !applyToAdversaries(*parseSimulatorCommand(QStringLiteral("silent 0A")).command, none));
    }
};

REGISTER_TEST(ScenarioTest, NoApplication)
#include "tst_scenario.moc"
