#pragma once

#include "importexport/report/reportcontents.h"

#include <QByteArray>

/// The document as one HTML file, UTF-8, pictures within. Pure.
QByteArray htmlOf(const ReportContents& contents);
