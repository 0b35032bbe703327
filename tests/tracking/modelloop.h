#pragma once

#include "serial/ldbstatus.h"
#include "tracking/ldbport.h"

#include <QList>

#include <optional>

/// What stands in a model loop: FIMs numbered from the primary end, faults each behind a FIM.
struct LoopPlan
{
    int fims = 0;
    std::optional<int> openAfter;
    std::optional<int> shortAfter;
    std::optional<int> earthLeakageAfter;
    std::optional<int> dcLeakageAfter;
    bool secondaryConnected = true;
};

/// A loop whose FIMs start up one after another from both ends, as a function of the time since
/// its LDB began to boot. Test support: the counting rules' counterpart.
class ModelLoop
{
public:
    explicit ModelLoop(const LoopPlan& plan);

    /// Loop, earth and port currents at a time in ms since the boot.
    void describe(int milliseconds, LdbStatus& status) const;

private:
    struct Step
    {
        int at;
        int ldbPort;
        int height; ///< 0.01 mA
        int until;  ///< for ever: `kForEver`
    };
    static constexpr int kForEver = 1 << 30;

    void play(const LoopPlan& plan);
    bool meetsFault(int ldbPort, int front, const std::optional<int>& after) const;

    QList<Step> m_steps;
    std::optional<int> m_shortAt;
    std::optional<int> m_closedAt;
    std::optional<int> m_earthLeakageAt;
    std::optional<int> m_dcLeakageAt;
};
