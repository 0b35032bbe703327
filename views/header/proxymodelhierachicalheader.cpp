#include "views/header/proxymodelhierachicalheader.h"

QVariant ProxyModelHierachicalHeader::data(const QModelIndex& index, int role) const
{
    if (role == HorizontalHeaderRole && m_horizontalHeaderModel) {
        return QVariant::fromValue<QObject*>(m_horizontalHeaderModel);
    }
    if (role == VerticalHeaderRole && m_verticalHeaderModel) {
        return QVariant::fromValue<QObject*>(m_verticalHeaderModel);
    }
    return QSortFilterProxyModel::data(index, role);
}

bool ProxyModelHierachicalHeader::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    if (left.column() == m_codeColumn && right.column() == m_codeColumn) {
        bool leftIsCode = false;
        bool rightIsCode = false;
        const int leftCode = left.data(Qt::UserRole).toInt(&leftIsCode);
        const int rightCode = right.data(Qt::UserRole).toInt(&rightIsCode);
        if (leftIsCode && rightIsCode && leftCode != rightCode) {
            return leftCode < rightCode;
        }
    }
    return QString::localeAwareCompare(left.data().toString(), right.data().toString()) < 0;
}
