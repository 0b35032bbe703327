#pragma once

#include <QtGlobal>

#include <array>
#include <optional>
#include <vector>

/// Whether a fault is there, was there, or neither.
enum class FaultPhase
{
    Clear,
    Present,
    Memory ///< gone, but remembered
};

enum class LoopFaultKind
{
    Open,
    Short,
    DcLeakage,
    EarthLeakage
};
constexpr int kLoopFaultKinds = 4;

enum class LoopPort
{
    Primary,
    Secondary
};

/// A loudspeaker loop: FIMs numbered 1 to N from the primary port, each of which switches the loop
/// on to the next one. Segment k lies behind FIM k, segment 0 at the primary port and segment N at
/// the secondary one. A disconnected secondary port is an open segment N.
///
/// After a start the FIMs come up one after another from both ends, in slots of fixed times, until
/// they meet and the ring closes. A short that a front reaches surges and is fenced off; an open
/// stops the front for as long as it is there. In a loop that has been closed faults show at once.
///
/// A value without timers: times are milliseconds of the caller's clock, which `advance()` brings.
class LoopModel
{
public:
    /// A loop that has been running undisturbed for long.
    explicit LoopModel(int fims, qint64 now = 0);

    int fims() const { return m_fims; }
    bool isPowered() const;

    /// Takes the power off the loop; nothing is remembered.
    void switchOff();
    /// Starts the loop anew; the faults present stay where they are, nothing is remembered.
    void start(qint64 now);
    void advance(qint64 now);

    /// Puts a fault into the segment behind FIM `afterFim` (a second one beside a first), or turns
    /// all of the kind into remembered ones, or clears all of the kind.
    void setFault(LoopFaultKind kind, FaultPhase phase, int afterFim = 0);
    void setSecondaryConnected(bool connected);
    /// Drops what is only remembered and lets the FIMs try again what they have fenced off.
    void forget();

    /// What the board knows of a kind of fault.
    FaultPhase phase(LoopFaultKind kind) const;

    /// Current without noise, in 0.01 mA.
    int current(LoopPort port) const;
    /// Whether a short draws the port's voltage down now.
    bool isSurging(LoopPort port) const;

    static constexpr int kMaxFims = 127;

private:
    enum class Phase
    {
        Off,
        Starting,
        Running
    };
    struct Fault
    {
        LoopFaultKind kind;
        int afterFim;
        std::optional<qint64> detectedAt; ///< leaks of a starting loop, once a front is there
    };
    /// What stands at one end of the loop.
    struct End
    {
        int fims = 0;           ///< fed from this end
        int shortSteps = 0;     ///< steps left behind by shorts that the other end met
        bool hasFenced = false; ///< the short ahead has been met
        qint64 surgesUntil = -1;
    };

    End& end(LoopPort port) { return m_ends[static_cast<std::size_t>(port)]; }
    const End& end(LoopPort port) const { return m_ends[static_cast<std::size_t>(port)]; }
    bool& remembered(LoopFaultKind kind) { return m_remembered[static_cast<std::size_t>(kind)]; }

    bool has(LoopFaultKind kind) const;
    bool has(LoopFaultKind kind, int segment) const;
    bool isOpenAt(int segment) const;
    int segmentAhead(LoopPort port) const;
    int fedBy(LoopPort port) const;

    void takeSlot(LoopPort port, qint64 at);
    void meetShort(LoopPort port, qint64 at);
    void noteLeaks(qint64 at);
    void loseBeyond(LoopFaultKind kind, int segment);
    bool isLeakSeen(LoopFaultKind kind) const;
    bool isPresent(LoopFaultKind kind) const;

    int m_fims;
    Phase m_phase = Phase::Off;
    qint64 m_now;
    qint64 m_startedAt = 0;
    int m_nextSlot = 0;
    std::array<End, 2> m_ends;
    std::optional<LoopPort> m_closingPort; ///< where the step that closed the ring was seen
    qint64 m_closedAt = 0;
    bool m_isSecondaryConnected = true;
    std::vector<Fault> m_faults;
    std::array<bool, kLoopFaultKinds> m_remembered{};
};
