#include "views/tables/checkboxdelegate.h"

#include <QApplication>
#include <QEvent>
#include <QStyle>

CheckBoxDelegate::CheckBoxDelegate(QObject* parent)
    : QStyledItemDelegate(parent)
{
}

void CheckBoxDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const
{
    const QStyle* style = option.widget != nullptr ? option.widget->style() : QApplication::style();
    QStyleOptionViewItem centred(option);
    // The style keeps this margin on either side of the indicator.
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, &option, option.widget) + 1;
    const QSize indicator(style->pixelMetric(QStyle::PM_IndicatorWidth, &option, option.widget),
                          style->pixelMetric(QStyle::PM_IndicatorHeight, &option, option.widget));
    centred.rect = QStyle::alignedRect(option.direction, Qt::AlignCenter,
                                       indicator + QSize(2 * margin, 0), option.rect);
    if (!m_enabled) {
        centred.state &= ~QStyle::State_Enabled;
        centred.palette.setCurrentColorGroup(QPalette::Disabled);
    }
    QStyledItemDelegate::paint(painter, centred, index);
}

bool CheckBoxDelegate::editorEvent(QEvent* event, QAbstractItemModel* model,
                                   const QStyleOptionViewItem& option, const QModelIndex& index)
{
    Q_UNUSED(option)
    constexpr Qt::ItemFlags kToggles = Qt::ItemIsUserCheckable | Qt::ItemIsEnabled;
    const QVariant state = index.data(Qt::CheckStateRole);
    if (!m_enabled || event->type() != QEvent::MouseButtonRelease ||
        (index.flags() & kToggles) != kToggles || !state.isValid()) {
        return false;
    }
    const Qt::CheckState toggled = state.toInt() == Qt::Checked ? Qt::Unchecked : Qt::Checked;
    return model->setData(index, toggled, Qt::CheckStateRole);
}
