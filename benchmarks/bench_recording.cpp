// What a recording of a busy week takes on the disk, and how fast it is written and read. 32 LDBs
// at the real pace: ten minutes of a conversation on a simulated line, again and again. Ends with
// status 1 when a figure misses its limit. The short form records an hour.
#include "benchmarks/support/recordedsite.h"
#include "benchmarks/support/report.h"
#include "recording/recordingreader.h"
#include "recording/recordwriter.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <fcntl.h>
#include <random>
#include <sys/resource.h>
#include <unistd.h>

namespace {

constexpr qint64 kSecond = 1000000;
constexpr qint64 kPiece = recordedsite::kPiece;
constexpr int kPiecesOfAWeek = 7 * 24 * 6;
constexpr int kPiecesOfAnHour = 6;
constexpr double kMillisecond = 1e6; // ns
constexpr int kJumps = 100;
constexpr int kRowsOfThePlot = 1200;

struct Written
{
    int exchanges = 0;
    double wall = 0; ///< s
    double cpu = 0;  ///< s
};

double cpuSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// Commits once a second of the recorded time where `isPaced`, and once a piece otherwise: what
/// takes the time of a week is the disk's answer to each commit.
Written write(const QString& folder, const RecorderInputs& piece, int pieces, bool isPaced)
{
    Written written;
    QElapsedTimer timer;
    timer.start();
    const double cpu = cpuSeconds();
    RecordWriter writer({folder, QStringLiteral("2.2"), {}});
    for (int number = 0; number < pieces; ++number) {
        RecorderInputs inputs;
        qint64 due = 0;
        for (const RecorderInput& input : piece) {
            if (number > 0 && std::holds_alternative<input::RunBegun>(input)) {
                continue;
            }
            inputs.push_back(recordedsite::later(input, number * kPiece));
            written.exchanges += std::holds_alternative<input::Told>(input) ? 1 : 0;
            if (isPaced && timeOf(input) > due) {
                due = timeOf(input) + kSecond;
                writer.take(inputs);
                inputs.clear();
            }
        }
        writer.take(inputs);
    }
    writer.finish();
    written.wall = static_cast<double>(timer.nsecsElapsed()) / 1e9;
    written.cpu = cpuSeconds() - cpu;
    return written;
}

double bytesIn(const QString& folder)
{
    double bytes = 0;
    for (const auto& file : recordingfolder::filesOf(folder)) {
        bytes += static_cast<double>(file.bytes);
    }
    return bytes;
}

/// Lets the system forget what it has read of the files.
void coolDown(const QString& folder)
{
    for (const auto& file : recordingfolder::filesOf(folder)) {
        const int handle = open(qPrintable(file.path), O_RDONLY);
        fsync(handle);
        posix_fadvise(handle, 0, 0, POSIX_FADV_DONTNEED);
        close(handle);
    }
}

template <typename Work>
double milliseconds(const Work& work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / kMillisecond;
}

} // namespace

int main(int argc, char* argv[])
{
    const bool isShort = takeShortForm(argc, argv);
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    const RecorderInputs piece = recordedsite::makePiece();
    bool isGood = true;

    const Written hour = write(folder.filePath("hour"), piece, kPiecesOfAnHour, true);
    const double rate = hour.exchanges / 3600.0;
    std::printf("%.1f exchanges a second\n", rate);
    isGood &=
        report("CPU of the writer at that rate, % of a core", hour.cpu / 36.0, 1.5, Bound::AtMost);
    std::printf("a commit takes %.2f ms\n", hour.wall / 3600 * 1000);

    const QString week = isShort ? folder.filePath("hour") : folder.filePath("week");
    const Written written = isShort ? hour : write(week, piece, kPiecesOfAWeek, false);
    std::printf("%d exchanges, %.0f MB, written in %.0f s\n", written.exchanges,
                bytesIn(week) / 1e6, written.wall);
    isGood &= report("bytes an exchange on the disk, everything counted",
                     bytesIn(week) / written.exchanges, 67, Bound::AtMost);

    coolDown(week);
    std::unique_ptr<RecordingReader> reader;
    const QString ldb = QStringLiteral("0A");
    TimeSpan all;
    isGood &= report("opening it, cold: extent, events, runs, all LDBs and one's last 10 min, ms",
                     milliseconds([&] {
                         reader = std::make_unique<RecordingReader>(week);
                         all = reader->extent().value_or(TimeSpan());
                         reader->events(all);
                         reader->runs(all);
                         reader->stateAt(all.to);
                         reader->records(ldb, {all.to - kPiece, all.to});
                     }),
                     500, Bound::AtMost);
    coolDown(week);
    isGood &= report("an LDB's last 1,200 records, cold, ms",
                     milliseconds([&] { reader->records(ldb, all, kRowsOfThePlot); }), 100,
                     Bound::AtMost);
    constexpr int kHour = 60; // minutes
    coolDown(week);
    const auto quality = [&] {
        reader->minutes({}, all, kHour);
    };
    std::printf("quality of all LDBs by the hour over the whole, cold: %.0f ms\n",
                milliseconds(quality));
    isGood &= report("the same again, ms", milliseconds(quality), 150, Bound::AtMost);
    std::mt19937 chance(1);
    double worst = 0;
    std::vector<double> jumps;
    for (int jump = 0; jump < kJumps; ++jump) {
        coolDown(week);
        const double share = static_cast<double>(chance()) / static_cast<double>(chance.max());
        const qint64 at =
            all.from + static_cast<qint64>(share * static_cast<double>(all.to - all.from));
        jumps.push_back(milliseconds([&] { reader->stateAt(at); }));
        worst = std::max(worst, jumps.back());
    }
    std::printf("the state of all LDBs at any moment, cold: median %.1f ms\n", median(jumps));
    isGood &= report("the slowest of 100, ms", worst, 100, Bound::AtMost);
    return isGood ? 0 : 1;
}
