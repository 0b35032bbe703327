#include "simulator/board/loopmodel.h"

#include <algorithm>

namespace {

// Times in ms from the start of the loop.
constexpr qint64 kPowerOn = 2000;
constexpr qint64 kOpenKnown = 6000;
constexpr qint64 kFirstSecondarySlot = 8000;
constexpr qint64 kFirstPrimarySlot = 10000;
constexpr qint64 kFirstCommonSlot = 30000;
constexpr qint64 kSlotSpacing = 18000; ///< from then on the ends take turns, the secondary first

// Durations in ms.
constexpr qint64 kClosedToRunning = 14000;
constexpr qint64 kSurge = 2000;
constexpr qint64 kLeakDetection = 4000;

// Currents in 0.01 mA.
constexpr int kBaseCurrent = 120;
constexpr int kFimCurrent = 40;
constexpr int kSurgeCurrent = 600;

struct Slot
{
    LoopPort port;
    qint64 time;
};

Slot slotAt(int number)
{
    switch (number) {
    case 0:
        return {LoopPort::Secondary, kFirstSecondarySlot};
    case 1:
        return {LoopPort::Primary, kFirstPrimarySlot};
    default:
        return {number % 2 == 0 ? LoopPort::Secondary : LoopPort::Primary,
                kFirstCommonSlot + (number - 2) * kSlotSpacing};
    }
}

LoopPort other(LoopPort port)
{
    return port == LoopPort::Primary ? LoopPort::Secondary : LoopPort::Primary;
}

} // namespace

LoopModel::LoopModel(int fims, qint64 now)
    : m_fims(std::clamp(fims, 0, kMaxFims))
    , m_now(now)
{
    // One slot a FIM and one that closes the ring.
    start(now - slotAt(m_fims).time - kClosedToRunning);
    advance(now);
    forget();
}

bool LoopModel::isPowered() const
{
    return m_phase == Phase::Running ||
           (m_phase == Phase::Starting && m_now >= m_startedAt + kPowerOn);
}

void LoopModel::switchOff()
{
    m_phase = Phase::Off;
    forget();
}

void LoopModel::start(qint64 now)
{
    m_phase = Phase::Starting;
    m_now = now;
    m_startedAt = now;
    m_nextSlot = 0;
    m_ends = {};
    m_closingPort.reset();
    m_remembered = {};
    for (Fault& fault : m_faults) {
        fault.detectedAt.reset();
    }
    noteLeaks(now + kPowerOn);
}

void LoopModel::advance(qint64 now)
{
    m_now = std::max(m_now, now);
    if (m_phase != Phase::Starting) {
        return;
    }
    for (Slot slot = slotAt(m_nextSlot); m_startedAt + slot.time <= m_now;
         slot = slotAt(++m_nextSlot)) {
        takeSlot(slot.port, m_startedAt + slot.time);
    }
    if (m_closingPort && m_now >= m_closedAt + kClosedToRunning) {
        m_phase = Phase::Running;
        remembered(LoopFaultKind::Open) = true;
    }
}

void LoopModel::setFault(LoopFaultKind kind, FaultPhase phase, int afterFim)
{
    if (phase == FaultPhase::Present) {
        if (!has(kind, afterFim)) {
            m_faults.push_back({kind, afterFim, std::nullopt});
        }
        if (m_phase == Phase::Starting) {
            loseBeyond(kind, afterFim);
            noteLeaks(m_now);
        }
        return;
    }
    m_faults.erase(std::remove_if(m_faults.begin(), m_faults.end(),
                                  [kind](const Fault& fault) { return fault.kind == kind; }),
                   m_faults.end());
    remembered(kind) = phase == FaultPhase::Memory;
}

void LoopModel::setSecondaryConnected(bool connected)
{
    m_isSecondaryConnected = connected;
    if (!connected && m_phase == Phase::Starting) {
        loseBeyond(LoopFaultKind::Open, m_fims);
    }
}

void LoopModel::forget()
{
    m_remembered = {};
    for (End& end : m_ends) {
        end.hasFenced = false;
    }
}

FaultPhase LoopModel::phase(LoopFaultKind kind) const
{
    if (m_phase != Phase::Off && isPresent(kind)) {
        return FaultPhase::Present;
    }
    return m_remembered[static_cast<std::size_t>(kind)] ? FaultPhase::Memory : FaultPhase::Clear;
}

int LoopModel::current(LoopPort port) const
{
    if (!isPowered() || (port == LoopPort::Secondary && !m_isSecondaryConnected)) {
        return 0;
    }
    const bool hasClosed = m_closingPort == port && !has(LoopFaultKind::Open);
    const int steps = fedBy(port) + end(port).shortSteps + (hasClosed ? 1 : 0);
    return kBaseCurrent + steps * kFimCurrent + (isSurging(port) ? kSurgeCurrent : 0);
}

bool LoopModel::isSurging(LoopPort port) const
{
    return m_phase == Phase::Running ? has(LoopFaultKind::Short) : m_now < end(port).surgesUntil;
}

bool LoopModel::has(LoopFaultKind kind) const
{
    return std::any_of(m_faults.begin(), m_faults.end(),
                       [kind](const Fault& fault) { return fault.kind == kind; });
}

bool LoopModel::has(LoopFaultKind kind, int segment) const
{
    return std::any_of(m_faults.begin(), m_faults.end(), [kind, segment](const Fault& fault) {
        return fault.kind == kind && fault.afterFim == segment;
    });
}

bool LoopModel::isOpenAt(int segment) const
{
    return has(LoopFaultKind::Open, segment) || (segment == m_fims && !m_isSecondaryConnected);
}

/// The segment that the front from `port` would switch on next.
int LoopModel::segmentAhead(LoopPort port) const
{
    return port == LoopPort::Primary ? end(port).fims : m_fims - end(port).fims;
}

int LoopModel::fedBy(LoopPort port) const
{
    if (m_phase != Phase::Running) {
        return end(port).fims;
    }
    // An opened ring is fed up to the break from either end.
    int nearest = -1;
    int farthest = -1;
    for (int segment = 0; segment <= m_fims; ++segment) {
        if (isOpenAt(segment)) {
            nearest = nearest < 0 ? segment : nearest;
            farthest = segment;
        }
    }
    if (nearest < 0) {
        return end(port).fims;
    }
    return port == LoopPort::Primary ? nearest : m_fims - farthest;
}

void LoopModel::takeSlot(LoopPort port, qint64 at)
{
    const int segment = segmentAhead(port);
    if (m_closingPort) {
        return;
    }
    if (has(LoopFaultKind::Short, segment)) {
        if (!end(port).hasFenced) {
            meetShort(port, at);
        }
        return;
    }
    if (isOpenAt(segment)) {
        return;
    }
    if (end(LoopPort::Primary).fims + end(LoopPort::Secondary).fims < m_fims) {
        ++end(port).fims;
        noteLeaks(at);
    } else {
        m_closingPort = port;
        m_closedAt = at;
    }
}

/// The surge is seen at the port whose front meets the short; the other one takes over a step of
/// the load, and keeps it.
void LoopModel::meetShort(LoopPort port, qint64 at)
{
    end(port).hasFenced = true;
    end(port).surgesUntil = at + kSurge;
    ++end(other(port)).shortSteps;
    remembered(LoopFaultKind::Short) = true;
}

void LoopModel::noteLeaks(qint64 at)
{
    for (Fault& fault : m_faults) {
        const bool isReached =
            segmentAhead(LoopPort::Primary) >= fault.afterFim ||
            (m_isSecondaryConnected && segmentAhead(LoopPort::Secondary) <= fault.afterFim);
        if (isReached && !fault.detectedAt) {
            fault.detectedAt = at + kLeakDetection;
        }
    }
}

/// A new break in a starting loop: what lies behind it, seen from either end, loses its power, and
/// the slots to come feed it from the other side.
void LoopModel::loseBeyond(LoopFaultKind kind, int segment)
{
    if (kind != LoopFaultKind::Open && kind != LoopFaultKind::Short) {
        return;
    }
    const std::array<int, 2> reaches = {segment, m_fims - segment};
    for (const LoopPort port : {LoopPort::Primary, LoopPort::Secondary}) {
        const int reach = reaches[static_cast<std::size_t>(port)];
        const bool isAtBreak = m_closingPort && end(port).fims == reach;
        if (end(port).fims > reach || isAtBreak) {
            end(port).fims = reach;
            if (kind == LoopFaultKind::Short) {
                meetShort(port, m_now);
            }
        }
    }
    m_closingPort.reset();
}

bool LoopModel::isLeakSeen(LoopFaultKind kind) const
{
    return std::any_of(m_faults.begin(), m_faults.end(), [this, kind](const Fault& fault) {
        return fault.kind == kind && fault.detectedAt && m_now >= *fault.detectedAt;
    });
}

bool LoopModel::isPresent(LoopFaultKind kind) const
{
    if (m_phase == Phase::Running) {
        return has(kind) || (kind == LoopFaultKind::Open && !m_isSecondaryConnected);
    }
    switch (kind) {
    case LoopFaultKind::Open:
        return m_now >= m_startedAt + kOpenKnown;
    case LoopFaultKind::Short:
        return isSurging(LoopPort::Primary) || isSurging(LoopPort::Secondary);
    case LoopFaultKind::DcLeakage:
    case LoopFaultKind::EarthLeakage:
        break;
    }
    return isLeakSeen(kind);
}
