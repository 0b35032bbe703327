#include "views/quality/livequality.h"

#include "recording/minutecount.h"
#include "serial/ldb/microseconds.h"

#include <QThread>

namespace {

using microseconds::kMinute;
constexpr int kMinutesKept = 61; // an hour, and the minute under way

} // namespace

std::vector<RecordedMinute> LiveQuality::minutes(TimeSpan span) const
{
    std::vector<RecordedMinute> minutes;
    for (auto ldbs = m_minutes.lowerBound(span.from - span.from % kMinute);
         ldbs != m_minutes.end() && ldbs.key() < span.to; ++ldbs) {
        minutes.insert(minutes.end(), ldbs->begin(), ldbs->end());
    }
    return minutes;
}

void LiveQuality::takeExchange(const Exchange& exchange)
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (!minutecount::counts(exchange, m_list.contains(exchange.hexId))) {
        return;
    }
    const qint64 begin = exchange.sentAt - exchange.sentAt % kMinute;
    RecordedMinute& minute = m_minutes[begin][exchange.hexId];
    minute.at = begin;
    minute.hexId = exchange.hexId;
    minutecount::add(minute, exchange);
    while (m_minutes.size() > kMinutesKept) {
        m_minutes.erase(m_minutes.begin());
    }
}

void LiveQuality::setList(const QStringList& hexIds)
{
    m_list = QSet<QString>(hexIds.begin(), hexIds.end());
}
