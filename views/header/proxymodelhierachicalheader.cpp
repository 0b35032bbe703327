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
    bool leftIsNumber = false;
    bool rightIsNumber = false;
    const double leftNumber = left.data(Qt::UserRole).toDouble(&leftIsNumber);
    const double rightNumber = right.data(Qt::UserRole).toDouble(&rightIsNumber);
    if (leftIsNumber && rightIsNumber && leftNumber != rightNumber) {
        return leftNumber < rightNumber;
    }
    return QString::localeAwareCompare(left.data().toString(), right.data().toString()) < 0;
}
