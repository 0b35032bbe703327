#include "views/tables/overviewrows.h"

#include "views/tables/overviewcolumns.h"
#include "views/tables/overviewfilter.h"

#include <QHeaderView>
#include <QTableView>
#include <QThread>

#include <algorithm>

namespace {

constexpr int kResizedDelay = 100; // ms
constexpr int kRowsATurn = 8;      // beside those in sight

} // namespace

OverviewRows::OverviewRows(QTableView* view, OverviewFilter* rows, QObject* parent)
    : QObject(parent)
    , m_view(view)
    , m_rows(rows)
{
    m_work.setSingleShot(true);
    connect(&m_work, &QTimer::timeout, this, &OverviewRows::work);
    m_resized.setSingleShot(true);
    m_resized.setInterval(kResizedDelay);
    connect(&m_resized, &QTimer::timeout, this, &OverviewRows::fitAll);
    const QHeaderView* header = view->horizontalHeader();
    connect(header, &QHeaderView::sectionResized, &m_resized, qOverload<>(&QTimer::start));
    connect(header, &QHeaderView::sortIndicatorChanged, this, &OverviewRows::showTicked);
    connect(rows, &OverviewFilter::choiceChanged, this, &OverviewRows::showTicked);

    connect(rows, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex&, int first, int last) {
                for (int row = first; row <= last; ++row) {
                    fit(m_rows->mapToSource(m_rows->index(row, 0)).row());
                }
            });
    // A picture takes room from the text beside it, and the name of the ticked LDB is bold.
    connect(rows->sourceModel(), &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex& first, const QModelIndex& last, const QVector<int>& roles) {
                const bool isWider =
                    roles.contains(Qt::DecorationRole) || roles.contains(Qt::CheckStateRole);
                for (int row = first.row(); isWider && row <= last.row(); ++row) {
                    fit(row);
                }
            });
    // The numbers of the source rows after it change.
    connect(rows->sourceModel(), &QAbstractItemModel::rowsRemoved, this, &OverviewRows::fitAll);
    connect(rows, &QAbstractItemModel::rowsAboutToBeInserted, this, &OverviewRows::beginChange);
    connect(rows, &QAbstractItemModel::rowsAboutToBeRemoved, this, &OverviewRows::beginChange);
    connect(rows, &QAbstractItemModel::layoutAboutToBeChanged, this, &OverviewRows::beginChange);
    connect(rows, &QAbstractItemModel::rowsInserted, this, &OverviewRows::endChange);
    connect(rows, &QAbstractItemModel::rowsRemoved, this, &OverviewRows::endChange);
    connect(rows, &QAbstractItemModel::layoutChanged, this, &OverviewRows::endChange);
}

void OverviewRows::fit(int sourceRow)
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_unfit.insert(sourceRow);
    if (!m_work.isActive()) {
        m_work.start();
    }
}

void OverviewRows::fitAll()
{
    m_unfit.clear();
    for (int row = 0; row < m_rows->sourceModel()->rowCount(); ++row) {
        fit(row);
    }
}

void OverviewRows::showTicked()
{
    m_isScrollDue = true;
    m_work.start();
}

void OverviewRows::work()
{
    if (!m_view) {
        return;
    }
    fitSome();
    // Behind the view's own laying out of what has changed.
    if (m_isScrollDue) {
        m_isScrollDue = false;
        const QModelIndex ticked = m_rows->tickedRow();
        const int column = m_view->columnAt(0); // stays where it is
        m_view->scrollTo(ticked.siblingAtColumn(std::max<int>(column, overview::IdColumn)));
    }
    if (!m_unfit.isEmpty()) {
        m_work.start();
    }
}

void OverviewRows::fitSome()
{
    const int rows = m_rows->rowCount();
    const int first = std::max(0, m_view->rowAt(0));
    for (int row = first; row < rows && m_view->rowViewportPosition(row) < m_view->height();
         ++row) {
        fitRow(row);
    }
    int fitted = 0;
    const QSet<int> due = m_unfit;
    for (const int sourceRow : due) {
        const QModelIndex cell = m_rows->sourceModel()->index(sourceRow, 0);
        m_unfit.remove(sourceRow);
        const QModelIndex shown = m_rows->mapFromSource(cell);
        if (shown.isValid()) {
            m_view->resizeRowToContents(shown.row());
            if (++fitted == kRowsATurn) {
                return;
            }
        }
    }
}

/// Measures a row where that is due.
void OverviewRows::fitRow(int row)
{
    if (m_unfit.remove(m_rows->mapToSource(m_rows->index(row, 0)).row())) {
        m_view->resizeRowToContents(row);
    }
}

bool OverviewRows::isTickedInSight() const
{
    if (!m_view) {
        return false;
    }
    const QRect row = m_view->visualRect(m_rows->tickedRow());
    return !row.isEmpty() && row.top() >= 0 && row.top() < m_view->viewport()->height();
}

void OverviewRows::beginChange()
{
    m_isScrollDue = m_isScrollDue || isTickedInSight();
}

void OverviewRows::endChange()
{
    if (m_isScrollDue) {
        m_work.start();
    }
}
