#include "tests/tracking/modelloop.h"

#include <algorithm>

namespace {

constexpr int kOpenSeenAt = 6000;
constexpr int kClosedSeenAfter = 14000;
constexpr int kSurgeLength = 2000;
constexpr int kSlotSpacing = 36000;
constexpr int kBaseCurrent = 1000;
constexpr int kFimCurrent = 40;
constexpr int kSurgeCurrent = 600;

/// When a side gets to its next position, the first being slot 0.
int slotTime(int ldbPort, int slot)
{
    constexpr BySide<int> kFirst{10000, 8000};
    constexpr BySide<int> kSecond{48000, 30000};
    return slot == 0 ? kFirst[ldbPort] : kSecond[ldbPort] + (slot - 1) * kSlotSpacing;
}

} // namespace

ModelLoop::ModelLoop(const LoopPlan& plan)
{
    play(plan);
}

void ModelLoop::play(const LoopPlan& plan)
{
    BySide<int> front{0, plan.fims + 1}; // the last FIM that each side has brought up
    BySide<int> slot;
    BySide<bool> stopped{false, !plan.secondaryConnected};
    while (!(stopped.primary && stopped.secondary)) {
        const bool isPrimary =
            stopped.secondary || (!stopped.primary && slotTime(PrimaryPort, slot.primary) <
                                                          slotTime(SecondaryPort, slot.secondary));
        const int port = isPrimary ? PrimaryPort : SecondaryPort;
        const int at = slotTime(port, slot[port]++);
        if (meetsFault(port, front[port], plan.openAfter)) {
            stopped[port] = true;
        } else if (meetsFault(port, front[port], plan.shortAfter)) {
            // Who comes first feeds the short and isolates it; the other only sees it isolated.
            const bool isFirst = !m_shortAt.has_value();
            m_shortAt = m_shortAt.value_or(at);
            m_steps.append(isFirst ? Step{at, port, kSurgeCurrent, at + kSurgeLength}
                                   : Step{at, port, kFimCurrent, kForEver});
            stopped[port] = true;
        } else if (front.primary + 1 == front.secondary) {
            stopped = {true, true};
            if (plan.secondaryConnected) {
                m_steps.append({at, port, kFimCurrent, kForEver});
                m_closedAt = at;
            }
        } else {
            front[port] += isPrimary ? 1 : -1;
            m_steps.append({at, port, kFimCurrent, kForEver});
            if (!m_earthLeakageAt && meetsFault(port, front[port], plan.earthLeakageAfter)) {
                m_earthLeakageAt = at;
            }
            if (!m_dcLeakageAt && meetsFault(port, front[port], plan.dcLeakageAfter)) {
                m_dcLeakageAt = at;
            }
        }
    }
}

bool ModelLoop::meetsFault(int ldbPort, int front, const std::optional<int>& after) const
{
    return after && front == (ldbPort == PrimaryPort ? *after : *after + 1);
}

void ModelLoop::describe(int milliseconds, LdbStatus& status) const
{
    const auto isPast = [milliseconds](const std::optional<int>& moment, int delay = 0) {
        return moment && milliseconds >= *moment + delay;
    };
    BySide<int> current{kBaseCurrent, kBaseCurrent};
    for (const Step& step : m_steps) {
        if (milliseconds >= step.at && milliseconds < step.until) {
            current[step.ldbPort] += step.height;
        }
    }
    status.primaryCurrent = static_cast<quint16>(current.primary);
    status.secondaryCurrent = static_cast<quint16>(current.secondary);

    const bool isShort = isPast(m_shortAt) && !isPast(m_shortAt, kSurgeLength);
    const bool isClosed = isPast(m_closedAt, kClosedSeenAfter);
    const bool isOpen = milliseconds >= kOpenSeenAt && !isClosed && !isShort;
    status.loopByte = static_cast<quint8>(isOpen ? 1 : isClosed ? 2 : 0);
    status.loopNibbles =
        static_cast<quint8>((isPast(m_dcLeakageAt) ? 0x10 : 0) | (isShort ? 1 : 0));
    status.earthByte1 = isPast(m_earthLeakageAt) ? 1 : 0;
}
