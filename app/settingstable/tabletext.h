#pragma once

#include "importexport/ldbfields.h"

#include <QStringList>

#include <vector>

/// Cells as text, for spreadsheets: tab-separated columns, a line a row. Pure functions.
namespace tabletext {

/// The field's value as a cell holds it.
QString ofField(LdbField field, const LdbSettings& settings);
/// Reads the text of a cell as the field's value; a switch also as 0 and 1, or in the words of the
/// language in force. False, and nothing changes, where no LDB can store it.
bool toField(LdbField field, const QString& text, LdbSettings& settings);

/// A cell with a tab or a line feed, or that begins with a quotation mark, stands in quotation
/// marks, as spreadsheets have it.
QString join(const std::vector<QStringList>& rows);
std::vector<QStringList> split(const QString& text);

} // namespace tabletext
