#include "tests/simulator/referencecounter.h"

#include <algorithm>
#include <numeric>

namespace {
constexpr double kStep = 11;
constexpr double kShort = 220;
} // namespace

double ReferenceCounter::Side::mean() const
{
    return std::accumulate(history.begin(), history.end(), 0.0) /
           static_cast<double>(history.size());
}

bool ReferenceCounter::Side::steps(double current, qint64 now)
{
    history.push_back(current);
    if (history.size() > 20) {
        history.pop_front();
    }
    return current - mean() > kStep && now >= inhibit;
}

void ReferenceCounter::sample(const LdbStatus& status, qint64 now)
{
    const auto primary = static_cast<qint16>(status.primaryCurrent);
    const auto secondary = static_cast<qint16>(status.secondaryCurrent);
    expire(now);
    m_loop = static_cast<int>(status.loopState());
    count(primary, secondary, now);
    if (m_armed) {
        judgeShort(primary, secondary, now);
    }
    judgeRing(now);
}

void ReferenceCounter::expire(qint64 now)
{
    if (!m_primary.pending && now >= m_primary.end) {
        closePrimary();
    }
    if (!m_secondary.pending && now >= m_secondary.end) {
        closeSecondary(now);
    }
    m_primary.shorted = m_primary.shorted && now < m_primary.shortReset;
    m_secondary.shorted = m_secondary.shorted && now < m_secondary.shortReset;
    if (m_ringClosed != 0 && now >= m_ringClosed) {
        m_ringClosed = 0;
        closePrimary();
        closeSecondary(now);
    }
}

void ReferenceCounter::count(double primary, double secondary, qint64 now)
{
    if (!m_primary.finished) {
        if (m_primary.pending) {
            m_primary.pending = false;
            m_primary.inhibit = now + 22000;
            m_primary.end = now + 70000;
        }
        if (m_primary.steps(primary, now)) {
            m_primaryShortSeen = m_primaryShortSeen && m_primary.count != 0;
            m_primary.closeStep = now < m_primary.spacing;
            ++m_primary.count;
            m_primary.spacing = now + 23000;
            m_primary.inhibit = now + 16000;
            m_primary.end = now + 70000;
        }
    }
    if (m_secondary.finished || !m_tracksSecondary) {
        return;
    }
    if (m_secondary.pending) {
        m_secondary.pending = false;
        m_secondary.inhibit = now + 24000;
        m_secondary.end = now + 100000;
        m_secondary.firstFim = now + 50000;
    }
    const bool steps = m_secondary.steps(secondary, now);
    if (now >= m_secondary.firstFim && m_secondary.count == 0) {
        closeSecondary(now);
    } else if (steps) {
        m_secondary.closeStep = now < m_secondary.spacing;
        ++m_secondary.count;
        m_secondary.spacing = now + 33000;
        m_secondary.inhibit = now + 16000;
        m_secondary.end = now + 100000;
    }
}

void ReferenceCounter::judgeShort(double primary, double secondary, qint64 now)
{
    if (!m_primary.shorted && primary - m_primary.mean() > kShort) {
        m_primary.shorted = true;
        m_primaryShortSeen = true;
        m_primary.shortReset = now + 4000;
    }
    if (!m_secondary.shorted && m_tracksSecondary && secondary - m_secondary.mean() > kShort) {
        m_secondary.shorted = true;
        m_secondary.shortReset = now + 4000;
    }
    if (m_loop != 4 && m_loop != 6) {
        return;
    }
    m_ringClosed = 0;
    if (!m_primary.finished && m_primary.shorted) {
        m_firstShort = m_firstShort == 0 ? 1 : m_firstShort;
        closePrimary();
    }
    if (!m_secondary.finished && m_secondary.shorted) {
        m_firstShort = m_firstShort == 0 ? 2 : m_firstShort;
        closeSecondary(now);
    }
}

void ReferenceCounter::judgeRing(qint64 now)
{
    const int withoutShortAndDc = m_loop & ~24;
    const int withoutShort = m_loop & ~8;
    m_armed = m_armed || withoutShortAndDc == 1 || withoutShort == 33;
    if (m_armed && (withoutShortAndDc == 2 || withoutShort == 34) && m_ringClosed == 0) {
        m_ringClosed = now + 4000;
    }
}

bool ReferenceCounter::isConnected() const
{
    constexpr int kClosedRing[] = {0, 2, 10, 18, 26, 34, 42};
    return std::find(std::begin(kClosedRing), std::end(kClosedRing), m_loop) !=
           std::end(kClosedRing);
}

void ReferenceCounter::closePrimary()
{
    Side& side = m_primary;
    if (side.finished) {
        return;
    }
    side.finished = true;
    if (isConnected()) {
        side.result = Connected;
        side.count -= side.closeStep ? 1 : 0;
    } else if (side.shorted) {
        side.result = Short;
        side.count -= m_firstShort == 2 ? 1 : 0;
    } else {
        side.result = Open;
        side.count += side.count > 0 ? 1 : 0;
        side.count -= m_firstShort == 2 ? 1 : 0;
        side.count -= m_primaryShortSeen ? 1 : 0;
    }
    side.count = std::max(side.count, 0);
}

void ReferenceCounter::closeSecondary(qint64 now)
{
    Side& side = m_secondary;
    if (side.finished) {
        return;
    }
    side.finished = true;
    if (isConnected()) {
        side.result = Connected;
        side.count += side.count > 0 ? 1 : 0;
        side.count -= side.closeStep ? 1 : 0;
        side.count -= now < side.inhibit ? 1 : 0;
    } else if (side.shorted) {
        side.result = Short;
        side.count -= m_firstShort == 1 ? 1 : 0;
    } else {
        side.result = Open;
        side.count += side.count > 0 ? 1 : 0;
        if (m_firstShort == 1) {
            --side.count;
            side.count -= side.count == 1 ? 1 : 0;
        }
    }
    side.count = std::max(side.count, 0);
}
