#include "views/log/logfilename.h"

#include <QFileInfo>

namespace logfilename {

QString suggested(const QDateTime& now)
{
    return now.toString(QStringLiteral("'ldb-log_'yyyy-MM-dd_hh-mm'.csv'"));
}

QString withSuffix(const QString& chosen)
{
    const QFileInfo info(chosen);
    if (info.fileName().isEmpty() || !info.suffix().isEmpty()) {
        return chosen;
    }
    return chosen +
           (chosen.endsWith(QLatin1Char('.')) ? QStringLiteral("csv") : QStringLiteral(".csv"));
}

} // namespace logfilename
