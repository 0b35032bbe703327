#include "recording/recordingreader.h"
#include "recording/recordwriter.h"
#include "tests/recording/recordedbus.h"
#include "tests/support/sandbox.h"
#include "tests/support/testprogram.h"

#include <QSqlDatabase>
#include <QSqlQuery>

#include <limits>

using Kind = RecordingNotice::Kind;
using Kinds = std::vector<RecordingNotice::Kind>;

namespace {

const QDateTime kNoon(QDate(2026, 3, 4), QTime(12, 0));
constexpr TimeSpan kAll{0, std::numeric_limits<qint64>::max()};

QString fileOf(const Sandbox& sandbox, const char* name)
{
    return sandbox.path(QStringLiteral("recordings/") + name);
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

/// Writer and reader together: what is recorded is what is read.
class TestRecording : public TestCase
{
    Q_OBJECT
private slots:
    void readsBackWhatWasTold()
    {
        const Sandbox sandbox;
        const QString folder = sandbox.path("recordings");
        RecordWriter writer(optionsFor(folder));
        RecordedBus bus(kNoon);
        QList<QList<QStringList>> expected;
        bus.start({"0A", "2B", "30"});
        bus.ask("0A", ExchangeKind::Probe, {}, ExchangeOutcome::Silent);
        bus.beginRound();
        const qint64 begin = bus.now;
        expected << bus.status("0A");
        bus.name("0A", QString::fromUtf8("Halle Süd"));
        bus.ask("0A", ExchangeKind::Name, "48616C6C65");
        Exchange damaged = bus.ask("2B", ExchangeKind::Status, "12", ExchangeOutcome::Damaged);
        expected << bus.loss("2B");
        bus.now += RecordedBus::kSecond;
        bus.beginRound();
        const Exchange write = [&bus] {
            bus.ask("0A", ExchangeKind::Write, {}, ExchangeOutcome::Silent);
            auto& exchange = std::get<input::Told>(bus.inputs.back()).exchange;
            exchange.request = TestBus::framed("FE0A7363020005");
            return exchange;
        }();
        expected << bus.status("0A", RecordedBus::loopOpen(true));
        const qint64 middle = bus.now;
        expected << bus.status("2B");
        writer.take(bus.take());

        // While it is being written:
        RecordingReader reader(folder);
        const auto records = reader.records({}, kAll);
        QCOMPARE(records.size(), std::size_t(expected.size()));
        for (int i = 0; i < expected.size(); ++i) {
            QCOMPARE(records[std::size_t(i)].rows, expected.at(i));
        }
        QCOMPARE(reader.records("0A", kAll, 1).front().rows, expected.at(2));
        QCOMPARE(reader.nextRecord(records[0].at, "0A"), std::make_optional(records[2].at));
        QCOMPARE(reader.formerRecord(records[2].at), std::make_optional(records[1].at));
        QVERIFY(!reader.nextRecord(records.back().at));

        const auto exchanges = reader.exchanges({}, kAll);
        QCOMPARE(exchanges.size(), std::size_t(7));
        QCOMPARE(exchanges[0].request, TestBus::framed("FE0A70"));
        QCOMPARE(exchanges[0].flight, qint64(-1));
        QCOMPARE(exchanges[1].flight, qint64(31000));
        QCOMPARE(exchanges[1].sentAt, begin);
        QCOMPARE(exchanges[3].answer, damaged.answer);
        QCOMPARE(exchanges[3].outcome, ExchangeOutcome::Damaged);
        QCOMPARE(exchanges[4].request, write.request);

        const auto before = reader.stateAt(begin - 1);
        QCOMPARE(before.size(), std::size_t(3));
        QVERIFY(before[0].rows.isEmpty());
        const auto then = reader.stateAt(middle - 1);
        QCOMPARE(then[0].rows, expected.at(2));
        QCOMPARE(then[1].rows, expected.at(1));
        QCOMPARE(then[2].hexId, "30");
        QVERIFY(then[2].rows.isEmpty());
        QCOMPARE(reader.stateAt(middle)[1].rows, expected.at(3));

        // A reader that is open sees what comes later.
        bus.stop();
        writer.take(bus.take());
        const auto runs = reader.runs(kAll);
        QCOMPARE(runs.size(), std::size_t(1));
        QVERIFY(runs[0].isEnded);
        QCOMPARE(runs[0].until, bus.now);
        QCOMPARE(runs[0].found, QStringList({"0A", "2B", "30"}));

        const auto minutes = reader.minutes({}, kAll);
        QCOMPARE(minutes.size(), std::size_t(2));
        QCOMPARE(minutes[0].hexId, "0A");
        QCOMPARE(minutes[0].asked, 5);
        QCOMPARE(minutes[0].good, 3);
        QCOMPARE(minutes[0].silent, 2);
        QCOMPARE(minutes[0].sumOfFlights, qint64(93000));
        QCOMPARE(minutes[1].damaged, 1);
        QCOMPARE(minutes[1].told, 2);
        QVERIFY(reader.takeNotices().empty());
        QVERIFY(writer.takeNotices().empty());
    }

    void leavesAFileThatOpensFromWhereNothingCanBeWritten()
    {
        const Sandbox sandbox;
        RecordWriter writer(optionsFor(sandbox.path("recordings")));
        RecordedBus bus(kNoon);
        bus.start({"0A"});
        bus.status("0A");
        writer.take(bus.take());
        const QString path = writer.path();
        QVERIFY(QFile::exists(path + "-wal"));
        writer.finish();
        QCOMPARE(QDir(sandbox.path("recordings")).entryList(QDir::Files),
                 QStringList{"recording-2026-03-04.sqlite"});
        // Bytes 18 and 19 of the header: 1 is a rollback journal, 2 a write-ahead log.
        QCOMPARE(Sandbox::readFile(path).mid(18, 2), QByteArray("\1\1"));
    }

    void beginsAFileEachDayThatCanBeReadAlone()
    {
        const Sandbox sandbox;
        RecordWriter writer(optionsFor(sandbox.path("recordings")));
        RecordedBus bus(QDateTime(QDate(2026, 3, 4), QTime(23, 59, 59, 900)));
        bus.start({"0A", "2B"});
        bus.beginRound();
        bus.name("0A", "North");
        bus.status("0A");
        const auto lastOf2B = bus.status("2B");
        const auto first = bus.status("0A"); // of the round that began yesterday
        writer.take(bus.take());
        QCOMPARE(writer.path(), fileOf(sandbox, "recording-2026-03-05.sqlite"));

        RecordingReader today(writer.path());
        const auto alone = today.records({}, kAll);
        QCOMPARE(alone.size(), std::size_t(1));
        QCOMPARE(alone[0].rows, first);
        QCOMPARE(today.stateAt(bus.now).size(), std::size_t(2));
        QCOMPARE(today.runs(kAll).size(), std::size_t(1));

        RecordingReader both(sandbox.path("recordings"));
        QCOMPARE(both.records({}, kAll).size(), std::size_t(3));
        QCOMPARE(both.runs(kAll).size(), std::size_t(1));
        const auto state = both.stateAt(bus.now);
        QCOMPARE(state[0].rows, first);
        QCOMPARE(state[1].rows, lastOf2B);
    }

    void findsWhatWasLongAgo()
    {
        const Sandbox sandbox;
        RecordWriter writer(optionsFor(sandbox.path("recordings")));
        RecordedBus bus(kNoon);
        bus.start({"0A", "2B"});
        bus.beginRound();
        const auto longAgo = bus.status("2B");
        QList<QStringList> last;
        for (int i = 0; i < 10000; ++i) {
            last = bus.status("0A"); // polled alone
        }
        writer.take(bus.take());
        RecordingReader reader(sandbox.path("recordings"));
        const auto state = reader.stateAt(bus.now);
        QCOMPARE(state[0].rows, last);
        QCOMPARE(state[1].rows, longAgo);
        QCOMPARE(reader.records("0A", kAll, 1200).size(), std::size_t(1200));
    }

    void sumsMinutesUp()
    {
        const Sandbox sandbox;
        RecordWriter writer(optionsFor(sandbox.path("recordings")));
        RecordedBus bus(QDateTime(QDate(2026, 3, 4), QTime(23, 50)));
        bus.start({"0A"});
        for (int minute = 0; minute < 20; ++minute) { // into another day
            const qint64 begin = bus.now;
            bus.status("0A");
            std::get<input::Told>(bus.inputs.back()).exchange.flight = 1000 + minute;
            bus.ask("0A", ExchangeKind::Name, {}, ExchangeOutcome::Silent);
            bus.now = begin + 60 * RecordedBus::kSecond;
        }
        writer.take(bus.take());
        RecordingReader reader(sandbox.path("recordings"));
        const qint64 begin = reader.extent()->from;
        QCOMPARE(reader.minutes({}, kAll).size(), std::size_t(20));
        const auto sums = reader.minutes("0A", {begin, bus.now}, 15);
        QCOMPARE(sums.size(), std::size_t(2));
        QCOMPARE(sums[0].at, begin);
        QCOMPARE(sums[0].asked, 30);
        QCOMPARE(sums[0].good, 15);
        QCOMPARE(sums[0].silent, 15);
        QCOMPARE(sums[0].leastFlight, qint64(1000));
        QCOMPARE(sums[0].mostFlight, qint64(1014));
        QCOMPARE(sums[1].asked, 10);
    }

    void raisesAKeyWhereTwoMeet()
    {
        const Sandbox sandbox;
        RecordWriter writer(optionsFor(sandbox.path("recordings")));
        RecordedBus bus(kNoon);
        bus.start({"0A"});
        for (int i = 0; i < 3; ++i) {
            bus.status("0A");
            bus.now -= 50000;
        }
        writer.take(bus.take());
        const auto exchanges = RecordingReader(sandbox.path("recordings")).exchanges({}, kAll);
        QCOMPARE(exchanges.size(), std::size_t(3));
        QCOMPARE(exchanges[2].sentAt, bus.now + 2);
    }

    void givesARecordItsOwnTime()
    {
        const Sandbox sandbox;
        RecordWriter writer(optionsFor(sandbox.path("recordings")));
        RecordedBus bus(kNoon);
        bus.start({"0A"});
        bus.beginRound();
        const auto one = bus.status("0A");
        const QDateTime ofRound = bus.roundWall;
        bus.roundWall = kNoon.addSecs(7);
        bus.inputs.push_back(input::Round{bus.now, bus.roundWall.toMSecsSinceEpoch(),
                                          bus.roundWall.offsetFromUtc(), true});
        const auto extra = bus.status("0A");
        std::get<input::Told>(bus.inputs.back()).exchange.isExtra = true;
        bus.roundWall = ofRound;
        const auto two = bus.status("0A");
        writer.take(bus.take());
        const auto records = RecordingReader(sandbox.path("recordings")).records("0A", kAll);
        QCOMPARE(records.size(), std::size_t(3));
        QCOMPARE(records[0].rows, one);
        QCOMPARE(records[1].rows, extra);
        QVERIFY(records[1].isExtra);
        QCOMPARE(records[2].rows, two);
        QVERIFY(!records[2].isExtra);
    }

    void restartsNeitherEndNorDoubleAnEvent()
    {
        const Sandbox sandbox;
        RecordedBus bus(kNoon);
        qint64 last = 0;
        const auto live = [&](const QByteArray& first, const QByteArray& second) {
            RecordWriter writer(optionsFor(sandbox.path("recordings")));
            bus.start({"0A"});
            bus.beginRound();
            bus.status("0A", first);
            last = bus.now;
            bus.status("0A", second);
            bus.stop();
            writer.take(bus.take());
            bus.now += 100 * RecordedBus::kSecond;
            writer.finish();
        };
        const QByteArray open = RecordedBus::loopOpen(true);
        const QByteArray memory = RecordedBus::loopOpen(false, true);
        live(TestBus::status(), open);
        const qint64 begun = last;
        live(open, open);
        bus.now = QDateTime(QDate(2026, 3, 6), QTime(8, 0)).toMSecsSinceEpoch() * 1000;
        live(open, open);
        live(open, memory);
        std::vector<RecordedEvent> faults;
        for (const auto& event : RecordingReader(sandbox.path("recordings")).events(kAll)) {
            if (event.place != FaultPlace::None) {
                faults.push_back(event);
            }
        }
        QCOMPARE(faults.size(), std::size_t(2));
        QCOMPARE(faults[0].kind, EventKind::FaultBegun);
        QCOMPARE(faults[1].kind, EventKind::FaultEnded);
        QCOMPARE(faults[1].since, begun);
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
        const Sandbox sandbox;
        const QString folder = sandbox.path("recordings");
        qint64 past = 0;
        {
            RecordWriter writer(optionsFor(folder));
            RecordedBus bus(kNoon);
            bus.start({"0A"});
            bus.beginRound();
            bus.status("0A");
            past = bus.now;
            bus.now += RecordedBus::kSecond;
            bus.status("0A");
            bus.stop();
            writer.take(bus.take());
            writer.finish();
        }
        RecordWriter writer(optionsFor(folder));
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
        RecordingReader day(fileOf(sandbox, "recording-2026-03-04.sqlite"));
        const auto events = day.events({past, past + 1});
        QCOMPARE(events.size(), std::size_t(1));
        QCOMPARE(events[0].text, mark.text);
        RecordingReader all(folder);
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
        const Sandbox sandbox;
        const QString folder = sandbox.path("recordings");
        const QString path = fileOf(sandbox, "recording-2026-03-04.sqlite");
        QVERIFY(QDir().mkpath(folder));
        if (statement.isEmpty()) {
            sandbox.writeFile(path, QByteArray(5000, 'x'));
        } else if (statement.startsWith("PRAGMA")) {
            RecordWriter former(optionsFor(folder));
            RecordedBus bus(kNoon.addSecs(-3600));
            bus.start({});
            former.take(bus.take());
            former.finish();
            execute(path, statement);
        } else {
            execute(path, statement);
        }
        const QByteArray content = Sandbox::readFile(path);

        RecordWriter writer(optionsFor(folder));
        RecordedBus bus(kNoon);
        bus.start({"0A"});
        bus.beginRound();
        const auto rows = bus.status("0A");
        writer.take(bus.take());
        QCOMPARE(kindsOf(writer.takeNotices()), Kinds{static_cast<Kind>(kind)});
        QCOMPARE(writer.path(), fileOf(sandbox, "recording-2026-03-04_2.sqlite"));
        QCOMPARE(Sandbox::readFile(path), content);

        RecordingReader reader(folder);
        QCOMPARE(reader.records({}, kAll).size(), std::size_t(1));
        QCOMPARE(reader.records({}, kAll)[0].rows, rows);
        const auto notices = reader.takeNotices();
        QCOMPARE(notices.size(), std::size_t(1));
        QCOMPARE(notices[0].kind, kind == int(Kind::Newer) ? Kind::NewerToRead : Kind::CannotRead);
        QVERIFY(notices[0].text().contains("recording-2026-03-04.sqlite"));
    }

    void twoWindowsHaveAFileEach()
    {
        const Sandbox sandbox;
        RecordedBus bus(kNoon);
        RecordWriter one(optionsFor(sandbox.path("recordings")));
        RecordWriter two(optionsFor(sandbox.path("recordings")));
        bus.start({"0A"});
        bus.status("0A");
        one.take(bus.take());
        bus.start({"0A"});
        bus.status("0A");
        two.take(bus.take());
        bus.status("0A");
        one.take(bus.take());
        QCOMPARE(kindsOf(two.takeNotices()), Kinds{Kind::OtherWindow});
        QVERIFY(one.takeNotices().empty());
        QCOMPARE(RecordingReader(sandbox.path("recordings")).exchanges({}, kAll).size(),
                 std::size_t(3));
    }

    void aClockSetBackBeginsAnotherFile()
    {
        const Sandbox sandbox;
        RecordWriter writer(optionsFor(sandbox.path("recordings")));
        RecordedBus bus(kNoon);
        bus.start({"0A"});
        bus.beginRound();
        const auto first = bus.status("0A");
        bus.stop();
        writer.take(bus.take());
        bus.now -= 3600 * RecordedBus::kSecond;
        bus.start({"0A"});
        bus.beginRound();
        const auto second = bus.status("0A");
        writer.take(bus.take());
        QCOMPARE(kindsOf(writer.takeNotices()), Kinds{Kind::ClockSetBack});
        RecordingReader reader(sandbox.path("recordings"));
        const auto records = reader.records({}, kAll);
        QCOMPARE(records.size(), std::size_t(2));
        QCOMPARE(records[0].rows, second);
        QCOMPARE(records[1].rows, first);
    }

    void aRemovedFileIsSaidAndAnotherIsBegun()
    {
        const Sandbox sandbox;
        RecordWriter writer(optionsFor(sandbox.path("recordings")));
        RecordedBus bus(kNoon);
        bus.start({"0A"});
        bus.beginRound();
        bus.name("0A", "North");
        bus.status("0A");
        writer.take(bus.take());
        QVERIFY(QDir(sandbox.path("recordings")).removeRecursively());
        const auto rows = bus.status("0A");
        {
            const ExpectWarning lockIsGone("lock file");
            writer.take(bus.take());
        }
        QCOMPARE(kindsOf(writer.takeNotices()), Kinds{Kind::Removed});
        RecordingReader reader(sandbox.path("recordings"));
        QCOMPARE(reader.records({}, kAll).size(), std::size_t(1));
        QCOMPARE(reader.records({}, kAll)[0].rows, rows);
        QCOMPARE(reader.runs(kAll).size(), std::size_t(1));
    }

    void whatCannotBeWrittenWaitsAndThenIsAGap()
    {
        const Sandbox sandbox;
        sandbox.writeFile("recordings", "in the way of a folder");
        RecordWriter writer(optionsFor(sandbox.path("recordings")));
        RecordedBus bus(kNoon);
        bus.start({"0A"});
        bus.beginRound();
        bus.status("0A");
        writer.take(bus.take());
        QCOMPARE(kindsOf(writer.takeNotices()), Kinds{Kind::CannotWrite});
        for (int i = 1; i < RecordWriter::kMostWaiting; ++i) {
            bus.status("0A");
        }
        const qint64 full = bus.now;
        for (int i = 0; i < 7; ++i) {
            bus.status("0A");
        }
        writer.take(bus.take());
        QVERIFY(writer.takeNotices().empty()); // once an outage

        QVERIFY(QFile::remove(sandbox.path("recordings")));
        bus.now += 10 * RecordedBus::kSecond;
        bus.beginRound();
        writer.take(bus.take());
        QCOMPARE(kindsOf(writer.takeNotices()), Kinds{Kind::GoesOn});
        RecordingReader reader(sandbox.path("recordings"));
        QCOMPARE(reader.exchanges({}, kAll).size(), std::size_t(RecordWriter::kMostWaiting));
        const auto gaps = reader.gaps(kAll);
        QCOMPARE(gaps.size(), std::size_t(1));
        QCOMPARE(gaps[0].from, full);
        QCOMPARE(gaps[0].to, bus.now);
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
        const Sandbox sandbox;
        const QString folder = sandbox.path("recordings");
        for (const int day : {1, 2, 20}) {
            auto options = optionsFor(folder);
            options.limits.days = 10;
            RecordWriter writer(options);
            RecordedBus bus(QDateTime(QDate(2026, 3, day), QTime(12, 0)));
            bus.start({"0A"});
            writer.take(bus.take());
            writer.finish();
            if (day == 1) {
                QCOMPARE(recordingfolder::setKept(folder, QDate(2026, 3, 1), true), QString());
            }
        }
        QVERIFY(QFile::exists(fileOf(sandbox, "recording-2026-03-01.sqlite")));
        QVERIFY(!QFile::exists(fileOf(sandbox, "recording-2026-03-02.sqlite")));
        QVERIFY(QFile::exists(fileOf(sandbox, "recording-2026-03-20.sqlite")));
    }

    void copiesWhatIsBeingWritten()
    {
        const Sandbox sandbox;
        RecordWriter writer(optionsFor(sandbox.path("recordings")));
        RecordedBus bus(kNoon);
        bus.start({"0A"});
        bus.beginRound();
        bus.status("0A");
        writer.take(bus.take());
        RecordingReader reader(sandbox.path("recordings"));
        QVERIFY(QDir().mkpath(sandbox.path("copy")));
        QCOMPARE(reader.copyTo(sandbox.path("copy"), kAll), QString());
        QCOMPARE(RecordingReader(sandbox.path("copy")).records({}, kAll).size(), std::size_t(1));
        QVERIFY(!reader.copyTo(sandbox.path("copy"), kAll).isEmpty());
    }
};

REGISTER_TEST(TestRecording, QCoreApplication)
#include "tst_recording.moc"
