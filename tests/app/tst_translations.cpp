#include "tests/support/sandbox.h"
#include "tests/support/testprogram.h"

namespace {

struct Message
{
    QString context;
    QString source;
    // One text, or one a plural form.
    QStringList forms;
    // Empty for a finished one.
    QString type;
    bool isPlural = false;
};

Message readMessage(QXmlStreamReader& xml, const QString& context)
{
    Message message;
    message.context = context;
    message.isPlural = xml.attributes().value("numerus") == "yes";
    while (xml.readNextStartElement()) {
        if (xml.name() == "source") {
            message.source = xml.readElementText();
        } else if (xml.name() == "translation") {
            message.type = xml.attributes().value("type").toString();
            if (!message.isPlural) {
                message.forms.append(xml.readElementText());
                continue;
            }
            while (xml.readNextStartElement()) {
                message.forms.append(xml.readElementText());
            }
        } else {
            xml.skipCurrentElement();
        }
    }
    return message;
}

QList<Message> readCatalogue(const QByteArray& content)
{
    QList<Message> messages;
    QString context;
    QXmlStreamReader xml(content);
    while (!xml.atEnd()) {
        if (!xml.readNext() || !xml.isStartElement()) {
            continue;
        }
        if (xml.name() == "name") {
            context = xml.readElementText();
        } else if (xml.name() == "message") {
            messages.append(readMessage(xml, context));
        }
    }
    if (xml.hasError()) {
        qWarning("the catalogue is broken: %s", qPrintable(xml.errorString()));
    }
    return messages;
}

QString fileName(const QString& language)
{
    return QStringLiteral("TavroCordexSniffer_%1.ts").arg(language);
}

QString cataloguePath(const QString& language)
{
    return QStringLiteral(CATALOGUE_FOLDER "/") + fileName(language);
}

/// What a translation must have in common with its source: the place markers in any order, the
/// line feeds, and the blanks at the ends.
QStringList fixedParts(const QString& text)
{
    static const QRegularExpression marker("%L?\\d+|%n|\n");
    QStringList parts;
    auto matches = marker.globalMatch(text);
    while (matches.hasNext()) {
        parts.append(matches.next().captured());
    }
    parts.sort();
    static const QRegularExpression ends("^(\\s*).*?(\\s*)$",
                                         QRegularExpression::DotMatchesEverythingOption);
    const auto blanks = ends.match(text);
    return parts << blanks.captured(1) << blanks.captured(2);
}

QString describe(const Message& message)
{
    return QStringLiteral("%1: \"%2\" %3").arg(message.context, message.source, message.type);
}

QStringList describeAll(const QList<Message>& messages)
{
    QStringList texts;
    for (const Message& message : messages) {
        texts.append(describe(message));
    }
    return texts;
}

} // namespace

/// The catalogues against the texts in the sources.
class TestTranslations : public TestCase
{
    Q_OBJECT
private slots:
    void holdsTheTextsOfTheSources_data() { addLanguages(); }
    void holdsTheTextsOfTheSources()
    {
        QFETCH(QString, language);
        QFETCH(bool, onlyPlurals);
        const QByteArray kept = Sandbox::readFile(cataloguePath(language));
        m_sandbox->writeFile(fileName(language), kept);

        QStringList arguments = QStringLiteral(LUPDATE_ARGUMENTS).split('|', Qt::SkipEmptyParts);
        if (onlyPlurals) {
            arguments.append("-pluralonly");
        }
        arguments << "-ts" << m_sandbox->path(fileName(language));
        QProcess lupdate;
        lupdate.start(QStringLiteral(LUPDATE), arguments);
        QVERIFY(lupdate.waitForFinished());
        QCOMPARE(lupdate.exitCode(), 0);
        // Texts that would be looked up under another name than they are kept under.
        const QByteArray complaints = lupdate.readAllStandardError();
        QVERIFY2(complaints.isEmpty(), complaints.constData());

        // New and changed texts come back unfinished; those that have gone are left out.
        const QStringList inSources =
            describeAll(readCatalogue(Sandbox::readFile(m_sandbox->path(fileName(language)))));
        const QStringList inCatalogue = describeAll(readCatalogue(kept));
        for (const QString& text : inSources) {
            QVERIFY2(inCatalogue.contains(text),
                     qPrintable(QStringLiteral("not taken in: ") + text));
        }
        for (const QString& text : inCatalogue) {
            QVERIFY2(inSources.contains(text), qPrintable(QStringLiteral("has gone: ") + text));
        }
    }

    void isComplete_data() { addLanguages(); }
    void isComplete()
    {
        QFETCH(QString, language);
        QFETCH(bool, onlyPlurals);
        constexpr int pluralForms = 2;
        const QList<Message> messages = readCatalogue(Sandbox::readFile(cataloguePath(language)));
        QVERIFY(onlyPlurals || !messages.isEmpty());
        for (const Message& message : messages) {
            QVERIFY2(message.type.isEmpty(), qPrintable(describe(message)));
            QVERIFY2(message.forms.size() == (message.isPlural ? pluralForms : 1),
                     qPrintable(describe(message)));
            for (const QString& form : message.forms) {
                QVERIFY2(!form.isEmpty(), qPrintable(describe(message)));
                QVERIFY2(fixedParts(form) == fixedParts(message.source),
                         qPrintable(describe(message)));
            }
        }
    }

private:
    static void addLanguages()
    {
        addColumns<QString, bool>("language", "onlyPlurals");
        QTest::newRow("English") << "English" << true;
        QTest::newRow("Nederlands") << "Nederlands" << false;
        QTest::newRow("Francais") << "Francais" << false;
    }
};

REGISTER_TEST(TestTranslations, QCoreApplication)
#include "tst_translations.moc"
