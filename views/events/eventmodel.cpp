#include "views/events/eventmodel.h"

#include "serial/ldb/generalinformation.h"
#include "serial/ldb/microseconds.h"

#include <QDateTime>
#include <QPair>
#include <QThread>

#include <algorithm>
#include <iterator>
#include <utility>

using namespace events;

namespace {

QString timeText(qint64 at)
{
    return microseconds::localTime(at).toString(generalinformation::kSecondsFormat);
}

} // namespace

struct EventModel::Entry
{
    RecordedEvent event;
    QString text; ///< in the language in force when it was added
};

EventModel::EventModel(QObject* parent)
    : QAbstractTableModel(parent)
{
}

EventModel::~EventModel() = default;

/// The description, and in further lines the values.
QString EventModel::textOf(const RecordedEvent& event)
{
    QString text = event.description();
    if (event.hasValues()) {
        text += QLatin1Char('\n') + event.before + QLatin1Char('\n') + event.after;
    }
    return text;
}

bool EventModel::isShown(const Entry& entry) const
{
    return m_filter.accepts(entry.event, entry.event.hexId + QLatin1Char(' ') + entry.text);
}

void EventModel::note(const RecordedEvent& event)
{
    if (!event.hexId.isEmpty()) {
        ++m_ofLdb[event.hexId];
    }
    const QString id = eventkinds::lastingId(event);
    if (id.isEmpty()) {
        return;
    }
    if (!eventkinds::isBegin(event) && event.since != 0) {
        m_ends.insert({id, event.since}, event.at);
    }
    qint64& latest = m_latest[id];
    latest = qMax(latest, event.at);
}

void EventModel::add(std::vector<RecordedEvent> events)
{
    Q_ASSERT(QThread::currentThread() == thread());
    std::stable_sort(events.begin(), events.end(),
                     [](const auto& left, const auto& right) { return left.at < right.at; });
    const qint64 oldest = m_entries.empty() ? 0 : m_entries.front()->event.at;
    // History is read backwards in time: events older than all that are there are added in one go.
    Entries older;
    auto event = events.begin();
    for (; event != events.end() && (m_entries.empty() || event->at < oldest); ++event) {
        QString text = textOf(*event);
        older.push_back(std::make_unique<Entry>(Entry{std::move(*event), std::move(text)}));
    }
    bool isChanged = !older.empty();
    insertOldest(std::move(older));
    for (; event != events.end(); ++event) {
        isChanged = insert(std::move(*event)) || isChanged;
    }
    if (!isChanged) {
        return;
    }
    // The row in which something that has ended began may be any one.
    if (!m_shown.empty()) {
        emit dataChanged(index(0, DurationColumn), index(rowCount() - 1, DurationColumn),
                         {Qt::DisplayRole});
    }
    emit countChanged();
}

void EventModel::insertOldest(Entries entries)
{
    std::deque<const Entry*> shown;
    for (const auto& entry : entries) {
        note(entry->event);
        if (isShown(*entry)) {
            shown.push_back(entry.get());
        }
    }
    m_entries.insert(m_entries.begin(), std::make_move_iterator(entries.begin()),
                     std::make_move_iterator(entries.end()));
    if (!shown.empty()) {
        const int rows = rowCount();
        beginInsertRows({}, rows, rows + static_cast<int>(shown.size()) - 1);
        m_shown.insert(m_shown.begin(), shown.begin(), shown.end());
        endInsertRows();
    }
}

/// False where it is there already.
bool EventModel::insert(RecordedEvent event)
{
    const qint64 at = event.at;
    const auto isBefore = [at](const auto& entry) {
        return entry->event.at <= at;
    };
    const auto behind = std::partition_point(m_entries.begin(), m_entries.end(), isBefore);
    for (auto same = behind; same != m_entries.begin() && (*std::prev(same))->event.at == at;) {
        --same;
        if ((*same)->event == event) {
            return false;
        }
    }
    note(event);
    QString text = textOf(event);
    const auto entry =
        m_entries.insert(behind, std::make_unique<Entry>(Entry{std::move(event), std::move(text)}));
    if (isShown(**entry)) {
        const auto place = std::partition_point(m_shown.begin(), m_shown.end(), isBefore);
        const int row = static_cast<int>(std::distance(place, m_shown.end()));
        beginInsertRows({}, row, row);
        m_shown.insert(place, entry->get());
        endInsertRows();
    }
    return true;
}

void EventModel::clear()
{
    Q_ASSERT(QThread::currentThread() == thread());
    beginResetModel();
    m_shown.clear();
    m_entries.clear();
    m_ends.clear();
    m_latest.clear();
    m_ofLdb.clear();
    endResetModel();
    emit countChanged();
}

void EventModel::setFilter(const EventFilter& filter)
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (!(m_filter == filter)) {
        m_filter = filter;
        refilter();
    }
}

void EventModel::refilter()
{
    beginResetModel();
    m_shown.clear();
    for (const auto& entry : m_entries) {
        if (isShown(*entry)) {
            m_shown.push_back(entry.get());
        }
    }
    endResetModel();
    emit countChanged();
}

void EventModel::retranslate()
{
    for (const auto& entry : m_entries) {
        entry->text = textOf(entry->event);
    }
    refilter();
    emit headerDataChanged(Qt::Horizontal, 0, ColumnCount - 1);
}

QStringList EventModel::hexIds() const
{
    QStringList ids = m_ofLdb.keys();
    ids.sort();
    return ids;
}

/// Null for a row that there is not.
const EventModel::Entry* EventModel::entryAt(int row) const
{
    const int rows = rowCount();
    return row >= 0 && row < rows ? m_shown[static_cast<std::size_t>(rows - 1 - row)] : nullptr;
}

const RecordedEvent* EventModel::eventAt(int row) const
{
    const Entry* entry = entryAt(row);
    return entry != nullptr ? &entry->event : nullptr;
}

int EventModel::rowAt(qint64 at) const
{
    const auto behind = std::partition_point(
        m_shown.begin(), m_shown.end(), [at](const Entry* entry) { return entry->event.at <= at; });
    return behind == m_shown.begin() ? -1 : static_cast<int>(std::distance(behind, m_shown.end()));
}

int EventModel::rowOf(const RecordedEvent& event) const
{
    for (int row = rowAt(event.at); row >= 0 && row < rowCount(); ++row) {
        const RecordedEvent* shown = eventAt(row);
        if (shown->at != event.at) {
            break;
        }
        if (*shown == event) {
            return row;
        }
    }
    return -1;
}

int EventModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_shown.size());
}

int EventModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QString EventModel::durationOf(const RecordedEvent& event) const
{
    if (eventkinds::isBegin(event)) {
        const QString id = eventkinds::lastingId(event);
        const auto end = m_ends.constFind({id, event.at});
        if (end != m_ends.constEnd()) {
            return durationText(*end - event.at);
        }
        // Of a run whose program was killed nobody has told the end.
        const bool isOpen = m_latest.value(id) == event.at && event.kind != EventKind::RunBegun;
        return isOpen ? tr("not ended") : QString();
    }
    // Where something began or ended unheard, only a limit is known; the text says so.
    return event.since == 0 || event.isVague ? QString() : durationText(event.at - event.since);
}

QVariant EventModel::data(const QModelIndex& index, int role) const
{
    const RecordedEvent* event = eventAt(index.row());
    if (event == nullptr) {
        return {};
    }
    switch (role) {
    case EventRole:
        return QVariant::fromValue(*event);
    case Qt::DecorationRole:
        return index.column() == EventColumn ? QVariant(eventkinds::colourOf(*event)) : QVariant();
    case Qt::ToolTipRole:
        return event->hasValues() ? QVariant(entryAt(index.row())->text) : QVariant();
    case Qt::DisplayRole:
        break;
    default:
        return {};
    }
    switch (index.column()) {
    case TimeColumn:
        return timeText(event->at);
    case LdbColumn:
        return event->hexId;
    case DurationColumn:
        return durationOf(*event);
    case EventColumn:
        return entryAt(index.row())->text.section(QLatin1Char('\n'), 0, 0);
    default:
        return {};
    }
}

QVariant EventModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal) {
        return {};
    }
    if (role == Qt::TextAlignmentRole) {
        return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    switch (section) {
    case TimeColumn:
        return tr("Time");
    case LdbColumn:
        return tr("LDB");
    case DurationColumn:
        return tr("Duration");
    case EventColumn:
        return tr("Event");
    default:
        return {};
    }
}
