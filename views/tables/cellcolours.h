#pragma once

#include "views/tables/cellcolourrules.h"

#include <QColor>
#include <QStandardItem>

/// What the tables share in colouring and filling their cells. GUI thread.
namespace cellcolours {

/// Black or white, whichever reads better on `background`.
QColor readableTextOn(const QColor& background);

/// Writes an item's value only where it differs, so that an unchanged cell is not repainted. An
/// invalid value clears the role.
void update(QStandardItem& item, int role, const QVariant& value);

/// The colour that the rules give a record's row, taken from its machine value (0 where that is no
/// whole number); invalid where no rule applies or the rule's colour means nothing.
QColor ruleColour(const CellColourRules& rules, int row, const QStringList& rowData);

/// Gives a cell a background with a text colour that reads on it; an invalid colour clears both.
void setColour(QStandardItem& item, const QColor& background);

/// Gives a cell a background and a text colour.
void setColours(QStandardItem& item, const QColor& background, const QColor& text);

} // namespace cellcolours
