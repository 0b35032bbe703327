#include "views/tables/deviceoverviewtable.h"

#include "views/header/hierarchicalheaderview.h"
#include "views/tables/cellcolours.h"
#include "views/tables/overviewcolumns.h"
#include "views/tables/overviewdelegates.h"
#include "views/tables/overviewfilter.h"
#include "views/tables/overviewlayout.h"
#include "views/tables/overviewrows.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QStandardItem>
#include <QTableView>
#include <QThread>

#include <algorithm>
#include <array>
#include <limits>

namespace {

// A shorter record tells only that the LDB is there.
constexpr int kMinimumEntries = 2;

constexpr int kRowMargin = 4; // above and below a line of text, pixels

/// What a cell is sorted by; the rows without a value stand together at one end.
QVariant sortNumber(int recordRow, const QStringList& entry)
{
    using namespace generalinformation;
    if (recordRow == NameRow || recordRow == TimestampRow) {
        return {};
    }
    if (entry.value(TextColumn) == kNoValue) {
        return -std::numeric_limits<double>::infinity();
    }
    bool isNumber = false;
    const double number = entry.value(ValueColumn).toDouble(&isNumber);
    return isNumber ? number : QVariant();
}

/// How many cells a record fills; what is beyond the known ones is ignored.
int entriesOf(const QList<QStringList>& dataList)
{
    return std::min<int>(dataList.size(), generalinformation::RowCount);
}

QStandardItem* newItem()
{
    auto* item = new QStandardItem;
    item->setEditable(false);
    return item;
}

QStandardItem* newDataItem()
{
    QStandardItem* item = newItem();
    item->setTextAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    return item;
}

/// Whether a text of that row may take more than one line. A measurement does not: only what stands
/// in its place.
bool takesLines(int recordRow, const QString& text)
{
    using namespace generalinformation;
    const bool isMeasurement = recordRow >= PrimaryVoltageRow && recordRow <= SecondaryCurrentRow;
    return isMeasurement ? text.contains(QLatin1Char('(')) : recordRow != TimestampRow;
}

bool isTickKey(int key)
{
    return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

DeviceOverviewTable::DeviceOverviewTable(QTableView* view, QObject* parent)
    : QObject(parent)
    , m_view(view)
{
    setupTable();
    retranslate();
    m_colourRules = std::make_unique<const CellColourRules>(CellColourRules::fromTuningFile());
    connect(&m_model, &QStandardItemModel::dataChanged, this, &DeviceOverviewTable::dataChanged);
}

DeviceOverviewTable::~DeviceOverviewTable() = default;

void DeviceOverviewTable::setupTable()
{
    // The columns are there before the first row, so that an empty table shows what it will hold.
    m_model.setColumnCount(overview::ColumnCount);
    m_proxy = std::make_unique<OverviewFilter>();
    m_proxy->setSourceModel(&m_model);
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
        selectLdb(hexIdOf(m_proxy->mapToSource(index).row()));
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
    m_model.setHorizontalHeaderLabels(names);
    m_layout->retranslate();
    if (m_selectedRow != kNoRow) {
        announceRow(m_selectedRow, true);
    }
}

void DeviceOverviewTable::processData(const QString& hexId, const QList<QStringList>& dataList)
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_times.insert(hexId, generalinformation::clockTime(dataList));
    const int row = m_rowOfLdb.value(hexId, kNoRow);
    if (row == kNoRow) {
        appendRow(hexId, dataList);
    } else {
        refreshRow(row, dataList);
    }
    showLiveness(m_rowOfLdb.value(hexId));
    colourRow(m_rowOfLdb.value(hexId));
    settleSelection(hexId);
}

/// The row comes with all its cells: each that came later would be filtered, sorted and laid out
/// again.
void DeviceOverviewTable::appendRow(const QString& hexId, const QList<QStringList>& dataList)
{
    QStandardItem* tickItem = newItem();
    tickItem->setCheckable(true);
    tickItem->setData(Qt::Unchecked, Qt::CheckStateRole);
    tickItem->setData(hexId, overview::HexIdRole);
    QList<QStandardItem*> cells{tickItem};
    if (dataList.size() >= kMinimumEntries) {
        OverviewFilter::note(*tickItem, dataList);
        for (int recordRow = 0; recordRow < entriesOf(dataList); ++recordRow) {
            cells.append(newDataItem());
            fillCell(*cells.last(), recordRow, dataList.at(recordRow));
        }
    }
    m_rowOfLdb.insert(hexId, m_model.rowCount());
    m_model.appendRow(cells);
    if (!m_layout->isLoaded()) {
        m_layout->load();
    }
}

void DeviceOverviewTable::refreshRow(int row, const QList<QStringList>& dataList)
{
    if (dataList.size() < kMinimumEntries) {
        return;
    }
    OverviewFilter::note(*m_model.item(row, overview::TickColumn), dataList);
    bool isFitDue = false;
    for (int recordRow = 0; recordRow < entriesOf(dataList); ++recordRow) {
        const int column = overview::columnOf(recordRow);
        QStandardItem* item = m_model.item(row, column);
        const bool isNew = item == nullptr; // the record before was a short one
        if (isNew) {
            item = newDataItem();
        }
        isFitDue = fillCell(*item, recordRow, dataList.at(recordRow)) || isFitDue;
        if (isNew) {
            m_model.setItem(row, column, item);
        }
    }
    if (isFitDue) {
        m_rows->fit(row);
    }
    if (row == m_selectedRow) {
        announceRow(row, true);
    }
}

/// Whether the cell may need another height.
bool DeviceOverviewTable::fillCell(QStandardItem& item, int recordRow,
                                   const QStringList& entry) const
{
    const QString text = entry.value(generalinformation::TextColumn);
    const bool mayNeedRoom = takesLines(recordRow, text) || takesLines(recordRow, item.text());
    const bool isOther = cellcolours::update(item, Qt::DisplayRole, text);
    cellcolours::update(item, overview::NumberRole, sortNumber(recordRow, entry));
    const QColor colour = cellcolours::ruleColour(*m_colourRules, recordRow, entry);
    cellcolours::update(item, overview::RuleColourRole,
                        colour.isValid() ? QVariant(colour) : QVariant());
    return isOther && mayNeedRoom;
}

void DeviceOverviewTable::settleSelection(const QString& hexId)
{
    const bool isAwaited = m_selectedHexId.isEmpty() || hexId == m_selectedHexId;
    if (m_selectedRow == kNoRow && isAwaited) {
        tick(m_rowOfLdb.value(hexId));
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
    if (m_selectedRow == kNoRow && m_isRoundWhole && !m_isSelectionHeld && m_model.rowCount() > 0) {
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
    const auto row = m_rowOfLdb.constFind(hexId);
    if (row == m_rowOfLdb.constEnd() || !m_checkBoxDelegate->isEnabled()) {
        return false;
    }
    tick(*row);
    if (m_view) {
        m_view->scrollTo(m_proxy->mapFromSource(m_model.index(*row, overview::IdColumn)));
    }
    return true;
}

/// Sets the check state only; `dataChanged` does the rest, whoever sets it.
void DeviceOverviewTable::tick(int row)
{
    m_model.item(row, overview::TickColumn)->setCheckState(Qt::Checked);
}

void DeviceOverviewTable::dataChanged(const QModelIndex& index)
{
    if (index.column() != overview::TickColumn) {
        return;
    }
    const QStandardItem* item = m_model.itemFromIndex(index);
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
        m_model.item(formerRow, overview::TickColumn)->setCheckState(Qt::Unchecked);
        announceRow(formerRow, false);
    }
    announceRow(row, true);
    if (m_view) {
        // The change is in a hidden column, the mark goes over the whole row.
        m_view->viewport()->update();
    }
    const QString hexId = hexIdOf(row);
    if (hexId != m_selectedHexId) {
        m_selectedHexId = hexId;
        emit selectedLDBChanged(hexId);
    }
}

/// Tells a screen reader which row is ticked.
void DeviceOverviewTable::announceRow(int row, bool isTicked)
{
    if (QStandardItem* item = m_model.item(row, overview::IdColumn)) {
        cellcolours::update(*item, Qt::AccessibleTextRole,
                            isTicked ? tr("%1, selected").arg(hexIdOf(row)) : QVariant());
    }
}

QString DeviceOverviewTable::hexIdOf(int row) const
{
    return m_model.index(row, overview::TickColumn).data(overview::HexIdRole).toString();
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
    m_monitoring = monitoring;
    m_proxy->setKnown(monitoring.known);
    for (int row = 0; row < m_model.rowCount(); ++row) {
        showLiveness(row);
    }
}

void DeviceOverviewTable::showLiveness(int row)
{
    const QString hexId = hexIdOf(row);
    const std::optional<qint64> time = m_times.value(hexId);
    const bool isLive = m_monitoring.isLive(hexId, time);
    QStandardItem& tickItem = *m_model.item(row, overview::TickColumn);
    if (cellcolours::update(tickItem, overview::LiveRole, isLive)) {
        colourRow(row);
    }
    showAge(row, isLive ? QString() : m_monitoring.ageText(time));
}

void DeviceOverviewTable::colourRow(int row)
{
    const bool isLive = m_model.item(row, overview::TickColumn)->data(overview::LiveRole).toBool();
    for (int column = overview::IdColumn; column < overview::ColumnCount; ++column) {
        if (QStandardItem* item = m_model.item(row, column)) {
            colourCell(*item, isLive);
        }
    }
}

void DeviceOverviewTable::showAge(int row, const QString& age)
{
    QStandardItem* mode = m_model.item(row, overview::ModeColumn);
    if (mode != nullptr &&
        cellcolours::update(*mode, overview::AgeRole, age.isEmpty() ? QVariant() : age)) {
        m_rows->fit(row);
    }
}

void DeviceOverviewTable::colourCell(QStandardItem& item, bool isLive) const
{
    const QColor colour = item.data(overview::RuleColourRole).value<QColor>();
    if (isLive) {
        cellcolours::setColour(item, colour);
    } else {
        const QPalette palette = m_view ? m_view->palette() : QPalette();
        const QColor& ground = palette.color(QPalette::Base);
        cellcolours::setColours(item, cellcolours::faded(colour, ground),
                                cellcolours::fadedText(palette.color(QPalette::Text), ground));
    }
}

void DeviceOverviewTable::openMenu(const QPoint& position)
{
    const QStringList lost = lostLdbs();
    const QModelIndex cell = m_view->indexAt(position);
    if (!cell.isValid() || lost.isEmpty() || !m_isDismissEnabled) {
        return;
    }
    auto* menu = new QMenu(m_view);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const QString hexId = hexIdOf(m_proxy->mapToSource(cell).row());
    if (lost.contains(hexId)) {
        connect(menu->addAction(tr("Dismiss LDB %1").arg(hexId)), &QAction::triggered, this,
                [this, hexId] { emit dismissed({hexId}); });
    }
    connect(menu->addAction(tr("Dismiss all lost LDBs")), &QAction::triggered, this,
            [this] { emit dismissed(lostLdbs()); });
    menu->popup(m_view->viewport()->mapToGlobal(position));
}

QStringList DeviceOverviewTable::lostLdbs() const
{
    QStringList lost;
    for (int row = 0; row < m_model.rowCount(); ++row) {
        const QVariant mode = m_model.index(row, overview::ModeColumn).data(overview::NumberRole);
        if (mode.toInt() == static_cast<int>(LdbState::Disconnected)) {
            lost.append(hexIdOf(row));
        }
    }
    return lost;
}

/// Gives the ticked LDB of before.
QString DeviceOverviewTable::removeOthers(const QStringList& hexIds)
{
    m_isRoundWhole = false;
    const QString ticked = m_selectedRow == kNoRow ? QString() : hexIdOf(m_selectedRow);
    m_selectedRow = kNoRow;
    for (int row = m_model.rowCount() - 1; row >= 0; --row) {
        const QString hexId = hexIdOf(row);
        if (!hexIds.contains(hexId)) {
            m_model.removeRow(row);
            m_times.remove(hexId);
        }
    }
    m_rowOfLdb.clear();
    for (int row = 0; row < m_model.rowCount(); ++row) {
        m_rowOfLdb.insert(hexIdOf(row), row);
    }
    m_selectedRow = m_rowOfLdb.value(ticked, kNoRow);
    return ticked;
}

void DeviceOverviewTable::keepOnly(const QStringList& hexIds)
{
    m_isSelectionHeld = false;
    const QString ticked = removeOthers(hexIds);
    if (m_selectedRow == kNoRow && !ticked.isEmpty() && m_model.rowCount() > 0) {
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
    selectLdb(hexIdOf(m_proxy->mapToSource(current).row()));
    return true;
}
