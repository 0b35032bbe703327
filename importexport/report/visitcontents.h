#pragma once

#include "importexport/report/reportcontents.h"
#include "importexport/report/visitreport.h"

#include <functional>

/// What the line's quality comes to, in sentences: by whoever knows its rules.
using LineWords = std::function<QString(const std::vector<RecordedMinute>& ofLdbs)>;

/// The report as a document, in the language in force. Pure; any thread. Without `words` it tells
/// shares alone.
ReportContents contentsOf(const VisitReport& report, const LineWords& words = {});

/// The currents of a run over its time, as a picture. Pure; any thread.
QImage runPicture(const std::vector<ReportedSample>& samples);
