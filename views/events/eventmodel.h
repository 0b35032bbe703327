#pragma once

#include "views/events/eventfilter.h"

#include <QAbstractTableModel>
#include <QHash>

#include <deque>
#include <memory>
#include <vector>

namespace events {

enum Column
{
    TimeColumn,
    LdbColumn,
    DurationColumn,
    EventColumn,
    ColumnCount
};

enum Role
{
    EventRole = Qt::UserRole ///< a `RecordedEvent`
};

} // namespace events

/// Events, newest first; rows are those that the filter accepts. Events may be added in any order,
/// and more than once. GUI thread.
class EventModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    explicit EventModel(QObject* parent = nullptr);
    ~EventModel() override;

    void add(std::vector<RecordedEvent> events);
    void clear();

    const EventFilter& filter() const { return m_filter; }
    void setFilter(const EventFilter& filter);

    /// Shown or not.
    int count() const { return static_cast<int>(m_entries.size()); }
    /// Of all, shown or not; sorted.
    QStringList hexIds() const;
    /// Null for a row that there is not.
    const RecordedEvent* eventAt(int row) const;
    /// The row of that event, or -1 where it is not shown.
    int rowOf(const RecordedEvent& event) const;
    /// The first row whose event was at or before a moment, so the latest such event; -1 where
    /// there is none.
    int rowAt(qint64 at) const;

    /// In the language in force.
    void retranslate();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

signals:
    /// `count()` or `hexIds()` may have changed.
    void countChanged();

private:
    struct Entry;
    using Entries = std::deque<std::unique_ptr<Entry>>;

    static QString textOf(const RecordedEvent& event);
    QString durationOf(const RecordedEvent& event) const;
    const Entry* entryAt(int row) const;
    bool insert(RecordedEvent event);
    void insertOldest(Entries entries);
    void note(const RecordedEvent& event);
    void refilter();
    bool isShown(const Entry& entry) const;

    EventFilter m_filter;
    Entries m_entries;                ///< oldest first
    std::deque<const Entry*> m_shown; ///< of these, in the same order
    /// When something ended, by its `lastingId` and the moment at which it began.
    QHash<QPair<QString, qint64>, qint64> m_ends;
    /// The latest moment of each `lastingId`.
    QHash<QString, qint64> m_latest;
    QHash<QString, int> m_ofLdb; ///< how many events events
};
