#include "app/preferences/settingsmenu.h"
#include "resources/resources.h"
#include "tests/support/sandbox.h"
#include "tests/support/testprogram.h"
#include "tests/support/views.h"

#include <QtWidgets>

namespace {

// The program's own keys, written out: a changed key would lose what the user has set.
const QString kPortKey = "serial/comPort";
const QString kLanguageKey = "translation/language";
const QString kSoundKey = "audio/audioWarnings";

QList<PortDetails> twoPorts()
{
    PortDetails first;
    first.name = "COM1";
    first.description = "On board";
    first.productIdentifier = quint16{0};
    PortDetails second;
    second.name = "COM12";
    second.description = "USB adapter";
    second.manufacturer = "Maker";
    second.serialNumber = "A1B2";
    second.systemLocation = "/dev/ttyUSB0";
    second.vendorIdentifier = quint16{0xABCD};
    second.productIdentifier = quint16{0x6001};
    return {second, first};
}

QList<PortDetails> noPorts()
{
    return {};
}

/// The dialog with its parts.
class Menu : public SettingsMenu
{
public:
    Menu(const QString& translations, std::function<QList<PortDetails>()> ports)
        : SettingsMenu(nullptr, {std::move(ports), translations})
    {
        show();
    }
    QPushButton& cancel = *findChild<QPushButton*>("cancelButton");
    QPushButton& ok = *findChild<QPushButton*>("okButton");
    QComboBox& port = *findChild<QComboBox*>("portComboBox");
    QComboBox& language = *findChild<QComboBox*>("languageComboBox");
    QCheckBox& sound = *findChild<QCheckBox*>("soundWarningsCheckBox");
    QLabel& description = *findChild<QLabel*>("descriptionLabel");
};

} // namespace

class TestSettingsMenu : public TestCase
{
    Q_OBJECT
protected slots:
    void init() override
    {
        TestCase::init();
        m_translations = m_sandbox->path("translations");
    }

private slots:
    void initTestCase() { initResources(); }
    void confirmsPort_data()
    {
        // Null leaves the box as it came up.
        addColumns<bool, QString, QString, QString, QString, bool>(
            "portsThere", "storedPort", "offered", "typed", "storedAfter", "told");
        const auto row = [](const char* situation, bool portsThere, const char* storedPort,
                            const char* offered, const char* typed, const char* storedAfter,
                            bool told) {
            QTest::newRow(situation)
                << portsThere << storedPort << offered << typed << storedAfter << told;
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

    void confirmsPort()
    {
        QFETCH(bool, portsThere);
        QFETCH(QString, storedPort);
        QFETCH(QString, typed);
        QFETCH(QString, storedAfter);
        QFETCH(bool, told);
        setStored(kPortKey, storedPort);
        const auto menu = makeMenu(portsThere ? twoPorts : noPorts);
        QTEST(menu->port.currentText(), "offered");
        if (!typed.isNull()) {
            menu->port.lineEdit()->selectAll();
            menu->port.lineEdit()->del();
            QTest::keyClicks(menu->port.lineEdit(), typed);
        }
        const QSignalSpy updates(menu.get(), &SettingsMenu::comPortUpdated);
        QTest::mouseClick(&menu->ok, Qt::LeftButton);
        QVERIFY(!menu->isVisible());
        QCOMPARE(stored(kPortKey).toString(), storedAfter);
        QCOMPARE(stored(kPortKey).isValid(), !storedAfter.isEmpty());
        QCOMPARE(updates.count(), told ? 1 : 0);
        if (told) {
            QCOMPARE(updates.first().first().toString(), storedAfter);
            QCOMPARE(menu->getComPort(), storedAfter);
        }
    }

    void cancelStoresNothing()
    {
        makeTranslationFiles({"Deutsch", "English"});
        setStored(kPortKey, "COM1");
        const auto menu = makeMenu();
        const QSignalSpy updates(menu.get(), &SettingsMenu::comPortUpdated);
        menu->port.setCurrentIndex(1);
        menu->sound.setChecked(true);
        menu->language.setCurrentIndex(0);
        QTest::mouseClick(&menu->cancel, Qt::LeftButton);
        QVERIFY(!menu->isVisible());
        QCOMPARE(stored(kPortKey).toString(), "COM1");
        QVERIFY(!stored(kSoundKey).isValid());
        QVERIFY(!stored(kLanguageKey).isValid());
        QCOMPARE(updates.count(), 0);

        // What was turned down does not wait there for the next OK.
        menu->show();
        QCOMPARE(menu->port.currentText(), "COM1");
        QVERIFY(!menu->sound.isChecked());
        QCOMPARE(menu->language.currentText(), "English");
    }

    void listsLanguages()
    {
        const auto without = makeMenu();
        QCOMPARE(columnTexts(*without->language.model()), QStringList{"No language file found"});
        without->on_okButton_clicked();
        QVERIFY(!stored(kLanguageKey).isValid());

        makeTranslationFiles({"Nederlands", "Deutsch", "new_Francais", "English"});
        m_sandbox->writeFile("translations/Other_Svenska.qm", QByteArray());
        m_sandbox->writeFile("translations/TavroCordexSniffer_Suomi.ts", QByteArray());
        const auto menu = makeMenu();
        const QComboBox* box = &menu->language;
        QCOMPARE(columnTexts(*box->model()),
                 (QStringList{"Deutsch", "English", "Nederlands", "Francais"}));
        // No flag is no icon, not a broken one.
        const QSize flagSize(24, 16);
        QVERIFY(box->itemIcon(0).pixmap(flagSize).isNull());
        for (int i = 1; i < box->count(); ++i) {
            QVERIFY2(!box->itemIcon(i).pixmap(flagSize).isNull(), qPrintable(box->itemText(i)));
        }
        QCOMPARE(box->currentText(), "English");
    }

    void switchesLanguageAtOnce()
    {
        const auto standardText = [] {
            return QDialogButtonBox(QDialogButtonBox::Cancel)
                .button(QDialogButtonBox::Cancel)
                ->text();
        };
        const QString english = standardText();
        useTranslations();
        setStored(kLanguageKey, "Francais");
        auto menu = makeMenu();
        QCOMPARE(menu->cancel.text(), "Annuler");
        QCOMPARE(menu->getComPort(), "Port COM inconnu");
        QVERIFY(standardText() != english);
        const struct
        {
            const char* language;
            const char* cancel;
            const char* description;
        } steps[] = {{"English", "Cancel", "Description: USB adapter"},
                     {"Nederlands", "Annuleren", "Omschrijving: USB adapter"}};
        for (const auto& step : steps) {
            menu->port.setCurrentIndex(1);
            menu->language.setCurrentText(QString::fromLatin1(step.language));
            menu->on_okButton_clicked();
            QCoreApplication::sendPostedEvents();
            const QString cancel = QString::fromLatin1(step.cancel);
            QCOMPARE(menu->cancel.text(), cancel);
            QCOMPARE(menu->description.text(), QString::fromLatin1(step.description));
            QVERIFY2(standardText().contains(cancel), qPrintable(standardText()));
        }
        // With the dialog its languages go.
        menu.reset();
        QCOMPARE(standardText(), english);
    }

    void unreadableLanguageFallsBackToEnglish()
    {
        makeTranslationFiles({"Deutsch"});
        QVERIFY(QFile::copy(QStringLiteral(TRANSLATIONS_FOLDER "/TavroCordexSniffer_Nederlands.qm"),
                            m_translations + "/TavroCordexSniffer_Nederlands.qm"));
        setStored(kLanguageKey, "Nederlands");
        const auto menu = makeMenu();
        QCOMPARE(menu->cancel.text(), "Annuleren");
        menu->language.setCurrentText("Deutsch");
        menu->on_okButton_clicked();
        QCoreApplication::sendPostedEvents();
        QCOMPARE(menu->cancel.text(), "Cancel");
    }

    void reportsAStoreThatCannotBeWritten()
    {
        // A file where the folder of the settings would have to be.
        m_sandbox->writeFile("Velmark", QByteArray());
        const auto menu = makeMenu();
        const QSignalSpy updates(menu.get(), &SettingsMenu::comPortUpdated);
        const ExpectWarning expected(
            "(serial/comPort|serial/knownStart|audio/audioWarnings) cannot");
        menu->on_okButton_clicked();
        // For this run the choice holds.
        QCOMPARE(updates.count(), 1);
    }

private:
    std::unique_ptr<Menu> makeMenu(std::function<QList<PortDetails>()> ports = twoPorts) const
    {
        return std::make_unique<Menu>(m_translations, std::move(ports));
    }
    void useTranslations() { m_translations = QStringLiteral(TRANSLATIONS_FOLDER); }
    void makeTranslationFiles(const QStringList& languages)
    {
        QVERIFY(QDir().mkpath(m_translations));
        for (const QString& language : languages) {
            m_sandbox->writeFile(
                QStringLiteral("translations/TavroCordexSniffer_%1.qm").arg(language),
                QByteArray());
        }
    }

    void setStored(const QString& key, const QVariant& value)
    {
        if (!value.toString().isEmpty()) {
            QSettings("Velmark", "Tavro Cordex Sniffer").setValue(key, value);
        }
    }

    QVariant stored(const QString& key) const
    {
        return QSettings("Velmark", "Tavro Cordex Sniffer").value(key);
    }

    QString m_translations;
};

REGISTER_TEST(TestSettingsMenu, QApplication)
#include "tst_settingsmenu.moc"
