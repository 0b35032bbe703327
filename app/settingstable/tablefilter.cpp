#include "app/settingstable/tablefilter.h"

#include "app/settingstable/settingstablemodel.h"

TableFilter::TableFilter(QObject* parent)
    : QSortFilterProxyModel(parent)
{
    setSortRole(SettingsTableModel::SortRole);
    setSortCaseSensitivity(Qt::CaseInsensitive);
    // A row must not jump away while it is edited.
    setDynamicSortFilter(false);
}

void TableFilter::setShow(Show show)
{
    m_show = show;
    invalidateFilter();
}

void TableFilter::setSearch(const QString& text)
{
    m_search = text.trimmed();
    invalidateFilter();
}

bool TableFilter::hasCell(int row, int role) const
{
    for (const LdbField field : kLdbFields) {
        const QModelIndex cell = sourceModel()->index(row, SettingsTableModel::columnOf(field));
        if (cell.data(role).toBool()) {
            return true;
        }
    }
    return false;
}

bool TableFilter::filterAcceptsRow(int row, const QModelIndex& parent) const
{
    Q_UNUSED(parent)
    if ((m_show == Show::Differing && !hasCell(row, SettingsTableModel::DiffersRole)) ||
        (m_show == Show::Edited && !hasCell(row, SettingsTableModel::EditedRole))) {
        return false;
    }
    const auto holds = [&](int column, int role) {
        return sourceModel()
            ->index(row, column)
            .data(role)
            .toString()
            .contains(m_search, Qt::CaseInsensitive);
    };
    return m_search.isEmpty() || holds(SettingsTableModel::LdbColumn, Qt::DisplayRole) ||
           holds(SettingsTableModel::columnOf(LdbField::Name), Qt::EditRole) ||
           holds(SettingsTableModel::FirmwareColumn, Qt::DisplayRole);
}
