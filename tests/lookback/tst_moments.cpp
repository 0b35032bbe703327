#include "app/lookback/moment.h"
#include "app/lookback/replay.h"
#include "recording/recordingreader.h"
#include "tests/recording/recordedbus.h"
#include "tests/support/sandbox.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"

using State = Monitoring::State;

namespace {

constexpr qint64 kSecond = RecordedBus::kSecond;
const QDateTime kBegin(QDate(2026, 3, 4), QTime(23, 58), Qt::LocalTime);

} // namespace

/// What is read of a recording for a moment, and what a replay tells of it.
class TestMoments : public TestCase
{
    Q_OBJECT
private slots:
    void init() override
    {
        TestCase::init();
        m_sandbox = std::make_unique<Sandbox>();
        m_bus = std::make_unique<RecordedBus>(kBegin);
    }

    void cleanup() override
    {
        m_sandbox.reset();
        TestCase::cleanup();
    }

    /// A time in which nothing is known is never shown as one in which all is well.
    void saysWhatWasMonitored()
    {
        const qint64 begun = m_bus->now;
        m_bus->start({"03", "0A"});
        m_bus->now += 5 * kSecond;
        const qint64 scanned = m_bus->now;
        poll(20);
        const qint64 polled = m_bus->now;
        RecordedEvent gap;
        gap.kind = EventKind::Gap;
        gap.since = m_bus->now;
        m_bus->now += 60 * kSecond;
        gap.at = m_bus->now;
        m_bus->inputs.emplace_back(gap);
        poll(20);
        const qint64 quiet = m_bus->now;
        for (int second = 0; second < 40; ++second) {
            m_bus->ask("03", ExchangeKind::Status, {}, ExchangeOutcome::Silent);
            m_bus->now += kSecond;
        }
        m_bus->stop();
        const qint64 stopped = m_bus->now;
        m_bus->now += 3600 * kSecond;
        m_bus->start({"03", "0A"});
        poll(2);
        write();
        const auto stateAt = [this](qint64 at) {
            return monitoringAt(at).state;
        };
        QCOMPARE(stateAt(begun + kSecond), State::Scanning);
        QCOMPARE(stateAt(scanned + 10 * kSecond), State::Polling);
        QCOMPARE(stateAt(polled + 30 * kSecond), State::NotRecorded);
        QCOMPARE(stateAt(quiet), State::Polling);
        QCOMPARE(int(stateAt(quiet + 30 * kSecond)), int(State::NoAnswer));
        QCOMPARE(stateAt(stopped + 1800 * kSecond), State::Stopped);
        // Values of before a gap are not live in it, nor are they behind it until they are told
        // again; and the same when the way there is played.
        const Monitoring inGap = monitoringAt(polled + 50 * kSecond);
        QVERIFY(!inGap.isLive("03", inGap.now));
        Replay replay;
        RecordingReader reader(m_sandbox->path("recordings"));
        replay.show(moment::read(reader, polled - kSecond, {}));
        replay.add(moment::stretchOf(reader, polled - kSecond, polled + 100 * kSecond));
        QCOMPARE(replay.monitoring().state, State::Polling);
        replay.advance(20 * kSecond);
        QCOMPARE(replay.monitoring().state, State::NotRecorded);
        replay.advance(45 * kSecond);
        QCOMPARE(replay.monitoring().state, State::Polling);
    }

    /// An LDB that was not heard for days has its last record, one never heard none.
    void everyLdbOfTheListIsThere()
    {
        m_bus->start({"03", "0A", "2B"});
        m_bus->beginRound();
        m_bus->status("0A");
        m_bus->loss("0A");
        poll(600); // over midnight
        write();
        Replay replay;
        QStringList told;
        connect(&replay, &RecordSource::replaced, this,
                [&told](const QStringList& hexIds) { told << hexIds.join(' '); });
        connect(&replay, &RecordSource::generalInformationUpdated, this,
                [&told](const QString& hexId) { told << hexId; });
        connect(&replay, &RecordSource::awaitedChanged, this,
                [&told](const QString& hexId) { told << "awaited " + hexId; });
        RecordingReader reader(m_sandbox->path("recordings"));
        replay.show(moment::read(reader, m_bus->now, "03"));
        QCOMPARE(told.front(), "03 0A 2B");
        QVERIFY(told.contains("03"));
        QVERIFY(told.contains("0A"));
        QCOMPARE(told.back(), "awaited 2B");
        QCOMPARE(told.count("awaited 03"), 0);
        // The past of the plot ends where the records that are told begin.
        QVERIFY(!replay.past().records.empty());
        QCOMPARE(replay.past().records.back().hexId, "03");
    }

    /// However it is cut, what is played is what is recorded: no record twice, none left out.
    void playsEachRecordOnce()
    {
        m_bus->start({"03", "0A"});
        poll(300); // over midnight
        write();
        RecordingReader reader(m_sandbox->path("recordings"));
        const auto extent = *reader.extent();
        const auto records = reader.records({}, extent);
        for (const qint64 step : {kSecond / 7, 3 * kSecond, 100 * kSecond}) {
            Replay replay;
            std::size_t told = 0;
            connect(&replay, &RecordSource::generalInformationUpdated, this,
                    [&](const QString& hexId, const QList<QStringList>& rows) {
                        QCOMPARE(hexId, records.at(told).hexId);
                        QCOMPARE(rows, records.at(told).rows);
                        ++told;
                    });
            replay.show(moment::read(reader, extent.from, {}));
            while (replay.position() < extent.to - 1) {
                if (replay.readyUntil() - replay.position() < step) {
                    replay.add(moment::stretchOf(reader, replay.readyUntil(),
                                                 replay.readyUntil() + 2 * step));
                }
                replay.advance(step);
            }
            QCOMPARE(told, records.size());
        }
    }

private:
    /// Rounds of both LDBs, a second each.
    void poll(int seconds)
    {
        for (int second = 0; second < seconds; ++second) {
            m_bus->beginRound();
            m_bus->status("03");
            m_bus->now += 950000;
        }
    }
    void write()
    {
        RecordWriter writer(optionsFor(m_sandbox->path("recordings")));
        writer.take(m_bus->take());
        writer.finish();
    }
    Monitoring monitoringAt(qint64 at)
    {
        RecordingReader reader(m_sandbox->path("recordings"));
        Replay replay;
        replay.show(moment::read(reader, at, {}));
        return replay.monitoring();
    }

    std::unique_ptr<Sandbox> m_sandbox;
    std::unique_ptr<RecordedBus> m_bus;
};

REGISTER_TEST(TestMoments, QCoreApplication)
#include "tst_moments.moc"
