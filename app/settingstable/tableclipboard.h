#pragma once

#include "app/settingstable/settingstablemodel.h"

/// Copies cells of a view of the table to a spreadsheet and back. Works on the view's model, in
/// its order. Free functions without widgets.
namespace tableclipboard {

/// The cells as tab-separated text; those between them that are not selected stay empty.
QString copied(const QModelIndexList& cells);

struct Pasted
{
    std::vector<SettingsTableModel::CellEdit> edits;
    Text error; ///< if set, there are no edits: nothing is pasted by halves
};
/// The edits that pasting the text makes, from the first selected cell on. A single value goes into
/// all selected cells. Columns that users cannot change are passed over.
Pasted pasted(const QString& text, const QModelIndexList& selected);

} // namespace tableclipboard
