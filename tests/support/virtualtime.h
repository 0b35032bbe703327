#pragma once

#include <QAbstractEventDispatcher>
#include <QList>

/// An event dispatcher in which time passes only when a test lets it: `advance()` runs the timers
/// due on the way, in order, at once. Installed on the thread before the application object is
/// made:
///     VirtualTime::install();
/// Sockets and pipes are not served.
class VirtualTime : public QAbstractEventDispatcher
{
    Q_OBJECT
public:
    /// Makes one and sets it for the application to come.
    static VirtualTime* install();
    /// The one installed on this thread, which owns it; none is a fault of the test.
    static VirtualTime* current();

    /// Lets `milliseconds` pass: every timer due by then (that very moment included) fires, each
    /// followed by the posted events it caused.
    void advance(qint64 milliseconds);
    qint64 now() const { return m_now; }

    bool processEvents(QEventLoop::ProcessEventsFlags flags) override;
    bool hasPendingEvents() override;
    void registerSocketNotifier(QSocketNotifier*) override {}
    void unregisterSocketNotifier(QSocketNotifier*) override {}
    void registerTimer(int timerId, int interval, Qt::TimerType timerType,
                       QObject* object) override;
    bool unregisterTimer(int timerId) override;
    bool unregisterTimers(QObject* object) override;
    QList<TimerInfo> registeredTimers(QObject* object) const override;
    int remainingTime(int timerId) override;
    void wakeUp() override {}
    void interrupt() override {}
    void flush() override {}

private:
    struct Timer
    {
        int id;
        int interval;
        Qt::TimerType type;
        QObject* object;
        qint64 due;
    };
    /// Fires the earliest timer due at or before `limit`; false when there is none.
    bool fireNext(qint64 limit);
    /// Whether there was one.
    template <typename Predicate>
    bool removeTimers(Predicate isMeant);

    QList<Timer> m_timers;
    qint64 m_now = 0;
};
