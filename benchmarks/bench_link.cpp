// How much of the bus the program uses, on the simulated installation in the same run:
//   cycle     paced: rounds over eight LDBs beside the time their bytes and the turnarounds take
//   scan      paced: a scan of a silent bus, in seconds
//   exchanges unpaced: exchanges a second beside a bare read/write loop on the same simulator
// Ends with status 1 when a figure is out of its bounds. One of the names as argument runs it
// alone; --short runs the exchanges, once.
#include "benchmarks/support/report.h"
#include "benchmarks/support/simulatedsite.h"
#include "serial/link/seriallink.h"
#include "serial/wire/framecodec.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>

#include <array>
#include <cstdio>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr double kCycleLimit = 1.02;
constexpr double kScanLimitSeconds = 30.6;
constexpr double kExchangeLimit = 0.5;

constexpr int kRounds = 10;
constexpr int kExchanges = 6000;
constexpr int kExchangesAnLdb = 3; // status, name, firmware id
constexpr int kExchangeRounds = 9; // of both in turn, so that a busy moment meets either
constexpr double kNanosecondsPerSecond = 1e9;

double secondsOf(const QElapsedTimer& timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / kNanosecondsPerSecond;
}

/// What the first LDB's records at round `first` and `last` leave between them in the journal: the
/// bytes' time on the wire plus the simulator's turnaround for each answer, in seconds.
double wireSeconds(const QString& journalPath, double fromMs, double toMs)
{
    QFile journal(journalPath);
    if (!journal.open(QIODevice::ReadOnly)) {
        qFatal("no journal");
    }
    qint64 bytes = 0;
    int answers = 0;
    while (!journal.atEnd()) {
        const QList<QByteArray> fields = journal.readLine().split('\t');
        enum Field
        {
            Since = 1,
            Direction = 2,
            Bytes = 4
        };
        const double since = fields.value(Since).toDouble();
        if (since <= fromMs || since > toMs) {
            continue;
        }
        bytes += QByteArray::fromHex(fields.value(Bytes)).size();
        answers += fields.value(Direction) == "<" ? 1 : 0;
    }
    return static_cast<double>(bytes) * linetime::kByte / kNanosecondsPerSecond +
           static_cast<double>(answers) * ScenarioLine().mostTurnaround / 1e3;
}

/// Journal time (ms) of the n-th status request to this LDB.
QList<double> statusRequestTimes(const QString& journalPath, const QByteArray& hexId)
{
    QFile journal(journalPath);
    journal.open(QIODevice::ReadOnly);
    QList<double> times;
    while (!journal.atEnd()) {
        const QList<QByteArray> fields = journal.readLine().split('\t');
        enum Field
        {
            Since = 1,
            Direction = 2,
            Bytes = 4
        };
        if (fields.value(Direction) == ">" &&
            QByteArray::fromHex(fields.value(Bytes)).contains("FE" + hexId + "737803")) {
            times.append(fields.value(Since).toDouble());
        }
    }
    return times;
}

bool benchCycle()
{
    const QTemporaryDir folder;
    const QString journalPath = folder.filePath(QStringLiteral("journal"));
    QString firstLdb;
    {
        const SimulatedSite installation(defaultScenario(), Simulation::Pace::Baud9600,
                                         journalPath);
        SerialLink link;
        link.setPortName(installation.portName());
        QEventLoop loop;
        int rounds = 0;
        QObject::connect(&link, &SerialLink::generalInformationUpdated, &loop,
                         [&](const QString& hexId) {
                             if (firstLdb.isEmpty()) {
                                 firstLdb = hexId;
                             }
                             // One more than measured: the first round follows the scan.
                             if (hexId == firstLdb && ++rounds == kRounds + 3) {
                                 loop.quit();
                             }
                         });
        link.start();
        loop.exec();
    }
    const QList<double> times = statusRequestTimes(journalPath, firstLdb.toLatin1());
    const double from = times.at(1);
    const double to = times.at(1 + kRounds);
    const double ratio = (to - from) / 1000.0 / wireSeconds(journalPath, from, to);
    std::printf("           %.1f ms a round over eight LDBs\n", (to - from) / kRounds);
    return report("cycle", ratio, kCycleLimit, Bound::AtMost);
}

bool benchScan()
{
    Scenario silent = defaultScenario();
    silent.ldbs.clear();
    const SimulatedSite installation(silent, Simulation::Pace::Baud9600);
    SerialLink link;
    link.setPortName(installation.portName());
    QEventLoop loop;
    QObject::connect(&link, &SerialLink::stopped, &loop, &QEventLoop::quit);
    QElapsedTimer timer;
    timer.start();
    link.start();
    loop.exec();
    return report("scan", secondsOf(timer), kScanLimitSeconds, Bound::AtMost);
}

/// Exchanges a second of a loop that does nothing but write the same requests and read to each
/// answer's end.
double bareExchanges(const QString& portName)
{
    const int port = open(QFile::encodeName(portName).constData(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    termios settings{};
    tcgetattr(port, &settings);
    cfmakeraw(&settings);
    tcsetattr(port, TCSANOW, &settings);
    std::vector<QByteArray> frames;
    for (int address = busaddress::kFirst; address <= busaddress::kLast; ++address) {
        const QByteArray hexId = busaddress::toHexId(address).toLatin1();
        for (const char* request : {"737803", "737202", "737804"}) {
            frames.push_back(framecodec::createCommand("FE" + hexId + request));
        }
    }
    QElapsedTimer timer;
    timer.start();
    std::array<char, 256> buffer{};
    for (int i = 0; i < kExchanges; ++i) {
        const QByteArray& frame = frames[static_cast<std::size_t>(i) % frames.size()];
        if (write(port, frame.constData(), static_cast<std::size_t>(frame.size())) !=
            frame.size()) {
            qFatal("the port does not take a request");
        }
        ssize_t count = 0;
        do {
            count = read(port, buffer.data(), buffer.size());
            if (count <= 0) {
                qFatal("the port gives no answer");
            }
        } while (buffer[static_cast<std::size_t>(count - 1)] != framecodec::kEot);
    }
    const double seconds = secondsOf(timer);
    close(port);
    return kExchanges / seconds;
}

double linkExchanges(const QString& portName)
{
    SerialLink link;
    link.setPortName(portName);
    QEventLoop loop;
    QElapsedTimer timer;
    int records = 0;
    QObject::connect(&link, &SerialLink::generalInformationUpdated, &loop, [&] {
        if (records++ == 0) {
            timer.start();
        } else if (records * kExchangesAnLdb > kExchanges) {
            loop.quit();
        }
    });
    link.start();
    loop.exec();
    return (records - 1) * kExchangesAnLdb / secondsOf(timer);
}

bool benchExchanges()
{
    // A full bus: with every address answering, the scans before each round take no time.
    const SimulatedSite installation(fullScenario(), Simulation::Pace::Unpaced);
    std::vector<double> bareRounds;
    std::vector<double> ourRounds;
    for (int i = 0; i < (isShortForm() ? 1 : kExchangeRounds); ++i) {
        bareRounds.push_back(bareExchanges(installation.portName()));
        ourRounds.push_back(linkExchanges(installation.portName()));
    }
    const double bare = median(bareRounds);
    const double ours = median(ourRounds);
    std::printf("           %.0f exchanges/s, bare loop %.0f\n", ours, bare);
    return report("exchanges", ours / bare, kExchangeLimit, Bound::AtLeast);
}

} // namespace

int main(int argc, char* argv[])
{
    takeShortForm(argc, argv);
    const QCoreApplication application(argc, argv);
    const QStringList wanted = QCoreApplication::arguments().mid(1);
    const auto isWanted = [&wanted](const char* name) {
        return (wanted.isEmpty() && !isShortForm()) || wanted.contains(QLatin1String(name));
    };
    bool good = true;
    if (isWanted("cycle")) {
        good = benchCycle() && good;
    }
    if (isWanted("exchanges") || isShortForm()) { // at 9600 baud all else takes a minute
        good = benchExchanges() && good;
    }
    if (isWanted("scan")) {
        good = benchScan() && good;
    }
    return good ? 0 : 1;
}
