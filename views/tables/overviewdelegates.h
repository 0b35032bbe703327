#pragma once

#include <QStyledItemDelegate>

/// Draws the data cells of the overview table. The row whose tick cell is ticked is framed, has an
/// arrow at its id, and its id and name in bold; a fault's colour under that stays visible. A text
/// that is cut shows in full in a tool tip. GUI thread.
class OverviewRowDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Whether the user may tick another row; only the mark's colour tells. True at the start.
    void setEnabled(bool enabled) { m_enabled = enabled; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    void paintMark(QPainter* painter, const QStyleOptionViewItem& option, bool withArrow) const;

    bool m_enabled = true;
};

/// Draws a centred check box and toggles it when the mouse button is released on it. While
/// disabled it is drawn so, and nothing toggles. GUI thread.
class CheckBoxDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Whether the user may toggle; true at the start. The owner of the view repaints it.
    void setEnabled(bool enabled) { m_enabled = enabled; }
    bool isEnabled() const { return m_enabled; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    /// True when the state was toggled; every event that does not toggle gives false.
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;

private:
    bool m_enabled = true;
};
