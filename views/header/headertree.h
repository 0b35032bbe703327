#pragma once

#include <QAbstractItemModel>
#include <QVector>

/// Walks a header model: a tree whose top-level columns are the top cells of a header, and in which
/// the children of a cell are the columns of its first child row. Its leaves, in order, stand for
/// the sections of the header. Pure functions.
namespace headertree {

/// A cell together with the leaves it stands over.
struct Cell
{
    QModelIndex index;
    int firstLeaf = 0; ///< position among all leaves
    int leafCount = 1;
};

/// The chain of cells from the top level down to the leaf at position `leaf`; empty where there is
/// no such leaf.
QVector<Cell> pathToLeaf(const QAbstractItemModel& model, int leaf);

} // namespace headertree
