#pragma once

#include <QStyledItemDelegate>

/// Draws a centred check box and toggles it when the mouse button is released on it. While
/// disabled it is drawn so, and nothing toggles. GUI thread.
class CheckBoxDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit CheckBoxDelegate(QObject* parent = nullptr);

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
