#pragma once

#include "app/settingstable/tablecomparison.h"

/// What the table of settings says of a cell or an LDB, in the language in force. Pure functions.
namespace celltexts {

/// "written", "refused", ...
QString ofOutcome(FieldOutcome outcome);
/// What a cell shows: a value, or the old and the new one.
QString ofCell(const TableRow& row, LdbField field, bool differs);
/// What else there is to know, for a tool tip.
QString tip(const TableRow& row, LdbField field, const TableComparison& comparison);
/// The state of the LDB in the table: lost, not read, what became of its edits.
QString ofRow(const TableRow& row);

} // namespace celltexts
