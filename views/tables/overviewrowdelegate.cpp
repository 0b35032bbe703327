#include "views/tables/overviewrowdelegate.h"

#include "views/tables/overviewcolumns.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
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

OverviewRowDelegate::OverviewRowDelegate(QObject* parent)
    : QStyledItemDelegate(parent)
{
}

void OverviewRowDelegate::initStyleOption(QStyleOptionViewItem* option,
                                          const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
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
