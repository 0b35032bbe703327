#include "app/settingstable/settingstablemodel.h"

#include "app/settingstable/celltexts.h"
#include "app/shared/colours.h"
#include "serial/ldb/busaddress.h"

#include <QBrush>
#include <QFont>
#include <QThread>
#include <QUndoCommand>

#include <algorithm>

namespace {

QString headOf(LdbField field)
{
    const QString unit = fieldUnit(field);
    return unit.isEmpty() ? fieldHead(field)
                          : QStringLiteral("%1 (%2)").arg(fieldHead(field), unit);
}

QColor groundOf(FieldOutcome outcome)
{
    return QColor(outcome == FieldOutcome::Written ? colours::kMonitored : colours::kNotMonitored);
}

/// The present state of a cell, to be restored by undo.
SettingsTableModel::CellEdit presentEdit(const TableRow* row, const QString& hexId, LdbField field)
{
    SettingsTableModel::CellEdit edit{hexId, field, std::nullopt};
    if (row != nullptr && row->isEdited(field)) {
        edit.values = row->wanted;
    }
    return edit;
}

bool isBefore(const TableRow& row, const QString& hexId)
{
    return busaddress::fromHexId(row.hexId) < busaddress::fromHexId(hexId);
}

} // namespace

/// One undo step.
class SettingsTableModel::Step : public QUndoCommand
{
public:
    Step(SettingsTableModel* model, std::vector<CellEdit> edits, const QString& name)
        : QUndoCommand(name)
        , m_model(model)
        , m_after(std::move(edits))
    {
        // Backwards: of two edits of one cell, the first one knows what was there before.
        for (auto edit = m_after.crbegin(); edit != m_after.crend(); ++edit) {
            m_before.push_back(presentEdit(model->find(edit->hexId), edit->hexId, edit->field));
        }
    }
    void undo() override { m_model->apply(m_before); }
    void redo() override { m_model->apply(m_after); }

private:
    SettingsTableModel* m_model;
    std::vector<CellEdit> m_after;
    std::vector<CellEdit> m_before;
};

SettingsTableModel::SettingsTableModel(QObject* parent)
    : QAbstractTableModel(parent)
{
    connect(&m_undo, &QUndoStack::indexChanged, this, &SettingsTableModel::editsChanged);
}

std::optional<LdbField> SettingsTableModel::fieldOf(int column)
{
    if (column < FirstFieldColumn || column >= FirmwareColumn) {
        return std::nullopt;
    }
    return kLdbFields[static_cast<std::size_t>(column - FirstFieldColumn)];
}

int SettingsTableModel::columnOf(LdbField field)
{
    return FirstFieldColumn + static_cast<int>(field);
}

int SettingsTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int SettingsTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int{ColumnCount};
}

QVariant SettingsTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    const TableRow& row = m_rows[static_cast<std::size_t>(index.row())];
    if (const auto field = fieldOf(index.column())) {
        return fieldData(row, *field, role);
    }
    if (role != Qt::DisplayRole && role != SortRole && role != Qt::ToolTipRole) {
        return {};
    }
    switch (index.column()) {
    case LdbColumn:
        return role == Qt::ToolTipRole ? tr("Address %1").arg(busaddress::fromHexId(row.hexId))
                                       : QVariant(row.hexId);
    case FirmwareColumn:
        return row.firmwareId;
    case ReadColumn:
        if (role == Qt::DisplayRole) {
            return row.readAt.isValid() ? row.readAt.toLocalTime().time().toString(Qt::ISODate)
                                        : QString();
        }
        return role == SortRole ? QVariant(row.readAt)
                                : QVariant(row.readAt.toLocalTime().toString());
    default:
        return celltexts::ofRow(row);
    }
}

QVariant SettingsTableModel::fieldData(const TableRow& row, LdbField field, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return celltexts::ofCell(row, field, m_comparison.differs(row, field));
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole:
        return celltexts::tip(row, field, m_comparison);
    case Qt::AccessibleTextRole:
        return row.isKnown(field) ? fieldValue(field, row.shown()) : QString();
    case Qt::EditRole:
    case SortRole:
        return row.isKnown(field) ? fieldVariant(field, row.shown()) : QVariant();
    case Qt::CheckStateRole:
        if (kindOf(field) != FieldKind::Switch || !row.isKnown(field)) {
            return {};
        }
        return fieldVariant(field, row.shown()).toBool() ? Qt::Checked : Qt::Unchecked;
    case EditedRole:
        return row.isEdited(field);
    case DiffersRole:
        return m_comparison.differs(row, field);
    case OutcomeRole: {
        const auto outcome = row.outcomes.find(field);
        return outcome == row.outcomes.end() ? QVariant()
                                             : QVariant(static_cast<int>(outcome->second));
    }
    case Qt::FontRole: {
        QFont font;
        font.setBold(row.isEdited(field));
        return font;
    }
    case Qt::BackgroundRole: {
        const auto outcome = row.outcomes.find(field);
        if (outcome != row.outcomes.end()) {
            return QBrush(groundOf(outcome->second));
        }
        return row.isEdited(field) ? QBrush(QColor(colours::kPartlyMonitored)) : QVariant();
    }
    case Qt::ForegroundRole:
        // These backgrounds are light in every palette, so the text is dark.
        return row.isEdited(field) || row.outcomes.count(field) > 0 ? QBrush(Qt::black)
                                                                    : QVariant();
    default:
        return {};
    }
}

QVariant SettingsTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) {
        return {};
    }
    if (const auto field = fieldOf(section)) {
        return role == Qt::ToolTipRole ? fieldName(*field) : headOf(*field);
    }
    switch (section) {
    case LdbColumn:
        return tr("LDB");
    case FirmwareColumn:
        return tr("Firmware ID");
    case ReadColumn:
        return tr("Read at");
    default:
        return tr("State");
    }
}

Qt::ItemFlags SettingsTableModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
    const auto field = fieldOf(index.column());
    if (!field || m_isLocked || !m_rows[static_cast<std::size_t>(index.row())].isKnown(*field)) {
        return flags;
    }
    return flags |
           (kindOf(*field) == FieldKind::Switch ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable);
}

bool SettingsTableModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    const auto field = fieldOf(index.column());
    if (!field || m_isLocked || (role != Qt::EditRole && role != Qt::CheckStateRole)) {
        return false;
    }
    LdbSettings values;
    const QVariant given =
        role == Qt::CheckStateRole ? QVariant(value.toInt() == Qt::Checked) : value;
    if (!setFieldVariant(*field, given, values)) {
        return false;
    }
    const QString hexId = m_rows[static_cast<std::size_t>(index.row())].hexId;
    edit({{hexId, *field, values}}, tr("%1 of LDB %2").arg(fieldName(*field), hexId));
    return true;
}

void SettingsTableModel::setLdbs(const QStringList& known, const QStringList& connected)
{
    Q_ASSERT(QThread::currentThread() == thread());
    for (const QString& hexId : known) {
        addRow(hexId);
        row(hexId)->isListed = true;
    }
    for (const TableRow& row : m_rows) {
        setConnected(row.hexId, connected.contains(row.hexId));
    }
}

void SettingsTableModel::setConnected(const QString& hexId, bool isConnected)
{
    TableRow* told = row(hexId);
    if (told != nullptr && told->isConnected != isConnected) {
        told->isConnected = isConnected;
        tell(*told);
    }
}

void SettingsTableModel::forget()
{
    m_undo.clear();
    beginResetModel();
    m_rows.erase(std::remove_if(m_rows.begin(), m_rows.end(),
                                [](const TableRow& row) { return row.edits.empty(); }),
                 m_rows.end());
    for (TableRow& row : m_rows) {
        row.isListed = false;
        row.isConnected = false;
    }
    endResetModel();
    m_comparison.count(m_rows);
    emit editsChanged();
}

const TableRow* SettingsTableModel::find(const QString& hexId) const
{
    const auto found = std::lower_bound(m_rows.begin(), m_rows.end(), hexId, isBefore);
    return found != m_rows.end() && found->hexId == hexId ? &*found : nullptr;
}

TableRow* SettingsTableModel::row(const QString& hexId)
{
    return const_cast<TableRow*>(qAsConst(*this).find(hexId));
}

void SettingsTableModel::addRow(const QString& hexId)
{
    const auto place = std::lower_bound(m_rows.begin(), m_rows.end(), hexId, isBefore);
    if (place != m_rows.end() && place->hexId == hexId) {
        return;
    }
    const int number = static_cast<int>(place - m_rows.begin());
    beginInsertRows({}, number, number);
    TableRow row;
    row.hexId = hexId;
    m_rows.insert(place, row);
    endInsertRows();
}

void SettingsTableModel::awaitReading(const QStringList& hexIds)
{
    for (const QString& hexId : hexIds) {
        addRow(hexId);
        TableRow* awaited = row(hexId);
        awaited->reading = TableRow::Reading::Awaited;
        tell(*awaited);
    }
}

void SettingsTableModel::takeReading(const LdbReading& reading, const QDateTime& at)
{
    addRow(reading.hexId);
    TableRow* taken = row(reading.hexId);
    if (reading.settings) {
        taken->take(*reading.settings, at);
        taken->isConnected = true;
    } else {
        taken->reading =
            reading.isUnsent ? TableRow::Reading::Unsent : TableRow::Reading::Unanswered;
    }
    if (!reading.firmwareId.isEmpty()) {
        taken->firmwareId = reading.firmwareId;
    }
    tellValues(*taken);
}

void SettingsTableModel::endReading()
{
    for (TableRow& row : m_rows) {
        if (row.reading == TableRow::Reading::Awaited) {
            row.reading = row.read ? TableRow::Reading::Read : TableRow::Reading::Never;
            tell(row);
        }
    }
}

void SettingsTableModel::edit(const std::vector<CellEdit>& edits, const QString& stepName)
{
    Q_ASSERT(QThread::currentThread() == thread());
    const bool changesNothing =
        m_isLocked || std::all_of(edits.begin(), edits.end(), [this](const CellEdit& edit) {
            TableRow was;
            was.hexId = edit.hexId;
            const TableRow* present = find(edit.hexId);
            was = present != nullptr ? *present : was;
            if (!edit.values) {
                return !was.isEdited(edit.field);
            }
            return was.isKnown(edit.field) && isSameField(edit.field, *edit.values, was.shown());
        });
    if (!changesNothing) {
        m_undo.push(new Step(this, edits, stepName));
    }
}

void SettingsTableModel::apply(const std::vector<CellEdit>& edits)
{
    for (const CellEdit& edit : edits) {
        addRow(edit.hexId);
        TableRow* edited = row(edit.hexId);
        if (edit.values) {
            edited->edit(edit.field, *edit.values);
        } else {
            edited->takeBack(edit.field);
        }
    }
    dropEmptyRows();
    tellAll();
}

void SettingsTableModel::dropEmptyRows()
{
    for (int number = rowCount() - 1; number >= 0; --number) {
        const TableRow& row = m_rows[static_cast<std::size_t>(number)];
        if (!row.isListed && !row.read && row.edits.empty()) {
            beginRemoveRows({}, number, number);
            m_rows.erase(m_rows.begin() + number);
            endRemoveRows();
        }
    }
}

int SettingsTableModel::editCount() const
{
    int count = 0;
    for (const TableRow& row : m_rows) {
        count += static_cast<int>(row.edits.size());
    }
    return count;
}

void SettingsTableModel::setLocked(bool isLocked)
{
    m_isLocked = isLocked;
    emit editsChanged();
}

std::vector<LdbChange> SettingsTableModel::changes() const
{
    std::vector<LdbChange> changes;
    for (const TableRow& row : m_rows) {
        if (const auto change = row.change()) {
            changes.push_back({row.hexId, *change});
        }
    }
    return changes;
}

QStringList SettingsTableModel::unreadEdits() const
{
    QStringList hexIds;
    for (const TableRow& row : m_rows) {
        if (!row.edits.empty() && !row.read) {
            hexIds.append(row.hexId);
        }
    }
    return hexIds;
}

void SettingsTableModel::takeOutcome(const SettingsOutcome& outcome, const QDateTime& at)
{
    TableRow* written = row(outcome.hexId);
    if (written == nullptr) {
        return;
    }
    const std::vector<LdbField> asked(written->edits.begin(), written->edits.end());
    written->take(outcome, asked, at);
    m_undo.clear();
    tellValues(*written);
}

void SettingsTableModel::compareWith(TableComparison::With with)
{
    m_comparison.setWith(with);
    tellAll();
}

void SettingsTableModel::compareWithOther(const OtherSettings& other)
{
    m_comparison.setOther(other);
    compareWith(TableComparison::With::Other);
}

void SettingsTableModel::tell(const TableRow& row)
{
    const int number = static_cast<int>(&row - m_rows.data());
    emit dataChanged(index(number, 0), index(number, ColumnCount - 1));
}

void SettingsTableModel::tellValues(const TableRow& row)
{
    if (m_comparison.count(m_rows)) {
        tellAll();
    } else {
        tell(row);
    }
    emit editsChanged();
}

void SettingsTableModel::tellAll()
{
    m_comparison.count(m_rows);
    if (!m_rows.empty()) {
        emit dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
    }
    emit editsChanged();
}

void SettingsTableModel::retranslate()
{
    emit headerDataChanged(Qt::Horizontal, 0, ColumnCount - 1);
    tellAll();
}
