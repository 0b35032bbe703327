#include "history/keptldbs.h"
#include "tests/support/sandbox.h"
#include "tests/support/testprogram.h"

Q_DECLARE_METATYPE(KeptMatch)

namespace {

const QDateTime kBegun(QDate(2026, 3, 4), QTime(5, 6, 7, 890), Qt::UTC);

LdbSettings settings()
{
    LdbSettings settings;
    settings.address = 0x10;
    settings.name = QString::fromUtf8("Halle \"Süd\"");
    settings.earthWireOpenDetection = true;
    settings.audioMute = true;
    settings.openDetectionDelay = 25;
    settings.numberOfFims = 300;
    settings.furtherByte = 0xA5;
    return settings;
}

KeptLdb ldb(const QString& hexId, const QString& name)
{
    return {hexId, name, kBegun, false, settings()};
}

} // namespace

/// What is kept of LDBs until it is put back.
class TestKeptLdbs : public TestCase
{
    Q_OBJECT
private slots:
    void keepsAllThatIsNeededToPutItBack()
    {
        const Sandbox folder;
        KeptLdbs(folder.path("new/one")).keep(ldb("10", settings().name));
        const auto kept = KeptLdbs(folder.path("new/one")).find("10", settings().name);
        QVERIFY(kept && kept->settings);
        QCOMPARE(kept->since, kBegun);
        QCOMPARE(kept->audioMute, std::optional<bool>(false));
        QCOMPARE(kept->settings->address, 0x10);
        QCOMPARE(kept->settings->name, settings().name);
        QCOMPARE(encodeFlags(*kept->settings), encodeFlags(settings()));
        QVERIFY(kept->settings->audioMute);
        QCOMPARE(kept->settings->openDetectionDelay, quint16(25));
        QCOMPARE(kept->settings->numberOfFims, quint16(300));
        QCOMPARE(kept->settings->furtherByte, quint8(0xA5));
    }

    void keepsEachLdbByAddressAndName()
    {
        const Sandbox folder;
        const KeptLdbs kept(folder.path("."));
        QCOMPARE(kept.keep(ldb("10", "A")), QString());
        QCOMPARE(kept.keep(ldb("10", "B")), QString());
        KeptLdb again = ldb("10", "A");
        again.audioMute = true;
        QCOMPARE(kept.keep(again), QString());
        QCOMPARE(kept.all().size(), std::size_t(2));
        QCOMPARE(kept.find("10", "A")->audioMute, std::optional<bool>(true));
        QVERIFY(!kept.find("11", "A"));
    }

    void forgetsWhatIsPutBack()
    {
        const Sandbox folder;
        const KeptLdbs kept(folder.path("."));
        KeptLdb one = ldb("10", "A");
        kept.keep(one);
        one.audioMute.reset();
        kept.keep(one);
        QVERIFY(kept.find("10", "A")->settings);
        one.settings.reset();
        kept.keep(one);
        QVERIFY(kept.all().empty());
    }

    void matches_data()
    {
        const Table<QString, QString, KeptMatch> row("hexId", "name", "expected");
        row("both", "10", "North", KeptMatch::Both);
        row("address", "10", "South", KeptMatch::AddressOnly);
        row("name", "11", "North", KeptMatch::NameOnly);
        row("none", "11", "South", KeptMatch::None);
    }

    void matches()
    {
        QFETCH(QString, hexId);
        QFETCH(QString, name);
        QTEST(match(ldb("10", "North"), hexId, name), "expected");
        QCOMPARE(match(ldb("10", ""), "11", ""), KeptMatch::None);
    }

    void movesADamagedFileAside()
    {
        const Sandbox folder;
        const KeptLdbs kept(folder.path("."));
        folder.writeFile(kept.filePath(), "{\"ldbs\": [{");
        QString problem;
        {
            const ExpectWarning warning("is damaged");
            QVERIFY(kept.all(&problem).empty());
        }
        QVERIFY(problem.contains(kept.filePath()));
        QCOMPARE(Sandbox::readFile(kept.filePath() + ".damaged"), QByteArray("{\"ldbs\": [{"));
        QCOMPARE(kept.keep(ldb("10", "A")), QString());
        QCOMPARE(kept.all().size(), std::size_t(1));
    }

    void takesNoHalfSettings()
    {
        const Sandbox folder;
        const KeptLdbs kept(folder.path("."));
        kept.keep(ldb("10", "A"));
        QByteArray bytes = Sandbox::readFile(kept.filePath());
        QVERIFY(bytes.contains("\"openDetectionDelay\": 25"));
        folder.writeFile(kept.filePath(), bytes.replace("\"openDetectionDelay\": 25",
                                                        "\"openDetectionDelay\": 70000"));
        const ExpectWarning warning("is damaged");
        const auto read = kept.find("10", "A");
        QVERIFY(read && read->audioMute);
        QVERIFY(!read->settings);
        QVERIFY(Sandbox::readFile(kept.filePath() + ".damaged").contains("70000"));
    }

    void replacesNothingThatItCannotRead()
    {
        const Sandbox folder;
        const KeptLdbs kept(folder.path("."));
        QVERIFY(QDir().mkpath(kept.filePath())); // no file, but in its place
        QString problem;
        const ExpectWarning warning("cannot be read");
        QVERIFY(kept.all(&problem).empty());
        QVERIFY(problem.contains(kept.filePath()));
        QVERIFY(kept.keep(ldb("10", "A")).contains("cannot be read"));
    }

    void saysWhyItCouldNotBeKept()
    {
        const Sandbox folder;
        folder.writeFile("file", "in the way of a folder");
        const KeptLdbs kept(folder.path("file"));
        QVERIFY(kept.keep(ldb("10", "A")).contains("file"));
        QVERIFY(kept.all().empty());
    }
};

REGISTER_TEST(TestKeptLdbs, QCoreApplication)
#include "tst_keptldbs.moc"
