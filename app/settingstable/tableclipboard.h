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
    Text error; ///< then there are no edits: what is wrong is not to be pasted by halves
};
/// What the text makes of the cells from the first selected one on. One single value goes into all
/// selected cells. Columns that no user can change are passed over.
Pasted pasted(const QString& text, const QModelIndexList& selected);

} // namespace tableclipboard
