#include "tracking/faultfinding/trackingtexts.h"

#include <QCoreApplication>
#include <QStringList>

namespace trackingtexts {

namespace {

using Phase = TrackingRun::Phase;
using StopReason = TrackingRun::StopReason;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(FimTracking)
};

constexpr int kMillisecondsPerSecond = 1000;

QString commandName(TrackingCommand command)
{
    switch (command) {
    case TrackingCommand::FactoryReset:
        return Texts::tr("factory reset");
    case TrackingCommand::LdbReset:
        return Texts::tr("LDB reset");
    default:
        return Texts::tr("audio mute");
    }
}

} // namespace

QString phase(Phase phase, StopReason stopReason)
{
    if (phase == Phase::Idle && stopReason != StopReason::None) {
        return Texts::tr("stopped");
    }
    constexpr const char* kTexts[] = {
        QT_TRANSLATE_NOOP("FimTracking", "idle"),
        QT_TRANSLATE_NOOP("FimTracking", "confirmation"),
        QT_TRANSLATE_NOOP("FimTracking", "waiting for the factory reset"),
        QT_TRANSLATE_NOOP("FimTracking", "rebooting"),
        QT_TRANSLATE_NOOP("FimTracking", "counting"),
        QT_TRANSLATE_NOOP("FimTracking", "finished")};
    return Texts::tr(kTexts[static_cast<int>(phase)]);
}

QString stopReason(StopReason stopReason)
{
    switch (stopReason) {
    case StopReason::FactoryResetFailed:
        return Texts::tr("The factory reset failed.");
    case StopReason::FactoryResetRefused:
        return Texts::tr("The LDB refused the factory reset.");
    case StopReason::LdbDisconnected:
        return Texts::tr("The LDB is disconnected.");
    case StopReason::ConnectionLost:
        return Texts::tr("The connection was lost.");
    case StopReason::None:
    case StopReason::User:
        break;
    }
    return {};
}

QString time(const TrackingRun& run)
{
    if (run.phase() == Phase::Idle || run.phase() == Phase::Finished) {
        return {};
    }
    const std::optional<int> left = run.secondsLeft();
    return left ? Texts::tr("%1 s left").arg(*left) : Texts::tr("%1 s gone").arg(run.secondsGone());
}

QString noConnection()
{
    return Texts::tr("There is no connection to the LDB.");
}

QString hint(Phase phase, bool isReachable)
{
    switch (phase) {
    case Phase::Confirmation:
        return Texts::tr("Answer the question to go on.");
    case Phase::FactoryReset:
        return Texts::tr("The LDB has been asked for a factory reset.");
    default:
        return isReachable ? Texts::tr("Press Start to begin a run.")
                           : Texts::tr("There is no connection to the LDB. Close this window, and "
                                       "start the connection again.");
    }
}

QString timeToSideEnd(const FimCounter& counter, int ldbPort)
{
    if (!counter.isSideTracked(ldbPort)) {
        return Texts::tr("not tracked");
    }
    const std::optional<int> left = counter.millisecondsToSideEnd(ldbPort);
    if (!left) {
        return {};
    }
    const int seconds = (*left + kMillisecondsPerSecond - 1) / kMillisecondsPerSecond;
    return Texts::tr("ends in %1 s unless a FIM starts up").arg(seconds);
}

QString commandFailure(TrackingCommand command, bool isRefused)
{
    const QString text = isRefused ? Texts::tr("The LDB refused the command: %1")
                                   : Texts::tr("The LDB did not answer the command: %1");
    return text.arg(commandName(command));
}

QString noWayBack(FormerState::Lack lack, const QString& reason)
{
    if (lack == FormerState::Lack::Unread) {
        return Texts::tr("The settings of the LDB cannot be read. After the run they will be the "
                         "defaults, and the former ones are lost.");
    }
    return Texts::tr("What the run changes cannot be kept on the disk: %1\nIf the program or the "
                     "computer stops during the run, the settings of the LDB are lost, and it "
                     "stays muted.")
        .arg(reason);
}

QString fimCounts(int counted, std::optional<int> configured)
{
    return configured
               ? Texts::tr("FIM's counted: %1   configured: %2").arg(counted).arg(*configured)
               : Texts::tr("FIM's counted: %1   configured: not known").arg(counted);
}

QString mode(TrackingMode mode)
{
    switch (mode) {
    case TrackingMode::Commissioning:
        return Texts::tr("Commissioning");
    case TrackingMode::FaultFinding:
        return Texts::tr("Fault Finding");
    case TrackingMode::Cancelled:
        break;
    }
    return {};
}

QString sideEnd(SideEnd end)
{
    constexpr const char* kTexts[] = {QT_TRANSLATE_NOOP("FimTracking", "Timeout: Side Connected"),
                                      QT_TRANSLATE_NOOP("FimTracking", "Timeout: Open Detected"),
                                      QT_TRANSLATE_NOOP("FimTracking", "Timeout: Short Detected")};
    return Texts::tr(kTexts[static_cast<int>(end)]);
}

QString sideAlarm(int ldbPort, SideEnd end)
{
    constexpr BySide<const char*> kTexts[] = {
        {QT_TRANSLATE_NOOP("FimTracking", "Primary side is connected."),
         QT_TRANSLATE_NOOP("FimTracking", "Secondary side is connected.")},
        {QT_TRANSLATE_NOOP("FimTracking", "Primary side open detected."),
         QT_TRANSLATE_NOOP("FimTracking", "Secondary side open detected.")},
        {QT_TRANSLATE_NOOP("FimTracking", "Primary side short detected."),
         QT_TRANSLATE_NOOP("FimTracking", "Secondary side short detected.")},
    };
    return Texts::tr(kTexts[static_cast<int>(end)][ldbPort]);
}

QString loopResult(LoopResult result)
{
    constexpr const char* kNone = "";
    constexpr const char* kTexts[] = {
        QT_TRANSLATE_NOOP("FimTracking", "Loop is connected"),
        QT_TRANSLATE_NOOP("FimTracking", "Primary side open detected"),
        QT_TRANSLATE_NOOP("FimTracking", "Primary side short detected"),
        kNone,
        QT_TRANSLATE_NOOP("FimTracking", "Secondary side open detected"),
        QT_TRANSLATE_NOOP("FimTracking", "Both sides open detected"),
        QT_TRANSLATE_NOOP("FimTracking",
                          "Primary side short detected and Secondary side open detected."),
        kNone,
        QT_TRANSLATE_NOOP("FimTracking", "Secondary side short detected"),
        QT_TRANSLATE_NOOP("FimTracking",
                          "Primary side open detected and Secondary side short detected."),
        QT_TRANSLATE_NOOP("FimTracking", "Both sides short detected")};
    return Texts::tr(kTexts[static_cast<int>(result)]);
}

QString summary(int totalFimCount, LoopResult result)
{
    return Texts::tr("Total FIM Count: %n", nullptr, totalFimCount) + QStringLiteral("  |||  ") +
           loopResult(result);
}

QString fault(const FaultReport& report)
{
    QString text = report.kind == FaultReport::Kind::EarthLeakage
                       ? Texts::tr("Earth Leakage Detected!\n")
                       : Texts::tr("Loop DC Leakage Detected!\n");
    const QString line = QStringLiteral("\n %1");
    if (report.positions.primary) {
        text += line.arg(
            Texts::tr("Primary Side approximately at FIM: %1").arg(*report.positions.primary));
    }
    if (report.positions.secondary) {
        text += line.arg(
            Texts::tr("Secondary Side approximately at FIM: %1").arg(*report.positions.secondary));
    }
    return text;
}

QString faultOfSide(FaultReport::Kind kind, int position)
{
    const QString text = kind == FaultReport::Kind::EarthLeakage
                             ? Texts::tr("Earth Leakage Detected: approximately at FIM: %1")
                             : Texts::tr("Loop DC Leakage Detected: approximately at FIM: %1");
    return text.arg(position);
}

static QString sideLine(const QString& title, const TrackingReport::Side& side)
{
    QStringList parts{Texts::tr("FIM count %1").arg(side.fimCount)};
    if (!side.isTracked) {
        parts.append(Texts::tr("not tracked"));
    }
    if (side.isFinished) {
        parts.append(sideEnd(side.end));
    }
    return title + parts.join(QStringLiteral(", "));
}

QString report(const TrackingReport& report)
{
    QStringList lines{
        Texts::tr("FIM tracking report"),
        Texts::tr("LDB: %1").arg(report.hexId),
        Texts::tr("Name: %1").arg(report.name),
        Texts::tr("Tracking mode: %1").arg(trackingtexts::mode(report.mode)),
        Texts::tr("Time: %1")
            .arg(report.finishedAt.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"))),
        sideLine(Texts::tr("Primary side: "), report.sides.primary),
        sideLine(Texts::tr("Secondary side: "), report.sides.secondary),
        Texts::tr("Result: %1").arg(report.summary),
    };
    for (const FaultReport& each : report.faults) {
        lines.append(fault(each).replace(QStringLiteral("\n\n"), QStringLiteral("\n")));
    }
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

} // namespace trackingtexts
