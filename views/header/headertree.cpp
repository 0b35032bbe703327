#include "views/header/headertree.h"

namespace headertree {

namespace {

bool isLeaf(const QAbstractItemModel& model, const QModelIndex& cell)
{
    return model.rowCount(cell) == 0 || model.columnCount(cell) == 0;
}

int leafCount(const QAbstractItemModel& model, const QModelIndex& cell)
{
    if (isLeaf(model, cell)) {
        return 1;
    }
    int count = 0;
    for (int column = 0; column < model.columnCount(cell); ++column) {
        count += leafCount(model, model.index(0, column, cell));
    }
    return count;
}

/// The child of `parent` that stands over `leaf`; `firstLeaf` is the parent's first.
Cell childOver(const QAbstractItemModel& model, const QModelIndex& parent, int firstLeaf, int leaf)
{
    for (int column = 0; column < model.columnCount(parent); ++column) {
        const QModelIndex child = model.index(0, column, parent);
        const int count = leafCount(model, child);
        if (leaf < firstLeaf + count) {
            return {child, firstLeaf, count};
        }
        firstLeaf += count;
    }
    return {};
}

} // namespace

QVector<Cell> pathToLeaf(const QAbstractItemModel& model, int leaf)
{
    QVector<Cell> path;
    if (leaf < 0 || isLeaf(model, QModelIndex())) {
        return path;
    }
    Cell cell = childOver(model, QModelIndex(), 0, leaf);
    while (cell.index.isValid()) {
        path.append(cell);
        if (isLeaf(model, cell.index)) {
            break;
        }
        cell = childOver(model, cell.index, cell.firstLeaf, leaf);
    }
    return path;
}

} // namespace headertree
