#pragma once

#include <QStringList>

class QObject;
class QTranslator;

/// Finds the program's translation files and puts one language at a time in force, for the
/// program's own texts and for those of Qt's standard dialogs. GUI thread.
class LanguageLoader
{
public:
    /// `folder`: where the translation files are, absolute. `owner` becomes the parent of the
    /// translators, which stay in force until it dies.
    LanguageLoader(QString folder, QObject* owner);

    /// The folder beside the program.
    static QString defaultFolder();
    /// The language of a translation file's name: what stands between the last "_" and the last
    /// ".".
    static QString languageOf(const QString& fileName);

    /// The languages that have a file, in alphabetical order.
    QStringList available() const;
    /// The language asked for last, whether or not it had a file; empty before the first.
    QString current() const { return m_current; }
    /// Puts `language` in force; nothing happens when it is so already. Without a readable file the
    /// texts are those of the sources, English. All windows get a language change event.
    void load(const QString& language);

private:
    QString m_folder;
    QTranslator* m_standardTexts;
    QTranslator* m_translator;
    QString m_current;
};
