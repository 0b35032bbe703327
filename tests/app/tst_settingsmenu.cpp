#include "app/preferences/settingsmenu.h"
#include "resources/resources.h"
#include "tests/support/sandbox.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"

#include <QtWidgets>

namespace {

// The program's own keys, written out: a changed key would lose what the user has set.
const QString kPortKey = QStringLiteral("serial/comPort");
const QString kLanguageKey = QStringLiteral("translation/language");
const QString kSoundKey = QStringLiteral("audio/audioWarnings");

QList<PortDetails> twoPorts()
{
    PortDetails first;
    first.name = QStringLiteral("COM1");
    first.description = QStringLiteral("On board");
    first.productIdentifier = quint16{0};
    PortDetails second;
    second.name = QStringLiteral("COM12");
    second.description = QStringLiteral("USB adapter");
    second.manufacturer = QStringLiteral("Maker");
    second.serialNumber = QStringLiteral("A1B2");
    second.systemLocation = QStringLiteral("/dev/ttyUSB0");
    second.vendorIdentifier = quint16{0xABCD};
    second.productIdentifier = quint16{0x6001};
    return {second, first};
}

QList<PortDetails> noPorts()
{
    return {};
}

} // namespace

class TestSettingsMenu : public TestCase
{
    Q_OBJECT
protected slots:
    void init() override;
    void cleanup() override;

private slots:
    void initTestCase() { initResources(); }
    void confirmsPort_data();
    void confirmsPort();
    void cancelStoresNothing();
    void listsLanguages();
    void switchesLanguageAtOnce();
    void unreadableLanguageFallsBackToEnglish();
    void reportsAStoreThatCannotBeWritten();

private:
    std::unique_ptr<SettingsMenu> makeMenu(std::function<QList<PortDetails>()> ports = twoPorts);
    void useTranslations() { m_translations = QStringLiteral(TRANSLATIONS_FOLDER); }
    void makeTranslationFiles(const QStringList& languages);
    void setStored(const QString& key, const QVariant& value);
    QVariant stored(const QString& key) const;

    std::unique_ptr<Sandbox> m_sandbox;
    QString m_translations;
};

namespace {

QComboBox* portBox(const SettingsMenu& menu)
{
    return menu.findChild<QComboBox*>(QStringLiteral("portComboBox"));
}
QComboBox* languageBox(const SettingsMenu& menu)
{
    return menu.findChild<QComboBox*>(QStringLiteral("languageComboBox"));
}
QCheckBox* soundBox(const SettingsMenu& menu)
{
    return menu.findChild<QCheckBox*>(QStringLiteral("soundWarningsCheckBox"));
}
QPushButton* button(const SettingsMenu& menu, const char* name)
{
    return menu.findChild<QPushButton*>(QString::fromLatin1(name));
}
QString labelText(const SettingsMenu& menu, const char* name)
{
    return menu.findChild<QLabel*>(QString::fromLatin1(name))->text();
}
QStringList itemTexts(const QComboBox* box)
{
    QStringList texts;
    for (int i = 0; i < box->count(); ++i) {
        texts.append(box->itemText(i));
    }
    return texts;
}

} // namespace

void TestSettingsMenu::init()
{
    TestCase::init();
    m_sandbox = std::make_unique<Sandbox>();
    m_translations = m_sandbox->path(QStringLiteral("translations"));
}

void TestSettingsMenu::cleanup()
{
    m_sandbox.reset();
    TestCase::cleanup();
}

std::unique_ptr<SettingsMenu> TestSettingsMenu::makeMenu(std::function<QList<PortDetails>()> ports)
{
    SettingsSources sources;
    sources.ports = std::move(ports);
    sources.translationsFolder = m_translations;
    auto menu = std::make_unique<SettingsMenu>(nullptr, sources);
    menu->show();
    return menu;
}

void TestSettingsMenu::makeTranslationFiles(const QStringList& languages)
{
    QVERIFY(QDir().mkpath(m_translations));
    for (const QString& language : languages) {
        m_sandbox->writeFile(QStringLiteral("translations/TavroCordexSniffer_%1.qm").arg(language),
                             QByteArray());
    }
}

void TestSettingsMenu::setStored(const QString& key, const QVariant& value)
{
    if (!value.toString().isEmpty()) {
        QSettings(QStringLiteral("Velmark"), QStringLiteral("Tavro Cordex Sniffer"))
            .setValue(key, value);
    }
}

QVariant TestSettingsMenu::stored(const QString& key) const
{
    return QSettings(QStringLiteral("Velmark"), QStringLiteral("Tavro Cordex Sniffer")).value(key);
}

void TestSettingsMenu::confirmsPort_data()
{
    // Null leaves the box as it came up.
    addColumns<bool, QString, QString, QString, QString, bool>(
        "portsThere", "storedPort", "offered", "typed", "storedAfter", "told");
    const auto row = [](const char* situation, bool portsThere, const char* storedPort,
                        const char* offered, const char* typed, const char* storedAfter,
                        bool told) {
        QTest::newRow(situation) << portsThere << QString::fromLatin1(storedPort)
                                 << QString::fromLatin1(offered) << QString::fromLatin1(typed)
                                 << QString::fromLatin1(storedAfter) << told;
    };
    const char* none = "No ComPorts found";
    row("first port, never stored", true, nullptr, "COM1", nullptr, "COM1", true);
    row("same port", true, "COM12", "COM12", nullptr, "COM12", false);
    row("another port", true, "COM1", "COM1", "COM12", "COM12", true);
    row("other letter case", true, "com1", "com1", "COM1", "COM1", true);
    row("blanks around", true, "COM1", "COM1", " /tmp/bus ", "/tmp/bus", true);
    row("adapter unplugged", true, "COM7", "COM7", nullptr, "COM7", false);
    row("emptied", true, "COM1", "COM1", "  ", "COM1", false);
    row("no ports, one stored", false, "COM1", "COM1", nullptr, "COM1", false);
    row("placeholder, never stored", false, nullptr, none, nullptr, nullptr, false);
    row("placeholder over a stored one", false, "COM1", "COM1", none, "COM1", false);
    row("the text for no port", false, nullptr, none, "Unknown COM port", nullptr, false);
}

void TestSettingsMenu::confirmsPort()
{
    QFETCH(bool, portsThere);
    QFETCH(QString, storedPort);
    QFETCH(QString, typed);
    QFETCH(QString, storedAfter);
    QFETCH(bool, told);
    setStored(kPortKey, storedPort);
    const auto menu = makeMenu(portsThere ? twoPorts : noPorts);
    QTEST(portBox(*menu)->currentText(), "offered");
    if (!typed.isNull()) {
        portBox(*menu)->lineEdit()->selectAll();
        portBox(*menu)->lineEdit()->del();
        QTest::keyClicks(portBox(*menu)->lineEdit(), typed);
    }
    const QSignalSpy updates(menu.get(), &SettingsMenu::comPortUpdated);
    QTest::mouseClick(button(*menu, "okButton"), Qt::LeftButton);
    QVERIFY(!menu->isVisible());
    QCOMPARE(stored(kPortKey).toString(), storedAfter);
    QCOMPARE(stored(kPortKey).isValid(), !storedAfter.isEmpty());
    QCOMPARE(updates.count(), told ? 1 : 0);
    if (told) {
        QCOMPARE(updates.first().first().toString(), storedAfter);
        QCOMPARE(menu->getComPort(), storedAfter);
    }
}

void TestSettingsMenu::cancelStoresNothing()
{
    makeTranslationFiles({QStringLiteral("Deutsch"), QStringLiteral("English")});
    setStored(kPortKey, QStringLiteral("COM1"));
    const auto menu = makeMenu();
    const QSignalSpy updates(menu.get(), &SettingsMenu::comPortUpdated);
    portBox(*menu)->setCurrentIndex(1);
    soundBox(*menu)->setChecked(true);
    languageBox(*menu)->setCurrentIndex(0);
    QTest::mouseClick(button(*menu, "cancelButton"), Qt::LeftButton);
    QVERIFY(!menu->isVisible());
    QCOMPARE(stored(kPortKey).toString(), QStringLiteral("COM1"));
    QVERIFY(!stored(kSoundKey).isValid());
    QVERIFY(!stored(kLanguageKey).isValid());
    QCOMPARE(updates.count(), 0);

    // What was turned down does not wait there for the next OK.
    menu->show();
    QCOMPARE(portBox(*menu)->currentText(), QStringLiteral("COM1"));
    QVERIFY(!soundBox(*menu)->isChecked());
    QCOMPARE(languageBox(*menu)->currentText(), QStringLiteral("English"));
}

void TestSettingsMenu::listsLanguages()
{
    const auto without = makeMenu();
    QCOMPARE(itemTexts(languageBox(*without)),
             QStringList{QStringLiteral("No language file found")});
    without->on_okButton_clicked();
    QVERIFY(!stored(kLanguageKey).isValid());

    makeTranslationFiles({QStringLiteral("Nederlands"), QStringLiteral("Deutsch"),
                          QStringLiteral("new_Francais"), QStringLiteral("English")});
    m_sandbox->writeFile(QStringLiteral("translations/Other_Svenska.qm"), QByteArray());
    m_sandbox->writeFile(QStringLiteral("translations/TavroCordexSniffer_Suomi.ts"), QByteArray());
    const auto menu = makeMenu();
    const QComboBox* box = languageBox(*menu);
    QCOMPARE(itemTexts(box),
             (QStringList{QStringLiteral("Deutsch"), QStringLiteral("English"),
                          QStringLiteral("Nederlands"), QStringLiteral("Francais")}));
    // No flag is no icon, not a broken one.
    const QSize flagSize(24, 16);
    QVERIFY(box->itemIcon(0).pixmap(flagSize).isNull());
    for (int i = 1; i < box->count(); ++i) {
        QVERIFY2(!box->itemIcon(i).pixmap(flagSize).isNull(), qPrintable(box->itemText(i)));
    }
    QCOMPARE(box->currentText(), QStringLiteral("English"));
}

void TestSettingsMenu::switchesLanguageAtOnce()
{
    const auto standardText = [] {
        return QDialogButtonBox(QDialogButtonBox::Cancel).button(QDialogButtonBox::Cancel)->text();
    };
    const QString english = standardText();
    useTranslations();
    setStored(kLanguageKey, QStringLiteral("Francais"));
    auto menu = makeMenu();
    QCOMPARE(button(*menu, "cancelButton")->text(), QStringLiteral("Annuler"));
    QCOMPARE(menu->getComPort(), QStringLiteral("Port COM inconnu"));
    QVERIFY(standardText() != english);
    const struct
    {
        const char* language;
        const char* cancel;
        const char* description;
    } steps[] = {{"English", "Cancel", "Description: USB adapter"},
                 {"Nederlands", "Annuleren", "Omschrijving: USB adapter"}};
    for (const auto& step : steps) {
        portBox(*menu)->setCurrentIndex(1);
        languageBox(*menu)->setCurrentText(QString::fromLatin1(step.language));
        menu->on_okButton_clicked();
        QCoreApplication::sendPostedEvents();
        const QString cancel = QString::fromLatin1(step.cancel);
        QCOMPARE(button(*menu, "cancelButton")->text(), cancel);
        QCOMPARE(labelText(*menu, "descriptionLabel"), QString::fromLatin1(step.description));
        QVERIFY2(standardText().contains(cancel), qPrintable(standardText()));
    }
    // With the dialog its languages go.
    menu.reset();
    QCOMPARE(standardText(), english);
}

void TestSettingsMenu::unreadableLanguageFallsBackToEnglish()
{
    makeTranslationFiles({QStringLiteral("Deutsch")});
    QVERIFY(QFile::copy(QStringLiteral(TRANSLATIONS_FOLDER "/TavroCordexSniffer_Nederlands.qm"),
                        m_translations + QStringLiteral("/TavroCordexSniffer_Nederlands.qm")));
    setStored(kLanguageKey, QStringLiteral("Nederlands"));
    const auto menu = makeMenu();
    QCOMPARE(button(*menu, "cancelButton")->text(), QStringLiteral("Annuleren"));
    languageBox(*menu)->setCurrentText(QStringLiteral("Deutsch"));
    menu->on_okButton_clicked();
    QCoreApplication::sendPostedEvents();
    QCOMPARE(button(*menu, "cancelButton")->text(), QStringLiteral("Cancel"));
}

void TestSettingsMenu::reportsAStoreThatCannotBeWritten()
{
    // A file where the folder of the settings would have to be.
    m_sandbox->writeFile(QStringLiteral("Velmark"), QByteArray());
    const auto menu = makeMenu();
    const QSignalSpy updates(menu.get(), &SettingsMenu::comPortUpdated);
    const ExpectWarning expected("serial/comPort cannot be stored|audio/audioWarnings cannot");
    menu->on_okButton_clicked();
    // For this run the choice holds.
    QCOMPARE(updates.count(), 1);
}

REGISTER_TEST(TestSettingsMenu, QApplication)
#include "tst_settingsmenu.moc"
