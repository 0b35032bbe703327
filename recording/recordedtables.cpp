#include "recording/recordedtables.h"

#include "recording/filerows.h"
#include "serial/ldb/busaddress.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QVariant>

#include <algorithm>

namespace {

constexpr qint64 kMinute = recordingschema::kMinute;

} // namespace

std::optional<TimeSpan> RecordedTables::rangeOf(const QString& statement)
{
    auto query = ask(statement, {});
    if (!query || !next(*query) || query->value(0).isNull() || query->value(1).isNull()) {
        return std::nullopt;
    }
    return TimeSpan{query->value(0).toLongLong(), query->value(1).toLongLong()};
}

std::optional<TimeSpan> RecordedTables::extent()
{
    std::optional<TimeSpan> extent;
    // One query for each end: a single one for both would read the whole table.
    for (const char* statement :
         {"SELECT (SELECT min(at) FROM exchanges), (SELECT max(at) FROM exchanges)",
          "SELECT min(at), max(at) FROM events", "SELECT min(begun), max(until) FROM runs"}) {
        const auto range = rangeOf(QLatin1String(statement));
        if (range && range->from <= range->to) {
            extent = extent ? TimeSpan{qMin(extent->from, range->from), qMax(extent->to, range->to)}
                            : *range;
        }
    }
    return extent;
}

std::vector<RecordedMinute> RecordedTables::minutes(const QString& hexId, TimeSpan span, int each)
{
    std::vector<RecordedMinute> result;
    // SQLite sums up fast. A minute without a good answer has flight times of 0.
    QString statement =
        QStringLiteral("SELECT minute-(minute-%1) % %2 AS begin,ldb,sum(asked),sum(good),"
                       "sum(damaged),sum(silent),sum(told),"
                       "ifnull(min(CASE WHEN good>0 THEN least END),0),sum(sum),max(most)"
                       " FROM minutes WHERE minute>=? AND minute<=?")
            .arg(span.from / kMinute)
            .arg(each);
    // A minute that began before the span belongs to it.
    QVariantList values{span.from / kMinute, (span.to - 1) / kMinute};
    if (!hexId.isEmpty()) {
        statement += QStringLiteral(" AND ldb=?");
        values.append(busaddress::fromHexId(hexId));
    }
    statement += QStringLiteral(" GROUP BY begin,ldb ORDER BY begin,ldb");
    auto query = ask(statement, values);
    while (query && next(*query)) {
        RecordedMinute minute;
        minute.at = query->value(0).toLongLong() * kMinute;
        minute.hexId = hexIdOf(query->value(1));
        minute.asked = query->value(2).toInt();
        minute.good = query->value(3).toInt();
        minute.damaged = query->value(4).toInt();
        minute.silent = query->value(5).toInt();
        minute.told = query->value(6).toInt();
        minute.leastFlight = query->value(7).toLongLong();
        minute.sumOfFlights = query->value(8).toLongLong();
        minute.mostFlight = query->value(9).toLongLong();
        if (!minute.hexId.isEmpty()) {
            result.push_back(std::move(minute));
        }
    }
    return result;
}

std::vector<RecordedEvent> RecordedTables::readEvents(const QString& condition,
                                                      const QVariantList& values, int limit)
{
    std::vector<RecordedEvent> result;
    auto query = ask(QStringLiteral("SELECT at,kind,ldb,place,since,count,still,before,after,text"
                                    " FROM events WHERE %1 ORDER BY at DESC, id DESC LIMIT %2")
                         .arg(condition)
                         .arg(limit),
                     values);
    while (query && next(*query)) {
        RecordedEvent event;
        event.at = query->value(0).toLongLong();
        event.kind = static_cast<EventKind>(query->value(1).toInt());
        event.hexId = hexIdOf(query->value(2));
        event.place = static_cast<FaultPlace>(query->value(3).toInt());
        event.since = query->value(4).toLongLong();
        event.count = query->value(5).toInt();
        event.isStill = (query->value(6).toInt() & filerow::kStillFlag) != 0;
        event.isVague = (query->value(6).toInt() & filerow::kVagueFlag) != 0;
        event.before = query->value(7).toString();
        event.after = query->value(8).toString();
        event.text = query->value(9).toString();
        result.push_back(std::move(event));
    }
    std::reverse(result.begin(), result.end());
    return result;
}

std::vector<RecordedEvent> RecordedTables::events(TimeSpan span, int limit)
{
    // Events that are not for people would use up the limit.
    std::vector<RecordedEvent> result =
        readEvents(QStringLiteral("at>=? AND at<? AND kind<? AND NOT (kind=? AND before IS NULL)"),
                   {span.from, span.to, static_cast<int>(EventKind::Listed),
                    static_cast<int>(EventKind::Named)},
                   limit);
    result.erase(std::remove_if(result.begin(), result.end(),
                                [](const RecordedEvent& event) { return !event.isForPeople(); }),
                 result.end());
    return result;
}

std::vector<RecordedEvent> RecordedTables::eventsOf(EventKind kind, TimeSpan span, int limit)
{
    return readEvents(QStringLiteral("kind=? AND at>=? AND at<?"),
                      {static_cast<int>(kind), span.from, span.to}, limit);
}

std::vector<RecordedEvent> RecordedTables::namings(qint64 to)
{
    return readEvents(QStringLiteral("kind=? AND at<?"), {static_cast<int>(EventKind::Named), to});
}

std::vector<RecordedRun> RecordedTables::runs()
{
    std::vector<RecordedRun> result;
    auto query = ask(QStringLiteral("SELECT begun,until,ended,port,found,names FROM runs"), {});
    while (query && next(*query)) {
        RecordedRun run;
        run.begun = query->value(0).toLongLong();
        run.until = query->value(1).toLongLong();
        run.isEnded = query->value(2).toInt() != 0;
        run.port = query->value(3).toString();
        run.found = query->value(4).toString().split(QLatin1Char(' '), Qt::SkipEmptyParts);
        const QJsonObject names =
            QJsonDocument::fromJson(query->value(5).toString().toUtf8()).object();
        for (auto name = names.begin(); name != names.end(); ++name) {
            run.names.insert(name.key(), name.value().toString());
        }
        result.push_back(std::move(run));
    }
    return result;
}

std::vector<RecordedRound> RecordedTables::rounds(TimeSpan span, int limit)
{
    std::vector<RecordedRound> result;
    auto query = ask(QStringLiteral("SELECT at,wall,offset,single FROM rounds WHERE (single & %1)=0"
                                    " AND at>=? AND at<? ORDER BY at DESC LIMIT %2")
                         .arg(filerow::kSingleFlag)
                         .arg(limit),
                     {span.from, span.to});
    while (query && next(*query)) {
        result.push_back({query->value(0).toLongLong(), query->value(1).toLongLong(),
                          query->value(2).toInt(),
                          (query->value(3).toInt() & filerow::kBreakFlag) != 0});
    }
    std::reverse(result.begin(), result.end());
    return result;
}

std::vector<RecordedList> RecordedTables::readLists(const QString& condition,
                                                    const QVariantList& values)
{
    std::vector<RecordedList> result;
    auto query = ask(QStringLiteral("SELECT at,after FROM events WHERE kind=%1 AND ")
                             .arg(static_cast<int>(EventKind::Listed)) +
                         condition,
                     values);
    while (query && next(*query)) {
        result.push_back({query->value(0).toLongLong(),
                          query->value(1).toString().split(QLatin1Char(' '), Qt::SkipEmptyParts)});
    }
    return result;
}

std::vector<RecordedList> RecordedTables::lists(TimeSpan span)
{
    return readLists(QStringLiteral("at>=? AND at<? ORDER BY at, id"), {span.from, span.to});
}

std::optional<RecordedList> RecordedTables::listAt(qint64 at)
{
    std::vector<RecordedList> last =
        readLists(QStringLiteral("at<=? ORDER BY at DESC, id DESC LIMIT 1"), {at});
    return last.empty() ? std::nullopt : std::make_optional(std::move(last.front()));
}

std::vector<RecordedGap> RecordedTables::gaps(TimeSpan span)
{
    std::vector<RecordedGap> result;
    const auto told = readEvents(QStringLiteral("kind=? AND since<? AND at>=?"),
                                 {static_cast<int>(EventKind::Gap), span.to, span.from});
    result.reserve(told.size());
    for (const RecordedEvent& event : told) {
        result.push_back({event.since, event.at, event.count});
    }
    return result;
}

/// Reading forwards from there lets the disk read ahead.
qint64 RecordedTables::beginOfLast(const QString& hexId, qint64 to, int count)
{
    QString statement = QStringLiteral("SELECT minute,told FROM minutes WHERE minute<?");
    QVariantList values{to / kMinute};
    if (!hexId.isEmpty()) {
        statement += QStringLiteral(" AND ldb=?");
        values.append(busaddress::fromHexId(hexId));
    }
    auto query = ask(statement + QStringLiteral(" ORDER BY minute DESC"), values);
    qint64 told = 0;
    while (query && told < count && next(*query)) {
        told += query->value(1).toInt();
        if (told >= count) {
            return query->value(0).toLongLong() * kMinute;
        }
    }
    return 0;
}
