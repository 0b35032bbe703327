#include "serial/wire/framecodec.h"
#include "simulator/program/simulation.h"
#include "tests/support/sandbox.h"
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
        const bool isComplete = waitUntil(
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
class Program : public QProcess
{
public:
    explicit Program(const QStringList& arguments) { start(SIMULATOR_PROGRAM, arguments); }

    QString nextLine()
    {
        const bool isThere = waitUntil([this] { return canReadLine(); }, kPatience);
        return isThere ? QString::fromLocal8Bit(readLine()).trimmed() : QString();
    }
    bool waitForEnd() { return state() == NotRunning || waitForFinished(kPatience); }
};

} // namespace

/// The installation on a real pseudo-terminal, in this process and as a program of its own.
class SimulationTest : public TestCase
{
    Q_OBJECT
private slots:
    void comesBackAfterACut()
    {
        qRegisterMetaType<QSerialPort::SerialPortError>();
        Simulation::Options options = unpaced();
        options.linkPath = m_sandbox->path("port");
        // Left behind by one that was killed.
        QVERIFY(QFile::link("/nowhere", options.linkPath));
        Simulation simulation(twoBoards(), options);
        QCOMPARE(simulation.start(), QString());
        QCOMPARE(QFileInfo(options.linkPath).symLinkTarget(), simulation.portName());
        {
            Master master(simulation.portName());
            master.ask("FE0A73631601");
            QSignalSpy errors(&master.port(), &QSerialPort::errorOccurred);
            simulation.execute(command("cut"));
            QCOMPARE(simulation.portName(), QString());
            QVERIFY(!QFileInfo(options.linkPath).isSymLink());
            QVERIFY(!errors.isEmpty() || errors.wait(kPatience));
            master.port().close();
        }
        QSignalSpy restored(&simulation, &Simulation::restored);
        simulation.execute(command("restore"));
        QCOMPARE(restored.size(), 1);
        QCOMPARE(restored.constFirst().constFirst().toString(), simulation.portName());
        QCOMPARE(QFileInfo(options.linkPath).symLinkTarget(), simulation.portName());
        Master master(options.linkPath);
        // The boards have kept their settings meanwhile.
        QCOMPARE(master.ask("FE0A737201").mid(13, 2), QByteArray("01"));
        QVERIFY(simulation.execute(command("restore")).isEmpty());
        QCOMPARE(restored.size(), 1);
        simulation.execute(command("cut for 0.05"));
        QVERIFY(restored.wait(kPatience));
    }

    void carriesOutTheScenariosEvents()
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

    void writesTheJournal()
    {
        Simulation::Options options = unpaced();
        options.journalPath = m_sandbox->path("journal.txt");
        // Read while the simulation still runs: every line is in the file already.
        const auto lines = [&options] {
            return Sandbox::readFile(options.journalPath).trimmed().split('\n');
        };
        Simulation simulation(twoBoards(), options);
        QCOMPARE(simulation.start(), QString());
        Master master(simulation.portName());
        // What the trainer says, what is asked then, and what the journal has of it.
        const QStringList steps[] = {
            {"losses off", "FE0A737202", ">0A name", "<0A \"One\""},
            {"losses off", "FE0C70", ">0C poll"},
            {"bad-check 0B", "FE0B737804", ">0B firmware", "<0B \"LDB16 V3.21\" [bad check]"},
            {"losses 100 0", "FE0A737202", ">0A name [lost]"},
            {"losses 0 100", "FE0A737202", ">0A name", "<0A \"One\" [lost]"},
            {"losses off"},
            {"flips 100 0", "FE0A737202", ">0A name [flipped bit]"},
            {"flips 0 100", "FE0B70", ">0B poll", "<0B ACK [flipped bit]"},
            {"flips off"},
            {"bad-bus 0 100 3 3", "FE0A70", ">0A poll", "<0A ACK [late 3 ms]"},
            {"cut", "", "# line cut"}};
        QStringList expected;
        for (const QStringList& step : steps) {
            simulation.execute(command(qPrintable(step.first())));
            expected += step.mid(2);
            if (!step.value(1).isEmpty()) {
                master.send(step.at(1).toLatin1());
                WAIT_COMPARE(lines().size(), expected.size());
            }
        }
        QStringList contents;
        double former = 0;
        for (const QByteArray& line : lines()) {
            const QList<QByteArray> columns = line.split('\t');
            QCOMPARE(columns.size(), 6);
            QVERIFY(QDateTime::fromString(columns.at(0), "yyyy-MM-dd hh:mm:ss.zzz").isValid());
            QVERIFY(columns.at(1).toDouble() >= former);
            former = columns.at(1).toDouble();
            contents.append(columns.at(2) + columns.at(3) + ' ' + columns.at(5));
        }
        QCOMPARE(contents, expected);
        QCOMPARE(lines().at(2).split('\t').at(4), QByteArray("01 46 45 30 43 37 30 32 44 04"));
        simulation.execute(command("restore"));
        simulation.execute(command("stray 0.01"));
        WAIT_VERIFY(Sandbox::readFile(options.journalPath).contains("\tstray bytes\n"));
    }

    void tellsWhatItCannotOpen()
    {
        m_sandbox->writeFile("precious", "data");
        for (const char* link : {"precious", "none/link", ""}) {
            Simulation::Options options = unpaced();
            options.linkPath = link;
            options.journalPath = *link == '\0' ? "none/journal" : "";
            QVERIFY2(!Simulation(twoBoards(), options).start().isEmpty(), link);
        }
        QCOMPARE(Sandbox::readFile("precious"), QByteArray("data"));
    }

    void runsAsAProgramUntilToldToEnd_data()
    {
        const Table<QString> row("signal");
        for (const char* signal : {"none", "TERM", "INT", "HUP"}) {
            row(signal, signal);
        }
    }

    void runsAsAProgramUntilToldToEnd()
    {
        QFETCH(QString, signal);
        const QString link = m_sandbox->path("port");
        Program program({"--unpaced", "--link", link});
        const QString portName = program.nextLine();
        QCOMPARE(QFileInfo(link).symLinkTarget(), portName);
        Master master(portName);
        QCOMPARE(master.ask("FEE970"), QByteArray("\x06"));
        program.write("fly\n");
        QCOMPARE(program.nextLine(), "unknown command \"fly\"; try help");
        program.write("vanish E9\nlist\n");
        QVERIFY(program.nextLine().startsWith("03  Boiler house"));
        if (signal == "none") {
            program.write("quit\n");
        } else {
            // The end of its input is not the end of the program.
            program.closeWriteChannel();
            QCOMPARE(master.ask("FE0370"), QByteArray("\x06"));
            const QString id = QString::number(program.processId());
            QCOMPARE(QProcess::execute("kill", {"-" + signal, id}), 0);
        }
        QVERIFY(program.waitForEnd());
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QCOMPARE(program.exitCode(), 0);
        QVERIFY(!QFileInfo(link).isSymLink());
    }

    void refusesWrongArguments()
    {
        m_sandbox->writeFile("bad.json", R"({"ldbs": [{"address": "0A", "fims": "x"}]})");
        const std::pair<const char*, const char*> complaints[] = {
            {"--scenario none", "none: "},
            {"--scenario bad.json", "bad.json: ldbs[0].fims: "},
            {"--seed x", "the seed must be"},
            {"file", "unexpected \"file\""}};
        for (const auto& [arguments, complaint] : complaints) {
            Program program(QString(arguments).split(' '));
            QVERIFY(program.waitForEnd());
            QCOMPARE(program.exitCode(), 2);
            const QByteArray said = program.readAllStandardError();
            QVERIFY2(said.contains(complaint), said.constData());
            QVERIFY(program.readAllStandardOutput().isEmpty());
        }
    }
};

REGISTER_TEST(SimulationTest, QCoreApplication)
#include "tst_simulation.moc"
