#include "views/tables/overviewdelegates.h"

#include "views/tables/overviewcolumns.h"
#include "views/tables/overviewlayout.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace {

constexpr int kFrameWidth = 2; // pixels
constexpr int kArrowMargin = 3;

bool isTicked(const QModelIndex& index)
{
    return index.siblingAtColumn(overview::TickColumn).data(Qt::CheckStateRole).toInt() ==
           Qt::Checked;
}

} // namespace

void OverviewRowDelegate::initStyleOption(QStyleOptionViewItem* option,
                                          const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    // A number and its unit stay in one line.
    const QString age =
        index.data(overview::AgeRole).toString().replace(QLatin1Char(' '), QChar::Nbsp);
    if (!age.isEmpty()) {
        option->text += QStringLiteral(" (%1)").arg(age);
    }
    option->text = OverviewLayout::breakable(option->text);
    // Bold is wider: a measurement must not be cut because its row is ticked.
    const bool isLabel =
        index.column() == overview::IdColumn || index.column() == overview::NameColumn;
    if (isLabel && isTicked(index)) {
        option->font.setBold(true);
        option->fontMetrics = QFontMetrics(option->font);
    }
}

void OverviewRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    if (isTicked(index)) {
        paintMark(painter, option, index.column() == overview::IdColumn);
    }
}

void OverviewRowDelegate::paintMark(QPainter* painter, const QStyleOptionViewItem& option,
                                    bool withArrow) const
{
    const QColor colour = option.palette.color(m_enabled ? QPalette::Active : QPalette::Disabled,
                                               m_enabled ? QPalette::Highlight : QPalette::Text);
    const QRect& cell = option.rect;
    painter->save();
    painter->fillRect(cell.left(), cell.top(), cell.width(), kFrameWidth, colour);
    painter->fillRect(cell.left(), cell.bottom() + 1 - kFrameWidth, cell.width(), kFrameWidth,
                      colour);
    if (withArrow) {
        const int side = option.fontMetrics.ascent() / 2;
        const bool leftToRight = option.direction == Qt::LeftToRight;
        const int base = leftToRight ? cell.left() + kArrowMargin : cell.right() - kArrowMargin;
        const int tip = leftToRight ? base + side : base - side;
        const int middle = cell.center().y();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(Qt::NoPen);
        painter->setBrush(colour);
        painter->drawPolygon(QPolygon(
            {QPoint(base, middle - side), QPoint(tip, middle), QPoint(base, middle + side)}));
    }
    painter->restore();
}

bool OverviewRowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                    const QStyleOptionViewItem& option, const QModelIndex& index)
{
    if (event->type() == QEvent::ToolTip && index.isValid() &&
        sizeHint(option, index).width() > option.rect.width()) {
        QToolTip::showText(event->globalPos(), index.data().toString(), view, option.rect);
        return true;
    }
    return QStyledItemDelegate::helpEvent(event, view, option, index);
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
