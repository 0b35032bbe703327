#include "app/settingstable/tabledelegate.h"

#include "app/ldbsettings/fieldcontrols.h"
#include "app/settingstable/settingstablemodel.h"

QWidget* TableDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                     const QModelIndex& index) const
{
    Q_UNUSED(option)
    const auto field = SettingsTableModel::fieldOf(index.column());
    QWidget* control = field ? fieldcontrols::make(*field, parent) : nullptr;
    if (control != nullptr) {
        control->setAutoFillBackground(true);
    }
    return control;
}

void TableDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    const auto field = *SettingsTableModel::fieldOf(index.column());
    LdbSettings settings;
    if (!setFieldVariant(field, index.data(Qt::EditRole), settings)) {
        settings.name = index.data(Qt::EditRole).toString(); // a name that is shown all the same
    }
    fieldcontrols::show(field, settings, editor);
}

void TableDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                 const QModelIndex& index) const
{
    const auto field = *SettingsTableModel::fieldOf(index.column());
    LdbSettings settings;
    if (fieldcontrols::take(field, editor, settings)) {
        model->setData(index, fieldVariant(field, settings), Qt::EditRole);
    }
}
