#include "views/logperiod.h"

bool LogPeriod::admits(int id, const QDateTime& timestamp, int interval)
{
    const bool isFirst = !m_start.isValid();
    if (isFirst) {
        open(id, timestamp);
    }
    const qint64 elapsed = m_start.secsTo(timestamp);
    if (elapsed >= interval) {
        open(id, timestamp);
        return true;
    }
    if (elapsed != 0 || m_loggedIds.contains(id)) {
        return isFirst;
    }
    m_loggedIds.append(id);
    return true;
}

void LogPeriod::open(int id, const QDateTime& timestamp)
{
    m_start = timestamp;
    m_loggedIds = {id};
}
