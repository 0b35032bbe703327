#pragma once

#include <QSortFilterProxyModel>

/// Sorts the table of settings by value, and shows the LDBs that are searched for. GUI thread.
class TableFilter : public QSortFilterProxyModel
{
    Q_OBJECT
public:
    enum class Show
    {
        All,
        Differing, ///< from what the table is compared with
        Edited     ///< and those of which not everything was written
    };

    explicit TableFilter(QObject* parent = nullptr);

    void setShow(Show show);
    /// An id, or a part of a name or firmware id; empty shows all.
    void setSearch(const QString& text);

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

private:
    bool hasCell(int row, int role) const;

    Show m_show = Show::All;
    QString m_search;
};
