#pragma once

#include "recording/recordedvalues.h"
#include "serial/ldb/exchange.h"

/// What the minutes count of an exchange. Pure.
namespace minutecount {

/// Whether it says something about the line. `isListed`: its LDB is in the list.
bool counts(const Exchange& exchange, bool isListed);
/// Adds an exchange that does.
void add(RecordedMinute& minute, const Exchange& exchange);

} // namespace minutecount
