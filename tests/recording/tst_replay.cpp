#include "recording/recordcollector.h"
#include "recording/recordingexport.h"
#include "recording/recordingreader.h"
#include "recording/recordwriter.h"
#include "serial/ldb/ldbsettings.h"
#include "serial/link/seriallink.h"
#include "tests/recording/recordedbus.h"
#include "tests/support/sandbox.h"
#include "tests/support/testbus.h"
#include "tests/support/testprogram.h"
#include "views/log/filelogger.h"

#include <QBuffer>

#include <random>

namespace {

constexpr TimeSpan kAll{0, std::numeric_limits<qint64>::max()};

struct Told
{
    QString hexId;
    QList<QStringList> rows;
    bool isExtra;
};

QString describe(const QString& hexId, const QList<QStringList>& rows, bool isExtra)
{
    QStringList texts;
    for (const QStringList& row : rows) {
        texts << row.join('|');
    }
    return (isExtra ? "extra " : "") + hexId + ": " + texts.join("; ");
}

} // namespace

/// What a link has told in hours on a bad line, against what the recording of it gives.
class TestReplay : public TestCase
{
    Q_OBJECT
private slots:
    void init() override
    {
        TestCase::init();
        m_sandbox = std::make_unique<Sandbox>();
        m_bus = std::make_unique<TestBus>(QStringList{"03", "0A", "2B"});
        m_collector = std::make_unique<RecordCollector>(
            [] { return VirtualTime::kWallStart + VirtualTime::current()->now(); });
        m_writer = std::make_unique<RecordWriter>(optionsFor(m_sandbox->path("recordings")));
        m_link = std::make_unique<SerialLink>(m_bus->ports());
        m_link->setPortName(m_bus->portName());
        m_told.clear();
        follow();
    }

    void cleanup() override
    {
        m_link.reset();
        m_bus.reset();
        m_writer.reset();
        m_collector.reset();
        m_sandbox.reset();
        TestCase::cleanup();
    }

    void givesWhatWasTold()
    {
        FileLogger logger;
        logger.setFileName(m_sandbox->path("live.csv"));
        logger.setInterval(4);
        QVERIFY(logger.startStop(true));
        connect(m_link.get(), &SerialLink::generalInformationUpdated, &logger,
                &FileLogger::processData);
        live(90, Handing::Always);
        m_link->stop();
        hand();
        m_writer->finish();
        logger.startStop(false);

        RecordingReader reader(m_sandbox->path("recordings"));
        const auto records = reader.records({}, kAll);
        QVERIFY(records.size() > 1000);
        QCOMPARE(records.size(), m_told.size());
        for (std::size_t i = 0; i < records.size(); ++i) {
            QCOMPARE(describe(records[i].hexId, records[i].rows, records[i].isExtra),
                     describe(m_told[i].hexId, m_told[i].rows, m_told[i].isExtra));
        }
        QBuffer log;
        QVERIFY(log.open(QIODevice::WriteOnly));
        QCOMPARE(recordingexport::writeLog(reader, kAll, {{}, 4}, log), QString());
        const QByteArray live = Sandbox::readFile(m_sandbox->path("live.csv"));
        QVERIFY(live.count('\n') > 100);
        QVERIFY(log.data() == live);
        // Of any moment, the last of each that was told by then.
        for (std::size_t i = 100; i < records.size(); i += 97) {
            for (const RecordedRecord& record : reader.stateAt(records[i].at)) {
                auto last = i + 1;
                while (last > 0 && m_told[last - 1].hexId != record.hexId) {
                    --last;
                }
                const auto expected = last > 0 ? m_told[last - 1].rows : QList<QStringList>();
                QCOMPARE(describe(record.hexId, record.rows, false),
                         describe(record.hexId, expected, false));
            }
        }
    }

    void marksWhatDidNotFit()
    {
        m_collector->setUnwritten(RecordCollector::kMostInputs - 200); // the disk stands still
        live(3, Handing::AtTheEnd);
        m_collector->setUnwritten(0);
        live(1, Handing::AtTheEnd);
        m_link->stop();
        hand();
        m_writer->finish();
        RecordingReader reader(m_sandbox->path("recordings"));
        const auto gaps = reader.gaps(kAll);
        QCOMPARE(gaps.size(), std::size_t(1));
        QCOMPARE(reader.exchanges({}, kAll).size() + std::size_t(gaps[0].lost), m_exchanges);
        QVERIFY(reader.exchanges({}, {gaps[0].from, gaps[0].to}).empty());
    }

private:
    void follow();
    enum class Handing
    {
        Always,
        AtTheEnd
    };
    void live(int minutes, Handing handing);
    void hand() { m_writer->take(m_collector->take()); }

    std::unique_ptr<Sandbox> m_sandbox;
    std::unique_ptr<TestBus> m_bus;
    std::unique_ptr<RecordCollector> m_collector;
    std::unique_ptr<RecordWriter> m_writer;
    std::unique_ptr<SerialLink> m_link;
    std::vector<Told> m_told;
    std::size_t m_exchanges = 0;
    bool m_isListWhole = true;
};

void TestReplay::follow()
{
    m_exchanges = 0;
    auto* const link = m_link.get();
    connect(link, &SerialLink::started, link, [this] { m_collector->runBegun(m_bus->portName()); });
    connect(link, &SerialLink::stopped, link, [this] { m_collector->runEnded(); });
    connect(link, &SerialLink::exchanged, link, [this](const Exchange& exchange) {
        ++m_exchanges;
        m_collector->exchanged(exchange);
    });
    connect(link, &SerialLink::roundBegun, link,
            [this](const QDateTime& wall) { m_collector->roundBegun(wall); });
    connect(link, &SerialLink::roundEnded, link, [this] { m_collector->roundEnded(); });
    connect(link, &SerialLink::ldbListInitializationStateChange, link, [this](bool isScanning) {
        m_isListWhole = !isScanning;
        if (!isScanning) {
            m_collector->listChanged(m_link->knownLdbs());
        }
    });
    connect(link, &SerialLink::ldbListChanged, link, [this](const QStringList& hexIds) {
        if (m_isListWhole) {
            m_collector->listChanged(hexIds);
        }
    });
    const auto take = [this](bool isExtra) {
        return [this, isExtra](const QString& hexId, const QList<QStringList>& rows) {
            m_told.push_back({hexId, rows, isExtra});
            m_collector->record(hexId, rows);
        };
    };
    connect(link, &SerialLink::generalInformationUpdated, link, take(false));
    connect(link, &SerialLink::extraInformationUpdated, link, take(true));
}

/// All that can happen, in virtual time: a bad line, LDBs that go and come, renames, restarts.
void TestReplay::live(int minutes, Handing handing)
{
    std::mt19937 chance(20260304);
    Adversaries bad;
    bad.flippedAnswers = 3;
    bad.lostAnswers = 3;
    bad.lateAnswers = 2;
    bad.strayEvery = 5;
    bad.vanishEvery = 300;
    m_link->start();
    for (int second = 0; second < minutes * 60; second += 10) {
        if (second == 60) {
            m_bus->host().setAdversaries(bad);
        }
        switch (chance() % 40) {
        case 0:
            m_bus->change("0A", "02", "4E6F727468");
            break;
        case 1:
            m_bus->setPresent({"03", "2B"});
            break;
        case 2:
            m_bus->setPresent({"03", "0A", "2B", "30"});
            break;
        case 3:
            m_link->rescan();
            break;
        case 4:
            m_link->pollOnly("0A");
            break;
        case 5:
            m_link->pollOnly({});
            break;
        case 6:
            m_link->stop();
            m_link->start();
            break;
        case 7:
            m_link->setSelectedLdb("2B");
            break;
        case 8:
            m_link->dismiss({"0A", "30"});
            break;
        default:
            break;
        }
        VirtualTime::current()->advance(10000);
        if (handing == Handing::Always) {
            hand();
        }
    }
}

REGISTER_TEST(TestReplay, InVirtualTime<QCoreApplication>)
#include "tst_replay.moc"
