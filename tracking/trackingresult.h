#pragma once

#include <QMetaType>
#include <QString>

/// What a tracking run is for.
enum class TrackingMode
{
    Cancelled = 0,    ///< no run at all
    FaultFinding = 1, ///< from the primary port alone, the secondary one disconnected
    Commissioning = 2 ///< both sides
};

/// How a side of the loop ended.
enum class SideEnd
{
    Connected,
    Open,
    Short
};
Q_DECLARE_METATYPE(SideEnd)

/// What both sides say together: the sum of the two sides' codes.
enum class LoopResult : int
{
    Connected = 0,
    PrimaryOpen = 1,
    PrimaryShort = 2,
    SecondaryOpen = 4,
    BothOpen = 5,
    PrimaryShortSecondaryOpen = 6,
    SecondaryShort = 8,
    PrimaryOpenSecondaryShort = 9,
    BothShort = 10
};
Q_DECLARE_METATYPE(LoopResult)

/// Codes and texts of results. Pure functions; texts in the language in force.
namespace trackingresult {

/// Primary 0, 1 or 2, secondary 0, 4 or 8 for connected, open, short.
int sideCode(int ldbPort, SideEnd end);
LoopResult loopResult(SideEnd primary, SideEnd secondary);

QString modeText(TrackingMode mode);
/// What stands beside a side's count once the side has ended.
QString sideEndText(SideEnd end);
/// What the alarm box of a side says.
QString sideAlarmText(int ldbPort, SideEnd end);
QString loopResultText(LoopResult result);
/// The total of FIMs and the loop result in one line.
QString summary(int totalFimCount, LoopResult result);

} // namespace trackingresult
