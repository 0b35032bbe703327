#include "history/installation.h"
#include "tests/support/sandbox.h"
#include "tests/support/testprogram.h"

#include <QDir>
#include <QFileInfo>

Q_DECLARE_METATYPE(PortIdentity)

namespace {

const PortIdentity kAdapter{"ttyUSB0", "A1", 0x0403, 0x6001};

Installation hall()
{
    Installation installation;
    installation.id = "installation-7";
    installation.name = QString::fromUtf8("Halle \"Süd\"");
    installation.place = "Bonn";
    installation.notes = "Key at the gate.\nSecond line.";
    installation.ldbs = {{"0A", "Stage"}, {"FD", {}}};
    installation.port = kAdapter;
    installation.lastUsed = QDateTime({2026, 3, 4}, {5, 6, 7, 890}, Qt::UTC);
    return installation;
}

QString textOf(const Installation& installation)
{
    QStringList parts{installation.id,
                      installation.name,
                      installation.place,
                      installation.notes,
                      installation.port.name,
                      installation.port.serialNumber,
                      QString::number(installation.port.vendor.value_or(0), 16),
                      QString::number(installation.port.product.value_or(0), 16),
                      installation.lastUsed.toString(Qt::ISODateWithMs)};
    for (const KnownLdb& ldb : installation.ldbs) {
        parts += ldb.hexId + ' ' + ldb.name;
    }
    return parts.join('|');
}

} // namespace

class TestInstallation : public TestCase
{
    Q_OBJECT
private slots:
    void comesBackAsItWas()
    {
        const Sandbox folder;
        QCOMPARE(Installations().save(hall()), QString());
        const auto listing = Installations().read();
        QCOMPARE(listing.installations.size(), std::size_t(1));
        QVERIFY(listing.damaged.isEmpty());
        QCOMPARE(textOf(listing.installations.front()), textOf(hall()));
        // People read it.
        const QByteArray bytes =
            Sandbox::readFile(Installations().folderOf("installation-7") + "/installation.json");
        QVERIFY(bytes.contains("\"address\": \"0A\"") && bytes.contains("Key at the gate."));
    }

    void freeIdIsNobodyElses()
    {
        const Sandbox folder;
        const Installations installations;
        QCOMPARE(installations.freeId(), "installation-1");
        Installation first = hall();
        first.id = installations.freeId();
        installations.save(first);
        QDir().mkpath(installations.folderOf("installation-2")); // only recordings lie there
        QCOMPARE(installations.freeId(), "installation-3");
    }

    void damaged_data()
    {
        const Table<QByteArray> row("bytes");
        row("empty", "");
        row("torn", "{ \"kind\": \"installation\", \"for");
        row("other kind", "{ \"kind\": \"recipe\", \"format\": 1, \"ldbs\": [] }");
        row("later format", "{ \"kind\": \"installation\", \"format\": 2, \"ldbs\": [] }");
        row("no LDBs", "{ \"kind\": \"installation\", \"format\": 1 }");
        row("no address", R"({"kind":"installation","format":1,"ldbs":[{"address":"FE"}]})");
        row("number for a name", R"({"kind":"installation","format":1,"name":3,"ldbs":[]})");
    }

    void damaged()
    {
        QFETCH(QByteArray, bytes);
        const Sandbox folder;
        const Installations installations;
        installations.save(hall());
        Installation other = hall();
        other.id = "installation-8";
        installations.save(other);
        const KeptLdb muted{"0A", "Stage", hall().lastUsed, false, std::nullopt};
        installations.keptLdbsOf("installation-7").keep(muted);
        const QString path = installations.folderOf("installation-7") + "/installation.json";
        folder.writeFile(path, bytes);

        QString failure;
        QVERIFY(!Installations::importFrom(path, &failure));
        QVERIFY(failure.contains("holds no installation"));

        const ExpectWarning warning("cannot be understood");
        const auto listing = installations.read();
        QCOMPARE(listing.installations.size(), std::size_t(1));
        QCOMPARE(listing.damaged, QStringList{path + ".damaged"});
        QCOMPARE(Sandbox::readFile(path + ".damaged"), bytes);
        QVERIFY(installations.read().damaged.isEmpty());
        // A mute that is to end is not forgotten with its installation.
        QVERIFY(installations.keptLdbsOf("installation-8").find("0A", "Stage"));
    }

    /// A recording that has just been begun does not list it; a mute that is to end does.
    void bareOneIsListedNoMore()
    {
        const Sandbox folder;
        const Installations installations;
        const QString recordings = installations.folderOf(hall().id) + "/recordings";
        installations.save(hall());
        QVERIFY(QDir().mkpath(recordings));
        installations.removeBare(hall().id);
        QVERIFY(installations.read().installations.empty());
        QVERIFY(QFileInfo::exists(recordings));

        installations.save(hall());
        installations.keptLdbsOf(hall().id).keep(
            {"0A", "Stage", hall().lastUsed, false, std::nullopt});
        installations.removeBare(hall().id);
        QCOMPARE(installations.read().installations.size(), std::size_t(1));
    }

    void unwritableIsSaid()
    {
        const Sandbox folder;
        folder.writeFile(folder.path("file"), "in the way");
        QVERIFY(Installations(folder.path("file")).save(hall()).contains("cannot be made"));
        QVERIFY(
            Installations::exportTo(folder.path("no/where"), hall()).contains("cannot be written"));
    }

    void colleagueGetsAllButThePort()
    {
        const Sandbox folder;
        const QString path = folder.path("hall.json");
        QCOMPARE(Installations::exportTo(path, hall()), QString());
        QString failure;
        const auto imported = Installations::importFrom(path, &failure);
        QVERIFY2(imported, qPrintable(failure));
        Installation expected = hall();
        expected.id.clear();
        expected.port = {};
        expected.lastUsed = {};
        QCOMPARE(textOf(*imported), textOf(expected));
        QVERIFY(!Sandbox::readFile(path).contains("ttyUSB0"));
    }

    void keepsLdbsInTheOrderOfAddresses()
    {
        Installation installation;
        QVERIFY(installation.remember({"FD", "last"}));
        QVERIFY(installation.remember({"0A", "first"}));
        QVERIFY(!installation.remember({"0A", "first"}));
        QVERIFY(installation.remember({"0A", "renamed"}));
        QVERIFY(!installation.forget("0B"));
        QVERIFY(textOf(installation).endsWith("0A renamed|FD last"));
        QVERIFY(installation.forget("0A"));
        QVERIFY(textOf(installation).endsWith("FD last"));
    }

    void lastUsedOnAPort_data()
    {
        const Table<PortIdentity, QString> row("port", "expected");
        row("as it was", kAdapter, "later");
        row("other name", PortIdentity{"COM9", "A1", 0x0403, 0x6001}, "later");
        row("other adapter, same name", PortIdentity{"ttyUSB0", "B2", 0x0403, 0x6001}, {});
        row("same number, other product", PortIdentity{"ttyUSB0", "A1", 0x0403, 0x6010}, {});
        row("no number", PortIdentity{"ttyUSB3", {}, 0x1A86, 0x7523}, "cheap");
        row("pseudo-terminal", PortIdentity{"/dev/pts/4"}, "simulated");
        row("never used", PortIdentity{"COM1"}, {});
        row("no port", PortIdentity{}, {});
    }

    void lastUsedOnAPort()
    {
        QFETCH(PortIdentity, port);
        std::vector<Installation> installations;
        const auto add = [&](const char* name, const PortIdentity& usedOn, int day) {
            Installation one;
            one.name = name;
            one.port = usedOn;
            one.lastUsed = QDateTime({2026, 3, day}, {5, 6, 7}, Qt::UTC);
            installations.push_back(one);
        };
        add("earlier", kAdapter, 1);
        add("later", kAdapter, 5);
        add("between", kAdapter, 3);
        add("cheap", {"ttyUSB1", {}, 0x1A86, 0x7523}, 2);
        add("simulated", {"/dev/pts/4"}, 2);
        add("imported", {}, 9);
        const Installation* found = lastUsedOn(port, installations);
        QTEST(found == nullptr ? QString() : found->name, "expected");
    }

    void oldPlaceIsTakenOver()
    {
        const Sandbox folder;
        const KeptLdb muted{"0A", "Stage", hall().lastUsed, false, std::nullopt};
        QCOMPARE(KeptLdbs().keep(muted), QString());
        const KeptLdbs kept = Installations().keptLdbsOf("installation-7");
        QVERIFY(kept.find("0A", "Stage"));
        KeptLdb changed = muted;
        changed.audioMute = true;
        QCOMPARE(kept.keep(changed), QString());
        // It is the installation's now, once.
        QVERIFY(KeptLdbs().all().empty());
        QCOMPARE(kept.all().size(), std::size_t(1));
        QCOMPARE(kept.all().front().audioMute, std::optional<bool>(true));
        QVERIFY(!Installations().keptLdbsOf("installation-8").find("0A", "Stage"));
        // What is put back from the old place is forgotten there.
        QCOMPARE(KeptLdbs().keep({"0B", "Bar", hall().lastUsed, false, std::nullopt}), QString());
        QCOMPARE(kept.keep({"0B", "Bar", {}, std::nullopt, std::nullopt}), QString());
        QVERIFY(!kept.find("0B", "Bar") && KeptLdbs().all().empty());
    }
};

REGISTER_TEST(TestInstallation, QCoreApplication)

#include "tst_installation.moc"
