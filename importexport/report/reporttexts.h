#pragma once

#include "importexport/report/visitreport.h"

#include <QString>
#include <QStringList>

#include <optional>

/// The report's words for single things. Pure functions; texts in the language in force.
namespace reporttexts {

/// A moment as a record shows it; a dash where it is not known.
QString timeText(qint64 at);
/// "0A Platform 2".
QString nameText(const QString& hexId, const QString& name);
QString portsText(const VisitReport& report);

/// What kind of fault, how often, and whether it came and went between two records.
QString faultText(const FaultSpan& fault);
QString beginText(const FaultSpan& fault);
QString endText(const FaultSpan& fault);
/// How long it lasted; one that is still there, up to the end of the report.
QString durationOf(const FaultSpan& fault, const VisitReport& report);

QString occasionText(FormerSettings::Occasion occasion);

/// How a side of a run ended, with the FIM before the fault.
QString sideText(const recordedwork::Finding::Side& side);
QString countText(const recordedwork::Finding::Side& side);

/// FIMs that both sides counted together; nothing where one was not tracked.
std::optional<int> loopCount(const recordedwork::Finding& finding);
/// A dash for none.
QString numberText(std::optional<int> number);

/// Whether the LDB does not do its work: lost, in fault, or with a failed reset.
bool isOutOfOrder(const QList<QStringList>& rows);
/// One sentence each.
QStringList summaryTexts(const VisitReport& report);
QStringList missingTexts(const VisitReport& report);

/// The average time of an answer, and the longest.
QString flightText(const RecordedMinute& line);
/// Whether the line is good, with the share of what was answered well.
QString lineText(const VisitReport& report);

} // namespace reporttexts
