#include "views/log/logperiod.h"

bool LogPeriod::admits(int id, std::optional<qint64> time, int interval)
{
    const bool isFirst = !m_start;
    if (isFirst) {
        open(id, time);
    }
    const qint64 elapsed = m_start && time ? *time - *m_start : 0;
    if (elapsed >= interval) {
        open(id, time);
        return true;
    }
    if (elapsed != 0 || m_loggedIds.contains(id)) {
        return isFirst;
    }
    m_loggedIds.append(id);
    return true;
}

void LogPeriod::open(int id, std::optional<qint64> time)
{
    m_start = time;
    m_loggedIds = {id};
}
