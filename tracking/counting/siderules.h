#pragma once

#include "tracking/counting/ldbport.h"

/// Where the two sides of a loop are treated differently, and the periods they share. The LDB
/// starts the FIMs of its two ends at different times, which is why hardly a row is the same.
/// Periods in ms.
namespace siderules {

// clang-format off
//                                                                  primary  secondary
/// Steps closer than this follow one another.
constexpr BySide<int>  kStepSpacing                               { 23000,   33000  };
/// No step counts for this long after the first sample ...
constexpr BySide<int>  kFirstMeasurement                          { 22000,   24000  };
/// ... and after a counted one.
constexpr BySide<int>  kMeasurement                               { 16000,   16000  };
/// Without a step for this long the side ends.
constexpr BySide<int>  kConsecutiveCount                          { 70000,   100000 };
/// Without any step for this long after the first sample the side ends; 0: no such limit.
constexpr BySide<int>  kFirstFim                                  { 0,       50000  };
/// A surge counts as a short for this long.
constexpr BySide<int>  kShortReset                                { 4000,    4000   };
/// A surge is remembered until the side's first step.
constexpr BySide<bool> kRemembersShort                            { true,    false  };

// Corrections of the count when the side ends, in the order in which they are applied. The first
// FIM of a side starts up before counting begins, and the last step may be the closing of the ring.
//                                                                  primary  secondary
// Connected:
/// one more, if any was counted
constexpr BySide<bool> kConnectedAddsUncounted                    { false,   true   };
/// one less, if the last step followed its predecessor closely
constexpr BySide<bool> kConnectedTakesCloseStep                   { true,    true   };
/// one less, if the last step is younger than `kMeasurement`
constexpr BySide<bool> kConnectedTakesFreshStep                   { false,   true   };
// Short:
/// one less, if the other side was shorted first
constexpr BySide<bool> kShortTakesOtherShort                      { true,    true   };
// Open:
/// one more, if any was counted
constexpr BySide<bool> kOpenAddsUncounted                         { true,    true   };
/// one less, if the other side was shorted first
constexpr BySide<bool> kOpenTakesOtherShort                       { true,    true   };
/// and then yet one less, if exactly one remains
constexpr BySide<bool> kOpenTakesSoleRemaining                    { false,   true   };
/// one less, if a surge is remembered
constexpr BySide<bool> kOpenTakesRememberedShort                  { true,    false  };
// clang-format on

/// The loop has to stay closed for this long.
constexpr int kLoopClosed = 4000;

} // namespace siderules
