#include "tracking/phasetext.h"

#include <QCoreApplication>

namespace phasetext {

namespace {

using Phase = TrackingRun::Phase;
using StopReason = TrackingRun::StopReason;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(FimTracking)
};

constexpr int kMillisecondsPerSecond = 1000;

QString commandName(TrackedLdb::Command command)
{
    switch (command) {
    case TrackedLdb::Command::FactoryReset:
        return Texts::tr("factory reset");
    case TrackedLdb::Command::LdbReset:
        return Texts::tr("LDB reset");
    case TrackedLdb::Command::MuteAudio:
    case TrackedLdb::Command::EndAudioMute:
        break;
    }
    return Texts::tr("audio mute");
}

} // namespace

QString name(Phase phase, StopReason stopReason)
{
    switch (phase) {
    case Phase::Confirmation:
        return Texts::tr("confirmation");
    case Phase::FactoryReset:
        return Texts::tr("waiting for the factory reset");
    case Phase::Rebooting:
        return Texts::tr("rebooting");
    case Phase::Counting:
        return Texts::tr("counting");
    case Phase::Finished:
        return Texts::tr("finished");
    case Phase::Idle:
        break;
    }
    return stopReason == StopReason::None ? Texts::tr("idle") : Texts::tr("stopped");
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
        return Texts::tr("The connection is lost.");
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

QString hint(Phase phase)
{
    switch (phase) {
    case Phase::Confirmation:
        return Texts::tr("Answer the question to go on.");
    case Phase::FactoryReset:
        return Texts::tr("The LDB has been asked for a factory reset.");
    default:
        return Texts::tr("Press Start to begin a run.");
    }
}

QString sideEnd(const FimCounter& counter, int ldbPort)
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

QString commandFailure(TrackedLdb::Command command, TrackedLdb::Answer answer)
{
    const QString text = answer == TrackedLdb::Answer::Refused
                             ? Texts::tr("The LDB refused the command: %1")
                             : Texts::tr("The LDB did not answer the command: %1");
    return text.arg(commandName(command));
}

} // namespace phasetext
