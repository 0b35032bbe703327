#include "recording/recordingsource.h"

#include "recording/filerows.h"
#include "serial/ldb/busaddress.h"
#include "serial/ldb/exchangebytes.h"
#include "serial/ldb/generalinformation.h"
#include "serial/ldb/ldbstatus.h"

#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSqlError>
#include <QUrl>
#include <QVariant>

#include <algorithm>

using recordingschema::Fit;

namespace {

constexpr qint64 kMinute = 60 * 1000000LL;
constexpr qint64 kMicrosecondsPerMillisecond = 1000;
constexpr int kLastLdb = 255;
/// So many rows back an LDB that is being polled has long been asked again.
constexpr int kRowsBack = 4000;
constexpr int kStatus = static_cast<int>(ExchangeKind::Status);

/// What a record has been made of.
const QString& recordCondition()
{
    static const QString condition =
        QStringLiteral("(kind=%1 OR ((kind & %2)=%3 AND outcome<%4 AND (outcome & %5)=%6))")
            .arg(filerow::kLossTold)
            .arg(filerow::kLossTold | filerow::kKindMask)
            .arg(kStatus)
            .arg(filerow::kNoFrame << filerow::kFrameShift)
            .arg(filerow::kOutcomeMask)
            .arg(static_cast<int>(ExchangeOutcome::Believed));
    return condition;
}

QString hexIdOf(const QVariant& value)
{
    const int address = value.toInt();
    return value.isNull() || address < 0 || address > kLastLdb ? QString()
                                                               : busaddress::toHexId(address);
}

} // namespace

struct RecordingSource::Row
{
    qint64 at = 0;
    QString hexId;
    int kind = 0;
    int outcome = 0;
    qint64 flight = -1;
    QByteArray request;
    QByteArray answer;
};

struct RecordingSource::Context
{
    QMap<qint64, Round> rounds;
    QHash<qint64, Round> singles;
    QHash<QString, QMap<qint64, QString>> names;
};

RecordingSource::RecordingSource(QString path)
    : m_path(std::move(path))
{
}

RecordingSource::~RecordingSource() = default;

bool RecordingSource::open()
{
    if (isOpen() || m_isUnreadable) {
        return isOpen();
    }
    if (!openAs(m_path, QStringLiteral("QSQLITE_OPEN_READONLY;QSQLITE_BUSY_TIMEOUT=1000")) &&
        !m_isUnreadable) {
        // Left open by a program that died, on a medium that cannot be written to.
        const QString name = QString::fromLatin1(QUrl::fromLocalFile(m_path).toEncoded());
        if (openAs(name + QStringLiteral("?immutable=1"),
                   QStringLiteral("QSQLITE_OPEN_READONLY;QSQLITE_OPEN_URI")) &&
            QFileInfo(m_path + QStringLiteral("-wal")).size() > 0) {
            say(RecordingNotice::Kind::LatestMissing);
        }
    }
    if (!isOpen() && !m_isUnreadable) {
        m_isUnreadable = true;
        say(RecordingNotice::Kind::CannotRead);
    }
    return isOpen();
}

/// False when it could not; a file of which nothing will ever be read is said and marked.
bool RecordingSource::openAs(const QString& name, const QString& options)
{
    auto connection = std::make_unique<recordingschema::Connection>();
    QSqlDatabase& database = connection->database();
    database.setDatabaseName(name);
    database.setConnectOptions(options);
    if (!database.open()) {
        return false;
    }
    QString reason;
    switch (recordingschema::examine(database, &reason)) {
    case Fit::Fits:
        m_connection = std::move(connection);
        return true;
    case Fit::Newer:
        m_isUnreadable = true;
        return say(RecordingNotice::Kind::NewerToRead);
    case Fit::Foreign:
        m_isUnreadable = true;
        return say(RecordingNotice::Kind::CannotRead);
    case Fit::Empty:      // being made just now
    case Fit::Unreadable: // as it seems, this way
    case Fit::NotNow:
        break;
    }
    return false;
}

void RecordingSource::close()
{
    m_connection.reset();
}

/// Always false.
bool RecordingSource::say(RecordingNotice::Kind kind, const QString& reason)
{
    m_notices.push_back({kind, m_path, reason});
    return false;
}

std::optional<QSqlQuery> RecordingSource::ask(const QString& statement, const QVariantList& values)
{
    if (!open()) {
        return std::nullopt;
    }
    QSqlQuery query(m_connection->database());
    query.setForwardOnly(true);
    bool isDone = query.prepare(statement);
    for (const QVariant& value : values) {
        query.addBindValue(value);
    }
    isDone = isDone && query.exec();
    if (!isDone) {
        sayDamaged(query.lastError().databaseText());
        return std::nullopt;
    }
    return query;
}

bool RecordingSource::next(QSqlQuery& query)
{
    if (query.next()) {
        return true;
    }
    if (query.lastError().isValid()) {
        sayDamaged(query.lastError().databaseText());
    }
    return false;
}

/// Once a file.
void RecordingSource::sayDamaged(const QString& reason)
{
    if (!std::exchange(m_isDamageTold, true)) {
        say(RecordingNotice::Kind::DamagedPart, reason);
    }
}

std::optional<TimeSpan> RecordingSource::rangeOf(const QString& statement)
{
    auto query = ask(statement, {});
    if (!query || !next(*query) || query->value(0).isNull() || query->value(1).isNull()) {
        return std::nullopt;
    }
    return TimeSpan{query->value(0).toLongLong(), query->value(1).toLongLong()};
}

std::optional<TimeSpan> RecordingSource::extent()
{
    std::optional<TimeSpan> extent;
    // Each end by itself: both in one go would read the whole table.
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

std::vector<RecordingSource::Row> RecordingSource::rows(const QString& condition,
                                                        const QVariantList& values,
                                                        bool isDescending, int limit)
{
    std::vector<Row> result;
    auto query = ask(
        QStringLiteral("SELECT at,ldb,kind,outcome,flight,request,answer FROM exchanges WHERE ") +
            condition +
            (isDescending ? QStringLiteral(" ORDER BY at DESC LIMIT %1")
                          : QStringLiteral(" ORDER BY at LIMIT %1"))
                .arg(limit),
        values);
    if (!query) {
        return result;
    }
    while (next(*query)) {
        Row row;
        row.at = query->value(0).toLongLong();
        const bool isInOrder = result.empty() || (isDescending ? row.at < result.back().at
                                                               : row.at > result.back().at);
        if (!isInOrder) {
            sayDamaged(); // so that it might never end
            break;
        }
        row.hexId = hexIdOf(query->value(1));
        row.kind = query->value(2).toInt();
        row.outcome = query->value(3).toInt();
        row.flight = query->value(4).isNull() ? -1 : query->value(4).toLongLong();
        row.request = query->value(5).toByteArray();
        row.answer = query->value(6).toByteArray();
        if ((row.kind & filerow::kPackedFlag) != 0) {
            row.answer = exchangebytes::unpacked(row.answer);
        }
        if (row.hexId.isEmpty()) {
            sayDamaged();
        } else {
            result.push_back(std::move(row));
        }
    }
    return result;
}

RecordingSource::Context RecordingSource::contextOf(TimeSpan span)
{
    Context context;
    if (auto query =
            ask(QStringLiteral("SELECT at,wall,offset,single FROM rounds WHERE at<? AND at>="
                               "ifnull((SELECT max(at) FROM rounds WHERE at<=? AND"
                               " (single & 1)=0),?)"),
                {span.to, span.from, span.from})) {
        while (next(*query)) {
            const Round round{query->value(1).toLongLong(), query->value(2).toInt()};
            const qint64 at = query->value(0).toLongLong();
            if ((query->value(3).toInt() & filerow::kSingleFlag) != 0) {
                context.singles.insert(at, round);
            } else {
                context.rounds.insert(at, round);
            }
        }
        if (query->lastError().isValid()) {
            // One that is missing would give its records the time of another.
            context.rounds.clear();
            context.singles.clear();
        }
    }
    const auto named = readEvents(QStringLiteral("kind=? AND at<?"),
                                  {static_cast<int>(EventKind::Named), span.to});
    for (const RecordedEvent& event : named) {
        context.names[event.hexId].insert(event.at, event.after);
    }
    return context;
}

/// Nothing when the answer is not what it was: no value is better than a wrong one.
std::optional<RecordedRecord> RecordingSource::recordOf(const Row& row, const Context& context)
{
    LdbStatus status = LdbStatus::disconnected();
    if (row.kind != filerow::kLossTold) {
        const LdbStatusDecoding decoding =
            decodeLdbStatus(exchangebytes::answerBodies(row.answer)
                                .value(qMax(row.outcome, 0) >> filerow::kFrameShift));
        if (!decoding.valid) {
            sayDamaged();
            return std::nullopt;
        }
        status = decoding.status;
    }
    // The entry in force at a moment.
    const auto inForce = [at = row.at](const auto& map) {
        auto next = map.upperBound(at);
        return next == map.begin() ? map.end() : --next;
    };
    const qint64 asked = row.at / kMicrosecondsPerMillisecond;
    Round round{asked, QDateTime::fromMSecsSinceEpoch(asked).offsetFromUtc()};
    const auto single = context.singles.constFind(row.at);
    if (single != context.singles.constEnd()) {
        round = *single;
    } else if (const auto found = inForce(context.rounds); found != context.rounds.end()) {
        round = *found;
    }
    const QMap<qint64, QString> names = context.names.value(row.hexId);
    const auto name = inForce(names);
    const QDateTime wall =
        QDateTime::fromMSecsSinceEpoch(round.wall, Qt::OffsetFromUTC, round.offset);
    RecordedRecord record;
    record.at = row.at;
    record.hexId = row.hexId;
    record.isExtra = (row.kind & filerow::kExtraFlag) != 0;
    record.rows =
        generalinformation::buildRows(row.hexId, name == names.end() ? QString() : *name, status,
                                      wall.toString(generalinformation::kSecondsFormat),
                                      wall.toString(generalinformation::kMillisecondsFormat));
    return record;
}

/// A minute from which on there are that many records before `to`: going forward from there, the
/// disk is read ahead.
qint64 RecordingSource::beginOfLast(const QString& hexId, qint64 to, int count)
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

std::vector<RecordedRecord> RecordingSource::records(const QString& hexId, TimeSpan span, int limit)
{
    if (limit >= 0) {
        span.from = qMax(span.from, beginOfLast(hexId, span.to, limit));
    }
    QString condition = QStringLiteral("at>=? AND at<? AND ") + recordCondition();
    QVariantList values{span.from, span.to};
    if (!hexId.isEmpty()) {
        condition += QStringLiteral(" AND ldb=?");
        values.append(busaddress::fromHexId(hexId));
    }
    std::vector<Row> found = rows(condition, values, false, -1);
    std::vector<RecordedRecord> result;
    if (limit >= 0 && found.size() > static_cast<std::size_t>(limit)) {
        found.erase(found.begin(), found.end() - limit);
    }
    if (found.empty()) {
        return result;
    }
    const Context context = contextOf({found.front().at, found.back().at + 1});
    result.reserve(found.size());
    for (const Row& row : found) {
        if (auto record = recordOf(row, context)) {
            result.push_back(std::move(*record));
        }
    }
    return result;
}

std::vector<Exchange> RecordingSource::exchanges(const QString& hexId, TimeSpan span, int limit)
{
    QString condition = QStringLiteral("at>=? AND at<? AND kind<>?");
    QVariantList values{span.from, span.to, filerow::kLossTold};
    if (!hexId.isEmpty()) {
        condition += QStringLiteral(" AND ldb=?");
        values.append(busaddress::fromHexId(hexId));
    }
    const bool isLimited = limit >= 0;
    std::vector<Exchange> result;
    for (Row& row : rows(condition, values, isLimited, limit)) {
        const int kind = row.kind & filerow::kKindMask;
        const int outcome = row.outcome & filerow::kOutcomeMask;
        if (kind > static_cast<int>(ExchangeKind::Broadcast) ||
            outcome > static_cast<int>(ExchangeOutcome::Late)) {
            continue; // damaged
        }
        Exchange exchange;
        exchange.sentAt = row.at;
        exchange.hexId = row.hexId;
        exchange.kind = static_cast<ExchangeKind>(kind);
        exchange.outcome = static_cast<ExchangeOutcome>(outcome);
        exchange.flight = row.flight;
        exchange.isExtra = (row.kind & filerow::kExtraFlag) != 0;
        exchange.request = row.request.isEmpty()
                               ? exchangebytes::usualRequest(exchange.kind, row.hexId)
                               : row.request;
        exchange.answer = row.answer;
        result.push_back(std::move(exchange));
    }
    if (isLimited) {
        std::reverse(result.begin(), result.end());
    }
    return result;
}

std::vector<RecordedMinute> RecordingSource::minutes(const QString& hexId, TimeSpan span, int each)
{
    std::vector<RecordedMinute> result;
    // Summed up there, where it is fast. The flight times of a minute without a good answer are 0.
    QString statement =
        QStringLiteral("SELECT minute-(minute-%1) % %2 AS begin,ldb,sum(asked),sum(good),"
                       "sum(damaged),sum(silent),sum(told),"
                       "ifnull(min(CASE WHEN good>0 THEN least END),0),sum(sum),max(most)"
                       " FROM minutes WHERE minute>=? AND minute<=?")
            .arg(span.from / kMinute)
            .arg(each);
    // A minute that has begun before the span is a part of it.
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

std::vector<RecordedEvent> RecordingSource::readEvents(const QString& condition,
                                                       const QVariantList& values)
{
    std::vector<RecordedEvent> result;
    auto query = ask(QStringLiteral("SELECT at,kind,ldb,place,since,count,still,before,after,text"
                                    " FROM events WHERE ") +
                         condition + QStringLiteral(" ORDER BY at, id"),
                     values);
    while (query && next(*query)) {
        RecordedEvent event;
        event.at = query->value(0).toLongLong();
        event.kind = static_cast<EventKind>(query->value(1).toInt());
        event.hexId = hexIdOf(query->value(2));
        event.place = static_cast<FaultPlace>(query->value(3).toInt());
        event.since = query->value(4).toLongLong();
        event.count = query->value(5).toInt();
        event.isStill = query->value(6).toInt() != 0;
        event.before = query->value(7).toString();
        event.after = query->value(8).toString();
        event.text = query->value(9).toString();
        result.push_back(std::move(event));
    }
    return result;
}

std::vector<RecordedEvent> RecordingSource::events(TimeSpan span)
{
    std::vector<RecordedEvent> result =
        readEvents(QStringLiteral("at>=? AND at<?"), {span.from, span.to});
    result.erase(std::remove_if(result.begin(), result.end(),
                                [](const RecordedEvent& event) { return !event.isForPeople(); }),
                 result.end());
    return result;
}

std::vector<RecordedRun> RecordingSource::runs()
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

std::vector<RecordedRound> RecordingSource::rounds(TimeSpan span, int limit)
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

std::vector<RecordedList> RecordingSource::readLists(const QString& condition,
                                                     const QVariantList& values)
{
    std::vector<RecordedList> result;
    auto query = ask(QStringLiteral("SELECT at,after FROM events WHERE kind=%1 AND ")
                             .arg(static_cast<int>(EventKind::Listed)) +
                         condition,
                     values);
    while (query && next(*query)) {
        result.push_back(
            {query->value(0).toLongLong(),
             query->value(1).toString().split(QLatin1Char(' '), Qt::SkipEmptyParts)});
    }
    return result;
}

std::vector<RecordedList> RecordingSource::lists(TimeSpan span)
{
    return readLists(QStringLiteral("at>=? AND at<? ORDER BY at, id"), {span.from, span.to});
}

std::optional<RecordedList> RecordingSource::listAt(qint64 at)
{
    std::vector<RecordedList> last =
        readLists(QStringLiteral("at<=? ORDER BY at DESC, id DESC LIMIT 1"), {at});
    return last.empty() ? std::nullopt : std::make_optional(std::move(last.front()));
}

std::vector<RecordedGap> RecordingSource::gaps(TimeSpan span)
{
    std::vector<RecordedGap> result;
    const auto told = readEvents(QStringLiteral("kind=? AND since<? AND at>=?"),
                                 {static_cast<int>(EventKind::Gap), span.to, span.from});
    for (const RecordedEvent& event : told) {
        result.push_back({event.since, event.at, event.count});
    }
    return result;
}

std::optional<RecordingSource::Row> RecordingSource::lastOf(const QString& hexId, qint64 at)
{
    // The minutes say where to look: an LDB may not have been asked for hours.
    qint64 minute = at / kMinute;
    constexpr int kLooks = 3; // in the last minute its record may be later than `at`
    for (int look = 0; look < kLooks; ++look) {
        auto query = ask(QStringLiteral("SELECT max(minute) FROM minutes WHERE minute<=? AND ldb=?"
                                        " AND told>0"),
                         {minute, busaddress::fromHexId(hexId)});
        if (!query || !next(*query) || query->value(0).isNull()) {
            return std::nullopt;
        }
        minute = query->value(0).toLongLong();
        const auto found = rows(
            QStringLiteral("at>=? AND at<? AND at<=? AND ldb=? AND ") + recordCondition(),
            {minute * kMinute, (minute + 1) * kMinute, at, busaddress::fromHexId(hexId)}, true, 1);
        if (!found.empty()) {
            return found.front();
        }
        --minute;
    }
    return std::nullopt;
}

std::vector<RecordedRecord> RecordingSource::latest(qint64 at, const QSet<QString>& hexIds)
{
    QHash<QString, Row> found;
    const auto recent = rows(QStringLiteral("at<=? AND at>=ifnull((SELECT min(at) FROM (SELECT at"
                                            " FROM exchanges WHERE at<=? ORDER BY at DESC LIMIT"
                                            " %1)),0) AND ")
                                     .arg(kRowsBack) +
                                 recordCondition(),
                             {at, at}, true, -1);
    for (const Row& row : recent) {
        if (!found.contains(row.hexId) && (hexIds.isEmpty() || hexIds.contains(row.hexId))) {
            found.insert(row.hexId, row);
        }
    }
    for (const QString& hexId : hexIds) {
        if (!found.contains(hexId)) {
            if (const auto row = lastOf(hexId, at)) {
                found.insert(hexId, *row);
            }
        }
    }
    std::vector<RecordedRecord> result;
    qint64 first = at;
    for (const Row& row : qAsConst(found)) {
        first = qMin(first, row.at);
    }
    const Context context = contextOf({first, at + 1});
    for (const Row& row : qAsConst(found)) {
        if (auto record = recordOf(row, context)) {
            result.push_back(std::move(*record));
        }
    }
    return result;
}

std::optional<qint64> RecordingSource::neighbour(qint64 at, bool isAfter, const QString& hexId)
{
    QString condition =
        (isAfter ? QStringLiteral("at>? AND ") : QStringLiteral("at<? AND ")) + recordCondition();
    QVariantList values{at};
    if (!hexId.isEmpty()) {
        condition += QStringLiteral(" AND ldb=?");
        values.append(busaddress::fromHexId(hexId));
    }
    const auto found = rows(condition, values, !isAfter, 1);
    return found.empty() ? std::nullopt : std::make_optional(found.front().at);
}

QString RecordingSource::copyTo(const QString& path)
{
    if (!open()) {
        return m_path;
    }
    QSqlQuery query(m_connection->database());
    query.prepare(QStringLiteral("VACUUM INTO ?"));
    query.addBindValue(path);
    return query.exec() ? QString() : query.lastError().databaseText();
}
