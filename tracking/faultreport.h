#pragma once

#include "serial/ldbstatus.h"
#include "tracking/ldbport.h"

#include <QMetaType>
#include <QString>

#include <optional>

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

/// Which states are faults, and what is said of them. Pure functions; texts in the language in
/// force.
namespace faultreport {

/// Leakage present, not merely remembered.
bool isEarthLeakage(LdbEarthState state);
bool isLoopDcLeakage(LdbLoopState state);

/// The message box's text.
QString message(const FaultReport& report);
/// The label of one side.
QString sideText(FaultReport::Kind kind, int position);

} // namespace faultreport
