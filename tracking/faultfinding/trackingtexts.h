#pragma once

#include "tracking/counting/trackingrun.h"
#include "tracking/faultfinding/formerstate.h"

#include <QDateTime>
#include <QList>
#include <QString>

#include <optional>

/// A finished run, to be kept by the user as text.
struct TrackingReport
{
    struct Side
    {
        int fimCount = 0;
        bool isTracked = true;
        bool isFinished = false;
        SideEnd end = SideEnd::Connected;
    };

    QString hexId;
    QString name;
    TrackingMode mode = TrackingMode::Commissioning;
    QDateTime finishedAt;
    BySide<Side> sides;
    QString summary; ///< total and loop result, as on the screen
    QList<FaultReport> faults;
};

/// What fault finding says to the user. Pure functions; texts in the language in force.
namespace trackingtexts {

/// Why nothing can be asked of the LDB.
QString noConnection();

// Of a run's phase.

/// The phase in a word or two.
QString phase(TrackingRun::Phase phase, TrackingRun::StopReason stopReason);
/// Why a run was stopped; empty where the user knows.
QString stopReason(TrackingRun::StopReason stopReason);
/// The seconds left where they are known, the seconds gone otherwise; empty where nothing is
/// waited for.
QString time(const TrackingRun& run);
/// What the user may do or expect.
QString hint(TrackingRun::Phase phase, bool isReachable);
/// When a side ends; empty once it has.
QString timeToSideEnd(const FimCounter& counter, int ldbPort);

// Of commands.

/// That a command was not obeyed; `isRefused` if the LDB said so.
QString commandFailure(TrackingCommand command, bool isRefused);
/// Why not all can be put back after a run, and what will be lost.
QString noWayBack(FormerState::Lack lack, const QString& reason);

// Of results.

QString mode(TrackingMode mode);
/// What stands beside a side's count once the side has ended.
QString sideEnd(SideEnd end);
/// What the alarm box of a side says.
QString sideAlarm(int ldbPort, SideEnd end);
QString loopResult(LoopResult result);
/// The total of FIMs and the loop result in one line.
QString summary(int totalFimCount, LoopResult result);
/// The FIMs that a run has counted beside those that the LDB is told to have.
QString fimCounts(int counted, std::optional<int> configured);
/// The message box's text.
QString fault(const FaultReport& report);
/// The label of one side.
QString faultOfSide(FaultReport::Kind kind, int position);
/// The whole run, in lines.
QString report(const TrackingReport& report);

} // namespace trackingtexts
