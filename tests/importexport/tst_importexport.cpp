#include "importexport/importexportdevicesettings.h"
#include "importexport/settingscsv.h"
#include "serial/seriallink.h"
#include "tests/support/sandbox.h"
#include "tests/support/settingsbus.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"

#include <QRegularExpression>
#include <QSignalSpy>
#include <QTextCodec>

namespace {

using Status = ImportExportDeviceSettings::ImportExportStatus;

constexpr int kEndLimitMs = 20000;
constexpr int kHeadLines = 5;
constexpr int kIdField = 0;

const QByteArray kAck("\x06");
const QByteArray kNak("\x15");
const QByteArray kSilence("");

// The values of a line that `SettingsBus::record` does not have already.
const QByteArray kValues(";1;1;5;0;1;0;1;30;LDB 1.07\n");

QByteArray hex(const char* text)
{
    return QByteArray(text).toHex().toUpper();
}

QByteArray line(const char* id, const char* name)
{
    return QByteArray(id) + ";" + name + kValues;
}

/// What `line(...)` must write into an LDB.
QList<QByteArray> writesOf(const QByteArray& hexId, const char* name)
{
    const QByteArray start = "FE" + hexId + "73";
    return {start + "6302" + hex(name), start + "631415", start + "63170500", start + "63031E00",
            start + "7806"};
}

/// A bus, a link on it, and one operation that records its statuses.
class Operation
{
public:
    explicit Operation(const QStringList& hexIds)
        : bus(hexIds)
        , job(std::make_unique<ImportExportDeviceSettings>(&link))
    {
        QObject::connect(job.get(), &ImportExportDeviceSettings::statusChanged, &receiver,
                         [this](Status status) { statuses.append(status); });
    }
    bool connectLink() { return bus.connectLink(link); }
    bool runExport(const QString& path)
    {
        job->exportDeviceSettings(path);
        return waitForEnd();
    }
    bool runImport(const QByteArray& content)
    {
        job->importDeviceSettings(fileWith(content));
        return waitForEnd();
    }
    QString fileWith(const QByteArray& content) const
    {
        sandbox.writeFile(QStringLiteral("in.csv"), content);
        return sandbox.path(QStringLiteral("in.csv"));
    }
    bool waitForEnd()
    {
        return waitUntil([this] { return statuses.size() > 1; }, kEndLimitMs);
    }
    /// What was posted has been sent by now: one command goes out between every few polls.
    bool settle()
    {
        const int polls = bus.bus().requests().size();
        return waitUntil([&] { return bus.bus().requests().size() > polls + 80; }, kEndLimitMs);
    }

    Sandbox sandbox;
    SettingsBus bus;
    SerialLink link;
    QList<Status> statuses;
    QObject receiver;
    std::unique_ptr<ImportExportDeviceSettings> job;
};

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

/// A byte as the low one of a word.
QByteArray wordDigits(int value)
{
    return busaddress::toHexId(value).toLatin1() + "00";
}

bool isRequest(const QByteArray& body, const char* hexId, const char* request)
{
    return body.mid(2, 2) == hexId && body.mid(4).startsWith(request);
}

} // namespace

class TestImportExport : public TestCase
{
    Q_OBJECT
private slots:
    void init() override
    {
        TestCase::init();
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    }
    void exportsEveryByte_data();
    void exportsEveryByte();
    void exportReportsFaults_data();
    void exportReportsFaults();
    void failsAtOnce_data();
    void failsAtOnce();
    void exportNamesItsFile();
    void exportPairsAnswersAskedByOthers();
    void importWrites();
    void importEndsOnce_data();
    void importEndsOnce();
    void importReportsEachCommand_data();
    void importReportsEachCommand();
    void importReadsBackAfterSilence();
    void importGoesOnAfterARefusal();
    void endsWhenTheLinkStops_data();
    void endsWhenTheLinkStops();
    void isCancelled_data();
    void isCancelled();
    void lostLdbIsNotConnected();
    void limitsTheFailureText();
    void settingsMoveToSwappedBoards();
};

void TestImportExport::exportsEveryByte_data()
{
    QTest::addColumn<QByteArray>("codec");
    QTest::addColumn<QByteArray>("nameDigits");
    QTest::addColumn<QByteArray>("nameBytes");

    QTest::newRow("UTF-8") << QByteArray("UTF-8") << hex("\xC3\xBC") << QByteArray("\xC3\xBC");
    QTest::newRow("local encoding")
        << QByteArray("ISO-8859-1") << QByteArray("FC") << QByteArray("\xFC");
}

void TestImportExport::exportsEveryByte()
{
    QFETCH(QByteArray, codec);
    QFETCH(QByteArray, nameDigits);
    QFETCH(QByteArray, nameBytes);
    QTextCodec::setCodecForLocale(QTextCodec::codecForName(codec));
    Operation operation({QStringLiteral("01"), QStringLiteral("0A"), QStringLiteral("FD")});
    operation.bus.settingsOf(QStringLiteral("0A"))
        .replace(18, 32, nameDigits.leftJustified(32, '0'));
    // Each LDB has a firmware id of its own, so that a swapped pair would show.
    operation.bus.setScript([](const QByteArray& body) -> std::optional<QByteArray> {
        if (body.mid(4) == "737804") {
            return ScriptedBus::framed(("Version " + body.mid(2, 2)).toHex());
        }
        return std::nullopt;
    });
    QVERIFY(operation.connectLink());
    const QString path = operation.sandbox.path(QStringLiteral("out.csv"));
    QVERIFY(operation.runExport(path));

    QCOMPARE(operation.statuses, (QList<Status>{Status::ExportStarted, Status::ExportFinished}));
    QCOMPARE(operation.job->failures(), QStringList());
    QCOMPARE(Sandbox::readFile(path),
             QByteArray("Generated by Cordex Sniffer.\n\n\n"
                        "ID;Device Name;General Fault Output;Open Detection;"
                        "Open Detection Delay;Earth Leakage Detection;"
                        "Earth Wire Open Detection;Start In Service Mode;"
                        "Amplifier Detection;Number of FIM's;Firmware Id\n\n"
                        "1;LDB 01;1;1;10;1;0;0;0;20;Version 01\n\n"
                        "10;") +
                 nameBytes +
                 ";1;1;10;1;0;0;0;20;Version 0A\n\n"
                 "253;LDB FD;1;1;10;1;0;0;0;20;Version FD\n\n");
}

void TestImportExport::exportReportsFaults_data()
{
    QTest::addColumn<QByteArray>("request"); // of LDB 02
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QByteArray>("line"); // of LDB 02, empty for none
    QTest::addColumn<QString>("failure");

    const QByteArray noFirmware("2;LDB 02;1;1;10;1;0;0;0;20;\n\n");
    const auto row = [](const char* tag, const QByteArray& request, const QByteArray& answer,
                        const QByteArray& line, const char* failure) {
        QTest::newRow(tag) << request << answer << line
                           << QStringLiteral("LDB 02 (address 2): ") + QString::fromLatin1(failure);
    };
    row("settings silent", "737201", kSilence, "", "no answer");
    row("settings refused", "737201", kNak, "", "no valid settings received");
    row("settings of another LDB", "737201",
        ScriptedBus::framed(SettingsBus::record(QStringLiteral("03"))), "",
        "no valid settings received");
    row("settings malformed", "737201",
        ScriptedBus::framed(SettingsBus::record(QStringLiteral("02")).replace(8, 2, "ZZ")), "",
        "no valid settings received");
    row("firmware refused", "737804", kNak, noFirmware, "no valid firmware id received");
}

void TestImportExport::exportReportsFaults()
{
    QFETCH(QByteArray, request);
    QFETCH(QByteArray, answer);
    QFETCH(QByteArray, line);
    QFETCH(QString, failure);
    Operation operation({QStringLiteral("01"), QStringLiteral("02"), QStringLiteral("03")});
    operation.bus.answerTo(QStringLiteral("02"), request, answer);
    QVERIFY(operation.connectLink());
    const QString path = operation.sandbox.path(QStringLiteral("out.csv"));
    QVERIFY(operation.runExport(path));

    QCOMPARE(operation.statuses, (QList<Status>{Status::ExportStarted, Status::ExportFailed}));
    QCOMPARE(operation.job->failures(), QStringList{failure});
    // The others were written all the same.
    QCOMPARE(Sandbox::readFile(path), settingscsv::fileHead().toUtf8() +
                                          "1;LDB 01;1;1;10;1;0;0;0;20;LDB 1.07\n\n" + line +
                                          "3;LDB 03;1;1;10;1;0;0;0;20;LDB 1.07\n\n");
}

void TestImportExport::failsAtOnce_data()
{
    QTest::addColumn<bool>("isImport");
    QTest::addColumn<bool>("isConnected");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("failure");

    const QString notOpened = QStringLiteral("The file cannot be opened: .+");
    const QString notConnected = QStringLiteral("No LDB's are connected\\.");
    QTest::newRow("export, no such folder")
        << false << true << QStringLiteral("missing/out.csv") << notOpened;
    QTest::newRow("export, full disk") << false << true << QStringLiteral("/dev/full")
                                       << QStringLiteral("The file cannot be written: .+");
    QTest::newRow("export, no link") << false << false << QStringLiteral("in.csv") << notConnected;
    QTest::newRow("import, no such file")
        << true << true << QStringLiteral("missing.csv") << notOpened;
    QTest::newRow("import, no link") << true << false << QStringLiteral("in.csv") << notConnected;
}

void TestImportExport::failsAtOnce()
{
    QFETCH(bool, isImport);
    QFETCH(bool, isConnected);
    QFETCH(QString, path);
    QFETCH(QString, failure);
    Operation operation({QStringLiteral("01")});
    const QString present = operation.fileWith(line("1", "A"));
    QVERIFY(!isConnected || operation.connectLink());
    if (isImport) {
        operation.job->importDeviceSettings(path);
    } else {
        operation.job->exportDeviceSettings(path);
    }
    QVERIFY(operation.waitForEnd());
    QCOMPARE(operation.statuses,
             isImport ? (QList<Status>{Status::ImportStarted, Status::ImportFailed})
                      : (QList<Status>{Status::ExportStarted, Status::ExportFailed}));
    QVERIFY2(QRegularExpression(QRegularExpression::anchoredPattern(failure))
                 .match(operation.job->failureText()())
                 .hasMatch(),
             qPrintable(operation.job->failureText()()));
    // A file that cannot be written anew is left as it was.
    QCOMPARE(Sandbox::readFile(present), line("1", "A"));
}

void TestImportExport::exportNamesItsFile()
{
    Operation operation({QStringLiteral("01")});
    QVERIFY(operation.connectLink());
    operation.job->setDefaultDirectory(operation.sandbox.path(QString()));
    operation.job->exportDeviceSettings();
    QVERIFY(operation.waitForEnd());
    QCOMPARE(operation.statuses.constLast(), Status::ExportFinished);
    const QStringList files = QDir().entryList({QStringLiteral("*.csv")});
    QCOMPARE(files.size(), 1);
    const QRegularExpression expected(QStringLiteral(
        "^Device List\\[[0-3]\\d[01]\\d20\\d\\d_[0-2]\\d[0-5]\\d[0-5]\\d\\]\\.csv$"));
    QVERIFY2(expected.match(files.constFirst()).hasMatch(), qPrintable(files.constFirst()));
}

void TestImportExport::exportPairsAnswersAskedByOthers()
{
    Operation operation({QStringLiteral("01"), QStringLiteral("02")});
    QVERIFY(operation.connectLink());
    // The second LDB's settings wait already, so they come before the first LDB's.
    operation.link.post(
        std::make_unique<RequestCommand>(QStringLiteral("02"), LdbParameter::Settings));
    const QString path = operation.sandbox.path(QStringLiteral("out.csv"));
    QVERIFY(operation.runExport(path));
    QCOMPARE(operation.statuses.constLast(), Status::ExportFinished);
    QCOMPARE(Sandbox::readFile(path), settingscsv::fileHead().toUtf8() +
                                          "1;LDB 01;1;1;10;1;0;0;0;20;LDB 1.07\n\n"
                                          "2;LDB 02;1;1;10;1;0;0;0;20;LDB 1.07\n\n");
}

void TestImportExport::importWrites()
{
    Operation operation({QStringLiteral("01"), QStringLiteral("10")});
    operation.bus.settingsOf(QStringLiteral("10")).replace(12, 2, "01"); // muted
    QVERIFY(operation.connectLink());
    QSignalSpy progress(operation.job.get(), &ImportExportDeviceSettings::progressChanged);
    QVERIFY(operation.runImport(settingscsv::fileHead().toUtf8() + line("10", "B;c") + "\n" +
                                line("1", "A") + "\n"));
    QCOMPARE(operation.statuses, (QList<Status>{Status::ImportStarted, Status::ImportFinished}));
    QCOMPARE(operation.bus.writes(), writesOf("10", "B;c") + writesOf("01", "A"));
    // The file knows nothing of the audio mute, so the LDB keeps it.
    QCOMPARE(operation.bus.settingsOf(QStringLiteral("10")),
             QByteArray("10112233155A010500") + hex("B;c").leftJustified(32, '0') + "441E00");
    QList<int> left;
    for (const QVariantList& arguments : progress) {
        left.append(arguments.at(0).toInt());
        QCOMPARE(arguments.at(1).toInt(), 10);
    }
    QCOMPARE(left, (QList<int>{10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0}));
}

void TestImportExport::importEndsOnce_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<Status>("end");
    QTest::addColumn<QList<QByteArray>>("writes");
    QTest::addColumn<QStringList>("failures");

    // The LDBs 01 and 10 are connected, 02 is not.
    const QByteArray both = line("1", "A") + line("10", "B");
    const QList<QByteArray> writesA = writesOf("01", "A");
    const QList<QByteArray> writesBoth = writesA + writesOf("10", "B");
    const QString missingA = QStringLiteral("LDB 01 (address 1): no line in the file");
    const QString missingB = QStringLiteral("LDB 10 (address 16): no line in the file");
    const QString tornB = QStringLiteral(
        "Line 2: ID 10 (read as 10 hexadecimal, address 16): 2 field(s) instead of 11");
    const QString unknown2 = QStringLiteral("Line 3: ID 2 (read as 2 hexadecimal, address 2): "
                                            "no LDB with this address is connected");
    const auto row = [](const char* tag, const QByteArray& content, Status end,
                        const QList<QByteArray>& writes, const QStringList& failures) {
        QTest::newRow(tag) << content << end << writes << failures;
    };
    row("torn last line", line("1", "A") + "10;B", Status::ImportFailed, writesA, {tornB});
    row("empty file", "", Status::ImportFailedSettingsMissing, {}, {missingA, missingB});
    row("missing LDB", line("1", "A"), Status::ImportFailedSettingsMissing, writesA, {missingB});
    row("unknown LDB", both + line("2", "C"), Status::ImportFailedNotAllConnected, writesBoth,
        {unknown2});
    row("broadcast address", both + line("FF", "C"), Status::ImportFailedNotAllConnected,
        writesBoth,
        {QStringLiteral("Line 3: ID FF (read as FF hexadecimal, address 255): "
                        "no LDB with this address is connected")});
    row("wrong before missing", "10;B\n", Status::ImportFailed, {},
        {QString(tornB).replace(QLatin1String("Line 2"), QLatin1String("Line 1")), missingA});
    row("unknown before wrong", line("1", "A") + "10;B\n" + line("2", "C"),
        Status::ImportFailedNotAllConnected, writesA, {tornB, unknown2});
}

void TestImportExport::importEndsOnce()
{
    QFETCH(QByteArray, content);
    QFETCH(Status, end);
    QFETCH(QList<QByteArray>, writes);
    QFETCH(QStringList, failures);
    Operation operation({QStringLiteral("01"), QStringLiteral("10")});
    QVERIFY(operation.connectLink());
    QVERIFY(operation.runImport(content));
    QVERIFY(operation.settle());
    QCOMPARE(operation.statuses, (QList<Status>{Status::ImportStarted, end}));
    QCOMPARE(operation.bus.writes(), writes);
    QCOMPARE(operation.job->failures(), failures);
}

void TestImportExport::importReportsEachCommand_data()
{
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QString>("failure");

    const auto row = [](const char* tag, const QByteArray& request, const QByteArray& answer,
                        const char* failure) {
        QTest::newRow(tag) << request << answer
                           << QStringLiteral("Line 1: ID 1 (read as 1 hexadecimal, address 1): ") +
                                  QString::fromLatin1(failure);
    };
    row("flags refused", "736314", kNak,
        "not written: fault output, detection and service mode switches (refused)");
    row("store refused", "737806", kNak, "not written: storing (refused)");
    row("name answered with a status", "736302", ScriptedBus::framed(ScriptedBus::status()),
        "not written: Name (refused)");
    row("name unanswered", "736302", kSilence,
        "not written: Name (no answer); the LDB reports other values than written: Name (LDB 01)");
    row("store unanswered", "737806", kSilence, "not written: storing (no answer)");
}

void TestImportExport::importReportsEachCommand()
{
    QFETCH(QByteArray, request);
    QFETCH(QByteArray, answer);
    QFETCH(QString, failure);
    Operation operation({QStringLiteral("01")});
    operation.bus.answerTo(QStringLiteral("01"), request, answer);
    QVERIFY(operation.connectLink());
    QVERIFY(operation.runImport(line("1", "A")));
    QCOMPARE(operation.statuses, (QList<Status>{Status::ImportStarted, Status::ImportFailed}));
    QCOMPARE(operation.job->failures(), QStringList{failure});
}

void TestImportExport::importReadsBackAfterSilence()
{
    Operation operation({QStringLiteral("01")});
    operation.bus.setScript([&](const QByteArray& body) -> std::optional<QByteArray> {
        if (isRequest(body, "01", "736303")) { // taken over, and the acknowledgement is lost
            operation.bus.settingsOf(QStringLiteral("01")).replace(52, 4, "1E00");
            return kSilence;
        }
        return std::nullopt;
    });
    QVERIFY(operation.connectLink());
    QVERIFY(operation.runImport(line("1", "A")));
    QCOMPARE(operation.job->failures(), QStringList());
    QCOMPARE(operation.statuses.constLast(), Status::ImportFinished);
}

void TestImportExport::importGoesOnAfterARefusal()
{
    Operation operation({QStringLiteral("01"), QStringLiteral("10")});
    operation.bus.answerTo(QStringLiteral("01"), "7", kNak);
    QVERIFY(operation.connectLink());
    QVERIFY(operation.runImport(line("1", "A") + line("10", "B")));
    QCOMPARE(operation.statuses, (QList<Status>{Status::ImportStarted, Status::ImportFailed}));
    QCOMPARE(operation.job->failures(),
             QStringList{QStringLiteral(
                 "Line 1: ID 1 (read as 1 hexadecimal, address 1): not written: Name (refused), "
                 "fault output, detection and service mode switches (refused), "
                 "Open Detection Delay (refused), Number of FIM's (refused), storing (refused)")});
    QCOMPARE(operation.bus.writes(), writesOf("01", "A") + writesOf("10", "B"));
}

void TestImportExport::endsWhenTheLinkStops_data()
{
    QTest::addColumn<bool>("isImport");
    QTest::addColumn<bool>("isHangUp");
    QTest::addColumn<QByteArray>("extraLine");
    QTest::addColumn<Status>("end");
    QTest::addColumn<QString>("failure");

    const QString imported = QStringLiteral("Line 3: ID 10 (read as 10 hexadecimal, address 16): "
                                            "the connection ended before it was written");
    const QString exported =
        QStringLiteral("LDB 10 (address 16): the connection ended before its answer");
    QTest::newRow("import, stopped")
        << true << false << QByteArray() << Status::ImportFailed << imported;
    QTest::newRow("import, port lost")
        << true << true << QByteArray() << Status::ImportFailed << imported;
    QTest::newRow("import of an unknown LDB, stopped")
        << true << false << line("F0", "X") << Status::ImportFailedNotAllConnected << imported;
    QTest::newRow("export, stopped")
        << false << false << QByteArray() << Status::ExportFailed << exported;
    QTest::newRow("export, port lost")
        << false << true << QByteArray() << Status::ExportFailed << exported;
}

void TestImportExport::endsWhenTheLinkStops()
{
    QFETCH(bool, isImport);
    QFETCH(bool, isHangUp);
    QFETCH(QByteArray, extraLine);
    QFETCH(Status, end);
    QFETCH(QString, failure);
    std::unique_ptr<ExpectWarning> warning;
    if (isHangUp) {
        warning = std::make_unique<ExpectWarning>("^Port ");
    }
    Operation operation({QStringLiteral("01"), QStringLiteral("02"), QStringLiteral("10")});
    operation.bus.setScript([&](const QByteArray& body) -> std::optional<QByteArray> {
        // The LDB 02 has its turn: the first one is done, the third one is not.
        if (isRequest(body, "02", isImport ? "736302" : "737201")) {
            QTimer::singleShot(0, &operation.link, [&operation, isHangUp] {
                if (isHangUp) {
                    operation.bus.bus().hangUp();
                } else {
                    operation.link.stop();
                }
            });
            return kSilence;
        }
        return std::nullopt;
    });
    QVERIFY(operation.connectLink());
    const QString path = operation.sandbox.path(QStringLiteral("out.csv"));
    if (isImport) {
        QVERIFY(operation.runImport(line("1", "A") + line("2", "B") + line("10", "C") + extraLine));
    } else {
        QVERIFY(operation.runExport(path));
        QCOMPARE(Sandbox::readFile(path),
                 settingscsv::fileHead().toUtf8() + "1;LDB 01;1;1;10;1;0;0;0;20;LDB 1.07\n\n");
    }
    QCoreApplication::processEvents();
    QCOMPARE(operation.statuses.size(), 2);
    QCOMPARE(operation.statuses.constLast(), end);
    QVERIFY2(operation.job->failures().contains(failure),
             qPrintable(operation.job->failureText()()));
}

void TestImportExport::isCancelled_data()
{
    QTest::addColumn<bool>("isDestroyed");
    QTest::newRow("cancelled") << false;
    QTest::newRow("destroyed") << true;
}

void TestImportExport::isCancelled()
{
    QFETCH(bool, isDestroyed);
    QStringList ids;
    QByteArray content;
    for (int address = 1; address <= 9; ++address) {
        ids.append(QStringLiteral("0%1").arg(address));
        content += line(QByteArray::number(address).constData(), "A");
    }
    Operation operation(ids);
    operation.bus.setScript([&](const QByteArray& body) -> std::optional<QByteArray> {
        if (isRequest(body, "01", "736314")) {
            if (isDestroyed) {
                operation.job.reset();
            } else {
                operation.job->cancel();
            }
        }
        return std::nullopt;
    });
    QVERIFY(operation.connectLink());
    operation.job->importDeviceSettings(operation.fileWith(content));
    WAIT_VERIFY(operation.bus.writes().size() >= 5);
    QVERIFY(operation.settle());

    QCOMPARE(operation.statuses, QList<Status>{Status::ImportStarted});
    // No LDB is left half written, and most were never begun.
    const QList<QByteArray> writes = operation.bus.writes();
    QCOMPARE(writes.size() % 5, 0);
    QVERIFY(writes.size() <= 15);
    QCOMPARE(writes.mid(0, 5), writesOf("01", "A"));
}

void TestImportExport::lostLdbIsNotConnected()
{
    const ExpectWarning warning("^Refusal to FE0270$"); // to the probes of the lost one
    Operation operation({QStringLiteral("01"), QStringLiteral("02")});
    operation.sandbox.writeTuning("[SerialSettings]\nDISCONNECTED_COUNT=0\n"
                                  "BYTES_RECEIVED_WAIT_TIME=1000\n");
    // The tuning is read when the link is made.
    operation.link.stop();
    SerialLink link;
    QVERIFY(operation.bus.connectLink(link));
    QSignalSpy lost(&link, &SerialLink::ldbDisconnected);
    operation.bus.bus().setPresent({QStringLiteral("01")});
    WAIT_COMPARE(lost.size(), 1);

    ImportExportDeviceSettings importing(&link);
    QSignalSpy statuses(&importing, &ImportExportDeviceSettings::statusChanged);
    importing.importDeviceSettings(operation.fileWith(line("1", "A") + line("2", "B")));
    WAIT_COMPARE(statuses.size(), 2);
    QCOMPARE(statuses.constLast().constFirst().value<Status>(),
             Status::ImportFailedNotAllConnected);
    QCOMPARE(operation.bus.writes(), writesOf("01", "A"));

    ImportExportDeviceSettings exporting(&link);
    QSignalSpy exportStatuses(&exporting, &ImportExportDeviceSettings::statusChanged);
    exporting.exportDeviceSettings(operation.sandbox.path(QStringLiteral("out.csv")));
    WAIT_COMPARE(exportStatuses.size(), 2);
    QCOMPARE(exportStatuses.constLast().constFirst().value<Status>(), Status::ExportFailed);
    QCOMPARE(exporting.failures(),
             QStringList{QStringLiteral("LDB 02 (address 2): not connected")});
    QVERIFY(Sandbox::readFile(operation.sandbox.path(QStringLiteral("out.csv")))
                .endsWith("1;A;1;1;5;0;1;0;1;30;LDB 1.07\n\n"));
}

void TestImportExport::limitsTheFailureText()
{
    Operation operation({QStringLiteral("01")});
    QVERIFY(operation.connectLink());
    QByteArray content;
    for (int i = 0; i < 100; ++i) {
        content += "FD;torn\n";
    }
    QVERIFY(operation.runImport(content));
    QCOMPARE(operation.job->failures().size(), 101);
    const QStringList shown = operation.job->failureText()().split(QLatin1Char('\n'));
    QCOMPARE(shown.size(), 13);
    QCOMPARE(shown.constLast(), QStringLiteral("and 89 more"));
}

void TestImportExport::settingsMoveToSwappedBoards()
{
    QStringList hexIds;
    for (int address = busaddress::kFirst; address <= busaddress::kLast; ++address) {
        hexIds.append(busaddress::toHexId(address));
    }
    QByteArray exported;
    {
        Operation former(hexIds);
        // Settings of its own for every board.
        for (const QString& hexId : hexIds) {
            const int address = hexId.toInt(nullptr, 16);
            const QByteArray name = "Area " + QByteArray::number(address);
            former.bus.settingsOf(hexId)
                .replace(8, 2, busaddress::toHexId(address % 32).toLatin1())
                .replace(14, 4, wordDigits(address % 3 == 0 ? 0 : address))
                .replace(18, 32, name.toHex().leftJustified(32, '0'))
                .replace(52, 4, wordDigits(255 - address));
        }
        QVERIFY(former.connectLink());
        QVERIFY(former.runExport(QStringLiteral("out.csv")));
        exported = Sandbox::readFile(former.sandbox.path(QStringLiteral("out.csv")));
    }
    QVERIFY(exported.contains("\n5;Area 5;1;1;5;0;1;0;0;250;"));
    QVERIFY(exported.contains("\n252;Area 252;0;0;0;0;1;1;1;3;"));
    QCOMPARE(exported.count('\n'), kHeadLines + 2 * busaddress::kLast);

    Operation swapped(hexIds);
    QVERIFY(swapped.connectLink());
    QVERIFY(swapped.runImport(withHexIds(exported)));
    QCOMPARE(swapped.statuses.constLast(), Status::ImportFinished);
    QCOMPARE(swapped.job->failures(), QStringList());
    swapped.statuses.clear();
    QVERIFY(swapped.runExport(QStringLiteral("out.csv")));
    QCOMPARE(Sandbox::readFile(swapped.sandbox.path(QStringLiteral("out.csv"))), exported);
}

REGISTER_TEST(TestImportExport, QCoreApplication)
#include "tst_importexport.moc"
