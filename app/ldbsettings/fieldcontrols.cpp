#include "app/ldbsettings/fieldcontrols.h"

#include <QCheckBox>
#include <QEvent>
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

/// Who turns the wheel over a form wants to scroll it, and would not see what else has changed.
class WheelGuard : public QObject
{
public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        Q_UNUSED(watched)
        if (event->type() != QEvent::Wheel) {
            return false;
        }
        event->ignore(); // what lies behind gets it
        return true;
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
    number->installEventFilter(new WheelGuard(number));
    number->setFocusPolicy(Qt::StrongFocus); // not by the wheel either
}

void fieldcontrols::reserveBoldWidth(QWidget* control)
{
    const QFont shown = control->font();
    QFont bold = shown;
    bold.setBold(true);
    control->setFont(bold);
    control->setMinimumWidth(control->sizeHint().width());
    control->setFont(shown);
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
        if (!fieldUnit(field).isEmpty()) {
            box->setSuffix(QLatin1Char(' ') + fieldUnit(field));
        }
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
