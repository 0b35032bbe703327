#include "app/startup.h"
#include "docs/screenshots/scenes.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>

int main(int argc, char* argv[])
{
    setPlatformAttributes();
    const QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Takes the manual's pictures from the program at work."));
    const QCommandLineOption simulator(QStringLiteral("simulator"),
                                       QStringLiteral("The simulator."), QStringLiteral("FILE"));
    const QCommandLineOption project(QStringLiteral("project"),
                                     QStringLiteral("The project's folder."),
                                     QStringLiteral("FOLDER"));
    const QCommandLineOption output(QStringLiteral("output"),
                                    QStringLiteral("Where the pictures go."),
                                    QStringLiteral("FOLDER"));
    parser.addOptions({simulator, project, output});
    parser.addPositionalArgument(QStringLiteral("scene"),
                                 QStringLiteral("What to show, with its parameters."));
    parser.addHelpOption();
    parser.process(application);

    const QDir folder(QDir(parser.value(project)).absolutePath());
    const Stage::Options options{QDir().absoluteFilePath(parser.value(simulator)),
                                 folder.filePath(QStringLiteral("simulator/scenarios")),
                                 folder.filePath(QStringLiteral("settings.ini")),
                                 QDir().absoluteFilePath(parser.value(output))};
    if (!playScene(options, parser.positionalArguments())) {
        parser.showHelp(2);
    }
    return 0;
}
