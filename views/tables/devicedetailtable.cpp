#include "views/tables/devicedetailtable.h"

#include "serial/ldb/generalinformation.h"
#include "views/tables/cellcolours.h"

#include <QHeaderView>
#include <QPalette>
#include <QStandardItem>
#include <QTableView>
#include <QThread>

#include <algorithm>

namespace {

// A shorter record holds nothing to show.
constexpr int kMinimumEntries = 2;

} // namespace

DeviceDetailTable::DeviceDetailTable(QTableView* view, QObject* parent)
    : QObject(parent)
    , m_view(view)
{
    setupTable();
    retranslate();
    m_colourRules = std::make_unique<const CellColourRules>(CellColourRules::fromTuningFile());
}

DeviceDetailTable::~DeviceDetailTable() = default;

void DeviceDetailTable::setupTable()
{
    const QPalette palette;
    m_baseColour = palette.color(QPalette::Base);
    m_alternateColour = palette.color(QPalette::AlternateBase);
    m_textColour = palette.color(QPalette::Text);

    m_model.setColumnCount(ColumnCount);
    m_view->setModel(&m_model);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    // A highlight would cover the colour of a fault.
    m_view->setSelectionMode(QAbstractItemView::NoSelection);
    // A sum of faults takes more than one line.
    m_view->setWordWrap(true);
    m_view->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_view->verticalHeader()->setMinimumSectionSize(m_view->verticalHeader()->defaultSectionSize());
    QHeaderView* header = m_view->horizontalHeader();
    header->setSectionResizeMode(QHeaderView::Stretch);
    header->setAlternatingRowColors(true);
    header->hide();
}

QColor DeviceDetailTable::shadeOf(int row) const
{
    // The second row of a pair has the shade of the first.
    const int secondRowsAbove = (row > generalinformation::PrimaryVoltageRow ? 1 : 0) +
                                (row > generalinformation::SecondaryVoltageRow ? 1 : 0);
    return (row - secondRowsAbove) % 2 == 0 ? m_baseColour : m_alternateColour;
}

QStandardItem& DeviceDetailTable::cell(int row, Column column)
{
    QStandardItem* item = m_model.item(row, column);
    if (item == nullptr) {
        item = new QStandardItem;
        item->setEditable(false);
        cellcolours::setColours(*item, shadeOf(row), m_textColour);
        m_model.setItem(row, column, item);
    }
    return *item;
}

void DeviceDetailTable::retranslate()
{
    m_model.setHorizontalHeaderLabels({QStringLiteral("Details"), QString()});
    const QStringList labels{tr("ID"),           tr("Name"),     tr("Mode"),           tr("Loop"),
                             tr("Primary Port"), QString(),      tr("Secondary Port"), QString(),
                             tr("Earth"),        tr("Amplifier")};
    for (int row = 0; row < labels.size(); ++row) {
        cellcolours::update(cell(row, LabelColumn), Qt::DisplayRole, labels.at(row));
        cell(row, ValueColumn);
    }
}

void DeviceDetailTable::setCurrentHexId(const QString& hexId)
{
    if (hexId != m_currentHexId) {
        m_currentHexId = hexId;
        showRecord({});
    }
}

void DeviceDetailTable::processData(const QString& hexId, const QList<QStringList>& dataList)
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (hexId == m_currentHexId) {
        showRecord(dataList.size() < kMinimumEntries ? QList<QStringList>() : dataList);
    }
}

void DeviceDetailTable::showRecord(const QList<QStringList>& dataList)
{
    const int rows = std::max<int>(m_model.rowCount(), dataList.size());
    for (int row = 0; row < rows; ++row) {
        cell(row, LabelColumn);
        QStandardItem& value = cell(row, ValueColumn);
        const bool hasEntry = row < dataList.size();
        const QStringList entry = dataList.value(row);
        cellcolours::update(value, Qt::DisplayRole, entry.value(generalinformation::TextColumn));
        const QColor colour =
            hasEntry ? cellcolours::ruleColour(*m_colourRules, row, entry) : QColor();
        if (colour.isValid()) {
            cellcolours::setColour(value, colour);
        } else {
            cellcolours::setColours(value, shadeOf(row), m_textColour);
        }
    }
}
