#include "simulator/program/commandconsole.h"
#include "simulator/program/simulation.h"
#include "simulator/program/terminationsignals.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>
#include <unistd.h>

namespace {

// Exit codes.
constexpr int kFailed = 1;
constexpr int kWrongUse = 2;

void complain(const QString& text)
{
    std::fprintf(stderr, "ldb-simulator: %s\n", qPrintable(text));
}

struct CommandLine
{
    QString scenarioPath;
    Simulation::Options options;
    QString error;
};

CommandLine parseCommandLine(const QStringList& arguments)
{
    const QCommandLineOption scenario(QStringLiteral("scenario"),
                                      QStringLiteral("Simulate the installation in this file."),
                                      QStringLiteral("FILE.json"));
    const QCommandLineOption link(QStringLiteral("link"),
                                  QStringLiteral("Give the port this name, too."),
                                  QStringLiteral("PATH"));
    const QCommandLineOption journal(QStringLiteral("journal"),
                                     QStringLiteral("Write every request and answer to this file."),
                                     QStringLiteral("FILE"));
    const QCommandLineOption seed(QStringLiteral("seed"),
                                  QStringLiteral("Seed of everything that is left to chance."),
                                  QStringLiteral("NUMBER"));
    const QCommandLineOption unpaced(
        QStringLiteral("unpaced"),
        QStringLiteral("Answer at once instead of at the pace of a 9600-baud line."));
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("A bus of loop drive boards on a pseudo-terminal. The first line of output "
                       "is the port to open; type \"help\" for the commands."));
    parser.addHelpOption();
    parser.addOptions({scenario, link, journal, seed, unpaced});
    parser.process(arguments);

    CommandLine result;
    result.scenarioPath = parser.value(scenario);
    result.options.linkPath = parser.value(link);
    result.options.journalPath = parser.value(journal);
    if (parser.isSet(unpaced)) {
        result.options.pace = Simulation::Pace::Unpaced;
    }
    if (parser.isSet(seed)) {
        bool isNumber = false;
        result.options.seed = parser.value(seed).toUInt(&isNumber);
        if (!isNumber) {
            result.error = QStringLiteral("the seed must be a whole number");
        }
    }
    if (!parser.positionalArguments().isEmpty()) {
        result.error =
            QStringLiteral("unexpected \"%1\"").arg(parser.positionalArguments().constFirst());
    }
    return result;
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const CommandLine commandLine = parseCommandLine(QCoreApplication::arguments());
    if (!commandLine.error.isEmpty()) {
        complain(commandLine.error);
        return kWrongUse;
    }
    Scenario scenario;
    if (commandLine.scenarioPath.isEmpty()) {
        scenario = defaultScenario();
    } else {
        ScenarioReading reading = readScenarioFile(commandLine.scenarioPath);
        if (!reading.scenario) {
            complain(QStringLiteral("%1: %2").arg(commandLine.scenarioPath, reading.error));
            return kWrongUse;
        }
        scenario = std::move(*reading.scenario);
    }

    const TerminationSignals terminationSignals;
    Simulation simulation(scenario, commandLine.options);
    QObject::connect(&terminationSignals, &TerminationSignals::received, &application,
                     &QCoreApplication::quit);
    // Queued: an event at the very start may ask for it before the loop runs.
    QObject::connect(&simulation, &Simulation::quitRequested, &application, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    QObject::connect(&simulation, &Simulation::restored, &application, &CommandConsole::print);
    const QString error = simulation.start();
    if (!error.isEmpty()) {
        complain(error);
        return kFailed;
    }
    CommandConsole::print(simulation.portName());
    const CommandConsole console(STDIN_FILENO, simulation);
    return QCoreApplication::exec();
}
