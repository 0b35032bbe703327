#pragma once

#include "app/settingstable/tablecomparison.h"
#include "importexport/settingsbatch.h"
#include "importexport/settingsreader.h"

#include <QAbstractTableModel>
#include <QUndoStack>

/// The settings of all LDBs: what each had when it was read, the user's edits, and the outcome of
/// writing. Knows no widget and no link. GUI thread.
class SettingsTableModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column : int
    {
        LdbColumn,
        FirstFieldColumn, ///< the fields follow in the order of `LdbField`
        FirmwareColumn = FirstFieldColumn + static_cast<int>(kLdbFields.size()),
        ReadColumn,  ///< when
        StateColumn, ///< in words
        ColumnCount
    };
    enum Role : int
    {
        SortRole = Qt::UserRole,
        EditedRole,
        DiffersRole, ///< from what it is compared with
        OutcomeRole  ///< a `FieldOutcome`; nothing where the field was not written
    };
    /// A change of one cell.
    struct CellEdit
    {
        QString hexId;
        LdbField field;
        std::optional<LdbSettings> values; ///< holds the wanted value; nothing takes the edit back
    };

    explicit SettingsTableModel(QObject* parent = nullptr);

    static std::optional<LdbField> fieldOf(int column);
    static int columnOf(LdbField field);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// One undo step.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    /// Adds the LDBs that have no row yet, and notes which ones are connected.
    void setLdbs(const QStringList& known, const QStringList& connected);
    /// Another bus has other LDBs: removes all rows but those with edits, which are never lost
    /// without asking.
    void forget();
    void setConnected(const QString& hexId, bool isConnected);
    const std::vector<TableRow>& rows() const { return m_rows; }
    /// Null for an LDB that is not there.
    const TableRow* find(const QString& hexId) const;

    void awaitReading(const QStringList& hexIds);
    void takeReading(const LdbReading& reading, const QDateTime& at);
    /// The reading has ended: no row is awaited any more.
    void endReading();

    /// Edits cells as one undo step, and adds rows for LDBs that are not there yet. Edits that
    /// change nothing are no step.
    void edit(const std::vector<CellEdit>& edits, const QString& stepName);
    QUndoStack* undoStack() { return &m_undo; }
    int editCount() const;
    /// While it is locked, nothing can be edited.
    void setLocked(bool isLocked);
    bool isLocked() const { return m_isLocked; }

    /// What a Write writes, in the order of the addresses. Rows never read are left out.
    std::vector<LdbChange> changes() const;
    /// LDBs with edits of which nothing was read.
    QStringList unreadEdits() const;
    /// The steps before a write can no longer be undone; former settings take a write back.
    void takeOutcome(const SettingsOutcome& outcome, const QDateTime& at);

    const TableComparison& comparison() const { return m_comparison; }
    void compareWith(TableComparison::With with);
    /// Compares with these from now on.
    void compareWithOther(const OtherSettings& other);

    /// The language has changed.
    void retranslate();

signals:
    /// The number of edits or rows, or what can be undone, may have changed.
    void editsChanged();

private:
    class Step;

    QVariant fieldData(const TableRow& row, LdbField field, int role) const;
    TableRow* row(const QString& hexId);
    void addRow(const QString& hexId);
    void apply(const std::vector<CellEdit>& edits);
    /// Removes rows that only edits had made, of LDBs that nobody has seen.
    void dropEmptyRows();
    void tell(const TableRow& row);
    void tellAll();
    void tellValues(const TableRow& row);

    std::vector<TableRow> m_rows; ///< in the order of the addresses
    TableComparison m_comparison;
    QUndoStack m_undo;
    bool m_isLocked = false;
};
