#pragma once

#include "recording/recordedvalues.h"
#include "serial/ldb/exchange.h"

/// What of an exchange the minutes count. Pure.
namespace minutecount {

/// Whether it says something about the line. `isListed`: its LDB is in the list.
bool counts(const Exchange& exchange, bool isListed);
/// Counts one that does.
void add(RecordedMinute& minute, const Exchange& exchange);

} // namespace minutecount
