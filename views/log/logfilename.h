#pragma once

#include <QDateTime>
#include <QString>

/// Names of log files. Pure functions.
namespace logfilename {

/// The name to offer for a log begun at `now`: dated to the minute, ending in ".csv", without a
/// folder, and allowed on every file system.
QString suggested(const QDateTime& now);

/// The name the user chose, with ".csv" where it has no suffix. An empty name stays empty.
QString withSuffix(const QString& chosen);

} // namespace logfilename
