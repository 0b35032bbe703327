#include "importexport/importexportdevicesettings.h"
#include "serial/seriallink.h"
#include "simulator/simulation.h"
#include "tests/support/sandbox.h"
#include "tests/support/testcase.h"

#include <QSignalSpy>
#include <QTextCodec>

namespace {

using Status = ImportExportDeviceSettings::ImportExportStatus;

constexpr int kLdbs = 253;
constexpr int kHeadLines = 5;
constexpr int kIdField = 0;

// Settings of its own for every board. Up to 255 a value comes back as it was written.
LdbSpec ldb(int address)
{
    LdbSpec spec = standardLdb(address);
    spec.settings.name = "Area " + QByteArray::number(address);
    spec.settings.flags = static_cast<quint8>(address % 32);
    spec.settings.openDetectionDelay = static_cast<quint16>(address % 3 == 0 ? 0 : address);
    spec.settings.numberOfFims = static_cast<quint16>(255 - address);
    return spec;
}

Scenario fullSite(bool isFactoryNew)
{
    Scenario scenario;
    for (int address = 1; address <= kLdbs; ++address) {
        ScenarioLdb entry;
        entry.spec = isFactoryNew ? standardLdb(address) : ldb(address);
        scenario.ldbs.push_back(entry);
    }
    return scenario;
}

/// An exported file with its IDs in the base in which they are read.
QByteArray withHexIds(const QByteArray& exported)
{
    QList<QByteArray> lines = exported.split('\n');
    for (int i = kHeadLines; i < lines.size(); ++i) {
        QList<QByteArray> fields = lines.at(i).split(';');
        if (fields.size() > 1) {
            fields[kIdField] = QByteArray::number(fields.at(kIdField).toInt(), 16);
            lines[i] = fields.join(';');
        }
    }
    return lines.join('\n');
}

/// A full simulated site and a link on it.
struct Site
{
    explicit Site(bool isFactoryNew)
        : simulation(fullSite(isFactoryNew), unpaced())
    {
    }
    static Simulation::Options unpaced()
    {
        Simulation::Options options;
        options.pace = PacedLine::Pace::Unpaced;
        return options;
    }
    bool connectLink()
    {
        if (!simulation.start().isEmpty()) {
            return false;
        }
        QSignalSpy scanned(&link, &SerialLink::ldbListInitializationStateChange);
        link.setPortName(simulation.portName());
        link.start();
        return waitUntil([&] { return scanned.size() == 2; }) &&
               link.connectedLdbs().size() == kLdbs;
    }
    /// The status at the end of an operation, with the failures it told.
    Status run(const std::function<void(ImportExportDeviceSettings&)>& begin)
    {
        ImportExportDeviceSettings operation(&link);
        QSignalSpy statuses(&operation, &ImportExportDeviceSettings::statusChanged);
        begin(operation);
        waitUntil([&] { return statuses.size() > 1; });
        failures = operation.failures();
        return statuses.constLast().constFirst().value<Status>();
    }
    Status exportTo(const QString& path)
    {
        return run([&](ImportExportDeviceSettings& o) { o.exportDeviceSettings(path); });
    }
    Status importFrom(const QString& path)
    {
        return run([&](ImportExportDeviceSettings& o) { o.importDeviceSettings(path); });
    }

    Simulation simulation;
    SerialLink link;
    QStringList failures;
};

} // namespace

/// The whole way with boards that know nothing of the program's own encoders and decoders.
class TestImportExportSite : public TestCase
{
    Q_OBJECT
private slots:
    void init() override
    {
        TestCase::init();
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    }
    void settingsMoveToSwappedBoards();
    void refusingBoardIsNamed();
};

void TestImportExportSite::settingsMoveToSwappedBoards()
{
    const Sandbox sandbox;
    const QString former = sandbox.path(QStringLiteral("former.csv"));
    {
        Site site(false);
        QVERIFY(site.connectLink());
        QCOMPARE(site.exportTo(former), Status::ExportFinished);
    }
    const QByteArray exported = Sandbox::readFile(former);
    QVERIFY(exported.contains("\n5;Area 5;1;1;5;0;1;0;0;250;"));
    QVERIFY(exported.contains("\n252;Area 252;0;0;0;0;1;1;1;3;"));
    QCOMPARE(exported.count('\n'), kHeadLines + 2 * kLdbs);

    Site swapped(true);
    QVERIFY(swapped.connectLink());
    sandbox.writeFile(QStringLiteral("in.csv"), withHexIds(exported));
    QCOMPARE(swapped.importFrom(sandbox.path(QStringLiteral("in.csv"))), Status::ImportFinished);
    QCOMPARE(swapped.failures, QStringList());
    const QString after = sandbox.path(QStringLiteral("after.csv"));
    QCOMPARE(swapped.exportTo(after), Status::ExportFinished);
    QCOMPARE(Sandbox::readFile(after), exported);
}

void TestImportExportSite::refusingBoardIsNamed()
{
    const Sandbox sandbox;
    Site site(false);
    QVERIFY(site.connectLink());
    const QString path = sandbox.path(QStringLiteral("out.csv"));
    QCOMPARE(site.exportTo(path), Status::ExportFinished);
    const CommandParsing nak = parseSimulatorCommand(QStringLiteral("nak 1F index 17"));
    QVERIFY2(nak.command.has_value(), qPrintable(nak.error));
    site.simulation.execute(*nak.command);

    sandbox.writeFile(QStringLiteral("in.csv"), withHexIds(Sandbox::readFile(path)));
    QCOMPARE(site.importFrom(sandbox.path(QStringLiteral("in.csv"))), Status::ImportFailed);
    QCOMPARE(site.failures,
             QStringList{QStringLiteral("Line 66: ID 1f (read as 1f hexadecimal, address 31): "
                                        "Open Detection Delay refused")});
}

QTEST_GUILESS_MAIN(TestImportExportSite)
#include "tst_importexportsite.moc"
