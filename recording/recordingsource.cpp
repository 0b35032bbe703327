#include "recording/recordingsource.h"

#include "recording/filerows.h"
#include "serial/ldb/busaddress.h"
#include "serial/ldb/exchangebytes.h"
#include "serial/ldb/generalinformation.h"
#include "serial/ldb/ldbstatus.h"
#include "serial/ldb/microseconds.h"

#include <QDateTime>
#include <QHash>
#include <QMap>
#include <QSqlError>
#include <QVariant>

#include <algorithm>

namespace {

constexpr qint64 kMinute = recordingschema::kMinute;
using microseconds::kMillisecond;
/// Within this many rows each LDB that is polled has been asked again.
constexpr int kRowsBack = 4000;
constexpr int kStatus = static_cast<int>(ExchangeKind::Status);

/// What a record is made of.
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
            // A missing round would give its records the time of another one.
            context.rounds.clear();
            context.singles.clear();
        }
    }
    for (const RecordedEvent& event : namings(span.to)) {
        context.names[event.hexId].insert(event.at, event.after);
    }
    return context;
}

/// Nothing where the answer has been damaged in the file: no value is better than a wrong one.
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
    const qint64 asked = row.at / kMillisecond;
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

std::vector<Exchange> RecordingSource::exchanges(const QString& hexId, TimeSpan span, int limit,
                                                 std::optional<ExchangeKind> only)
{
    QString condition = QStringLiteral("at>=? AND at<? AND kind<>?");
    QVariantList values{span.from, span.to, filerow::kLossTold};
    if (!hexId.isEmpty()) {
        condition += QStringLiteral(" AND ldb=?");
        values.append(busaddress::fromHexId(hexId));
    }
    if (only) {
        condition += QStringLiteral(" AND (kind & ?)=?");
        values.append(filerow::kKindMask);
        values.append(static_cast<int>(*only));
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

std::vector<RecordedQuestion> RecordingSource::questions(TimeSpan span)
{
    std::vector<RecordedQuestion> result;
    auto query = ask(QStringLiteral("SELECT at,ldb,kind & %1,(outcome & %2)=%3,kind=%4"
                                    " FROM exchanges WHERE at>=? AND at<? ORDER BY at")
                         .arg(filerow::kKindMask)
                         .arg(filerow::kOutcomeMask)
                         .arg(static_cast<int>(ExchangeOutcome::Silent))
                         .arg(filerow::kLossTold),
                     {span.from, span.to});
    while (query && next(*query)) {
        result.push_back({query->value(0).toLongLong(), hexIdOf(query->value(1)),
                          query->value(2).toInt(), query->value(3).toBool(),
                          query->value(4).toBool()});
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
