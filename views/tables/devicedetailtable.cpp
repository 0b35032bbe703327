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
        setRecord({});
    }
}

void DeviceDetailTable::processData(const QString& hexId, const QList<QStringList>& dataList)
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (hexId == m_currentHexId) {
        setRecord(dataList.size() < kMinimumEntries ? QList<QStringList>() : dataList);
    }
}

void DeviceDetailTable::setRecord(const QList<QStringList>& dataList)
{
    m_record = dataList;
    m_time = generalinformation::clockTime(dataList);
    showRecord();
}

void DeviceDetailTable::setMonitoring(const Monitoring& monitoring)
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_monitoring = monitoring;
    showRecord();
}

QString DeviceDetailTable::textOf(int row) const
{
    return m_record.value(row).value(generalinformation::TextColumn);
}

/// Beside the time, where no label stands: below it there is no room on a small screen.
void DeviceDetailTable::showAge()
{
    const QString age =
        m_time && !m_isLive ? tr("%1 ago").arg(m_monitoring.ageText(m_time)) : QString();
    if (m_model.rowCount() > generalinformation::TimestampRow) {
        cellcolours::update(cell(generalinformation::TimestampRow, LabelColumn), Qt::DisplayRole,
                            age);
    }
}

void DeviceDetailTable::showRecord()
{
    m_isLive = m_monitoring.isLive(m_currentHexId, m_time);
    const int rows = std::max<int>(m_model.rowCount(), m_record.size());
    for (int row = 0; row < rows; ++row) {
        cell(row, LabelColumn);
        QStandardItem& value = cell(row, ValueColumn);
        cellcolours::update(value, Qt::DisplayRole, textOf(row));
        const QColor colour = row < m_record.size()
                                  ? cellcolours::ruleColour(*m_colourRules, row, m_record.at(row))
                                  : QColor();
        const QColor shade = shadeOf(row);
        if (!m_isLive) {
            const QColor pale = cellcolours::faded(colour, shade);
            cellcolours::setColours(value, pale.isValid() ? pale : shade,
                                    cellcolours::fadedText(m_textColour, shade));
        } else if (colour.isValid()) {
            cellcolours::setColour(value, colour);
        } else {
            cellcolours::setColours(value, shade, m_textColour);
        }
    }
    showAge();
}
