#include "views/tables/overviewmodel.h"

#include "views/tables/overviewcolumns.h"
#include "views/tables/overviewfilter.h"

#include <QPalette>
#include <QStandardItem>
#include <QWidget>

#include <algorithm>
#include <limits>

namespace {

// A shorter record tells only that the LDB is there.
constexpr int kMinimumEntries = 2;

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
int entriesOf(const QList<QStringList>& record)
{
    return std::min<int>(record.size(), generalinformation::RowCount);
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

} // namespace

OverviewModel::OverviewModel(const QWidget* view, QObject* parent)
    : QStandardItemModel(parent)
    , m_view(view)
    , m_colourRules(CellColourRules::fromTuningFile())
{
    // The columns are there before the first row, so that an empty table shows what it will hold.
    setColumnCount(overview::ColumnCount);
}

void OverviewModel::setRecord(const QString& hexId, const QList<QStringList>& record)
{
    m_times.insert(hexId, generalinformation::clockTime(record));
    if (m_rowOfLdb.contains(hexId)) {
        refreshRow(rowOf(hexId), record);
    } else {
        addRow(hexId, record);
    }
    showLiveness(rowOf(hexId));
    colourRow(rowOf(hexId));
}

/// The row comes with all its cells: each that came later would be filtered, sorted and laid out
/// again.
void OverviewModel::addRow(const QString& hexId, const QList<QStringList>& record)
{
    QStandardItem* tickItem = newItem();
    tickItem->setCheckable(true);
    tickItem->setData(Qt::Unchecked, Qt::CheckStateRole);
    tickItem->setData(hexId, overview::HexIdRole);
    QList<QStandardItem*> cells{tickItem};
    if (record.size() >= kMinimumEntries) {
        OverviewFilter::note(*tickItem, record);
        for (int recordRow = 0; recordRow < entriesOf(record); ++recordRow) {
            cells.append(newDataItem());
            fillCell(*cells.last(), recordRow, record.at(recordRow));
        }
    }
    m_rowOfLdb.insert(hexId, rowCount());
    appendRow(cells);
}

void OverviewModel::refreshRow(int row, const QList<QStringList>& record)
{
    if (record.size() < kMinimumEntries) {
        return;
    }
    OverviewFilter::note(*item(row, overview::TickColumn), record);
    bool isFitDue = false;
    for (int recordRow = 0; recordRow < entriesOf(record); ++recordRow) {
        const int column = overview::columnOf(recordRow);
        QStandardItem* cell = item(row, column);
        const bool isNew = cell == nullptr; // the record before was a short one
        if (isNew) {
            cell = newDataItem();
        }
        isFitDue = fillCell(*cell, recordRow, record.at(recordRow)) || isFitDue;
        if (isNew) {
            setItem(row, column, cell);
        }
    }
    if (isFitDue) {
        emit heightDue(row);
    }
}

/// Whether the cell may need another height.
bool OverviewModel::fillCell(QStandardItem& cell, int recordRow, const QStringList& entry) const
{
    const QString text = entry.value(generalinformation::TextColumn);
    const bool mayNeedRoom = takesLines(recordRow, text) || takesLines(recordRow, cell.text());
    const bool isOther = cellcolours::update(cell, Qt::DisplayRole, text);
    cellcolours::update(cell, overview::NumberRole, sortNumber(recordRow, entry));
    const QColor colour = cellcolours::ruleColour(m_colourRules, recordRow, entry);
    cellcolours::update(cell, overview::RuleColourRole,
                        colour.isValid() ? QVariant(colour) : QVariant());
    return isOther && mayNeedRoom;
}

void OverviewModel::setMonitoring(const Monitoring& monitoring)
{
    m_monitoring = monitoring;
    for (int row = 0; row < rowCount(); ++row) {
        showLiveness(row);
    }
}

void OverviewModel::keepOnly(const QStringList& hexIds)
{
    for (int row = rowCount() - 1; row >= 0; --row) {
        const QString hexId = hexIdOf(row);
        if (!hexIds.contains(hexId)) {
            removeRow(row);
            m_times.remove(hexId);
        }
    }
    m_rowOfLdb.clear();
    for (int row = 0; row < rowCount(); ++row) {
        m_rowOfLdb.insert(hexIdOf(row), row);
    }
}

void OverviewModel::showLiveness(int row)
{
    const QString hexId = hexIdOf(row);
    const std::optional<qint64> time = m_times.value(hexId);
    const bool isLive = m_monitoring.isLive(hexId, time);
    QStandardItem& tickItem = *item(row, overview::TickColumn);
    if (cellcolours::update(tickItem, overview::LiveRole, isLive)) {
        colourRow(row);
    }
    showAge(row, isLive ? QString() : m_monitoring.ageText(time));
}

void OverviewModel::colourRow(int row)
{
    const bool isLive = item(row, overview::TickColumn)->data(overview::LiveRole).toBool();
    for (int column = overview::IdColumn; column < overview::ColumnCount; ++column) {
        if (QStandardItem* cell = item(row, column)) {
            colourCell(*cell, isLive);
        }
    }
}

void OverviewModel::showAge(int row, const QString& age)
{
    QStandardItem* mode = item(row, overview::ModeColumn);
    if (mode != nullptr &&
        cellcolours::update(*mode, overview::AgeRole, age.isEmpty() ? QVariant() : age)) {
        emit heightDue(row);
    }
}

void OverviewModel::colourCell(QStandardItem& cell, bool isLive) const
{
    const QColor colour = cell.data(overview::RuleColourRole).value<QColor>();
    if (isLive) {
        cellcolours::setColour(cell, colour);
    } else {
        const QPalette palette = m_view ? m_view->palette() : QPalette();
        const QColor& ground = palette.color(QPalette::Base);
        cellcolours::setColours(cell, cellcolours::faded(colour, ground),
                                cellcolours::fadedText(palette.color(QPalette::Text), ground));
    }
}

QStringList OverviewModel::lostLdbs() const
{
    QStringList lost;
    for (int row = 0; row < rowCount(); ++row) {
        const QVariant mode = index(row, overview::ModeColumn).data(overview::NumberRole);
        if (mode.toInt() == static_cast<int>(LdbState::Disconnected)) {
            lost.append(hexIdOf(row));
        }
    }
    return lost;
}

QString OverviewModel::hexIdOf(int row) const
{
    return index(row, overview::TickColumn).data(overview::HexIdRole).toString();
}
