#include "tests/support/virtualtime.h"

#include <QCoreApplication>
#include <QTimerEvent>

#include <algorithm>
#include <limits>

VirtualTime* VirtualTime::install()
{
    auto* dispatcher = new VirtualTime;
    QCoreApplication::setEventDispatcher(dispatcher);
    return dispatcher;
}

VirtualTime* VirtualTime::current()
{
    auto* time = qobject_cast<VirtualTime*>(QAbstractEventDispatcher::instance());
    Q_ASSERT(time != nullptr);
    return time;
}

void VirtualTime::advance(qint64 milliseconds)
{
    const qint64 end = m_now + milliseconds;
    QCoreApplication::sendPostedEvents();
    while (fireNext(end)) {
        QCoreApplication::sendPostedEvents();
    }
    m_now = end;
}

bool VirtualTime::fireNext(qint64 limit)
{
    const auto earliest =
        std::min_element(m_timers.begin(), m_timers.end(),
                         [](const Timer& a, const Timer& b) { return a.due < b.due; });
    if (earliest == m_timers.end() || earliest->due > limit) {
        return false;
    }
    m_now = std::max(m_now, earliest->due);
    // A zero-delay timer must not hold time still for ever.
    earliest->due = m_now + std::max(earliest->interval, 1);
    QTimerEvent event(earliest->id);
    QCoreApplication::sendEvent(earliest->object, &event);
    return true;
}

bool VirtualTime::processEvents(QEventLoop::ProcessEventsFlags flags)
{
    emit awake();
    QCoreApplication::sendPostedEvents();
    const bool fired = fireNext(m_now);
    if (!fired && (flags & QEventLoop::WaitForMoreEvents) != 0) {
        // A nested event loop waits: the only thing that can come is the next timer.
        return fireNext(std::numeric_limits<qint64>::max());
    }
    return fired;
}

bool VirtualTime::hasPendingEvents()
{
    return std::any_of(m_timers.begin(), m_timers.end(),
                       [this](const Timer& timer) { return timer.due <= m_now; });
}

void VirtualTime::registerTimer(int timerId, int interval, Qt::TimerType timerType, QObject* object)
{
    m_timers.append({timerId, interval, timerType, object, m_now + interval});
}

template <typename Predicate>
bool VirtualTime::removeTimers(Predicate isMeant)
{
    const auto newEnd = std::remove_if(m_timers.begin(), m_timers.end(), isMeant);
    const bool found = newEnd != m_timers.end();
    m_timers.erase(newEnd, m_timers.end());
    return found;
}

bool VirtualTime::unregisterTimer(int timerId)
{
    return removeTimers([timerId](const Timer& timer) { return timer.id == timerId; });
}

bool VirtualTime::unregisterTimers(QObject* object)
{
    return removeTimers([object](const Timer& timer) { return timer.object == object; });
}

QList<QAbstractEventDispatcher::TimerInfo> VirtualTime::registeredTimers(QObject* object) const
{
    QList<TimerInfo> result;
    for (const Timer& timer : m_timers) {
        if (timer.object == object) {
            result.append(TimerInfo(timer.id, timer.interval, timer.type));
        }
    }
    return result;
}

int VirtualTime::remainingTime(int timerId)
{
    for (const Timer& timer : qAsConst(m_timers)) {
        if (timer.id == timerId) {
            return static_cast<int>(std::max<qint64>(0, timer.due - m_now));
        }
    }
    return -1;
}
