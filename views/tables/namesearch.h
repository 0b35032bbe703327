#pragma once

#include <QObject>
#include <QTimer>

class OverviewFilter;
class QKeyEvent;
class QTableView;

/// Type-ahead in the overview: letters that are typed on the table make the next row current whose
/// LDB's name begins with them, in any case and without its blanks. It ticks nothing; Space and
/// Enter stay what they are. GUI thread.
class NameSearch : public QObject
{
    Q_OBJECT
public:
    /// `view`, which shows `rows`, owns this object.
    NameSearch(QTableView* view, OverviewFilter* rows);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool take(const QKeyEvent& key);
    void find(bool isBegin);

    QTableView* m_view;
    OverviewFilter* m_rows;
    QString m_typed;
    QTimer m_pause; ///< what is typed after it begins a new name
};
