#pragma once

#include "tracking/trackingrun.h"

#include <QString>

/// What the tracking window says of a run's phase. Texts in the language in force.
namespace phasetext {

/// The phase in a word or two.
QString name(TrackingRun::Phase phase, TrackingRun::StopReason stopReason);
/// Why a run was stopped; empty where the user knows.
QString stopReason(TrackingRun::StopReason stopReason);
/// The seconds left where they are known, the seconds gone otherwise; empty where nothing is
/// waited for.
QString time(const TrackingRun& run);
/// What the user may do or expect.
QString hint(TrackingRun::Phase phase);
/// When a side ends; empty once it has.
QString sideEnd(const FimCounter& counter, int ldbPort);
/// That a command was not obeyed.
QString commandFailure(TrackedLdb::Command command, TrackedLdb::Answer answer);

} // namespace phasetext
