#pragma once

#include "serial/ldb/monitoring.h"

#include <QObject>
#include <QPointer>
#include <QStandardItemModel>
#include <QStringList>

#include <memory>

class QKeyEvent;
class QTableView;

class CheckBoxDelegate;
class OverviewFilter;
class OverviewLayout;
class OverviewModel;
class OverviewRowDelegate;
class OverviewRows;

/// The overview of all LDBs: one row each, refreshed with every record, coloured by the rules of
/// the tuning file. One row is ticked; its LDB is the selected one. GUI thread.
///
/// The user ticks a row by a click on it, or by Space or Enter. The tick itself stands in a hidden
/// column, and the row is marked instead.
class DeviceOverviewTable : public QObject
{
    Q_OBJECT
public:
    /// `view` belongs to the caller and may die first. The tuning file is read here, once.
    explicit DeviceOverviewTable(QTableView* view, QObject* parent = nullptr);
    ~DeviceOverviewTable() override;

    /// Ticks the row of an LDB, as a click on it does. False, and nothing changes, where the table
    /// has no such row or ticking is disabled.
    bool selectLdb(const QString& hexId);

    /// The LDB last announced by `selectedLDBChanged`; empty before the first.
    QString selectedHexId() const { return m_selectedHexId; }

    /// Whether the user may tick another row. True at the start.
    void setSelectionEnabled(bool enabled);

    /// What of the bus is monitored. Rows that are not live are grey and say how old they are.
    void setMonitoring(const Monitoring& monitoring);

    /// Drops the rows of all other LDBs; columns, widths, order and sorting stay. Without the row
    /// of the selected LDB the first one left is ticked and announced. Where none is left, the
    /// selected LDB is ticked again, without a signal, when its next record comes; if it has not
    /// come by the end of a whole round, the first row is ticked and announced instead.
    void keepOnly(const QStringList& hexIds);
    /// Shows another moment, of these LDBs. The same as `keepOnly`, but the selected LDB stays the
    /// selected one even where it has no row, until `keepOnly` is called.
    void showOnly(const QStringList& hexIds);
    /// Whether lost LDBs can be given up. True at the start.
    void setDismissEnabled(bool enabled) { m_isDismissEnabled = enabled; }
    /// The LDBs that the table shows as lost.
    QStringList lostLdbs() const;
    /// Every LDB that has a row.
    QStringList shownLdbs() const;

    /// Stores the header's layout in the per-user settings, once it has been restored from there.
    void saveTableState() const;

public slots:
    /// Adds or refreshes the row of an LDB. The first LDB ever is ticked. An entry that the record
    /// lacks leaves its cell as it is, and entries beyond the known ones are ignored.
    void processData(const QString& hexId, const QList<QStringList>& dataList);

    /// A round has begun, and is over.
    void beginRound();
    void endRound();

    /// Sets the header in the language in force; widths, order and sorting stay.
    void retranslate();

signals:
    /// Another LDB is ticked; also emitted for the first one.
    void selectedLDBChanged(QString hexid);
    /// The user gives up these lost LDBs.
    void dismissed(const QStringList& hexIds);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void dataChanged(const QModelIndex& index);

private:
    static constexpr int kNoRow = -1; ///< as the model has it

    QString removeOthers(const QStringList& hexIds);

    void setupTable();
    void setupHeader();

    void openMenu(const QPoint& position);

    void settleSelection(const QString& hexId);
    void tickFirst();
    bool tickByKey(const QKeyEvent& key);
    void tick(int row);
    void moveTick(int row);
    void announceRow(int row, bool isTicked);

    QPointer<QTableView> m_view;
    std::unique_ptr<OverviewModel> m_model;
    QStandardItemModel m_headerModel;
    std::unique_ptr<OverviewFilter> m_proxy;        // of m_model, so it dies first
    OverviewLayout* m_layout = nullptr;             // owned as a child
    OverviewRows* m_rows = nullptr;                 // owned as a child
    CheckBoxDelegate* m_checkBoxDelegate = nullptr; // owned as a child
    OverviewRowDelegate* m_rowDelegate = nullptr;   // owned as a child
    int m_selectedRow = kNoRow;                     // source row of the tick
    QString m_selectedHexId;
    bool m_isDismissEnabled = true;
    bool m_isSelectionHeld = false; ///< no other row is ticked by itself
    bool m_isRoundWhole = false;    ///< the round that is on has begun with the rows that there are
};
