#include "app/preferences/languageloader.h"

#include "app/shared/constants.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

LanguageLoader::LanguageLoader(QString folder, QObject* owner)
    : m_folder(std::move(folder))
    , m_standardTexts(new QTranslator(owner))
    , m_translator(new QTranslator(owner))
{
}

QString LanguageLoader::defaultFolder()
{
    return QStringLiteral("%1/%2").arg(QCoreApplication::applicationDirPath(),
                                       constants::kTranslationsFolder);
}

QString LanguageLoader::languageOf(const QString& fileName)
{
    const QString baseName = fileName.left(fileName.lastIndexOf(QLatin1Char('.')));
    return baseName.mid(baseName.lastIndexOf(QLatin1Char('_')) + 1);
}

QStringList LanguageLoader::available() const
{
    const QString pattern = constants::kTranslationFileTemplate.arg(QStringLiteral("*"));
    const QStringList files = QDir(m_folder).entryList({pattern}, QDir::Files, QDir::Name);
    QStringList languages;
    for (const QString& file : files) {
        languages.append(languageOf(file));
    }
    return languages;
}

void LanguageLoader::load(const QString& language)
{
    if (language == m_current) {
        return;
    }
    m_current = language;
    QCoreApplication::removeTranslator(m_translator);
    QCoreApplication::removeTranslator(m_standardTexts);
    const bool loaded =
        m_translator->load(constants::kTranslationFileTemplate.arg(language), m_folder);
    // Installed first, so that the program's own texts go before.
    // A language that Qt does not have leaves its dialogs in English.
    if (loaded && m_standardTexts->load(QLocale(m_translator->language()), QStringLiteral("qtbase"),
                                        QStringLiteral("_"),
                                        QLibraryInfo::location(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(m_standardTexts);
    }
    QCoreApplication::installTranslator(m_translator);
}
