// What logging one record costs, beside a bare write() of the same bytes in the same run. Ends with
// status 1 when a record costs more than it may.
#include "benchmarks/support/report.h"
#include "serial/ldb/generalinformation.h"
#include "views/log/filelogger.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QVector>

#include <algorithm>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr double kLimit = 0.1; // ms a record
// A small installation costs most: the fewer LDBs, the fewer records share a timestamp.
constexpr int kLdbs = 8;
constexpr int kRounds = 1250;
constexpr int kRecords = kLdbs * kRounds;
constexpr int kRepetitions = 5;
constexpr double kNanosecondsPerMillisecond = 1e6;

struct Record
{
    QString hexId;
    QList<QStringList> rows;
};

QVector<Record> makeRecords()
{
    QVector<Record> records;
    records.reserve(kRecords);
    const QDateTime begin({2026, 3, 4}, {10, 0});
    for (int index = 0; index < kRecords; ++index) {
        const int address = index % kLdbs + 1;
        const QString hexId = QStringLiteral("%1").arg(address, 2, 16, QLatin1Char('0')).toUpper();
        LdbStatus status;
        status.state = LdbState::Quiescent;
        status.primaryVoltage = static_cast<quint16>(24000 + index % 500);
        status.secondaryVoltage = static_cast<quint16>(23900 + index % 500);
        status.primaryCurrent = static_cast<quint16>(index % 3000);
        const QDateTime time = begin.addSecs(index / kLdbs);
        records.append({hexId, generalinformation::buildRows(
                                   hexId, QStringLiteral("Stairs west %1").arg(address), status,
                                   time.toString(generalinformation::kSecondsFormat),
                                   time.toString(generalinformation::kMillisecondsFormat))});
    }
    return records;
}

double millisecondsEach(const QElapsedTimer& timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / kNanosecondsPerMillisecond / kRecords;
}

/// Milliseconds a record through the logger; the file is left for the other side to copy.
double timeLogger(const QString& fileName, const QVector<Record>& records)
{
    QFile::remove(fileName);
    FileLogger logger;
    logger.setFileName(fileName);
    logger.setInterval(0);
    QElapsedTimer timer;
    timer.start();
    if (!logger.startStop(true)) {
        return -1.0;
    }
    for (const Record& record : records) {
        logger.processData(record.hexId, record.rows);
    }
    const bool isWhole = logger.isLogging();
    logger.startStop(false);
    return isWhole ? millisecondsEach(timer) : -1.0;
}

/// Milliseconds a line through bare write(), one call a line.
double timeBareWrites(const QString& fileName, const QByteArrayList& lines)
{
    QFile::remove(fileName);
    QElapsedTimer timer;
    timer.start();
    const int file =
        ::open(QFile::encodeName(fileName).constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644);
    for (const QByteArray& line : lines) {
        if (::write(file, line.constData(), static_cast<std::size_t>(line.size())) < 0) {
            return -1.0;
        }
    }
    ::close(file);
    return millisecondsEach(timer);
}

} // namespace

int main(int argc, char* argv[])
{
    takeShortForm(argc, argv);
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    const QString logName = folder.filePath(QStringLiteral("log.csv"));
    const QString copyName = folder.filePath(QStringLiteral("copy.csv"));
    const QVector<Record> records = makeRecords();

    QVector<double> logged;
    QVector<double> bare;
    for (int repetition = 0; repetition < kRepetitions; ++repetition) {
        logged << timeLogger(logName, records);
        QFile log(logName);
        QByteArrayList lines;
        if (log.open(QIODevice::ReadOnly)) {
            while (!log.atEnd()) {
                lines << log.readLine();
            }
        }
        if (logged.last() < 0 || lines.size() != kRecords + 1) {
            std::fprintf(stderr, "the log is not whole: %d lines\n", lines.size());
            return 1;
        }
        bare << timeBareWrites(copyName, lines);
        if (bare.last() < 0) {
            std::fprintf(stderr, "the copy cannot be written\n");
            return 1;
        }
    }
    std::sort(logged.begin(), logged.end());
    std::sort(bare.begin(), bare.end());
    const double median = logged.at(kRepetitions / 2);
    const double bareMedian = bare.at(kRepetitions / 2);
    std::printf("logger: %.4f ms a record (at most %.1f), bare write: %.4f ms, ratio %.1f, "
                "%d records, median of %d\n",
                median, kLimit, bareMedian, median / bareMedian, kRecords, kRepetitions);
    return median <= kLimit || isShortForm() ? 0 : 1;
}
