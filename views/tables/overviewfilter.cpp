#include "views/tables/overviewfilter.h"

#include "views/lamps/lampcondition.h"
#include "views/tables/cellcolours.h"
#include "views/tables/overviewcolumns.h"

#include <QStandardItem>
#include <QThread>

#include <algorithm>
#include <utility>

namespace {

QModelIndex tickCellOf(const QModelIndex& cell)
{
    return cell.siblingAtColumn(overview::TickColumn);
}

bool isTicked(const QModelIndex& tickCell)
{
    return tickCell.data(Qt::CheckStateRole).toInt() == Qt::Checked;
}

bool isFaultyRow(const QModelIndex& tickCell)
{
    return tickCell.data(overview::FaultRole).toBool();
}

/// What of a cell the words are looked for in. A measurement is none of it: a digit would find
/// nearly every row.
QString searchedText(const QModelIndex& cell)
{
    QString text = cell.data().toString();
    const bool isMeasurement = cell.column() >= overview::PrimaryVoltageColumn &&
                               cell.column() <= overview::SecondaryCurrentColumn;
    return isMeasurement && !text.isEmpty() && !text.at(0).isLetter() ? QString() : text;
}

} // namespace

void OverviewFilter::setSourceModel(QAbstractItemModel* model)
{
    ProxyModelHierachicalHeader::setSourceModel(model);
    // Behind the base class, which has filtered and sorted by then.
    connect(model, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex& first, const QModelIndex&, const QVector<int>& roles) {
                processChange(first, roles);
            });
    connect(model, &QAbstractItemModel::rowsInserted, this, &OverviewFilter::countsChanged);
    connect(model, &QAbstractItemModel::rowsRemoved, this, &OverviewFilter::countsChanged);
    connect(this, &QAbstractItemModel::rowsInserted, this, &OverviewFilter::countsChanged);
    connect(this, &QAbstractItemModel::rowsRemoved, this, &OverviewFilter::countsChanged);
}

/// Sorting and counting follow what is noted in the tick cells, which no column is sorted by.
void OverviewFilter::processChange(const QModelIndex& first, const QVector<int>& roles)
{
    if (first.column() != overview::TickColumn || !roles.contains(overview::FaultRole)) {
        return;
    }
    if (m_choice.faultsFirst) {
        invalidate();
    }
    emit countsChanged();
}

void OverviewFilter::setChoice(const Choice& choice)
{
    Q_ASSERT(QThread::currentThread() == thread());
    const bool isOrderNew = choice.faultsFirst != m_choice.faultsFirst;
    m_choice = choice;
    m_words = choice.text.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (isOrderNew) {
        invalidate();
    } else {
        invalidateFilter();
    }
    emit choiceChanged();
    emit countsChanged();
}

void OverviewFilter::setKnown(int ldbs)
{
    if (std::exchange(m_known, ldbs) != ldbs) {
        emit countsChanged();
    }
}

OverviewFilter::Counts OverviewFilter::counts() const
{
    const QAbstractItemModel& source = *sourceModel();
    Counts counts;
    counts.shown = rowCount();
    const int rows = source.rowCount();
    counts.all = std::max(rows, m_known);
    counts.hidden = rows - counts.shown;
    for (int row = 0; row < rows; ++row) {
        const QModelIndex tickCell = source.index(row, overview::TickColumn);
        if (isFaultyRow(tickCell) && !mapFromSource(tickCell).isValid()) {
            ++counts.hiddenFaults;
        }
    }
    return counts;
}

QModelIndex OverviewFilter::tickedRow() const
{
    for (int row = 0; row < rowCount(); ++row) {
        if (isTicked(index(row, overview::TickColumn))) {
            return index(row, overview::IdColumn);
        }
    }
    return {};
}

void OverviewFilter::note(QStandardItem& tickCell, const QList<QStringList>& record)
{
    cellcolours::update(tickCell, overview::OwnNameRole, generalinformation::ownName(record));
    cellcolours::update(tickCell, overview::FaultRole, isFaulty(record));
}

bool OverviewFilter::filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const
{
    const QModelIndex tickCell =
        sourceModel()->index(sourceRow, overview::TickColumn, sourceParent);
    if (isTicked(tickCell)) {
        return true;
    }
    return (!m_choice.onlyFaults || isFaultyRow(tickCell)) && hasWords(sourceRow);
}

bool OverviewFilter::hasWords(int sourceRow) const
{
    const auto isSomewhere = [this, sourceRow](const QString& word) {
        for (int column = overview::IdColumn; column < overview::TimestampColumn; ++column) {
            const QModelIndex cell = sourceModel()->index(sourceRow, column);
            if (searchedText(cell).contains(word, Qt::CaseInsensitive)) {
                return true;
            }
        }
        return false;
    };
    return std::all_of(m_words.begin(), m_words.end(), isSomewhere);
}

bool OverviewFilter::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    if (m_choice.faultsFirst) {
        const bool isLeftFaulty = isFaultyRow(tickCellOf(left));
        if (isLeftFaulty != isFaultyRow(tickCellOf(right))) {
            // A descending order is this one turned round; the faults stay at the top.
            return isLeftFaulty == (sortOrder() == Qt::AscendingOrder);
        }
    }
    return ProxyModelHierachicalHeader::lessThan(left, right);
}
