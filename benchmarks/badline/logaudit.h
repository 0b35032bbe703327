#pragma once

#include "benchmarks/badline/journalreader.h"
#include "benchmarks/badline/logwatch.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <vector>

/// What holding a log, and what the overview showed, against the simulator's book has found.
struct LogFindings
{
    int records = 0; ///< lines that say a status
    int shown = 0;   ///< rows of the overview that were looked at
    int leftOut = 0; ///< undamaged statuses among stray bytes that are not in the log
    QStringList losses;
    int falseLosses = 0;
    QStringList stillLost;
    qint64 latest = 0;   ///< ms, the longest from an answer's end to its line
    QStringList wrong;   ///< what should not be there, in words; false losses among it
    QStringList missing; ///< what should be there and is not, or not in time
};

/// Every line must be a status that this very LDB has sent not long before, in the order sent; no
/// answer may stand there twice, and none may be missing that came undamaged and alone before
/// `until` (wall time, ms since 1970). "Disconnected" needs more harmed questions in a row than
/// are forgiven. `names`: of all LDBs, by id.
LogFindings auditLog(const std::vector<LoggedLine>& log, const BusBook& book,
                     const QHash<QString, QString>& names, qint64 until);
