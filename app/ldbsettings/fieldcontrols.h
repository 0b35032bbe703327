#pragma once

#include "importexport/ldbfields.h"

class QLineEdit;
class QSpinBox;
class QWidget;

/// The controls with which a field of an LDB's settings is edited, and their limits: the same in
/// the editor of one LDB and in the table of all. GUI thread.
namespace fieldcontrols {

/// Lets a name be typed only as far as an LDB can store it.
void limit(QLineEdit* name);
/// Lets a number of 16 bits be entered, but not by the wheel.
void limit(QSpinBox* number);

/// Keeps the width that the control has with a bold text.
void reserveBoldWidth(QWidget* control);

/// The field's control: a line edit, a spin box or a check box.
QWidget* make(LdbField field, QWidget* parent);
/// Shows the field's value in a control that was made for it.
void show(LdbField field, const LdbSettings& settings, QWidget* control);
/// Takes over the control's value; false, and nothing changes, where no LDB can store it.
bool take(LdbField field, const QWidget* control, LdbSettings& settings);

} // namespace fieldcontrols
