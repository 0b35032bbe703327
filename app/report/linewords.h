#pragma once

#include "recording/recordedvalues.h"

#include <QString>

#include <vector>

/// What the quality of the line comes to in a report.
namespace linewords {

/// What can be said for certain, in the language in force; from what each LDB's exchanges were.
QString text(const std::vector<RecordedMinute>& ofLdbs);

} // namespace linewords
