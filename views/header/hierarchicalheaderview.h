#pragma once

#include <QHeaderView>
#include <QMap>

#include <memory>

class QStyleOptionHeader;

/// A header of several levels: a cell of an upper level spans the sections of its children. What it
/// shows is a tree model that it finds through the view's model (see
/// `ProxyModelHierachicalHeader`); without one, or once that has died, it is a plain header. GUI
/// thread.
class HierarchicalHeaderView : public QHeaderView
{
    Q_OBJECT
public:
    explicit HierarchicalHeaderView(Qt::Orientation orientation, QWidget* parent = nullptr);
    ~HierarchicalHeaderView() override;

    /// Keys: the sections at which a group of two begins. The sections of a group stay side by side
    /// when the user moves one of them, or drops another between them.
    void setGroupStarts(const QMap<int, int>& groupStarts);

    bool event(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void setModel(QAbstractItemModel* model) override;

protected:
    void paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const override;
    QSize sectionSizeFromContents(int logicalIndex) const override;

private slots:
    void on_sectionResized(int logicalIndex);

private:
    struct Private;
    struct Span;

    Span spanOf(int firstSection, int sectionCount, int logicalIndex) const;
    QRect rectOf(const QRect& section, const Span& span, int offset, int extent) const;
    QSize cellSize(const QModelIndex& cell, bool hasArrow = false) const;
    QStyleOptionHeader cellOption(const QModelIndex& cell) const;
    QStyleOptionHeader sectionOption(const QModelIndex& cell, int logicalIndex) const;
    void paintCell(QPainter* painter, const QModelIndex& cell, QStyleOptionHeader& option) const;
    void keepGroupsTogether(int movedSection);

    std::unique_ptr<Private> m_private;
};
