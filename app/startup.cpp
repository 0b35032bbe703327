#include "app/startup.h"

#include "app/preferences/languageloader.h"
#include "app/shared/constants.h"

#include <QByteArray>
#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTime>
#include <QTranslator>

#include <cstdlib>
#include <iostream>

namespace {

// The number of tabs differs so that the texts line up below each other.
QString bodyTemplate(QtMsgType type)
{
    constexpr const char* kTemplates[] = {"{Debug} \t\t %1", "{Warning} \t %1", "{Critical} \t %1",
                                          "{Fatal} \t\t %1",
                                          "{Info} \t\t %1"}; // in the order of the enumerators
    return QLatin1String(kTemplates[type]);
}

QString line(const QString& subject, const QStringList& found, const QString& folder)
{
    const QString what =
        found.isEmpty() ? QStringLiteral("none") : found.join(QStringLiteral(", "));
    return QStringLiteral("%1: %2 in %3").arg(subject, what, QDir::toNativeSeparators(folder));
}

/// The files of a folder beside the program.
QString companionsLine(const QString& subject, const QString& folderName)
{
    const QDir folder(QDir(QCoreApplication::applicationDirPath()).filePath(folderName));
    return line(subject, folder.entryList(QDir::Files, QDir::Name), folder.path());
}

/// A file that may not be read counts as none, here and below.
QString languagesLine()
{
    QObject owner;
    const QString folder = LanguageLoader::defaultFolder();
    QStringList loadable;
    for (const QString& language : LanguageLoader(folder, &owner).available()) {
        if (QTranslator().load(constants::kTranslationFileTemplate.arg(language), folder)) {
            loadable.append(language);
        }
    }
    return line(QStringLiteral("Languages"), loadable, folder);
}

QString tuningLine()
{
    const bool readable = QFileInfo(constants::kTuningFileName).isReadable();
    return line(QStringLiteral("Tuning file"),
                readable ? QStringList{constants::kTuningFileName} : QStringList(),
                QDir::currentPath());
}

} // namespace

QString messageLine(QtMsgType type, const QTime& time, const QString& message)
{
    return QStringLiteral("[%1] ").arg(time.toString(QStringLiteral("hh:mm:ss"))) +
           bodyTemplate(type).arg(message) + QLatin1Char('\n');
}

void messageHandler(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    Q_UNUSED(context)
    const QByteArray line = messageLine(type, QTime::currentTime(), message).toUtf8();
    if (type == QtFatalMsg) {
        std::abort();
    }
    // One write a line, so that lines of two threads never mix.
    std::cout.write(line.constData(), line.size());
    std::cout.flush();
}

void setPlatformAttributes()
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    // Every window is painted by the processor alone. Without this Qt loads the graphics driver
    // for the first of them, which takes longer than all else up to its first sight.
    QCoreApplication::setAttribute(Qt::AA_ForceRasterWidgets);
}

void setNames()
{
    QCoreApplication::setOrganizationName(constants::kOrganisationName);
    QCoreApplication::setApplicationName(constants::kApplicationName);
}

QString recordingToOpen(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(constants::kApplicationDisplayName);
    parser.addHelpOption();
    const QCommandLineOption recording(
        QStringLiteral("recording"),
        QStringLiteral("Look back at a recording: a file, or a folder of days."),
        QStringLiteral("PATH"));
    parser.addOption(recording);
    // Known for its help; it is answered before there is a window.
    parser.addOption({QStringLiteral("version"),
                      QStringLiteral("Print what the program is and which files it finds.")});
    parser.process(arguments);
    return parser.value(recording);
}

QStringList installationReport()
{
    return {QStringLiteral("%1 %2").arg(constants::kApplicationDisplayName,
                                        constants::kApplicationVersion),
            languagesLine(), companionsLine(QStringLiteral("Licenses"), constants::kLicensesFolder),
            companionsLine(QStringLiteral("Manual"), constants::kManualFolder), tuningLine()};
}
