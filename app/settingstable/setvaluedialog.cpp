#include "app/settingstable/setvaluedialog.h"

#include "app/ldbsettings/fieldcontrols.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>

SetValueDialog::SetValueDialog(LdbField field, int ldbs, const LdbSettings& first, QWidget* parent)
    : QDialog(parent)
    , m_field(field)
    , m_control(fieldcontrols::make(field, this))
{
    setObjectName(QStringLiteral("setValueDialog"));
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    setWindowTitle(tr("Set for %n LDB(s)", nullptr, ldbs));
    fieldcontrols::show(field, first, m_control);
    m_control->setObjectName(QStringLiteral("setValueControl"));
    m_control->setAccessibleName(fieldName(field));
    auto* form = new QFormLayout(this);
    form->addRow(fieldName(field), m_control);
    auto* buttons = new QDialogButtonBox;
    QPushButton* set = buttons->addButton(tr("Set"), QDialogButtonBox::AcceptRole);
    set->setObjectName(QStringLiteral("setValueButton"));
    buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &SetValueDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    m_control->setFocus();
}

void SetValueDialog::accept()
{
    if (fieldcontrols::take(m_field, m_control, m_values)) {
        QDialog::accept();
    }
}
