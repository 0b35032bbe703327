#pragma once

#include "tracking/counting/ldbport.h"

#include <QMetaType>

#include <optional>

// What a tracking run finds out. Values; their texts are not decided here.

/// What a tracking run is for.
enum class TrackingMode
{
    Cancelled = 0,    ///< no run at all
    FaultFinding = 1, ///< from the primary port alone, the secondary one disconnected
    Commissioning = 2 ///< both sides
};

/// How a side of the loop ended.
enum class SideEnd : int
{
    Connected = 0,
    Open = 1,
    Short = 2
};
Q_DECLARE_METATYPE(SideEnd)

/// What both sides say together: the primary side's code, and the secondary one's times four.
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

constexpr LoopResult loopResult(SideEnd primary, SideEnd secondary)
{
    return static_cast<LoopResult>(static_cast<int>(primary) + 4 * static_cast<int>(secondary));
}

/// A leakage that showed while the FIMs came up, and how far each side had come by then.
struct FaultReport
{
    enum class Kind
    {
        EarthLeakage,
        LoopDcLeakage
    };

    Kind kind = Kind::EarthLeakage;
    /// FIM counted from each side; nothing for a side that no longer counts.
    BySide<std::optional<int>> positions;
};
Q_DECLARE_METATYPE(FaultReport)

/// What a tracking run asks of its LDB.
enum class TrackingCommand
{
    FactoryReset,
    LdbReset,
    MuteAudio
};
Q_DECLARE_METATYPE(TrackingCommand)
