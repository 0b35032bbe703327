#include "tracking/trackingresult.h"

#include "tracking/ldbport.h"

#include <QCoreApplication>

namespace trackingresult {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(FimTracking)
};

constexpr BySide<int> kOpenCode{1, 4};
constexpr BySide<int> kShortCode{2, 8};

} // namespace

int sideCode(int ldbPort, SideEnd end)
{
    switch (end) {
    case SideEnd::Open:
        return kOpenCode[ldbPort];
    case SideEnd::Short:
        return kShortCode[ldbPort];
    case SideEnd::Connected:
        break;
    }
    return 0;
}

LoopResult loopResult(SideEnd primary, SideEnd secondary)
{
    return static_cast<LoopResult>(sideCode(PrimaryPort, primary) +
                                   sideCode(SecondaryPort, secondary));
}

QString modeText(TrackingMode mode)
{
    switch (mode) {
    case TrackingMode::Commissioning:
        return Texts::tr("Commissioning");
    case TrackingMode::FaultFinding:
        return Texts::tr("Fault Finding");
    case TrackingMode::Cancelled:
        break;
    }
    return {};
}

QString sideEndText(SideEnd end)
{
    switch (end) {
    case SideEnd::Open:
        return Texts::tr("Timeout: Open Detected");
    case SideEnd::Short:
        return Texts::tr("Timeout: Short Detected");
    case SideEnd::Connected:
        break;
    }
    return Texts::tr("Timeout: Side Connected");
}

QString sideAlarmText(int ldbPort, SideEnd end)
{
    const bool isPrimary = ldbPort == PrimaryPort;
    switch (end) {
    case SideEnd::Open:
        return isPrimary ? Texts::tr("Primary side open detected.")
                         : Texts::tr("Secondary side open detected.");
    case SideEnd::Short:
        return isPrimary ? Texts::tr("Primary side short detected.")
                         : Texts::tr("Secondary side short detected.");
    case SideEnd::Connected:
        break;
    }
    return isPrimary ? Texts::tr("Primary side is connected.")
                     : Texts::tr("Secondary side is connected.");
}

QString loopResultText(LoopResult result)
{
    switch (result) {
    case LoopResult::Connected:
        return Texts::tr("Loop is connected");
    case LoopResult::PrimaryOpen:
        return Texts::tr("Primary side open detected");
    case LoopResult::PrimaryShort:
        return Texts::tr("Primary side short detected");
    case LoopResult::SecondaryOpen:
        return Texts::tr("Secondary side open detected");
    case LoopResult::BothOpen:
        return Texts::tr("Both sides open detected");
    case LoopResult::PrimaryShortSecondaryOpen:
        return Texts::tr("Primary side short detected and Secondary side open detected.");
    case LoopResult::SecondaryShort:
        return Texts::tr("Secondary side short detected");
    case LoopResult::PrimaryOpenSecondaryShort:
        return Texts::tr("Primary side open detected and Secondary side short detected.");
    case LoopResult::BothShort:
        return Texts::tr("Both sides short detected");
    }
    return {};
}

QString summary(int totalFimCount, LoopResult result)
{
    return Texts::tr("Total FIM Count: %n", nullptr, totalFimCount) + QStringLiteral("  |||  ") +
           loopResultText(result);
}

} // namespace trackingresult
