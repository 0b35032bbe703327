#include "app/settingstable/tableclipboard.h"

#include "app/settingstable/tabletext.h"

#include <QCoreApplication>

#include <algorithm>
#include <limits>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(SettingsTable)
};

struct Corner
{
    int row = std::numeric_limits<int>::max();
    int column = std::numeric_limits<int>::max();
};

Corner firstOf(const QModelIndexList& cells)
{
    Corner corner;
    for (const QModelIndex& cell : cells) {
        corner.row = std::min(corner.row, cell.row());
        corner.column = std::min(corner.column, cell.column());
    }
    return corner;
}

QString textOf(const QModelIndex& cell)
{
    const auto field = SettingsTableModel::fieldOf(cell.column());
    if (!field) {
        return cell.data().toString();
    }
    const QVariant value = cell.data(Qt::EditRole);
    LdbSettings settings;
    if (!value.isValid()) {
        return {};
    }
    return setFieldVariant(*field, value, settings) ? tabletext::ofField(*field, settings)
                                                    : value.toString();
}

Text wrongCell(const QString& hexId, LdbField field, const QString& text)
{
    return [hexId, field, text] {
        return Texts::tr("\"%1\" cannot be the value of %2 of LDB %3. Nothing was pasted.")
            .arg(text, fieldName(field), hexId);
    };
}

} // namespace

QString tableclipboard::copied(const QModelIndexList& cells)
{
    const Corner corner = firstOf(cells);
    std::vector<QStringList> rows;
    for (const QModelIndex& cell : cells) {
        const auto number = static_cast<std::size_t>(cell.row() - corner.row);
        rows.resize(std::max(rows.size(), number + 1));
        QStringList& row = rows[number];
        while (row.size() <= cell.column() - corner.column) {
            row.append(QString());
        }
        row[cell.column() - corner.column] = textOf(cell);
    }
    return tabletext::join(rows);
}

tableclipboard::Pasted tableclipboard::pasted(const QString& text, const QModelIndexList& selected)
{
    Pasted result;
    const std::vector<QStringList> rows = tabletext::split(text);
    if (rows.empty() || selected.isEmpty()) {
        return result;
    }
    const auto put = [&result](const QModelIndex& cell, const QString& value) {
        const auto field = SettingsTableModel::fieldOf(cell.column());
        const QString hexId = cell.siblingAtColumn(SettingsTableModel::LdbColumn).data().toString();
        LdbSettings values;
        if (!field || result.error) {
            return;
        }
        if (tabletext::toField(*field, value, values)) {
            result.edits.push_back({hexId, *field, values});
        } else {
            result.error = wrongCell(hexId, *field, value);
        }
    };
    if (rows.size() == 1 && rows.front().size() == 1) {
        for (const QModelIndex& cell : selected) {
            put(cell, rows.front().constFirst());
        }
    } else {
        const Corner corner = firstOf(selected);
        const QAbstractItemModel* model = selected.constFirst().model();
        for (std::size_t row = 0; row < rows.size(); ++row) {
            for (int column = 0; column < rows[row].size(); ++column) {
                const QModelIndex cell =
                    model->index(corner.row + static_cast<int>(row), corner.column + column);
                if (cell.isValid()) {
                    put(cell, rows[row].at(column));
                } else if (!result.error) {
                    result.error = [] {
                        return Texts::tr("What is to be pasted is larger than the table from the "
                                         "selected cell on. Nothing was pasted.");
                    };
                }
            }
        }
    }
    if (result.error) {
        result.edits.clear();
    }
    return result;
}
