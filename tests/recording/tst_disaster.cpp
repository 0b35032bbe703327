#include "recording/recordingexport.h"
#include "recording/recordingreader.h"
#include "tests/recording/victim.h"
#include "tests/support/sandbox.h"
#include "tests/support/testprogram.h"

#include <QBuffer>
#include <QProcess>

#include <csignal>
#include <limits>
#include <random>
#include <sys/resource.h>

namespace {

constexpr TimeSpan kAll{0, std::numeric_limits<qint64>::max()};

} // namespace

/// What becomes of recordings when programs are killed, disks are full and files are damaged.
class TestDisaster : public TestCase
{
    Q_OBJECT
private slots:
    void aKillTakesNothingThatWasOnTheDisk()
    {
        std::mt19937 chance(20260304);
        const Sandbox sandbox;
        const QString folder = sandbox.path("recordings");
        int begun = 0;
        for (int kill = 0; kill < trials(15, 100); ++kill) {
            QProcess program;
            program.start(VICTIM, {folder, QString::number(begun)});
            int told = begun;
            for (auto waits = 1 + chance() % 5; waits > 0; --waits) {
                QVERIFY(program.waitForReadyRead(60000));
                while (program.canReadLine()) {
                    told = program.readLine().trimmed().toInt();
                }
            }
            program.kill(); // wherever it is
            QVERIFY(program.waitForFinished(60000));
            while (program.canReadLine()) {
                told = program.readLine().trimmed().toInt();
            }
            RecordingReader reader(folder);
            const auto found = reader.exchanges({}, kAll);
            QVERIFY(reader.takeNotices().empty());
            QVERIFY2(int(found.size()) >= told,
                     qPrintable(QString("%1 of %2").arg(found.size()).arg(told)));
            for (int i = begun; i < int(found.size()); ++i) {
                const Exchange expected = victim::exchangeOf(i);
                const Exchange& exchange = found[std::size_t(i)];
                QCOMPARE(exchange.sentAt, expected.sentAt);
                QCOMPARE(exchange.hexId, expected.hexId);
                QCOMPARE(exchange.flight, expected.flight);
                QCOMPARE(exchange.answer, expected.answer);
            }
            begun = int(found.size());
        }
        // What sums it up is in the same transactions.
        int asked = 0;
        for (const RecordedMinute& minute : RecordingReader(folder).minutes({}, kAll)) {
            asked += minute.asked;
        }
        QCOMPARE(asked, begun);
    }

    void aFullDiskIsAGap()
    {
        std::signal(SIGXFSZ, SIG_IGN);
        const Sandbox sandbox;
        RecordWriter writer(optionsFor(sandbox.path("recordings")));
        int number = 0;
        std::vector<RecordingNotice> notices;
        const auto live = [&](int batches) {
            for (int batch = 0; batch < batches; ++batch) {
                RecorderInputs inputs;
                for (int i = 0; i < victim::kBatch; ++i) {
                    inputs.push_back(input::Told{victim::exchangeOf(number++), 0});
                }
                writer.take(inputs);
                for (const RecordingNotice& notice : writer.takeNotices()) {
                    notices.push_back(notice);
                }
            }
        };
        live(10);
        // As good as a full disk: no file grows any more.
        rlimit former{};
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &former), 0);
        rlimit full = former;
        full.rlim_cur = 1000;
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &full), 0);
        live(100);
        const std::size_t said = notices.size();
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &former), 0);
        live(10);
        QCOMPARE(said, std::size_t(1)); // once
        QVERIFY(notices[0].isOutage());
        QCOMPARE(notices.size(), std::size_t(2));
        QCOMPARE(notices[1].kind, RecordingNotice::Kind::GoesOn);
        // It waited in the meantime.
        QCOMPARE(RecordingReader(sandbox.path("recordings")).exchanges({}, kAll).size(),
                 std::size_t(number));
    }

    void aDamagedFileIsReadAsFarAsItCanBe()
    {
        const Sandbox sandbox;
        const QString original = makeRecording(sandbox.path("original"));
        const QByteArray bytes = Sandbox::readFile(original);
        QVERIFY(bytes.size() > 200000);
        QSet<QString> values;
        std::size_t count = 0;
        for (const auto& record : RecordingReader(original).records({}, kAll)) {
            values.insert(valuesOf(record));
            ++count;
        }
        QVERIFY(count > 1000);
        std::mt19937 chance(20260304);
        int silent = 0; // nothing was read, and nothing said
        std::size_t wrong = 0;
        std::size_t read = 0;
        int readable = 0;
        for (int copy = 0; copy < trials(50, 1000); ++copy) {
            const QString folder = sandbox.path(QString("copies/%1").arg(copy));
            QVERIFY(QDir().mkpath(folder));
            const QString path = folder + "/recording-2026-03-04.sqlite";
            sandbox.writeFile(path, damaged(bytes, chance));
            RecordingReader reader(folder);
            readAll(reader);
            const auto found = reader.records({}, kAll);
            for (const RecordedRecord& record : found) {
                wrong += values.contains(valuesOf(record)) ? 0 : 1;
            }
            read += found.size();
            readable += found.empty() ? 0 : 1;
            const bool isSaid = !reader.takeNotices().empty();
            silent += found.size() < count / 2 && !isSaid ? 1 : 0;
            // Recording goes on: there or beside it.
            goOn(folder);
            QVERIFY(QDir(folder).removeRecursively());
        }
        qInfo() << "readable:" << readable << "wrong:" << wrong << "of" << read;
        QCOMPARE(silent, 0);
        QVERIFY(readable > 0);
        // Of badly damaged answers one in 256 has the right check digits.
        QVERIFY(wrong * 100000 <= read);
    }

private:
    static QString makeRecording(const QString& folder);
    static QString valuesOf(const RecordedRecord& record);
    static QByteArray damaged(QByteArray bytes, std::mt19937& chance);
    static void readAll(RecordingReader& reader);
    static void goOn(const QString& folder);
};

/// A file with something in each of its tables.
QString TestDisaster::makeRecording(const QString& folder)
{
    RecordWriter writer(optionsFor(folder));
    RecordedBus bus(victim::begin());
    QStringList ldbs;
    for (int i = 0; i < victim::kLdbs; ++i) {
        ldbs << victim::hexIdOf(i);
    }
    bus.start(ldbs);
    for (int i = 0; i < 100; ++i) {
        bus.beginRound();
        for (const QString& hexId : qAsConst(ldbs)) {
            if (i == 1) {
                bus.name(hexId, "LDB " + hexId);
            }
            bus.status(hexId, i % 10 == 5 ? RecordedBus::loopOpen(true)
                                          : victim::statusOf(i * victim::kLdbs));
        }
        writer.take(bus.take());
    }
    bus.stop();
    writer.take(bus.take());
    QString path = writer.path();
    writer.finish();
    return path;
}

/// Whose they are, and all that was measured.
QString TestDisaster::valuesOf(const RecordedRecord& record)
{
    QStringList values{record.hexId};
    for (int row = generalinformation::ModeRow; row < generalinformation::TimestampRow; ++row) {
        values << record.rows.value(row).join('|');
    }
    return values.join(';');
}

QByteArray TestDisaster::damaged(QByteArray bytes, std::mt19937& chance)
{
    const auto below = [&chance](int end) {
        return static_cast<int>(chance() % static_cast<unsigned>(end));
    };
    switch (below(4)) {
    case 0:
        bytes.truncate(below(bytes.size()));
        break;
    case 1:
        for (int i = 1 + below(200); i > 0; --i) {
            bytes[below(bytes.size())] = static_cast<char>(below(256));
        }
        break;
    case 2: { // the pages that say where the others are
        for (int i = 1 + below(20); i > 0; --i) {
            bytes[below(20000)] = static_cast<char>(below(256));
        }
        break;
    }
    default: {
        const int begin = below(bytes.size());
        const int length = qMin(1 + below(20000), bytes.size() - begin);
        bytes.replace(begin, length, QByteArray(length, '\0'));
        break;
    }
    }
    return bytes;
}

/// Everything that can be asked of it.
void TestDisaster::readAll(RecordingReader& reader)
{
    const qint64 middle = victim::begin().toMSecsSinceEpoch() * 1000 + 60000000;
    reader.refresh();
    reader.extent();
    reader.stateAt(middle);
    reader.minutes({}, kAll);
    reader.events(kAll);
    reader.runs(kAll);
    reader.gaps(kAll);
    reader.nextRecord(middle, "05");
    reader.formerRecord(middle, "05");
    reader.records("05", {0, middle}, 10);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    // Ended after a while: times that are damaged may lie far from each other.
    int pieces = 0;
    recordingexport::writeCapture(reader, kAll, buffer,
                                  [&pieces](double) { return ++pieces < 20; });
}

void TestDisaster::goOn(const QString& folder)
{
    const ExpectWarning any(".*", ExpectWarning::Need::MayCome);
    RecordWriter writer(optionsFor(folder));
    RecordedBus bus(victim::begin().addSecs(36000));
    bus.start({"FC"});
    bus.beginRound();
    const auto rows = bus.status("FC");
    const qint64 end = bus.now;
    writer.take(bus.take());
    writer.finish();
    RecordingReader reader(folder);
    const auto found = reader.records("FC", {end - 1000000, end});
    QCOMPARE(found.size(), std::size_t(1));
    QCOMPARE(found[0].rows, rows);
}

REGISTER_TEST(TestDisaster, QCoreApplication)
#include "tst_disaster.moc"
