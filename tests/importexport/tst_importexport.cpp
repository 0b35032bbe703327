#include "importexport/importexportdevicesettings.h"
#include "importexport/importplan.h"
#include "importexport/settingsbatch.h"
#include "importexport/settingscsv.h"
#include "serial/link/seriallink.h"
#include "tests/support/sandbox.h"
#include "tests/support/testbus.h"
#include "tests/support/testprogram.h"

namespace {

using Status = ImportExportDeviceSettings::ImportExportStatus;

const QByteArray kAck("\x06");
const QByteArray kNak("\x15");
const QByteArray kSilence("");

// The values of a line that `TestBus::record` does not have already.
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
    explicit Operation(const QStringList& hexIds, const QByteArray& tuning = {})
        : bus((sandbox.writeTuning(tuning), hexIds))
    {
        useNewJob();
    }
    void useNewJob()
    {
        job = std::make_unique<ImportExportDeviceSettings>(&link);
        QObject::connect(job.get(), &ImportExportDeviceSettings::statusChanged, job.get(),
                         [this](Status status) { statuses.append(status); });
        QObject::connect(job.get(), &ImportExportDeviceSettings::stopped, job.get(),
                         [this] { isStopped = true; });
        QObject::connect(job.get(), &ImportExportDeviceSettings::importPlanned, job.get(), [this] {
            isPlanned = true;
            plan = job->plan();
            if (onPlan) {
                onPlan();
            }
        });
    }
    bool connectLink() { return bus.scan(link); }
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
        sandbox.writeFile("in.csv", content);
        return sandbox.path("in.csv");
    }
    bool waitForEnd()
    {
        return waitUntil([this] { return statuses.size() > 1; });
    }
    /// What was posted has been sent by now: one command goes out between every few polls.
    bool settle()
    {
        const int polls = bus.requests().size();
        return waitUntil([&] { return bus.requests().size() > polls + 80; });
    }

    Sandbox sandbox;
    TestBus bus;
    SerialLink link{bus.ports()};
    QList<Status> statuses;
    bool isStopped = false;
    bool isPlanned = false;
    ImportPlan plan; ///< at first
    /// What becomes of the plan of an import; by default the user says yes.
    std::function<void()> onPlan = [this] {
        job->write();
    };
    std::unique_ptr<ImportExportDeviceSettings> job;
};

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
    void exportsEveryByte_data()
    {
        addColumns<QByteArray, QByteArray, QByteArray>("codec", "nameDigits", "nameBytes");

        QTest::newRow("UTF-8") << QByteArray("UTF-8") << hex("\xC3\xBC") << QByteArray("\xC3\xBC");
        QTest::newRow("local encoding")
            << QByteArray("ISO-8859-1") << QByteArray("FC") << QByteArray("\xFC");
    }

    void exportsEveryByte()
    {
        QFETCH(QByteArray, codec);
        QFETCH(QByteArray, nameDigits);
        QFETCH(QByteArray, nameBytes);
        QTextCodec::setCodecForLocale(QTextCodec::codecForName(codec));
        Operation operation({"01", "0A", "FD"});
        operation.bus.change("0A", "02", nameDigits);
        // Each LDB has a firmware id of its own, so that a swapped pair would show.
        operation.bus.setScript([](const QByteArray& body) -> std::optional<QByteArray> {
            if (body.mid(4) == "737804") {
                return TestBus::framed(("Version " + body.mid(2, 2)).toHex());
            }
            return std::nullopt;
        });
        QVERIFY(operation.connectLink());
        const QString path = operation.sandbox.path("out.csv");
        QVERIFY(operation.runExport(path));

        QCOMPARE(operation.statuses,
                 (QList<Status>{Status::ExportStarted, Status::ExportFinished}));
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

    void exportReportsFaults_data()
    {
        // "request" and "line": of LDB 02; no line where it is empty
        const Table<QByteArray, QByteArray, QByteArray> row("request", "answer", "line");
        row("settings silent", "737201", kSilence, "");
        row("settings refused", "737201", kNak, "");
        row("settings of another LDB", "737201", TestBus::framed(TestBus::record("03")), "");
        row("firmware refused", "737804", kNak, "2;LDB 02;1;1;10;1;0;0;0;20;\n\n");
    }

    void exportReportsFaults()
    {
        QFETCH(QByteArray, request);
        QFETCH(QByteArray, answer);
        QFETCH(QByteArray, line);
        Operation operation({"01", "02", "03"});
        operation.bus.answerTo("02", request, answer);
        QVERIFY(operation.connectLink());
        const QString path = operation.sandbox.path("out.csv");
        QVERIFY(operation.runExport(path));

        QCOMPARE(operation.statuses, (QList<Status>{Status::ExportStarted, Status::ExportFailed}));
        // What is refused to a reader, or is no valid answer of this LDB, is none.
        QCOMPARE(operation.job->failures(), QStringList{"LDB 02 (address 2): no answer"});
        // The others were written all the same.
        QCOMPARE(Sandbox::readFile(path), settingscsv::fileHead().toUtf8() +
                                              "1;LDB 01;1;1;10;1;0;0;0;20;LDB 1.07\n\n" + line +
                                              "3;LDB 03;1;1;10;1;0;0;0;20;LDB 1.07\n\n");
    }

    void failsAtOnce_data()
    {
        const Table<bool, bool, QString, QString> row("isImport", "isConnected", "path", "failure");
        const QString notOpened("The file cannot be opened: .+");
        const QString notConnected("No LDB's are connected\\.");
        row("export, no such folder", false, true, "missing/out.csv", notOpened);
        row("export, full disk", false, true, "/dev/full", "The file cannot be written: .+");
        row("export, no link", false, false, "in.csv", notConnected);
        row("import, no such file", true, true, "missing.csv", notOpened);
        row("import, no link", true, false, "in.csv", notConnected);
    }

    void failsAtOnce()
    {
        QFETCH(bool, isImport);
        QFETCH(bool, isConnected);
        QFETCH(QString, path);
        QFETCH(QString, failure);
        Operation operation({"01"});
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

    void exportNamesItsFile()
    {
        Operation operation({"01"});
        QVERIFY(operation.connectLink());
        operation.job->setDefaultDirectory(operation.sandbox.path(QString()));
        operation.job->exportDeviceSettings();
        QVERIFY(operation.waitForEnd());
        QCOMPARE(operation.statuses.constLast(), Status::ExportFinished);
        const QString files = QDir().entryList({"*.csv"}).join(' ');
        QVERIFY2(
            QRegularExpression("^Device List\\[[0-3]\\d[01]\\d20\\d\\d_[0-2]\\d[0-5]\\d[0-5]\\d\\]"
                               "\\.csv$")
                .match(files)
                .hasMatch(),
            qPrintable(files));
    }

    void importWrites()
    {
        Operation operation({"01", "10"});
        operation.bus.change("10", "16", "01"); // muted
        QVERIFY(operation.connectLink());
        QSignalSpy progress(operation.job.get(), &ImportExportDeviceSettings::progressChanged);
        operation.onPlan = [&] {
            progress.clear(); // of the reading
            operation.job->write();
        };
        QVERIFY(operation.runImport(settingscsv::fileHead().toUtf8() + line("10", "B;c") + "\n" +
                                    line("1", "A") + "\n"));
        QCOMPARE(operation.statuses,
                 (QList<Status>{Status::ImportStarted, Status::ImportFinished}));
        QCOMPARE(operation.bus.writes(), writesOf("10", "B;c") + writesOf("01", "A"));
        // The file knows nothing of the audio mute, so the LDB keeps it.
        QCOMPARE(operation.bus.settingsOf("10"),
                 QByteArray("100000001500010500") + hex("B;c").leftJustified(32, '0') + "001E00");
        QList<int> left;
        for (const QVariantList& arguments : progress) {
            left.append(arguments.at(0).toInt());
            QCOMPARE(arguments.at(1).toInt(), 2);
        }
        QCOMPARE(left, (QList<int>{2, 1, 0}));
    }

    void importEndsOnce_data()
    {
        // "written": how many of the LDBs 01 and 10, which are connected; 02 is not
        const Table<QByteArray, Status, int, QStringList> row("content", "end", "written",
                                                              "failures");
        const QByteArray both = line("1", "A") + line("10", "B");
        const QString missingA("LDB 01 (address 1): no line in the file");
        const QString missingB("LDB 10 (address 16): no line in the file");
        const QString tornB(
            "Line 2: ID 10 (read as 10 hexadecimal, address 16): 2 field(s) instead of 11");
        const QString unknown2("Line 3: ID 2 (read as 2 hexadecimal, address 2): "
                               "no LDB with this address is connected");
        const QString unknownAll("Line 3: ID FF (read as FF hexadecimal, address 255): "
                                 "no LDB can have this address");
        const QString noAddress("Line 3: ID 233: The ID is no address");
        row("torn last line", line("1", "A") + "10;B", Status::ImportFailed, 1, {tornB});
        row("empty file", "", Status::ImportFailedSettingsMissing, 0, {missingA, missingB});
        row("missing LDB", line("1", "A"), Status::ImportFailedSettingsMissing, 1, {missingB});
        row("unknown LDB", both + line("2", "C"), Status::ImportFailedNotAllConnected, 2,
            {unknown2});
        row("broadcast address", both + line("FF", "C"), Status::ImportFailedNotAllConnected, 2,
            {unknownAll});
        row("no address", both + line("233", "C"), Status::ImportFinished, 2, {noAddress});
        row("wrong before missing", "10;B\n", Status::ImportFailed, 0,
            {QString(tornB).replace("Line 2", "Line 1"), missingA});
        row("unknown before wrong", line("1", "A") + "10;B\n" + line("2", "C"),
            Status::ImportFailedNotAllConnected, 1, {tornB, unknown2});
    }

    void importEndsOnce()
    {
        QFETCH(QByteArray, content);
        QFETCH(Status, end);
        QFETCH(int, written);
        QFETCH(QStringList, failures);
        Operation operation({"01", "10"});
        QVERIFY(operation.connectLink());
        QVERIFY(operation.runImport(content));
        QVERIFY(operation.settle());
        QCOMPARE(operation.statuses, (QList<Status>{Status::ImportStarted, end}));
        QCOMPARE(operation.bus.writes(),
                 (writesOf("01", "A") + writesOf("10", "B")).mid(0, 5 * written));
        QCOMPARE(operation.job->failures(), failures);
    }

    void importReportsEachCommand_data()
    {
        // What becomes of each of the other commands is told alike by the editor's tests.
        const Table<QByteArray, QByteArray, QString> row("request", "answer", "failure");
        row("settings unanswered", "737201", kSilence, "its present settings could not be read");
        row("flags refused", "736314", kNak,
            "not written: Earth Leakage Detection (refused), Earth Wire Open Detection (refused), "
            "Amplifier Detection (refused); the LDB reports other values than written: "
            "Earth Leakage Detection (on), Earth Wire Open Detection (off), "
            "Amplifier Detection (off)");
        row("name answered with a status", "736302", TestBus::framed(TestBus::status()),
            "not written: Name (no answer); "
            "the LDB reports other values than written: Name (LDB 01)");
        row("store unanswered", "737806", kSilence, "not written: storing (no answer)");
    }

    void importReportsEachCommand()
    {
        QFETCH(QByteArray, request);
        QFETCH(QByteArray, answer);
        QFETCH(QString, failure);
        Operation operation({"01"});
        operation.bus.answerTo("01", request, answer);
        QVERIFY(operation.connectLink());
        QVERIFY(operation.runImport(line("1", "A")));
        QCOMPARE(operation.statuses, (QList<Status>{Status::ImportStarted, Status::ImportFailed}));
        QCOMPARE(operation.job->failures(),
                 QStringList("Line 1: ID 1 (read as 1 hexadecimal, address 1): " + failure));
    }

    void importReadsBackAfterSilence()
    {
        Operation operation({"01"});
        operation.bus.setScript([&](const QByteArray& body) -> std::optional<QByteArray> {
            if (isRequest(body, "01", "736303")) { // taken over, and the acknowledgement is lost
                operation.bus.change("01", "03", "1E00");
                return kSilence;
            }
            return std::nullopt;
        });
        QVERIFY(operation.connectLink());
        QVERIFY(operation.runImport(line("1", "A")));
        QCOMPARE(operation.job->failures(), QStringList());
        QCOMPARE(operation.statuses.constLast(), Status::ImportFinished);
    }

    void endsWhenTheLinkStops_data()
    {
        const Table<bool, bool, QByteArray, Status> row("isImport", "isHangUp", "extraLine", "end");
        row("import, stopped", true, false, {}, Status::ImportFailed);
        row("import, port lost", true, true, {}, Status::ImportFailed);
        row("import of an unknown LDB, stopped", true, false, line("F0", "X"),
            Status::ImportFailedNotAllConnected);
        row("export, stopped", false, false, {}, Status::ExportFailed);
        row("export, port lost", false, true, {}, Status::ExportFailed);
    }

    void endsWhenTheLinkStops()
    {
        QFETCH(bool, isImport);
        QFETCH(bool, isHangUp);
        QFETCH(QByteArray, extraLine);
        QFETCH(Status, end);
        const auto warning = isHangUp ? std::make_unique<ExpectWarning>("^Port ") : nullptr;
        Operation operation({"01", "02", "10"});
        operation.bus.setScript([&](const QByteArray& body) -> std::optional<QByteArray> {
            // The LDB 02 has its turn: the first one is done, the third one is not.
            if (isRequest(body, "02", isImport ? "736302" : "737201")) {
                QTimer::singleShot(0, &operation.link, [&operation, isHangUp] {
                    if (isHangUp) {
                        operation.bus.cut();
                    } else {
                        operation.link.stop();
                    }
                });
                return kSilence;
            }
            return std::nullopt;
        });
        QVERIFY(operation.connectLink());
        const QString path = operation.sandbox.path("out.csv");
        if (isImport) {
            QVERIFY(
                operation.runImport(line("1", "A") + line("2", "B") + line("10", "C") + extraLine));
        } else {
            QVERIFY(operation.runExport(path));
            QCOMPARE(Sandbox::readFile(path),
                     settingscsv::fileHead().toUtf8() + "1;LDB 01;1;1;10;1;0;0;0;20;LDB 1.07\n\n");
        }
        QCoreApplication::processEvents();
        QCOMPARE(operation.statuses.size(), 2);
        QCOMPARE(operation.statuses.constLast(), end);
        const QString failure = isImport
                                    ? "Line 3: ID 10 (read as 10 hexadecimal, address 16): "
                                      "the connection ended before it was written"
                                    : "LDB 10 (address 16): the connection ended before its answer";
        QVERIFY2(operation.job->failures().contains(failure),
                 qPrintable(operation.job->failureText()()));
    }

    void nothingIsWrittenBeforeTheYes()
    {
        Operation operation({"01", "10"});
        QVERIFY(operation.connectLink());
        operation.onPlan = nullptr;
        operation.job->importDeviceSettings(
            operation.fileWith(line("1", "A") + line("10", "B") + line("A4", "C")));
        WAIT_VERIFY(operation.isPlanned);
        QVERIFY(operation.settle());
        QCOMPARE(operation.bus.writes(), QList<QByteArray>());
        QCOMPARE(operation.plan.ldbsToWrite(), 2);
        QCOMPARE(operation.plan.problems.size(), std::size_t(1));
        // And nothing after a no.
        operation.job->stop();
        QVERIFY(operation.isStopped);
        QVERIFY(operation.settle());
        QCOMPARE(operation.bus.writes(), QList<QByteArray>());
        QCOMPARE(operation.statuses, QList<Status>{Status::ImportStarted});
    }

    void writesOnlyWhatDiffers()
    {
        Operation operation({"01", "02", "03"});
        QVERIFY(operation.connectLink());
        // The other switches of the byte and the name stay; of the LDB 02 nothing differs.
        QVERIFY(operation.runImport("1;LDB 01;1;1;12;1;0;1;0;20;F\n"
                                    "2;LDB 02;1;1;10;1;0;0;0;20;F\n"
                                    "3;Hall;1;1;10;1;0;0;0;20;F\n"));
        QCOMPARE(operation.statuses.constLast(), Status::ImportFinished);
        QCOMPARE(operation.bus.writes(),
                 (QList<QByteArray>{"FE017363140B", "FE017363170C00", "FE01737806",
                                    "FE03736302" + hex("Hall"), "FE03737806"}));
        QCOMPARE(operation.job->touchedLdbs(), (QStringList{"01", "03"}));
    }

    void leavesAnLdbAloneThatChanged()
    {
        Operation operation({"01", "02"});
        QVERIFY(operation.connectLink());
        operation.onPlan = [&] {
            operation.bus.change("02", "03", "1F00"); // by somebody else, meanwhile
            operation.job->write();
        };
        QVERIFY(operation.runImport(line("1", "A") + line("2", "B")));
        QCOMPARE(operation.statuses.constLast(), Status::ImportFailed);
        QCOMPARE(operation.job->failures(),
                 QStringList("Line 2: ID 2 (read as 2 hexadecimal, address 2): "
                             "its settings have changed since they were shown"));
        QCOMPARE(operation.bus.writes(), writesOf("01", "A"));
    }

    void ownExportFitsWhenReadAsDecimal()
    {
        const QStringList ldbs{"03", "0A", "10", "A4"};
        Operation operation(ldbs);
        QVERIFY(operation.connectLink());
        const QString path = operation.sandbox.path("out.csv");
        QVERIFY(operation.runExport(path));
        operation.bus.change("A4", "03", "1E00"); // what the import is to put back
        operation.statuses.clear();
        operation.useNewJob();
        std::vector<ImportPlan> plans;
        operation.onPlan = [&] {
            operation.job->planWith(IdReading::Decimal);
            plans.push_back(operation.job->plan());
            operation.job->write();
        };
        operation.job->importDeviceSettings(path);
        QVERIFY(operation.waitForEnd());
        // In hexadecimal 10h would get the name of 0Ah; it is said that decimal fits.
        QVERIFY(operation.plan.names.isAgainst(IdReading::Hexadecimal));
        QCOMPARE(operation.plan.names.hexadecimal, 1);
        QCOMPARE(operation.plan.names.decimal, 4);
        QCOMPARE(operation.plan.reading, IdReading::Hexadecimal);
        QVERIFY(!plans.at(0).names.isAgainst(IdReading::Decimal));
        QCOMPARE(operation.statuses.constLast(), Status::ImportFinished);
        QCOMPARE(operation.bus.writes(), (QList<QByteArray>{"FEA47363031400", "FEA4737806"}));
    }

    void stopsBehindTheLdbUnderWay_data()
    {
        const Table<bool, QString> row("isImport", "told");
        row("import", true, "Done: 01, 02\nNot begun: 03, 04");
        row("export", false, "Done: 01, 02, 03, 04\nNot begun: none");
    }

    void stopsBehindTheLdbUnderWay()
    {
        QFETCH(bool, isImport);
        QFETCH(QString, told);
        Operation operation({"01", "02", "03", "04"});
        bool isAsked = false;
        operation.bus.setScript([&](const QByteArray& body) -> std::optional<QByteArray> {
            if (isRequest(body, "02", isImport ? "736302" : "737201") && operation.isPlanned &&
                !std::exchange(isAsked, true)) {
                operation.job->stop();
            }
            return std::nullopt;
        });
        QVERIFY(operation.connectLink());
        if (isImport) {
            operation.job->importDeviceSettings(operation.fileWith(
                line("1", "A") + line("2", "B") + line("3", "C") + line("4", "D")));
        } else {
            operation.isPlanned = true;
            operation.job->exportDeviceSettings(operation.sandbox.path("out.csv"));
        }
        WAIT_VERIFY(operation.isStopped);
        QCOMPARE(operation.job->stopText()(), told);
        QVERIFY(operation.settle());
        QCOMPARE(operation.statuses.size(), 1);
        QCOMPARE(operation.bus.writes(),
                 isImport ? writesOf("01", "A") + writesOf("02", "B") : QList<QByteArray>());
    }

    /// Each line that is not done is named, also where that is what the user wanted.
    void tellsWhatWasLeftOut()
    {
        Operation operation({"01", "02", "03"});
        QVERIFY(operation.connectLink());
        operation.onPlan = [&] {
            const LdbSettings present = operation.job->bus().settings.at("01");
            LdbSettings wanted = present;
            wanted.name = "A";
            operation.job->write(
                std::vector<LdbChange>{{"01", {wanted, {LdbField::Name}, present, false}}});
        };
        QVERIFY(operation.runImport(line("1", "A") + line("2", "B") + line("3", "C") +
                                    line("1G", "D")));
        const QString told = operation.job->failureText()();
        QVERIFY2(told.startsWith("Done: 1 of 4 LDB"), qPrintable(told));
        for (const char* one : {"Line 1: ", "Line 2: ", "Line 3: ", "Line 4: "}) {
            QCOMPARE(told.contains(one), qstrcmp(one, "Line 1: ") != 0);
        }
    }

    void isCancelled()
    {
        for (const bool isDestroyed : {false, true}) {
            Operation operation({"01", "02", "03", "04", "05", "06"});
            operation.bus.setScript([&](const QByteArray& body) -> std::optional<QByteArray> {
                if (isRequest(body, "01", "736314")) {
                    isDestroyed ? operation.job.reset() : operation.job->cancel();
                }
                return std::nullopt;
            });
            QVERIFY(operation.connectLink());
            operation.job->importDeviceSettings(
                operation.fileWith(line("1", "A") + line("2", "A") + line("3", "A") +
                                   line("4", "A") + line("5", "A") + line("6", "A")));
            WAIT_VERIFY(operation.bus.writes().size() >= 5);
            QVERIFY(operation.settle());

            QCOMPARE(operation.statuses, QList<Status>{Status::ImportStarted});
            // No LDB is left half written, and most were never begun.
            const QList<QByteArray> writes = operation.bus.writes();
            QCOMPARE(writes.size() % 5, 0);
            QVERIFY(writes.size() <= 15);
            QCOMPARE(writes.mid(0, 5), writesOf("01", "A"));
        }
    }

    void lostLdbIsNotConnected()
    {
        Operation operation({"01", "02"}, "[SerialSettings]\nDISCONNECTED_COUNT=0\n"
                                          "BYTES_RECEIVED_WAIT_TIME=1000\n");
        QVERIFY(operation.connectLink());
        QSignalSpy lost(&operation.link, &SerialLink::ldbDisconnected);
        WAIT_COMPARE(operation.link.stateOf("02"), LdbState::Quiescent);
        operation.bus.setPresent({"01"});
        WAIT_COMPARE(lost.size(), 1);

        QVERIFY(operation.runImport(line("1", "A") + line("2", "B")));
        QCOMPARE(operation.statuses.constLast(), Status::ImportFailedNotAllConnected);
        QCOMPARE(operation.job->failures(),
                 QStringList("Line 2: ID 2 (read as 2 hexadecimal, address 2): this LDB is lost"));
        QCOMPARE(operation.bus.writes(), writesOf("01", "A"));

        operation.statuses.clear();
        operation.useNewJob();
        QVERIFY(operation.runExport("out.csv"));
        QCOMPARE(operation.statuses.constLast(), Status::ExportFailed);
        QCOMPARE(operation.job->failures(), QStringList("LDB 02 (address 2): not connected"));
        QVERIFY(Sandbox::readFile("out.csv").endsWith("1;A;1;1;5;0;1;0;1;30;LDB 1.07\n\n"));
    }
};

REGISTER_TEST(TestImportExport, InVirtualTime<QCoreApplication>)
#include "tst_importexport.moc"
