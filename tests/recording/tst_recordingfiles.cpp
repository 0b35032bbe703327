#include "recording/recordingreader.h"
#include "tests/recording/tape.h"
#include "tests/support/testprogram.h"

#include <QSqlDatabase>
#include <QSqlQuery>

#include <limits>

using Kind = RecordingNotice::Kind;
using Kinds = std::vector<RecordingNotice::Kind>;

namespace {

constexpr TimeSpan kAll{0, std::numeric_limits<qint64>::max()};

QString fileOf(const char* name)
{
    return recordings() + QLatin1Char('/') + name;
}

void execute(const QString& path, const QString& statement)
{
    {
        auto database = QSqlDatabase::addDatabase("QSQLITE", "test");
        database.setDatabaseName(path);
        QVERIFY(database.open());
        QSqlQuery query(database);
        QVERIFY(query.exec(statement));
    }
    QSqlDatabase::removeDatabase("test");
}

} // namespace

/// Which files there are, what becomes of a damaged, removed or full one, and which go.
class TestRecordingFiles : public TestCase
{
    Q_OBJECT
private slots:
    void leavesAFileThatOpensFromWhereNothingCanBeWritten()
    {
        Tape tape;
        tape.bus.status("0A");
        tape.take();
        const QString path = tape.writer.path();
        QVERIFY(QFile::exists(path + "-wal"));
        tape.writer.finish();
        QCOMPARE(QDir(recordings()).entryList(QDir::Files),
                 QStringList{"recording-2026-03-04.sqlite"});
        // Bytes 18 and 19 of the header: 1 is a rollback journal, 2 a write-ahead log.
        QCOMPARE(Sandbox::readFile(path).mid(18, 2), QByteArray("\1\1"));
    }

    void beginsAFileEachDayThatCanBeReadAlone()
    {
        Tape tape(QDateTime(QDate(2026, 3, 4), QTime(23, 59, 59, 900)), {"0A", "2B"});
        tape.bus.name("0A", "North");
        tape.bus.status("0A");
        const auto lastOf2B = tape.bus.status("2B");
        const auto first = tape.bus.status("0A"); // of the round that began yesterday
        tape.take();
        QCOMPARE(tape.writer.path(), fileOf("recording-2026-03-05.sqlite"));

        RecordingReader today(tape.writer.path());
        const auto alone = today.records({}, kAll);
        QCOMPARE(alone.size(), std::size_t(1));
        QCOMPARE(alone[0].rows, first);
        QCOMPARE(today.stateAt(tape.bus.now).size(), std::size_t(2));
        QCOMPARE(today.runs(kAll).size(), std::size_t(1));

        RecordingReader both(recordings());
        QCOMPARE(both.records({}, kAll).size(), std::size_t(3));
        QCOMPARE(both.runs(kAll).size(), std::size_t(1));
        const auto state = both.stateAt(tape.bus.now);
        QCOMPARE(state[0].rows, first);
        QCOMPARE(state[1].rows, lastOf2B);
    }

    /// A mark belongs to the moment that was shown when it was set.
    void marksGoIntoTheirOwnDay_data()
    {
        addColumns<bool>("isRecording");
        QTest::newRow("while another day is recorded") << true;
        QTest::newRow("while nothing is recorded") << false;
    }

    void marksGoIntoTheirOwnDay()
    {
        QFETCH(bool, isRecording);
        qint64 past = 0;
        {
            Tape tape;
            tape.bus.status("0A");
            past = tape.bus.now;
            tape.bus.now += RecordedBus::kSecond;
            tape.bus.status("0A");
            tape.bus.stop();
            tape.take();
            tape.writer.finish();
        }
        RecordWriter writer(optionsFor(recordings()));
        RecordedBus bus(kNoon.addDays(2));
        if (isRecording) {
            bus.start({"2B"});
            bus.beginRound();
            bus.status("2B");
            writer.take(bus.take());
            writer.takeEvents();
        }
        RecordedEvent mark;
        mark.at = past;
        mark.kind = EventKind::Mark;
        mark.text = "plug pulled";
        writer.take({mark});
        const auto told = writer.takeEvents();
        QCOMPARE(told.size(), std::size_t(1));
        QVERIFY(told[0] == mark);
        if (isRecording) {
            bus.status("2B");
            writer.take(bus.take());
        }
        writer.finish();
        // The day's file alone has it, and what it says of that moment is as before.
        RecordingReader day(fileOf("recording-2026-03-04.sqlite"));
        const auto events = day.events({past, past + 1});
        QCOMPARE(events.size(), std::size_t(1));
        QCOMPARE(events[0].text, mark.text);
        RecordingReader all(recordings());
        QCOMPARE(all.events({past, past + 1}).size(), std::size_t(1));
        QCOMPARE(all.stateAt(past).size(), std::size_t(1));
        QCOMPARE(all.exchanges("2B", kAll).size(), std::size_t(isRecording ? 2 : 0));
        // The last ones of a span, for who goes back from it by pages.
        const auto lastOnes = all.events({0, past + 1}, 1);
        QCOMPARE(lastOnes.size(), std::size_t(1));
        QCOMPARE(lastOnes[0].kind, EventKind::Mark);
    }

    void goesOnBesideAFileThatItCannotUse_data()
    {
        addColumns<QString, int>("statement", "kind");
        QTest::newRow("no recording") << "" << int(Kind::Damaged);
        QTest::newRow("something else's") << "CREATE TABLE mine(x)" << int(Kind::Damaged);
        QTest::newRow("of a later version") << "PRAGMA user_version=99" << int(Kind::Newer);
    }

    void goesOnBesideAFileThatItCannotUse()
    {
        QFETCH(QString, statement);
        QFETCH(int, kind);
        const QString path = fileOf("recording-2026-03-04.sqlite");
        QVERIFY(QDir().mkpath(recordings()));
        if (statement.isEmpty()) {
            m_sandbox->writeFile(path, QByteArray(5000, 'x'));
        } else if (statement.startsWith("PRAGMA")) {
            Tape former(kNoon.addSecs(-3600), {});
            former.take();
            former.writer.finish();
        }
        if (!statement.isEmpty()) {
            execute(path, statement);
        }
        const QByteArray content = Sandbox::readFile(path);

        Tape tape;
        const auto rows = tape.bus.status("0A");
        tape.take();
        QCOMPARE(kindsOf(tape.writer.takeNotices()), Kinds{static_cast<Kind>(kind)});
        QCOMPARE(tape.writer.path(), fileOf("recording-2026-03-04_2.sqlite"));
        QCOMPARE(Sandbox::readFile(path), content);

        RecordingReader reader(recordings());
        QCOMPARE(reader.records({}, kAll).size(), std::size_t(1));
        QCOMPARE(reader.records({}, kAll)[0].rows, rows);
        const auto notices = reader.takeNotices();
        QCOMPARE(notices.size(), std::size_t(1));
        QCOMPARE(notices[0].kind, kind == int(Kind::Newer) ? Kind::NewerToRead : Kind::CannotRead);
        QVERIFY(notices[0].text().contains("recording-2026-03-04.sqlite"));
    }

    void twoWindowsHaveAFileEach()
    {
        Tape one;
        one.bus.status("0A");
        one.take();
        Tape two;
        two.bus.now = one.bus.now;
        two.bus.status("0A");
        two.take();
        one.bus.status("0A");
        one.take();
        QCOMPARE(kindsOf(two.writer.takeNotices()), Kinds{Kind::OtherWindow});
        QVERIFY(one.writer.takeNotices().empty());
        QCOMPARE(RecordingReader(recordings()).exchanges({}, kAll).size(), std::size_t(3));
    }

    void aClockSetBackBeginsAnotherFile()
    {
        Tape tape;
        const auto first = tape.bus.status("0A");
        tape.bus.stop();
        tape.take();
        tape.bus.now -= 3600 * RecordedBus::kSecond;
        tape.bus.start({"0A"});
        tape.bus.beginRound();
        const auto second = tape.bus.status("0A");
        tape.take();
        QCOMPARE(kindsOf(tape.writer.takeNotices()), Kinds{Kind::ClockSetBack});
        RecordingReader reader(recordings());
        const auto records = reader.records({}, kAll);
        QCOMPARE(records.size(), std::size_t(2));
        QCOMPARE(records[0].rows, second);
        QCOMPARE(records[1].rows, first);
    }

    void aRemovedFileIsSaidAndAnotherIsBegun()
    {
        Tape tape;
        tape.bus.name("0A", "North");
        tape.bus.status("0A");
        tape.take();
        QVERIFY(QDir(recordings()).removeRecursively());
        const auto rows = tape.bus.status("0A");
        {
            const ExpectWarning lockIsGone("lock file");
            tape.take();
        }
        QCOMPARE(kindsOf(tape.writer.takeNotices()), Kinds{Kind::Removed});
        RecordingReader reader(recordings());
        QCOMPARE(reader.records({}, kAll).size(), std::size_t(1));
        QCOMPARE(reader.records({}, kAll)[0].rows, rows);
        QCOMPARE(reader.runs(kAll).size(), std::size_t(1));
    }

    void whatCannotBeWrittenWaitsAndThenIsAGap()
    {
        m_sandbox->writeFile("recordings", "in the way of a folder");
        Tape tape;
        tape.bus.status("0A");
        tape.take();
        QCOMPARE(kindsOf(tape.writer.takeNotices()), Kinds{Kind::CannotWrite});
        for (int i = 1; i < RecordWriter::kMostWaiting; ++i) {
            tape.bus.status("0A");
        }
        const qint64 full = tape.bus.now;
        for (int i = 0; i < 7; ++i) {
            tape.bus.status("0A");
        }
        tape.take();
        QVERIFY(tape.writer.takeNotices().empty()); // once an outage

        QVERIFY(QFile::remove(recordings()));
        tape.bus.now += 10 * RecordedBus::kSecond;
        tape.bus.beginRound();
        tape.take();
        QCOMPARE(kindsOf(tape.writer.takeNotices()), Kinds{Kind::GoesOn});
        RecordingReader reader(recordings());
        QCOMPARE(reader.exchanges({}, kAll).size(), std::size_t(RecordWriter::kMostWaiting));
        const auto gaps = reader.gaps(kAll);
        QCOMPARE(gaps.size(), std::size_t(1));
        QCOMPARE(gaps[0].from, full);
        QCOMPARE(gaps[0].to, tape.bus.now);
        QCOMPARE(gaps[0].lost, 7);
    }

    void whatGoesIsWholeDaysOldestFirst_data()
    {
        const Table<int, qint64, QStringList> row("days", "bytes", "gone");
        row("nothing", 30, 1000, {});
        row("by age", 3, 1000, {"1", "1", "2"});
        row("by size", 30, 50, {"1", "1", "2"});
        row("never today", 1, 1, {"1", "1", "2", "4"});
    }

    void whatGoesIsWholeDaysOldestFirst()
    {
        QFETCH(int, days);
        QFETCH(qint64, bytes);
        QFETCH(QStringList, gone);
        std::vector<recordingfolder::DayFile> files;
        for (const int day : {1, 1, 2, 3, 4, 5}) { // 3 is kept
            files.push_back({QDate(2026, 3, day), 1, QString::number(day), 15});
        }
        QStringList found;
        for (const auto& file : recordingfolder::excess(files, {QDate(2026, 3, 3)},
                                                        QDate(2026, 3, 5), {days, bytes})) {
            found << file.path;
        }
        QCOMPARE(found, gone);
    }

    void deletesWhatIsTooOld()
    {
        for (const int day : {1, 2, 20}) {
            auto options = optionsFor(recordings());
            options.limits.days = 10;
            RecordWriter writer(options);
            RecordedBus bus(kNoon.addDays(day - kNoon.date().day()));
            bus.start({"0A"});
            writer.take(bus.take());
            writer.finish();
            if (day == 1) {
                QCOMPARE(recordingfolder::setKept(recordings(), QDate(2026, 3, 1), true),
                         QString());
            }
        }
        QVERIFY(QFile::exists(fileOf("recording-2026-03-01.sqlite")));
        QVERIFY(!QFile::exists(fileOf("recording-2026-03-02.sqlite")));
        QVERIFY(QFile::exists(fileOf("recording-2026-03-20.sqlite")));
    }

    void copiesWhatIsBeingWritten()
    {
        Tape tape;
        tape.bus.status("0A");
        tape.take();
        RecordingReader reader(recordings());
        QVERIFY(QDir().mkpath(m_sandbox->path("copy")));
        QCOMPARE(reader.copyTo(m_sandbox->path("copy"), kAll), QString());
        QCOMPARE(RecordingReader(m_sandbox->path("copy")).records({}, kAll).size(), std::size_t(1));
        QVERIFY(!reader.copyTo(m_sandbox->path("copy"), kAll).isEmpty());
    }
};

REGISTER_TEST(TestRecordingFiles, QCoreApplication)
#include "tst_recordingfiles.moc"
