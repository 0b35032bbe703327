#include "views/quality/qualitymodel.h"

#include "recording/lineshares.h"
#include "serial/ldb/generalinformation.h"
#include "views/quality/qualitystrip.h"

#include <QFont>
#include <QHash>

#include <utility>

void QualityModel::setNames(std::function<QString(const QString& hexId)> nameOf)
{
    m_nameOf = std::move(nameOf);
}

void QualityModel::setLines(std::vector<LineQuality> lines, bool isSampled)
{
    emit layoutAboutToBeChanged();
    QHash<QString, int> rows;
    for (std::size_t row = 0; row < lines.size(); ++row) {
        rows.insert(lines[row].hexId, static_cast<int>(row));
    }
    const QModelIndexList former = persistentIndexList();
    QModelIndexList moved;
    for (const QModelIndex& cell : former) {
        const int row = rows.value(m_lines[static_cast<std::size_t>(cell.row())].hexId, -1);
        moved.append(row < 0 ? QModelIndex() : createIndex(row, cell.column()));
    }
    m_lines = std::move(lines);
    m_isSampled = isSampled;
    changePersistentIndexList(former, moved);
    emit layoutChanged();
}

void QualityModel::retranslate()
{
    emit headerDataChanged(Qt::Horizontal, 0, ColumnCount - 1);
    if (!m_lines.empty()) {
        emit dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
    }
}

int QualityModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_lines.size());
}

int QualityModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant QualityModel::data(const QModelIndex& index, int role) const
{
    const LineQuality& line = m_lines[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return text(line, index.column());
    case QualityStripDelegate::kBarsRole:
        return index.column() == BarsColumn ? QVariant::fromValue(line.bars) : QVariant();
    case Qt::AccessibleTextRole:
        return index.column() == BarsColumn ? QVariant(linequality::sharesText(line.counts))
                                            : QVariant(text(line, index.column()));
    case Qt::TextAlignmentRole:
        return static_cast<int>(index.column() >= AskedColumn && index.column() <= Part95Column
                                    ? Qt::AlignRight | Qt::AlignVCenter
                                    : Qt::AlignLeft | Qt::AlignVCenter);
    case Qt::FontRole:
        if (line.hexId.isEmpty()) {
            QFont bold;
            bold.setBold(true);
            return bold;
        }
        break;
    default:
        break;
    }
    return {};
}

QString QualityModel::text(const LineQuality& line, int column) const
{
    const QualityCounts& counts = line.counts;
    const auto share = [&counts](qint64 part) {
        return counts.isEnough() ? lineshares::text(part, counts.asked)
                                 : generalinformation::kNoValue;
    };
    switch (column) {
    case LdbColumn:
        return line.hexId.isEmpty() ? tr("Bus") : line.hexId;
    case NameColumn:
        return line.hexId.isEmpty() || !m_nameOf ? QString() : m_nameOf(line.hexId).simplified();
    case AskedColumn:
        return QString::number(counts.asked);
    case GoodColumn:
        return share(counts.good);
    case DamagedColumn:
        return share(counts.damaged);
    case SilentColumn:
        return share(counts.silent);
    case UnbelievedColumn:
        return share(counts.unbelieved());
    case MedianColumn:
        return flight(line, &FlightTimes::median);
    case Part95Column:
        return flight(line, &FlightTimes::part95);
    default:
        return {};
    }
}

QString QualityModel::flight(const LineQuality& line, qint64 FlightTimes::*part) const
{
    if (!line.flights) {
        return generalinformation::kNoValue;
    }
    const QString value = linequality::flightText((*line.flights).*part);
    return m_isSampled ? QStringLiteral("≈ ") + value : value;
}

QVariant QualityModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) {
        return {};
    }
    const bool isTip = role == Qt::ToolTipRole;
    switch (section) {
    case LdbColumn:
        return tr("LDB");
    case NameColumn:
        return tr("Name");
    case AskedColumn:
        return isTip ? tr("How often the LDB was asked") : tr("Exchanges");
    case GoodColumn:
        return isTip ? tr("Share of exchanges with a sound answer") : tr("Good");
    case DamagedColumn:
        return isTip ? tr("Share of exchanges with a damaged answer") : tr("Damaged");
    case SilentColumn:
        return isTip ? tr("Share of exchanges without an answer") : tr("Silent");
    case UnbelievedColumn:
        return isTip ? tr("Share of sound answers that may be those to another question, as they "
                          "came at an unusual time")
                     : tr("Not believed");
    case MedianColumn:
        return isTip ? tr("Half of the answers came within this time")
                     : tr("Answer time\n(median)");
    case Part95Column:
        return isTip ? tr("95 of 100 answers came within this time") : tr("Answer time\n(95 %)");
    case BarsColumn:
        return isTip ? tr("How much was bad, over time: the higher a bar, the more")
                     : tr("Over time");
    default:
        return {};
    }
}
