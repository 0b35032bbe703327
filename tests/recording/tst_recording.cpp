#include "recording/recordingreader.h"
#include "tests/recording/tape.h"
#include "tests/support/testprogram.h"

#include <limits>

namespace {

constexpr TimeSpan kAll{0, std::numeric_limits<qint64>::max()};

} // namespace

/// Writer and reader together: what is recorded is what is read.
class TestRecording : public TestCase
{
    Q_OBJECT
private slots:
    void readsBackWhatWasTold()
    {
        RecordWriter writer(optionsFor(recordings()));
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
        RecordingReader reader(recordings());
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

    void findsWhatWasLongAgo()
    {
        Tape tape(kNoon, {"0A", "2B"});
        const auto longAgo = tape.bus.status("2B");
        QList<QStringList> last;
        for (int i = 0; i < 10000; ++i) {
            last = tape.bus.status("0A"); // polled alone
        }
        tape.take();
        RecordingReader reader(recordings());
        const auto state = reader.stateAt(tape.bus.now);
        QCOMPARE(state[0].rows, last);
        QCOMPARE(state[1].rows, longAgo);
        QCOMPARE(reader.records("0A", kAll, 1200).size(), std::size_t(1200));
    }

    void sumsMinutesUp()
    {
        Tape tape(QDateTime(QDate(2026, 3, 4), QTime(23, 50)), {"0A"});
        for (int minute = 0; minute < 20; ++minute) { // into another day
            const qint64 begin = tape.bus.now;
            tape.bus.status("0A");
            std::get<input::Told>(tape.bus.inputs.back()).exchange.flight = 1000 + minute;
            tape.bus.ask("0A", ExchangeKind::Name, {}, ExchangeOutcome::Silent);
            tape.bus.now = begin + 60 * RecordedBus::kSecond;
        }
        tape.take();
        RecordingReader reader(recordings());
        const qint64 begin = reader.extent()->from;
        QCOMPARE(reader.minutes({}, kAll).size(), std::size_t(20));
        const auto sums = reader.minutes("0A", {begin, tape.bus.now}, 15);
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
        Tape tape;
        for (int i = 0; i < 3; ++i) {
            tape.bus.status("0A");
            tape.bus.now -= 50000;
        }
        tape.take();
        const auto exchanges = RecordingReader(recordings()).exchanges({}, kAll);
        QCOMPARE(exchanges.size(), std::size_t(3));
        QCOMPARE(exchanges[2].sentAt, tape.bus.now + 2);
    }

    void givesARecordItsOwnTime()
    {
        Tape tape;
        const auto one = tape.bus.status("0A");
        const QDateTime ofRound = tape.bus.roundWall;
        tape.bus.roundWall = kNoon.addSecs(7);
        tape.bus.inputs.push_back(input::Round{tape.bus.now, tape.bus.roundWall.toMSecsSinceEpoch(),
                                               tape.bus.roundWall.offsetFromUtc(), true});
        const auto extra = tape.bus.status("0A");
        std::get<input::Told>(tape.bus.inputs.back()).exchange.isExtra = true;
        tape.bus.roundWall = ofRound;
        const auto two = tape.bus.status("0A");
        tape.take();
        const auto records = RecordingReader(recordings()).records("0A", kAll);
        QCOMPARE(records.size(), std::size_t(3));
        QCOMPARE(records[0].rows, one);
        QCOMPARE(records[1].rows, extra);
        QVERIFY(records[1].isExtra);
        QCOMPARE(records[2].rows, two);
        QVERIFY(!records[2].isExtra);
    }

    void restartsNeitherEndNorDoubleAnEvent()
    {
        RecordedBus bus(kNoon);
        qint64 last = 0;
        const auto live = [&](const QByteArray& first, const QByteArray& second) {
            RecordWriter writer(optionsFor(recordings()));
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
        for (const auto& event : RecordingReader(recordings()).events(kAll)) {
            if (event.place != FaultPlace::None) {
                faults.push_back(event);
            }
        }
        QCOMPARE(faults.size(), std::size_t(2));
        QCOMPARE(faults[0].kind, EventKind::FaultBegun);
        QCOMPARE(faults[1].kind, EventKind::FaultEnded);
        QCOMPARE(faults[1].since, begun);
    }
};

REGISTER_TEST(TestRecording, QCoreApplication)
#include "tst_recording.moc"
