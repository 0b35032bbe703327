#pragma once

#include "importexport/report/reportcontents.h"
#include "importexport/report/visitreport.h"

#include <functional>

/// Says in sentences how good the line is; from the room that knows the rules of quality.
using LineWords = std::function<QString(const std::vector<RecordedMinute>& ofLdbs)>;

/// The report as a document, in the language in force. Pure; any thread. Without `words` it tells
/// only shares of the line.
ReportContents contentsOf(const VisitReport& report, const LineWords& words = {});

/// The currents of a run over its time, as a picture. Pure; any thread.
QImage runPicture(const std::vector<ReportedSample>& samples);
