#pragma once

#include <QObject>
#include <QPointer>
#include <QSet>
#include <QTimer>

class OverviewFilter;
class QTableView;

/// The rows of the overview in its view: as high as their texts, which may take more than one line,
/// and the ticked one in sight. It stays there when rows come, go or change places under the user,
/// who may scroll away from it, and is brought there when the user filters or sorts. GUI thread.
///
/// Measuring takes long: it is done from the event loop, a few rows a turn, those in sight first.
class OverviewRows : public QObject
{
    Q_OBJECT
public:
    /// `view` shows `rows`, belongs to the caller and may die first.
    OverviewRows(QTableView* view, OverviewFilter* rows, QObject* parent);

    /// A row of the source model has other texts.
    void fit(int sourceRow);
    /// All of them, or the widths of their cells, have changed.
    void fitAll();
    /// Brings the ticked row into sight.
    void showTicked();

private:
    void work();
    void fitSome();
    void fitRow(int row);
    bool isTickedInSight() const;
    void beginChange();
    void endChange();

    QPointer<QTableView> m_view;
    OverviewFilter* m_rows;
    QSet<int> m_unfit; ///< source rows to be measured; one that is hidden waits until it is shown
    bool m_isScrollDue = false;
    QTimer m_work;
    QTimer m_resized; ///< runs while the user drags a column's border
};
