#include "views/header/hierarchicalheaderview.h"

#include "views/header/proxymodelhierachicalheader.h"

#include <QAbstractItemModel>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QStyleOptionHeader>
#include <QVector>

#include <algorithm>

namespace {

constexpr int kNoSection = -1;
constexpr int kHoverTintAlpha = 40; // of 255

QFont boldFont(const QModelIndex& cell, const QFont& fallback)
{
    const QVariant own = cell.data(Qt::FontRole);
    QFont font = own.canConvert<QFont>() ? own.value<QFont>() : fallback;
    font.setWeight(QFont::Bold);
    return font;
}

bool isUpright(const QModelIndex& cell)
{
    return cell.data(Qt::UserRole).isValid();
}

/// A cell of the header model together with the leaves it stands over.
struct Cell
{
    QModelIndex index;
    int firstLeaf = 0; ///< position among all leaves
    int leafCount = 1;
};

/// The leaves under a cell, in order; the cell itself where it has no children. The children of a
/// cell are the columns of its first child row.
QVector<QModelIndex> leavesUnder(const QAbstractItemModel& model, const QModelIndex& cell)
{
    if (model.rowCount(cell) == 0 || model.columnCount(cell) == 0) {
        return {cell};
    }
    QVector<QModelIndex> leaves;
    for (int column = 0; column < model.columnCount(cell); ++column) {
        leaves += leavesUnder(model, model.index(0, column, cell));
    }
    return leaves;
}

/// The chain of cells from the top level down to the leaf at position `leaf`; empty where there is
/// no such leaf. The leaves of the header model, in order, stand for the sections of the header.
QVector<Cell> pathToLeaf(const QAbstractItemModel& model, int leaf)
{
    const QVector<QModelIndex> leaves = leavesUnder(model, QModelIndex());
    QVector<Cell> path;
    for (QModelIndex cell = leaves.value(leaf); cell.isValid(); cell = cell.parent()) {
        const QVector<QModelIndex> under = leavesUnder(model, cell);
        path.prepend({cell, leaves.indexOf(under.first()), under.size()});
    }
    return path;
}

} // namespace

struct HierarchicalHeaderView::Private
{
    QPointer<QAbstractItemModel> headerModel;
    QMap<int, int> groupStarts;
    int hoveredSection = kNoSection;

    QVector<Cell> pathTo(int section) const
    {
        return headerModel ? pathToLeaf(*headerModel, section) : QVector<Cell>();
    }
};

/// A stretch along the header, in viewport coordinates; `end` is one past the last pixel.
struct HierarchicalHeaderView::Span
{
    int begin = 0;
    int end = 0;

    int length() const { return end - begin; }
};

HierarchicalHeaderView::HierarchicalHeaderView(Qt::Orientation orientation, QWidget* parent)
    : QHeaderView(orientation, parent)
    , m_private(std::make_unique<Private>())
{
    setAttribute(Qt::WA_Hover);
    setMouseTracking(true);
    connect(this, &QHeaderView::sectionResized, this, &HierarchicalHeaderView::on_sectionResized);
    connect(this, &QHeaderView::sectionMoved, this, &HierarchicalHeaderView::keepGroupsTogether);
}

HierarchicalHeaderView::~HierarchicalHeaderView() = default;

void HierarchicalHeaderView::setGroupStarts(const QMap<int, int>& groupStarts)
{
    m_private->groupStarts = groupStarts;
}

bool HierarchicalHeaderView::event(QEvent* event)
{
    if (event->type() == QEvent::Leave) {
        m_private->hoveredSection = kNoSection;
        viewport()->update();
    }
    return QHeaderView::event(event);
}

void HierarchicalHeaderView::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint position = event->localPos().toPoint();
    m_private->hoveredSection =
        logicalIndexAt(orientation() == Qt::Horizontal ? position.x() : position.y());
    viewport()->update();
    QHeaderView::mouseMoveEvent(event);
}

void HierarchicalHeaderView::setModel(QAbstractItemModel* model)
{
    if (m_private->headerModel) {
        disconnect(m_private->headerModel, nullptr, this, nullptr);
    }
    m_private->headerModel = nullptr;
    if (model != nullptr) {
        const int role = orientation() == Qt::Horizontal
                             ? ProxyModelHierachicalHeader::HorizontalHeaderRole
                             : ProxyModelHierachicalHeader::VerticalHeaderRole;
        m_private->headerModel =
            qobject_cast<QAbstractItemModel*>(model->data(QModelIndex(), role).value<QObject*>());
    }
    if (m_private->headerModel) {
        // Other texts may want another height.
        const auto refresh = [this] {
            if (count() > 0) {
                headerDataChanged(orientation(), 0, count() - 1);
                emit geometriesChanged();
            }
        };
        const QAbstractItemModel* tree = m_private->headerModel;
        connect(tree, &QAbstractItemModel::modelReset, this, refresh);
        connect(tree, &QAbstractItemModel::dataChanged, this, refresh);
        connect(tree, &QAbstractItemModel::rowsInserted, this, refresh);
        connect(tree, &QAbstractItemModel::rowsRemoved, this, refresh);
        connect(tree, &QAbstractItemModel::columnsInserted, this, refresh);
        connect(tree, &QAbstractItemModel::columnsRemoved, this, refresh);
        connect(tree, &QObject::destroyed, this, refresh);
    }
    QHeaderView::setModel(model);
    if (model != nullptr && count() > 0) {
        initializeSections(0, count() - 1);
    }
}

/// The stretch that the sections cover together; that of `logicalIndex` alone where they do not
/// stand side by side.
HierarchicalHeaderView::Span HierarchicalHeaderView::spanOf(int firstSection, int sectionCount,
                                                            int logicalIndex) const
{
    const auto sectionSpan = [this](int section) {
        const int begin = sectionViewportPosition(section);
        return Span{begin, begin + sectionSize(section)};
    };
    const Span own = sectionSpan(logicalIndex);
    Span joined = own;
    int total = 0;
    for (int section = firstSection; section < firstSection + sectionCount; ++section) {
        if (section >= count() || isSectionHidden(section)) {
            continue;
        }
        const Span span = sectionSpan(section);
        total += span.length();
        joined = {std::min(joined.begin, span.begin), std::max(joined.end, span.end)};
    }
    return joined.length() == total ? joined : own;
}

/// The rectangle of a cell: `span` along the header, `extent` pixels from `offset` across it.
QRect HierarchicalHeaderView::rectOf(const QRect& section, const Span& span, int offset,
                                     int extent) const
{
    return orientation() == Qt::Horizontal
               ? QRect(span.begin, section.top() + offset, span.length(), extent)
               : QRect(section.left() + offset, span.begin, extent, span.length());
}

void HierarchicalHeaderView::paintSection(QPainter* painter, const QRect& rect,
                                          int logicalIndex) const
{
    const QVector<Cell> path = m_private->pathTo(logicalIndex);
    if (!rect.isValid() || path.isEmpty()) {
        QHeaderView::paintSection(painter, rect, logicalIndex);
        return;
    }
    const bool horizontal = orientation() == Qt::Horizontal;
    // A section that is being dragged is painted away from its place.
    const int shift =
        (horizontal ? rect.left() : rect.top()) - sectionViewportPosition(logicalIndex);
    int offset = 0;
    painter->save();
    // Each section paints its own part of the cells that it shares.
    painter->setClipRect(rect, Qt::IntersectClip);
    for (int level = 0; level < path.size(); ++level) {
        const Cell& cell = path.at(level);
        const bool isLeaf = level == path.size() - 1;
        const QSize size = cellSize(cell.index);
        const int rest = (horizontal ? rect.height() : rect.width()) - offset;
        const int extent =
            isLeaf ? rest : std::min(rest, horizontal ? size.height() : size.width());
        Span span = spanOf(cell.firstLeaf, cell.leafCount, logicalIndex);
        span = {span.begin + shift, span.end + shift};

        QStyleOptionHeader option = sectionOption(cell.index, logicalIndex);
        option.rect = rectOf(rect, span, offset, extent);
        const int hovered = m_private->hoveredSection;
        option.state.setFlag(QStyle::State_MouseOver,
                             sectionsClickable() && hovered >= cell.firstLeaf &&
                                 hovered < cell.firstLeaf + cell.leafCount);
        if (!isLeaf) {
            option.state &= ~(QStyle::State_Sunken | QStyle::State_On);
            option.sortIndicator = QStyleOptionHeader::None;
        }
        paintCell(painter, cell.index, option);
        offset += extent;
    }
    painter->restore();
}

void HierarchicalHeaderView::paintCell(QPainter* painter, const QModelIndex& cell,
                                       QStyleOptionHeader& option) const
{
    painter->save();
    if (isUpright(cell)) {
        painter->translate(option.rect.left(), option.rect.bottom() + 1);
        painter->rotate(-90);
        option.rect = QRect(QPoint(0, 0), option.rect.size().transposed());
    }
    const QRect cellRect = option.rect;
    // Drawn in parts: for the whole control, common styles set their own clip, and a section would
    // paint over its neighbour's part of the cell they share.
    style()->drawControl(QStyle::CE_HeaderSection, &option, painter, this);
    option.rect = style()->subElementRect(QStyle::SE_HeaderLabel, &option, this);
    option.text = option.fontMetrics.elidedText(option.text, Qt::ElideRight, option.rect.width());
    painter->setFont(boldFont(cell, font()));
    style()->drawControl(QStyle::CE_HeaderLabel, &option, painter, this);
    option.rect = cellRect;
    if (option.sortIndicator != QStyleOptionHeader::None) {
        option.rect = style()->subElementRect(QStyle::SE_HeaderArrow, &option, this);
        style()->drawPrimitive(QStyle::PE_IndicatorHeaderArrow, &option, painter, this);
    }
    if (option.state & QStyle::State_MouseOver) {
        // Not every style shows it.
        QColor tint = option.palette.color(QPalette::Highlight);
        tint.setAlpha(kHoverTintAlpha);
        painter->fillRect(cellRect, tint);
    }
    painter->restore();
}

/// The part of the style option that depends on the cell alone.
QStyleOptionHeader HierarchicalHeaderView::cellOption(const QModelIndex& cell) const
{
    QStyleOptionHeader option;
    initStyleOption(&option);
    const QVariant alignment = cell.data(Qt::TextAlignmentRole);
    option.textAlignment =
        alignment.isValid() ? Qt::Alignment(alignment.toInt()) : defaultAlignment();
    option.iconAlignment = Qt::AlignVCenter;
    option.text = cell.data().toString();
    const QVariant decoration = cell.data(Qt::DecorationRole);
    option.icon = decoration.canConvert<QIcon>() ? decoration.value<QIcon>()
                                                 : QIcon(decoration.value<QPixmap>());
    option.fontMetrics = QFontMetrics(boldFont(cell, font()));
    const QVariant foreground = cell.data(Qt::ForegroundRole);
    if (foreground.canConvert<QBrush>()) {
        option.palette.setBrush(QPalette::ButtonText, foreground.value<QBrush>());
    }
    return option;
}

/// As `cellOption`, with the state of the section under which the cell is painted.
QStyleOptionHeader HierarchicalHeaderView::sectionOption(const QModelIndex& cell,
                                                         int logicalIndex) const
{
    QStyleOptionHeader option = cellOption(cell);
    option.section = logicalIndex;
    option.state.setFlag(QStyle::State_Active, window()->isActiveWindow());
    if (isSortIndicatorShown() && sortIndicatorSection() == logicalIndex) {
        option.sortIndicator = sortIndicatorOrder() == Qt::AscendingOrder
                                   ? QStyleOptionHeader::SortDown
                                   : QStyleOptionHeader::SortUp;
    }
    if (highlightSections() && selectionModel() != nullptr) {
        const QModelIndex root = rootIndex();
        const bool horizontal = orientation() == Qt::Horizontal;
        const QItemSelectionModel& selection = *selectionModel();
        option.state.setFlag(QStyle::State_On,
                             horizontal ? selection.columnIntersectsSelection(logicalIndex, root)
                                        : selection.rowIntersectsSelection(logicalIndex, root));
        option.state.setFlag(QStyle::State_Sunken,
                             horizontal ? selection.isColumnSelected(logicalIndex, root)
                                        : selection.isRowSelected(logicalIndex, root));
    }
    const auto isAlone = [this](int from, int to) {
        for (int visual = from; visual < to; ++visual) {
            if (!isSectionHidden(this->logicalIndex(visual))) {
                return false;
            }
        }
        return true;
    };
    const int visual = visualIndex(logicalIndex);
    const bool isFirst = isAlone(0, visual);
    const bool isLast = isAlone(visual + 1, count());
    option.position = isFirst && isLast ? QStyleOptionHeader::OnlyOneSection
                      : isFirst         ? QStyleOptionHeader::Beginning
                      : isLast          ? QStyleOptionHeader::End
                                        : QStyleOptionHeader::Middle;
    return option;
}

QSize HierarchicalHeaderView::cellSize(const QModelIndex& cell, bool hasArrow) const
{
    const QVariant hint = cell.data(Qt::SizeHintRole);
    if (hint.isValid()) {
        return hint.toSize();
    }
    QStyleOptionHeader option = cellOption(cell);
    option.sortIndicator = hasArrow ? QStyleOptionHeader::SortDown : QStyleOptionHeader::None;
    const QSize text = option.fontMetrics.size(0, option.text);
    const QSize size = style()->sizeFromContents(QStyle::CT_HeaderSection, &option, text, this);
    // Styles measure the text horizontally, so the size is turned afterwards.
    return isUpright(cell) ? size.transposed() : size;
}

QSize HierarchicalHeaderView::sectionSizeFromContents(int logicalIndex) const
{
    const QVector<Cell> path = m_private->pathTo(logicalIndex);
    if (path.isEmpty()) {
        return QHeaderView::sectionSizeFromContents(logicalIndex);
    }
    int across = 0;
    QSize leaf;
    for (const Cell& cell : path) {
        // Each column may be the one that is sorted by.
        leaf = cellSize(cell.index, isSortIndicatorShown() && &cell == &path.last());
        across += orientation() == Qt::Horizontal ? leaf.height() : leaf.width();
    }
    return orientation() == Qt::Horizontal ? QSize(leaf.width(), across)
                                           : QSize(across, leaf.height());
}

void HierarchicalHeaderView::on_sectionResized(int logicalIndex)
{
    if (isSectionHidden(logicalIndex)) {
        return;
    }
    const QVector<Cell> path = m_private->pathTo(logicalIndex);
    if (path.isEmpty()) {
        return;
    }
    const Cell& top = path.first();
    const Span span = spanOf(top.firstLeaf, top.leafCount, logicalIndex);
    const QRect header = viewport()->rect();
    const int across = orientation() == Qt::Horizontal ? header.height() : header.width();
    viewport()->update(rectOf(header, span, 0, across));
}

void HierarchicalHeaderView::keepGroupsTogether(int movedSection)
{
    const QList<int> starts = m_private->groupStarts.keys();
    for (const int start : starts) {
        const int partner = start + 1;
        if (partner >= count() || visualIndex(partner) == visualIndex(start) + 1) {
            continue;
        }
        // The section that the user took hold of stays where it was dropped.
        const int startAt = visualIndex(start);
        const int partnerAt = visualIndex(partner);
        if (movedSection == partner) {
            moveSection(startAt, startAt < partnerAt ? partnerAt - 1 : partnerAt);
        } else {
            moveSection(partnerAt, partnerAt < startAt ? startAt : startAt + 1);
        }
    }
}
