#pragma once

#include "importexport/ldbfields.h"

#include <QDialog>

/// Asks for a value of one field, for several LDBs at once, with the editor's own control.
class SetValueDialog : public QDialog
{
    Q_OBJECT
public:
    /// `first`: what the control shows at first.
    SetValueDialog(LdbField field, int ldbs, const LdbSettings& first, QWidget* parent);

    /// The value is in its field.
    const LdbSettings& values() const { return m_values; }

    void accept() override;

private:
    LdbField m_field;
    QWidget* m_control;
    LdbSettings m_values;
};
