#include "history/formersettings.h"
#include "tests/support/sandbox.h"
#include "tests/support/testprogram.h"

namespace {

LdbSettings settings(int address)
{
    LdbSettings settings;
    settings.address = address;
    settings.name = QString::fromUtf8("Halle \"S\xC3\xBC"
                                      "d\"");
    settings.nameBytes = "Halle \"S\xFC"
                         "d\""; // of another encoding than this computer's
    settings.startInServiceMode = true;
    settings.audioMute = true;
    settings.openDetectionDelay = 65535;
    settings.numberOfFims = 300;
    settings.furtherByte = 0xA5;
    return settings;
}

FormerSettings former(const QDateTime& at)
{
    return {at, FormerSettings::Occasion::Import, "Device List.csv", {settings(1), settings(253)}};
}

const QDateTime kAt(QDate(2026, 3, 4), QTime(5, 6, 7, 890), Qt::UTC);

} // namespace

class TestFormerSettings : public TestCase
{
    Q_OBJECT
private slots:
    void keepsAllThatIsNeededToPutItBack()
    {
        const Sandbox folder;
        QCOMPARE(FormerSettingsStore(folder.path("new/one")).keep(former(kAt)), QString());
        const auto all = FormerSettingsStore(folder.path("new/one")).all();
        QCOMPARE(all.size(), std::size_t(1));
        QCOMPARE(all[0].at, kAt);
        QCOMPARE(all[0].occasion, FormerSettings::Occasion::Import);
        QCOMPARE(all[0].note, "Device List.csv");
        QCOMPARE(all[0].ldbs.size(), std::size_t(2));
        const LdbSettings& last = all[0].ldbs[1];
        QCOMPARE(last.address, 253);
        QCOMPARE(last.name, settings(253).name);
        QCOMPARE(last.nameBytes, settings(253).nameBytes);
        QCOMPARE(encodeFlags(last), encodeFlags(settings(253)));
        QVERIFY(last.audioMute);
        QCOMPARE(last.openDetectionDelay, quint16(65535));
        QCOMPARE(last.numberOfFims, quint16(300));
        QCOMPARE(last.furtherByte, quint8(0xA5));
    }

    void keepsEachAndTellsTheLatestFirst()
    {
        const Sandbox folder;
        const FormerSettingsStore store(folder.path("."));
        QVERIFY(store.all().empty());
        // Two in one millisecond do not take each other's place.
        for (const QDateTime& at : {kAt, kAt.addSecs(60), kAt}) {
            QCOMPARE(store.keep(former(at)), QString());
        }
        const auto all = store.all();
        QCOMPARE(all.size(), std::size_t(3));
        QCOMPARE(all[0].at, kAt.addSecs(60));
        QCOMPARE(all[2].at, kAt);
    }

    void halfOfItIsNone()
    {
        const Sandbox folder;
        const FormerSettingsStore store(folder.path("."));
        QCOMPARE(store.keep(former(kAt)), QString());
        const QString name = QDir().entryList({"*.json"}).constFirst();
        QByteArray content = Sandbox::readFile(folder.path(name));
        folder.writeFile("installation.json", "{}"); // another's, and no reason to warn
        QCOMPARE(store.all().size(), std::size_t(1));
        folder.writeFile("2026-01-02_03-04-05-678.json", content.left(content.size() / 2));
        folder.writeFile("2026-01-02_03-04-05-679.json",
                         content.replace("\"openDetectionDelay\"", "\"delay\""));
        const ExpectWarning warning("cannot be understood");
        QCOMPARE(store.all().size(), std::size_t(1));
    }

    void saysWhatCannotBeKept()
    {
        const QString error = FormerSettingsStore("/proc/none").keep(former(kAt));
        QVERIFY2(error.startsWith("The folder /proc/none"), qPrintable(error));
    }
};

REGISTER_TEST(TestFormerSettings, QCoreApplication)
#include "tst_formersettings.moc"
