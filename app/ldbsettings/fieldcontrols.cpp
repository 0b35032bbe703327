#include "app/ldbsettings/fieldcontrols.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QSpinBox>
#include <QValidator>

#include <limits>

namespace {

class LdbNameValidator : public QValidator
{
public:
    using QValidator::QValidator;
    State validate(QString& input, int& position) const override
    {
        Q_UNUSED(position)
        return isStorableName(input) ? Acceptable : Invalid;
    }
};

} // namespace

void fieldcontrols::limit(QLineEdit* name)
{
    name->setValidator(new LdbNameValidator(name));
}

void fieldcontrols::limit(QSpinBox* number)
{
    number->setRange(0, std::numeric_limits<quint16>::max());
}

QWidget* fieldcontrols::make(LdbField field, QWidget* parent)
{
    switch (kindOf(field)) {
    case FieldKind::FreeText: {
        auto* edit = new QLineEdit(parent);
        limit(edit);
        return edit;
    }
    case FieldKind::Number: {
        auto* box = new QSpinBox(parent);
        limit(box);
        return box;
    }
    case FieldKind::Switch:
        break;
    }
    return new QCheckBox(parent);
}

void fieldcontrols::show(LdbField field, const LdbSettings& settings, QWidget* control)
{
    const QVariant value = fieldVariant(field, settings);
    if (auto* edit = qobject_cast<QLineEdit*>(control)) {
        edit->setText(value.toString());
    } else if (auto* number = qobject_cast<QSpinBox*>(control)) {
        number->setValue(value.toInt());
    } else if (auto* box = qobject_cast<QCheckBox*>(control)) {
        box->setChecked(value.toBool());
    }
}

bool fieldcontrols::take(LdbField field, const QWidget* control, LdbSettings& settings)
{
    if (const auto* edit = qobject_cast<const QLineEdit*>(control)) {
        return setFieldVariant(field, edit->text(), settings);
    }
    if (const auto* number = qobject_cast<const QSpinBox*>(control)) {
        return setFieldVariant(field, number->value(), settings);
    }
    const auto* box = qobject_cast<const QCheckBox*>(control);
    return box != nullptr && setFieldVariant(field, box->isChecked(), settings);
}
