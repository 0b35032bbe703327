#include "importexport/settingsbatch.h"
#include "importexport/settingscsv.h"
#include "tests/importexport/operation.h"
#include "tests/support/testprogram.h"

/// What an import plans, writes and says.
class TestImport : public TestCase
{
    Q_OBJECT
private slots:
    void init() override
    {
        TestCase::init();
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
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
        // The editor's tests prove what is told of each of the other commands.
        const Table<QByteArray, QByteArray, QString> row("request", "answer", "failure");
        row("settings unanswered", "737201", kSilence, "its present settings could not be read");
        row("flags refused", "736314", kNak,
            "not written: Earth Leakage Detection (refused), Earth Wire Open Detection (refused), "
            "Amplifier Detection (refused); the LDB reports other values than written: "
            "Earth Leakage Detection (on), Earth Wire Open Detection (off), "
            "Amplifier Detection (off)");
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
};

REGISTER_TEST(TestImport, InVirtualTime<QCoreApplication>)
#include "tst_import.moc"
