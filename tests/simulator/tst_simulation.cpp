#include "serial/wire/framecodec.h"
#include "simulator/program/simulation.h"
#include "tests/support/sandbox.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"

#include <QFileInfo>
#include <QProcess>
#include <QSerialPort>
#include <QSignalSpy>

namespace {

constexpr int kPatience = 20000; // ms; only a hang needs so long

/// The tool's end of the port.
class Master
{
public:
    explicit Master(const QString& portName)
    {
        m_port.setPortName(portName);
        m_port.open(QIODevice::ReadWrite);
    }

    QSerialPort& port() { return m_port; }

    void send(const QByteArray& body) { m_port.write(framecodec::createCommand(body)); }

    /// The answer's bytes up to its end.
    QByteArray ask(const QByteArray& body)
    {
        send(body);
        QByteArray answer;
        const bool isComplete = QTest::qWaitFor(
            [&] {
                QByteArray batch = m_port.readAll();
                return framecodec::processReceivedData(batch, answer);
            },
            kPatience);
        return isComplete ? answer : QByteArray("no answer");
    }

private:
    QSerialPort m_port;
};

Simulation::Options unpaced()
{
    Simulation::Options options;
    options.pace = Simulation::Pace::Unpaced;
    return options;
}

Scenario twoBoards(const char* events = "[]")
{
    const ScenarioReading reading = readScenario(
        QByteArray(
            R"({"ldbs": [{"address": "0A", "name": "One"}, {"address": "0B"}], "events": )") +
        events + "}");
    return reading.scenario.value_or(Scenario());
}

SimulatorCommand command(const char* text)
{
    return parseSimulatorCommand(QLatin1String(text)).command.value_or(SimulatorCommand());
}

/// The program itself.
class Program
{
public:
    ~Program()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    void start(const QStringList& arguments)
    {
        m_process.start(QStringLiteral(SIMULATOR_PROGRAM), arguments);
    }
    QString readLine()
    {
        const bool isThere = QTest::qWaitFor([this] { return m_process.canReadLine(); }, kPatience);
        return isThere ? QString::fromLocal8Bit(m_process.readLine()).trimmed() : QString();
    }
    bool waitForEnd()
    {
        return m_process.state() == QProcess::NotRunning || m_process.waitForFinished(kPatience);
    }
    QProcess& process() { return m_process; }

private:
    QProcess m_process;
};

} // namespace

/// The installation on a real pseudo-terminal, in this process and as a program of its own.
class SimulationTest : public TestCase
{
    Q_OBJECT
private slots:
    void comesBackAfterACut();
    void carriesOutTheScenariosEvents();
    void writesTheJournal();
    void tellsWhatTheLineDid();
    void linksThePort();
    void tellsWhatItCannotOpen();
    void runsAsAProgramUntilToldToEnd_data();
    void runsAsAProgramUntilToldToEnd();
    void refusesWrongArguments();
};

void SimulationTest::comesBackAfterACut()
{
    qRegisterMetaType<QSerialPort::SerialPortError>();
    Simulation simulation(twoBoards(), unpaced());
    QCOMPARE(simulation.start(), QString());
    {
        Master master(simulation.portName());
        master.ask("FE0A73631601");
        QSignalSpy errors(&master.port(), &QSerialPort::errorOccurred);
        simulation.execute(command("cut"));
        QCOMPARE(simulation.portName(), QString());
        QVERIFY(!errors.isEmpty() || errors.wait(kPatience));
        master.port().close();
    }
    QSignalSpy restored(&simulation, &Simulation::restored);
    simulation.execute(command("restore"));
    QCOMPARE(restored.size(), 1);
    QCOMPARE(restored.constFirst().constFirst().toString(), simulation.portName());
    Master master(simulation.portName());
    // The boards have kept their settings meanwhile.
    const QByteArray settings = master.ask("FE0A737201");
    QCOMPARE(settings.mid(13, 2), QByteArray("01"));
    QVERIFY(simulation.execute(command("restore")).isEmpty());
    QCOMPARE(restored.size(), 1);

    simulation.execute(command("cut for 0.05"));
    QVERIFY(restored.wait(kPatience));
}

void SimulationTest::carriesOutTheScenariosEvents()
{
    Simulation simulation(
        twoBoards(R"([{"at": 0, "do": "vanish 0B"}, {"at": 0.02, "do": "appear 33"},
                      {"at": 0.04, "do": "quit"}])"),
        unpaced());
    QSignalSpy quit(&simulation, &Simulation::quitRequested);
    QCOMPARE(simulation.start(), QString());
    QCOMPARE(simulation.ldbCount(), 2);
    QVERIFY(quit.wait(kPatience));
    QCOMPARE(simulation.ldbCount(), 2);
    QVERIFY(simulation.execute(command("help")).size() > 20);
    const QString list = simulation.execute(command("list")).join(QLatin1Char('\n'));
    QVERIFY(list.contains(QLatin1String("33  LDB 51")));
    QVERIFY(list.contains(QLatin1String("not on the bus")));
}

void SimulationTest::writesTheJournal()
{
    const Sandbox sandbox;
    Simulation::Options options = unpaced();
    options.journalPath = sandbox.path(QStringLiteral("journal.txt"));
    Simulation simulation(twoBoards(), options);
    QCOMPARE(simulation.start(), QString());
    Master master(simulation.portName());
    master.ask("FE0A737202");
    master.send("FE0C70");
    simulation.execute(command("bad-check 0B"));
    master.ask("FE0B737804");
    simulation.execute(command("cut"));

    // Read while the simulation still runs: every line is in the file already.
    QList<QList<QByteArray>> lines;
    for (const QByteArray& line : Sandbox::readFile(options.journalPath).split('\n')) {
        if (!line.isEmpty()) {
            lines.append(line.split('\t'));
        }
    }
    QStringList contents;
    double former = 0;
    for (const QList<QByteArray>& columns : lines) {
        QCOMPARE(columns.size(), 6);
        QVERIFY(QDateTime::fromString(columns.at(0), "yyyy-MM-dd hh:mm:ss.zzz").isValid());
        QVERIFY(columns.at(1).toDouble() >= former);
        former = columns.at(1).toDouble();
        contents.append(columns.at(2) + columns.at(3) + ' ' + columns.at(5));
    }
    QCOMPARE(contents, (QStringList{">0A name", "<0A \"One\"", ">0C poll", ">0B firmware",
                                    "<0B \"LDB16 V3.21\" [bad check]", "# line cut"}));
    QCOMPARE(lines.at(2).at(4), QByteArray("01 46 45 30 43 37 30 32 44 04"));
}

void SimulationTest::tellsWhatTheLineDid()
{
    const Sandbox sandbox;
    Simulation::Options options = unpaced();
    options.journalPath = sandbox.path(QStringLiteral("journal.txt"));
    Simulation simulation(twoBoards(), options);
    QCOMPARE(simulation.start(), QString());
    Master master(simulation.portName());
    const std::pair<const char*, const char*> adversaries[] = {
        {"losses 100 0", "FE0A737202"}, {"losses off", nullptr},
        {"flips 100 0", "FE0A737202"},  {"flips off", nullptr},
        {"losses 0 100", "FE0A737202"}, {"losses off", nullptr},
        {"flips 0 100", "FE0B70"},      {"flips off", nullptr},
        {"bad-bus 0 100 3 3", "FE0A70"}};
    QStringList contents;
    for (const auto& [adversary, request] : adversaries) {
        simulation.execute(command(adversary));
        if (request) {
            const int before = Sandbox::readFile(options.journalPath).count('\n');
            const bool isHeard = !QByteArray(adversary).contains("100 0");
            master.send(request);
            WAIT_COMPARE(Sandbox::readFile(options.journalPath).count('\n'),
                         before + (isHeard ? 2 : 1));
        }
    }
    for (const QByteArray& line : Sandbox::readFile(options.journalPath).trimmed().split('\n')) {
        const QList<QByteArray> columns = line.split('\t');
        contents.append(columns.value(2) + columns.value(3) + ' ' + columns.value(5));
    }
    QCOMPARE(contents, (QStringList{">0A name [lost]", ">0A name [flipped bit]", ">0A name",
                                    "<0A \"One\" [lost]", ">0B poll", "<0B ACK [flipped bit]",
                                    ">0A poll", "<0A ACK [late 3 ms]"}));

    simulation.execute(command("stray 0.01"));
    WAIT_VERIFY(Sandbox::readFile(options.journalPath).contains("\tstray bytes\n"));
}

void SimulationTest::linksThePort()
{
    const Sandbox sandbox;
    Simulation::Options options = unpaced();
    options.linkPath = sandbox.path(QStringLiteral("port"));
    // Left behind by one that was killed.
    QVERIFY(QFile::link(QStringLiteral("/nowhere"), options.linkPath));
    {
        Simulation simulation(twoBoards(), options);
        QCOMPARE(simulation.start(), QString());
        QCOMPARE(QFileInfo(options.linkPath).symLinkTarget(), simulation.portName());
        simulation.execute(command("cut"));
        QVERIFY(!QFileInfo(options.linkPath).isSymLink());
        simulation.execute(command("restore"));
        QCOMPARE(QFileInfo(options.linkPath).symLinkTarget(), simulation.portName());
        Master master(options.linkPath);
        QCOMPARE(master.ask("FE0A70"), QByteArray("\x06"));
    }
    QVERIFY(!QFileInfo(options.linkPath).isSymLink());
}

void SimulationTest::tellsWhatItCannotOpen()
{
    const Sandbox sandbox;
    sandbox.writeFile(QStringLiteral("precious"), "data");
    Simulation::Options options = unpaced();
    options.linkPath = sandbox.path(QStringLiteral("precious"));
    QVERIFY(!Simulation(twoBoards(), options).start().isEmpty());
    QCOMPARE(Sandbox::readFile(options.linkPath), QByteArray("data"));
    options.linkPath = sandbox.path(QStringLiteral("none/link"));
    QVERIFY(!Simulation(twoBoards(), options).start().isEmpty());
    options.linkPath.clear();
    options.journalPath = sandbox.path(QStringLiteral("none/journal"));
    QVERIFY(!Simulation(twoBoards(), options).start().isEmpty());
}

void SimulationTest::runsAsAProgramUntilToldToEnd_data()
{
    QTest::addColumn<QString>("signal");
    QTest::newRow("quit") << QString();
    QTest::newRow("SIGTERM") << QStringLiteral("-TERM");
    QTest::newRow("SIGINT") << QStringLiteral("-INT");
    QTest::newRow("SIGHUP") << QStringLiteral("-HUP");
}

void SimulationTest::runsAsAProgramUntilToldToEnd()
{
    QFETCH(QString, signal);
    const Sandbox sandbox;
    const QString link = sandbox.path(QStringLiteral("port"));
    Program program;
    program.start({QStringLiteral("--unpaced"), QStringLiteral("--link"), link});
    const QString portName = program.readLine();
    QCOMPARE(QFileInfo(link).symLinkTarget(), portName);
    Master master(portName);
    QCOMPARE(master.ask("FEE970"), QByteArray("\x06"));
    program.process().write("fly\n");
    QCOMPARE(program.readLine(), QStringLiteral("unknown command \"fly\"; try help"));
    program.process().write("vanish E9\nlist\n");
    QVERIFY(program.readLine().startsWith(QLatin1String("03  Boiler house")));
    if (signal.isEmpty()) {
        program.process().write("quit\n");
    } else {
        // The end of its input is not the end of the program.
        program.process().closeWriteChannel();
        QCOMPARE(master.ask("FE0370"), QByteArray("\x06"));
        const QString id = QString::number(program.process().processId());
        QCOMPARE(QProcess::execute(QStringLiteral("kill"), {signal, id}), 0);
    }
    QVERIFY(program.waitForEnd());
    QCOMPARE(program.process().exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.process().exitCode(), 0);
    QVERIFY(!QFileInfo(link).isSymLink());
}

void SimulationTest::refusesWrongArguments()
{
    const Sandbox sandbox;
    sandbox.writeFile(QStringLiteral("bad.json"), R"({"ldbs": [{"address": "0A", "fims": "x"}]})");
    const std::pair<const char*, const char*> complaints[] = {
        {"--scenario none", "none: "},
        {"--scenario bad.json", "bad.json: ldbs[0].fims: "},
        {"--seed x", "the seed must be"},
        {"file", "unexpected \"file\""}};
    for (const auto& [arguments, complaint] : complaints) {
        Program program;
        program.start(QString(arguments).split(' '));
        QVERIFY(program.waitForEnd());
        QCOMPARE(program.process().exitCode(), 2);
        const QByteArray said = program.process().readAllStandardError();
        QVERIFY2(said.contains(complaint), said.constData());
        QVERIFY(program.process().readAllStandardOutput().isEmpty());
    }
}

REGISTER_TEST(SimulationTest, QCoreApplication)
#include "tst_simulation.moc"
