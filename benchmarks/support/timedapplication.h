#pragma once

#include <QApplication>
#include <QEvent>
#include <QThread>

#include <cstdio>
#include <ctime>
#include <utility>

/// CPU time of the calling thread in ms.
inline double threadCpuMs()
{
    constexpr double kNanosecondsPerMs = 1e6;
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1000.0 +
           static_cast<double>(now.tv_nsec) / kNanosecondsPerMs;
}

/// Notes which event the GUI thread computes longest for. Its own time counts, not the clock's: on
/// a busy machine a thread waits for its turn whatever it does. Painting is an event as well.
class TimedApplication : public QApplication
{
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override
    {
        if (m_isInside || QThread::currentThread() != thread()) {
            return QApplication::notify(receiver, event);
        }
        m_isInside = true;
        // It may be gone behind the event.
        const QString name = QString::fromLatin1(receiver->metaObject()->className()) +
                             QLatin1Char(' ') + receiver->objectName();
        const int type = event->type();
        const double before = threadCpuMs();
        const bool isTaken = QApplication::notify(receiver, event);
        const double gone = threadCpuMs() - before;
        m_isInside = false;
        if (gone > m_longestMs) {
            m_longestMs = gone;
            m_longest = QStringLiteral("%1, event %2").arg(name).arg(type);
        }
        return isTaken;
    }

    /// ms of the longest event since it was asked last; says which it was.
    double takeLongestMs(const char* phase)
    {
        std::printf("           %-8s longest event %5.1f ms (%s)\n", phase, m_longestMs,
                    qPrintable(m_longest));
        return std::exchange(m_longestMs, 0);
    }

private:
    bool m_isInside = false;
    double m_longestMs = 0;
    QString m_longest;
};
