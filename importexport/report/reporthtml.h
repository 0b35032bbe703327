#pragma once

#include "importexport/report/reportcontents.h"

#include <QByteArray>

/// The document as one HTML file, UTF-8, pictures within. Pure. `language`: as "fr".
QByteArray htmlOf(const ReportContents& contents, const QString& language);
