#include "app/report/linewords.h"

#include "views/quality/qualityfindings.h"

QString linewords::text(const std::vector<RecordedMinute>& ofLdbs)
{
    CountsOfLdbs counts;
    for (const RecordedMinute& line : ofLdbs) {
        counts[line.hexId].add(line);
    }
    return qualityfindings::text(counts);
}
