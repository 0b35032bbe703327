#pragma once

#include "views/quality/linequality.h"

#include <QStyledItemDelegate>

class QPainter;
class QRect;

/// Small bars over time, side by side. The height of a bar says how much was bad, its colour
/// whether that is nothing, some or much. Where nobody asked there is no bar. GUI thread.
namespace qualitystrip {

/// Fills the rectangle. `isFlat`: bars of full height, for where it is too low to show shares.
void paint(QPainter& painter, const QRect& rect, const std::vector<QualityBar>& bars, bool isFlat);
/// The bar at a place in the rectangle; null beside them.
const QualityBar* barAt(const QRect& rect, const std::vector<QualityBar>& bars, int x);

} // namespace qualitystrip

Q_DECLARE_METATYPE(std::vector<QualityBar>)

/// Draws the strips of the table, and says in a tool tip what a bar stands for.
class QualityStripDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    /// The role of the bars: `std::vector<QualityBar>`.
    static constexpr int kBarsRole = Qt::UserRole;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
};
