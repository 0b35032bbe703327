#include "app/installationreport.h"

#include "app/settings/languageloader.h"
#include "app/shared/constants.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTranslator>

namespace {

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

QStringList installationReport()
{
    return {QStringLiteral("%1 %2").arg(constants::kApplicationDisplayName,
                                        constants::kApplicationVersion),
            languagesLine(), companionsLine(QStringLiteral("Licenses"), constants::kLicensesFolder),
            companionsLine(QStringLiteral("Manual"), constants::kManualFolder), tuningLine()};
}
