#pragma once

#include <QObject>
#include <QPointer>
#include <QVector>

#include <functional>

class HierarchicalHeaderView;
class QResizeEvent;
class QTableView;

/// The columns of the overview: which are shown, and how wide. While the user has not moved them
/// they share the table's width so that in each the widest word of the language in force fits,
/// which makes every text readable, in more than one line where need be. GUI thread.
class OverviewLayout : public QObject
{
    Q_OBJECT
public:
    /// `view` has its model and `header`, belongs to the caller and may die first.
    OverviewLayout(QTableView* view, HierarchicalHeaderView* header, QObject* parent);

    /// Stores the layout in the per-user settings. Does nothing before `load()`: what stands there
    /// until then is not the user's layout, which has yet to be restored.
    void save() const;
    /// Restores the layout, where one is stored; to be called with the first row.
    void load();
    bool isLoaded() const { return m_isLoaded; }

    /// Takes the words of the language in force.
    void retranslate();

    /// Between the pieces of a text that may stand in lines of their own.
    static QString breakable(QString text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void hideServiceColumns();
    QVector<int> leastWidthsIn(int width) const;
    void fillWidth();
    void followWidth(const QResizeEvent& resize);
    void shareWidth(int width, const std::function<int(int column)>& shareOf,
                    const std::function<int(int column)>& leastOf);

    QPointer<QTableView> m_view;
    HierarchicalHeaderView* m_header;
    QPointer<QWidget> m_viewport;
    QVector<int> m_leastWidths; ///< by column: of the widest word
    bool m_isLoaded = false;
};
