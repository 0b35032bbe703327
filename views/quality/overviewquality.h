#pragma once

#include "views/quality/linequality.h"
#include "views/quality/livequality.h"

#include <QAbstractItemDelegate>
#include <QHash>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <optional>
#include <vector>

class QTableView;

class RecordingAccess;

/// Draws below each ID of the overview a low strip of small bars: how the LDB's exchanges of the
/// last 15 minutes went, one bar a minute. Everything else of these cells is drawn by the delegate
/// that the view had before. Whether there are strips is remembered per user. GUI thread.
class OverviewQuality : public QAbstractItemDelegate
{
    Q_OBJECT
public:
    /// `view` has its model and delegate already, and may die first; the others outlive this
    /// object. `moment` gives the present: UTC, µs since 1970.
    OverviewQuality(QTableView* view, const LiveQuality* live, RecordingAccess* access,
                    std::function<qint64()> moment, QObject* parent = nullptr);

    bool areShown() const { return m_areShown; }
    /// The moment that is shown instead of the present. May come many times a second.
    void setShown(std::optional<qint64> at);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

public slots:
    void setBarsShown(bool areShown);

private:
    void refresh();
    void take(qint64 end, const std::vector<RecordedMinute>& minutes);

    QPointer<QTableView> m_view;
    QPointer<QAbstractItemDelegate> m_former;
    const LiveQuality* m_live;
    RecordingAccess* m_access;
    std::function<qint64()> m_moment;
    std::optional<qint64> m_shown;
    std::optional<qint64> m_asked; ///< the moment that is being read
    bool m_areShown = true;
    QHash<QString, std::vector<QualityBar>> m_bars; ///< by LDB
    QTimer m_refresh;
};
