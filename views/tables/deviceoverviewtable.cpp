#include "views/tables/deviceoverviewtable.h"

#include "views/header/hierarchicalheaderview.h"
#include "views/tables/cellcolours.h"
#include "views/tables/overviewcolumns.h"
#include "views/tables/overviewdelegates.h"
#include "views/tables/overviewfilter.h"
#include "views/tables/overviewlayout.h"
#include "views/tables/overviewmodel.h"
#include "views/tables/overviewrows.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QStandardItem>
#include <QTableView>
#include <QThread>

namespace {

constexpr int kRowMargin = 4; // above and below a line of text, pixels

bool isTickKey(int key)
{
    return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

DeviceOverviewTable::DeviceOverviewTable(QTableView* view, QObject* parent)
    : QObject(parent)
    , m_view(view)
    , m_model(std::make_unique<OverviewModel>(view))
{
    setupTable();
    retranslate();
    connect(m_model.get(), &QStandardItemModel::dataChanged, this,
            &DeviceOverviewTable::dataChanged);
}

DeviceOverviewTable::~DeviceOverviewTable() = default;

void DeviceOverviewTable::setupTable()
{
    m_proxy = std::make_unique<OverviewFilter>();
    m_proxy->setSourceModel(m_model.get());
    m_proxy->setHorizontalHeaderModel(&m_headerModel);
    m_proxy->setVerticalHeaderModel(&m_headerModel);
    m_proxy->addGroupStartColumn(overview::PrimaryVoltageColumn);
    m_proxy->addGroupStartColumn(overview::SecondaryVoltageColumn);
    m_view->setModel(m_proxy.get());

    m_checkBoxDelegate = new CheckBoxDelegate(this);
    m_rowDelegate = new OverviewRowDelegate(this);
    m_view->setItemDelegate(m_rowDelegate);
    m_view->setItemDelegateForColumn(overview::TickColumn, m_checkBoxDelegate);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    // A highlight would cover the colour of a fault; the ticked row is marked by its delegate.
    m_view->setSelectionMode(QAbstractItemView::NoSelection);
    m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
    // A sum of faults takes more than one line.
    m_view->setWordWrap(true);
    // As many rows as can be read: a large site has 253.
    const int height = m_view->fontMetrics().height() + 2 * kRowMargin;
    m_view->verticalHeader()->setMinimumSectionSize(height);
    m_view->verticalHeader()->setDefaultSectionSize(height);
    m_view->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_view, &QWidget::customContextMenuRequested, this, &DeviceOverviewTable::openMenu);
    connect(m_view, &QTableView::clicked, this, [this](const QModelIndex& index) {
        selectLdb(m_model->hexIdOf(m_proxy->mapToSource(index).row()));
    });
    m_view->installEventFilter(this);
    setupHeader();
}

void DeviceOverviewTable::setupHeader()
{
    auto* header = new HierarchicalHeaderView(Qt::Horizontal, m_view);
    m_view->setHorizontalHeader(header);
    header->setGroupStarts(m_proxy->groupStartColumns());
    m_view->verticalHeader()->hide();
    header->show();

    m_layout = new OverviewLayout(m_view, header, this);
    m_view->verticalHeader()->setSectionResizeMode(QHeaderView::Interactive);

    header->setSortIndicatorShown(true);
    m_view->setSortingEnabled(true);
    header->setSectionsClickable(true);
    header->setSortIndicator(overview::IdColumn, Qt::AscendingOrder);
    m_view->sortByColumn(overview::IdColumn, Qt::AscendingOrder);
    m_rows = new OverviewRows(m_view, m_proxy.get(), this);
    connect(m_model.get(), &OverviewModel::heightDue, m_rows, &OverviewRows::fit);
}

void DeviceOverviewTable::retranslate()
{
    const QStringList alone{QString()};
    const QStringList primary{QStringLiteral("Vpri"), QStringLiteral("Ipri")};
    const QStringList secondary{QStringLiteral("Vsec"), QStringLiteral("Isec")};
    const QVector<QPair<QString, QStringList>> titles{{QString(), alone},
                                                      {tr("ID"), alone},
                                                      {tr("Name"), alone},
                                                      {tr("Mode"), alone},
                                                      {tr("Loop"), alone},
                                                      {tr("Primary Port"), primary},
                                                      {tr("Secondary Port"), secondary},
                                                      {tr("Earth"), alone},
                                                      {tr("Amplifier"), alone}};
    QList<QStandardItem*> cells;
    QStringList names; // flat: what a screen reader is told
    for (const auto& [title, columns] : titles) {
        auto* cell = new QStandardItem(title);
        for (const QString& column : columns) {
            if (!column.isEmpty()) {
                cell->appendColumn({new QStandardItem(column)});
            }
            names << (title + QLatin1Char(' ') + column).trimmed();
        }
        cells.append(cell);
    }
    // In one change: the header measures all its cells at each.
    m_headerModel.clear();
    m_headerModel.appendRow(cells);
    m_model->setHorizontalHeaderLabels(names);
    m_layout->retranslate();
    if (m_selectedRow != kNoRow) {
        announceRow(m_selectedRow, true);
    }
}

void DeviceOverviewTable::processData(const QString& hexId, const QList<QStringList>& dataList)
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_model->setRecord(hexId, dataList);
    if (!m_layout->isLoaded()) {
        m_layout->load();
    }
    if (m_model->rowOf(hexId) == m_selectedRow) {
        announceRow(m_selectedRow, true);
    }
    settleSelection(hexId);
}

void DeviceOverviewTable::settleSelection(const QString& hexId)
{
    const bool isAwaited = m_selectedHexId.isEmpty() || hexId == m_selectedHexId;
    if (m_selectedRow == kNoRow && isAwaited) {
        tick(m_model->rowOf(hexId));
    }
}

void DeviceOverviewTable::beginRound()
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_isRoundWhole = true;
}

void DeviceOverviewTable::endRound()
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (m_selectedRow == kNoRow && m_isRoundWhole && !m_isSelectionHeld &&
        m_model->rowCount() > 0) {
        tickFirst();
    }
}

/// The first one shown, where one is.
void DeviceOverviewTable::tickFirst()
{
    const QModelIndex first = m_proxy->index(0, overview::TickColumn);
    tick(first.isValid() ? m_proxy->mapToSource(first).row() : 0);
}

bool DeviceOverviewTable::selectLdb(const QString& hexId)
{
    const int row = m_model->rowOf(hexId);
    if (row == kNoRow || !m_checkBoxDelegate->isEnabled()) {
        return false;
    }
    tick(row);
    if (m_view) {
        m_view->scrollTo(m_proxy->mapFromSource(m_model->index(row, overview::IdColumn)));
    }
    return true;
}

/// Sets the check state only; `dataChanged` does the rest, whoever sets it.
void DeviceOverviewTable::tick(int row)
{
    m_model->item(row, overview::TickColumn)->setCheckState(Qt::Checked);
}

void DeviceOverviewTable::dataChanged(const QModelIndex& index)
{
    if (index.column() != overview::TickColumn) {
        return;
    }
    const QStandardItem* item = m_model->itemFromIndex(index);
    if (item->checkState() == Qt::Checked && index.row() != m_selectedRow) {
        moveTick(index.row());
    } else if (item->checkState() == Qt::Unchecked && index.row() == m_selectedRow) {
        // The selected LDB can be replaced, not deselected.
        tick(m_selectedRow);
    }
}

void DeviceOverviewTable::moveTick(int row)
{
    const int formerRow = m_selectedRow;
    m_selectedRow = row;
    if (formerRow != kNoRow) {
        m_model->item(formerRow, overview::TickColumn)->setCheckState(Qt::Unchecked);
        announceRow(formerRow, false);
    }
    announceRow(row, true);
    if (m_view) {
        // The change is in a hidden column, the mark goes over the whole row.
        m_view->viewport()->update();
    }
    const QString hexId = m_model->hexIdOf(row);
    if (hexId != m_selectedHexId) {
        m_selectedHexId = hexId;
        emit selectedLDBChanged(hexId);
    }
}

/// Tells a screen reader which row is ticked.
void DeviceOverviewTable::announceRow(int row, bool isTicked)
{
    if (QStandardItem* item = m_model->item(row, overview::IdColumn)) {
        cellcolours::update(*item, Qt::AccessibleTextRole,
                            isTicked ? tr("%1, selected").arg(m_model->hexIdOf(row)) : QVariant());
    }
}

void DeviceOverviewTable::setSelectionEnabled(bool enabled)
{
    m_checkBoxDelegate->setEnabled(enabled);
    m_rowDelegate->setEnabled(enabled);
    if (m_view) {
        m_view->viewport()->update();
    }
}

void DeviceOverviewTable::setMonitoring(const Monitoring& monitoring)
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_proxy->setKnown(monitoring.known);
    m_model->setMonitoring(monitoring);
}

void DeviceOverviewTable::openMenu(const QPoint& position)
{
    const QStringList lost = m_model->lostLdbs();
    const QModelIndex cell = m_view->indexAt(position);
    if (!cell.isValid() || lost.isEmpty() || !m_isDismissEnabled) {
        return;
    }
    auto* menu = new QMenu(m_view);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const QString hexId = m_model->hexIdOf(m_proxy->mapToSource(cell).row());
    if (lost.contains(hexId)) {
        connect(menu->addAction(tr("Dismiss LDB %1").arg(hexId)), &QAction::triggered, this,
                [this, hexId] { emit dismissed({hexId}); });
    }
    connect(menu->addAction(tr("Dismiss all lost LDBs")), &QAction::triggered, this,
            [this] { emit dismissed(m_model->lostLdbs()); });
    menu->popup(m_view->viewport()->mapToGlobal(position));
}

QStringList DeviceOverviewTable::lostLdbs() const
{
    return m_model->lostLdbs();
}

QStringList DeviceOverviewTable::shownLdbs() const
{
    return m_model->ldbs();
}

/// Gives the ticked LDB of before.
QString DeviceOverviewTable::removeOthers(const QStringList& hexIds)
{
    m_isRoundWhole = false;
    QString ticked = m_selectedRow == kNoRow ? QString() : m_model->hexIdOf(m_selectedRow);
    m_selectedRow = kNoRow;
    m_model->keepOnly(hexIds);
    m_selectedRow = m_model->rowOf(ticked);
    return ticked;
}

void DeviceOverviewTable::keepOnly(const QStringList& hexIds)
{
    m_isSelectionHeld = false;
    const QString ticked = removeOthers(hexIds);
    if (m_selectedRow == kNoRow && !ticked.isEmpty() && m_model->rowCount() > 0) {
        tickFirst();
    }
}

void DeviceOverviewTable::showOnly(const QStringList& hexIds)
{
    m_isSelectionHeld = true;
    removeOthers(hexIds);
}

void DeviceOverviewTable::saveTableState() const
{
    m_layout->save();
}

bool DeviceOverviewTable::eventFilter(QObject* watched, QEvent* event)
{
    // The type is checked first: a view that is being destroyed still gets events, but must not be
    // used.
    if (event->type() == QEvent::KeyPress && watched == m_view) {
        return tickByKey(*static_cast<QKeyEvent*>(event));
    }
    return QObject::eventFilter(watched, event);
}

/// Whether the key was one that ticks the current row.
bool DeviceOverviewTable::tickByKey(const QKeyEvent& key)
{
    const QModelIndex current = m_view->currentIndex();
    if (!isTickKey(key.key()) || !current.isValid()) {
        return false;
    }
    selectLdb(m_model->hexIdOf(m_proxy->mapToSource(current).row()));
    return true;
}
