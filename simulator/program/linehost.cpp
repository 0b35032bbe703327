#include "simulator/program/linehost.h"

namespace {

constexpr qint64 kMicrosecondsPerMillisecond = 1000;
/// Bytes that arrive together before an answer's end, so that a byte does not cost a wake-up.
constexpr int kTogether = 8;
/// The timer's milliseconds are an int, and what has nothing to do need not wake up sooner.
constexpr qint64 kLongestSleep = 3600000;

} // namespace

LineHost::LineHost(const Line& line, const SimulationClock& clock, QObject* parent)
    : QObject(parent)
    , m_line(line)
    , m_clock(clock)
    , m_timer(this)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &LineHost::work);
    // Stray bytes come without being asked.
    m_timer.start(0);
}

void LineHost::receive(const QByteArray& bytes)
{
    m_line.transmit(bytes, m_clock.microseconds());
    work();
}

void LineHost::setAdversaries(const Adversaries& adversaries)
{
    m_line.setAdversaries(adversaries, m_clock.microseconds());
    work();
}

/// The timer counts whole milliseconds; what is shorter is waited for, because three exchanges'
/// roundings a poll would make the line noticeably slower than a real one.
void LineHost::work()
{
    for (;;) {
        const QByteArray bytes = m_line.takeArrived(m_clock.microseconds());
        if (!bytes.isEmpty()) {
            emit arrived(bytes);
        }
        const qint64 next = m_line.nextArrival(kTogether);
        const qint64 time = next == Line::kNever ? kLongestSleep * kMicrosecondsPerMillisecond
                                                 : next - m_clock.microseconds();
        if (time >= kMicrosecondsPerMillisecond) {
            const qint64 sleep = std::min(time / kMicrosecondsPerMillisecond, kLongestSleep);
            m_timer.start(static_cast<int>(sleep));
            return;
        }
        if (time > 0) {
            m_clock.wait(time);
        }
    }
}
