// An export of 253 simulated LDBs that answer as fast as they can, beside the polling turns that
// its commands need. The processor takes one command a turn, so 506 commands cannot take less than
// 506 turns; the comparison is the same number of turns with a command each, all of them queued
// beforehand. Ends with status 1 when the ratio of the medians is out of bounds.
// --short measures once.
#include "benchmarks/support/report.h"
#include "benchmarks/support/simulatedsite.h"
#include "importexport/importexportdevicesettings.h"
#include "serial/link/seriallink.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <memory>
#include <vector>

namespace {

constexpr double kLimit = 1.1;
constexpr int kCommandsAnLdb = 2;
constexpr int kTurns = kCommandsAnLdb * busaddress::kLast;
constexpr int kRepetitions = 7;
constexpr double kNanosecondsPerMillisecond = 1e6;

double millisecondsOf(const QElapsedTimer& timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / kNanosecondsPerMillisecond;
}

/// Milliseconds for turns that poll and carry no command.
double plainTurnsMs(SerialLink& link)
{
    QEventLoop loop;
    QElapsedTimer timer;
    int records = -1; // the first one only starts the clock
    QObject::connect(&link, &SerialLink::generalInformationUpdated, &loop, [&] {
        if (++records == 0) {
            timer.start();
        } else if (records == kTurns) {
            loop.quit();
        }
    });
    loop.exec();
    return millisecondsOf(timer);
}

/// Milliseconds for turns with the export's own commands, queued beforehand.
double fullTurnsMs(SerialLink& link)
{
    QEventLoop loop;
    int answers = 0;
    const auto ask = [&](std::unique_ptr<ISerialCommand> command) {
        link.ask(std::move(command), &loop, [&](const Reply& reply) {
            if (reply.kind() != Reply::Kind::Answered) {
                qFatal("an LDB does not answer");
            }
            if (++answers == kTurns) {
                loop.quit();
            }
        });
    };
    QElapsedTimer timer;
    timer.start();
    for (const QString& hexId : link.knownLdbs()) {
        ask(std::make_unique<RequestCommand>(hexId, LdbParameter::Settings));
        ask(std::make_unique<ExecuteCommand>(hexId, LdbAction::FirmwareId));
    }
    loop.exec();
    return millisecondsOf(timer);
}

double exportMs(SerialLink& link, const QString& path)
{
    ImportExportDeviceSettings transfer(&link);
    QEventLoop loop;
    QObject::connect(&transfer, &ImportExportDeviceSettings::statusChanged, &loop,
                     [&](ImportExportDeviceSettings::ImportExportStatus status) {
                         if (status == ImportExportDeviceSettings::ExportFinished) {
                             loop.quit();
                         } else if (status != ImportExportDeviceSettings::ExportStarted) {
                             qFatal("%s", qPrintable(transfer.failureText()()));
                         }
                     });
    QElapsedTimer timer;
    timer.start();
    transfer.exportDeviceSettings(path);
    loop.exec();
    return millisecondsOf(timer);
}

/// Every LDB has its line in the file.
bool isComplete(const QString& path)
{
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    int lines = 0;
    while (!file.atEnd()) {
        lines += file.readLine().trimmed().isEmpty() ? 0 : 1;
    }
    constexpr int kHeadLines = 2;
    if (lines != busaddress::kLast + kHeadLines) {
        std::printf("           %d lines in the file\n", lines);
        return false;
    }
    return true;
}

void waitForScan(SerialLink& link)
{
    QEventLoop loop;
    QObject::connect(&link, &SerialLink::generalInformationUpdated, &loop, &QEventLoop::quit);
    loop.exec();
}

bool benchExport()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("export.csv"));
    const SimulatedSite installation(fullScenario(), Simulation::Pace::Unpaced);
    SerialLink link;
    link.setPortName(installation.portName());
    link.start();
    waitForScan(link);
    if (link.knownLdbs().size() != busaddress::kLast) {
        qFatal("%d LDBs found", link.knownLdbs().size());
    }
    std::vector<double> plain;
    std::vector<double> full;
    std::vector<double> exports;
    bool good = true;
    for (int i = 0; i < (isShortForm() ? 1 : kRepetitions); ++i) {
        plain.push_back(plainTurnsMs(link));
        full.push_back(fullTurnsMs(link));
        exports.push_back(exportMs(link, path));
        good = isComplete(path) && good;
    }
    std::printf("           export %.1f ms; %d turns with a command %.1f ms, without %.1f ms "
                "(export to that: %.3f)\n",
                median(exports), kTurns, median(full), median(plain),
                median(exports) / median(plain));
    return report("export", median(exports) / median(full), kLimit, Bound::AtMost) && good;
}

} // namespace

int main(int argc, char* argv[])
{
    takeShortForm(argc, argv);
    const QCoreApplication application(argc, argv);
    return benchExport() ? 0 : 1;
}
