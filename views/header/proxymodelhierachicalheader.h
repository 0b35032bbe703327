#pragma once

#include <QAbstractItemModel>
#include <QMap>
#include <QPointer>
#include <QSortFilterProxyModel>

/// A sorting proxy that carries the tree models of two hierarchical headers beside the data: the
/// header view asks it for them through `data()`, as views know nothing but their model. GUI
/// thread.
class ProxyModelHierachicalHeader : public QSortFilterProxyModel
{
    Q_OBJECT
public:
    /// Roles under which `data()` gives the header models as `QObject*`, at any index.
    enum HeaderRole : int
    {
        HorizontalHeaderRole = Qt::UserRole,
        VerticalHeaderRole = Qt::UserRole + 1
    };

    using QSortFilterProxyModel::QSortFilterProxyModel;

    /// Not owned; may die first, then there is none.
    void setHorizontalHeaderModel(QAbstractItemModel* model) { m_horizontalHeaderModel = model; }
    void setVerticalHeaderModel(QAbstractItemModel* model) { m_verticalHeaderModel = model; }

    /// Marks a source column as the first of a group of two.
    void addGroupStartColumn(int column) { m_groupStartColumns.insert(column, 1); }
    /// Keys: the columns at which a group of two begins.
    QMap<int, int> groupStartColumns() const { return m_groupStartColumns; }

    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

protected:
    /// By the numbers of the cells (source role `Qt::UserRole`) where both have one and they
    /// differ; everything else by its text, as the locale orders it.
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
    QMap<int, int> m_groupStartColumns;
    QPointer<QAbstractItemModel> m_horizontalHeaderModel;
    QPointer<QAbstractItemModel> m_verticalHeaderModel;
};
