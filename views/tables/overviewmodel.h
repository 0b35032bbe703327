#pragma once

#include "serial/ldb/monitoring.h"
#include "views/tables/cellcolours.h"

#include <QHash>
#include <QPointer>
#include <QStandardItemModel>
#include <QStringList>

#include <optional>

class QWidget;

/// What the cells of the overview hold: a row for each LDB, with the texts of its last record, what
/// they are sorted by, their colours and their age. Knows neither which row is selected nor which
/// ones are shown. Columns and roles are those of `overviewcolumns.h`. GUI thread.
class OverviewModel : public QStandardItemModel
{
    Q_OBJECT
public:
    static constexpr int kNoRow = -1;

    /// The tuning file is read here, once. Rows that are not live fade into the ground of `view`,
    /// which belongs to the caller and may die first.
    explicit OverviewModel(const QWidget* view, QObject* parent = nullptr);

    /// Adds or refreshes the row of an LDB. An entry that the record lacks leaves its cell as it
    /// is, and entries beyond the known ones are ignored.
    void setRecord(const QString& hexId, const QList<QStringList>& record);
    /// Decides which rows are live.
    void setMonitoring(const Monitoring& monitoring);
    /// Removes the rows of all other LDBs.
    void keepOnly(const QStringList& hexIds);

    /// `kNoRow` where the LDB has none.
    int rowOf(const QString& hexId) const { return m_rowOfLdb.value(hexId, kNoRow); }
    /// Empty where there is no such row.
    QString hexIdOf(int row) const;
    /// Every LDB that has a row.
    QStringList ldbs() const { return m_rowOfLdb.keys(); }
    /// Those of them whose record says that they are lost.
    QStringList lostLdbs() const;

signals:
    /// A text of the row has changed that may take more than one line.
    void heightDue(int row);

private:
    void addRow(const QString& hexId, const QList<QStringList>& record);
    void refreshRow(int row, const QList<QStringList>& record);
    bool fillCell(QStandardItem& cell, int recordRow, const QStringList& entry) const;

    void showLiveness(int row);
    void showAge(int row, const QString& age);
    void colourRow(int row);
    void colourCell(QStandardItem& cell, bool isLive) const;

    QPointer<const QWidget> m_view;
    const CellColourRules m_colourRules;
    QHash<QString, int> m_rowOfLdb;
    QHash<QString, std::optional<qint64>> m_times; ///< clock times of the records shown
    Monitoring m_monitoring;
};
