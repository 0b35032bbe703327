#include "recording/rowmaker.h"

#include "recording/minutecount.h"
#include "serial/ldb/busaddress.h"
#include "serial/ldb/exchangebytes.h"
#include "serial/ldb/ldbstatus.h"
#include "serial/ldb/microseconds.h"

namespace {

using microseconds::kMinute;

RecordedEvent toldEvent(qint64 at, EventKind kind, const QString& hexId, const QString& after)
{
    RecordedEvent event;
    event.at = at;
    event.kind = kind;
    event.hexId = hexId;
    event.after = after;
    return event;
}

RecordedEvent listEvent(qint64 at, const QStringList& hexIds)
{
    return toldEvent(at, EventKind::Listed, {}, hexIds.join(QLatin1Char(' ')));
}

} // namespace

qint64 timeOf(const RecorderInput& input)
{
    return std::visit(
        [](const auto& value) {
            if constexpr (std::is_same_v<std::decay_t<decltype(value)>, input::Told>) {
                return value.exchange.sentAt;
            } else {
                return value.at;
            }
        },
        input);
}

void RowMaker::take(const RecorderInput& input, FileRows& rows)
{
    std::visit([this, &rows](const auto& value) { put(value, rows); }, input);
    if (m_run) {
        m_run->until = qMax(m_run->until, timeOf(input));
    }
}

void RowMaker::put(const input::Told& told, FileRows& rows)
{
    const Exchange& exchange = told.exchange;
    filerow::Transmission row;
    row.at = exchange.sentAt;
    row.ldb = busaddress::fromHexId(exchange.hexId);
    row.kind = static_cast<int>(exchange.kind) | (exchange.isExtra ? filerow::kExtraFlag : 0);
    row.outcome = static_cast<int>(exchange.outcome) | told.frame << filerow::kFrameShift;
    row.flight = exchange.flight;
    if (exchange.request != exchangebytes::usualRequest(exchange.kind, exchange.hexId)) {
        row.request = exchange.request;
    }
    if (const auto packed = exchangebytes::packed(exchange.answer)) {
        row.kind |= filerow::kPackedFlag;
        row.answer = *packed;
    } else {
        row.answer = exchange.answer;
    }
    rows.emplace_back(std::move(row));
    count(exchange);
    if (exchange.kind == ExchangeKind::Status && exchange.outcome == ExchangeOutcome::Believed &&
        told.frame != input::Told::kNoRecord) {
        ++minuteOf(exchange.sentAt, exchange.hexId).told;
        m_finder.heard(
            exchange.sentAt, exchange.hexId,
            decodeLdbStatus(exchangebytes::answerBodies(exchange.answer).value(told.frame)).status);
        putFound(rows);
    }
}

void RowMaker::count(const Exchange& exchange)
{
    if (minutecount::counts(exchange, m_list.contains(exchange.hexId))) {
        minutecount::add(minuteOf(exchange.sentAt, exchange.hexId), exchange);
    }
}

RecordedMinute& RowMaker::minuteOf(qint64 at, const QString& hexId)
{
    const qint64 begin = at - at % kMinute;
    RecordedMinute& minute = m_minutes[{begin, hexId}];
    minute.at = begin;
    minute.hexId = hexId;
    return minute;
}

void RowMaker::put(const input::Round& round, FileRows& rows)
{
    rows.emplace_back(round);
    if (!round.isSingle) {
        m_round = round;
    }
}

void RowMaker::put(const input::LossTold& loss, FileRows& rows)
{
    filerow::Transmission row;
    row.at = loss.at;
    row.ldb = busaddress::fromHexId(loss.hexId);
    row.kind = filerow::kLossTold;
    rows.emplace_back(row);
    ++minuteOf(loss.at, loss.hexId).told;
    m_finder.lost(loss.at, loss.hexId);
    putFound(rows);
}

void RowMaker::put(const input::NameTold& name, FileRows& rows)
{
    RecordedEvent event = toldEvent(name.at, EventKind::Named, name.hexId, name.name);
    event.before = m_names.value(name.hexId);
    m_names.insert(name.hexId, name.name);
    put(event, rows);
}

void RowMaker::put(const input::ListTold& list, FileRows& rows)
{
    rows.emplace_back(listEvent(list.at, list.hexIds));
    m_list = list.hexIds;
}

void RowMaker::put(const input::ScanEnded& scan, FileRows& rows)
{
    if (m_run) {
        m_run->found = scan.found;
    }
    m_finder.scanEnded(scan.at, scan.found);
    putFound(rows);
}

void RowMaker::put(const input::RunBegun& run, FileRows& rows)
{
    m_finder.runBegun();
    m_run = RecordedRun();
    m_run->begun = run.at;
    m_run->port = run.port;
    m_run->names = m_names;
    m_isRunContinued = false;
    m_round.reset();
    RecordedEvent event;
    event.at = run.at;
    event.kind = EventKind::RunBegun;
    event.text = run.port;
    put(event, rows);
}

void RowMaker::put(const input::RunEnded& run, FileRows& rows)
{
    if (!m_run) {
        return;
    }
    m_run->until = qMax(m_run->until, run.at);
    m_run->isEnded = true;
    RecordedEvent event;
    event.at = run.at;
    event.kind = EventKind::RunEnded;
    event.since = m_run->begun;
    rows.emplace_back(filerow::Run{*m_run, m_isRunContinued});
    put(event, rows);
    m_run.reset();
    m_round.reset();
}

void RowMaker::put(const RecordedEvent& event, FileRows& rows)
{
    rows.emplace_back(event);
    if (event.isForPeople()) {
        m_events.push_back(event);
    }
}

void RowMaker::putFound(FileRows& rows)
{
    for (const RecordedEvent& event : m_finder.takeEvents()) {
        put(event, rows);
    }
}

FileRows RowMaker::beginFile(qint64 at)
{
    m_isRunContinued = m_run.has_value();
    FileRows rows;
    rows.emplace_back(filerow::FinderState{m_finder.toJson()});
    if (m_round) {
        filerow::Round round = *m_round;
        round.at = at - 1; // another round may begin at once
        round.isBreak = false;
        rows.emplace_back(round);
    }
    if (!m_list.isEmpty()) {
        rows.emplace_back(listEvent(at, m_list));
    }
    for (auto name = m_names.begin(); name != m_names.end(); ++name) {
        RecordedEvent event = toldEvent(at, EventKind::Named, name.key(), name.value());
        rows.emplace_back(event);
    }
    return rows;
}

FileRows RowMaker::sums() const
{
    FileRows rows;
    for (const auto& minute : m_minutes) {
        rows.emplace_back(minute.second);
    }
    if (m_run) {
        rows.emplace_back(filerow::Run{*m_run, m_isRunContinued});
    }
    if (m_keptRevision != m_finder.revision()) {
        rows.emplace_back(filerow::FinderState{m_finder.toJson()});
    }
    return rows;
}

void RowMaker::forgetSums()
{
    m_minutes.clear();
    m_keptRevision = m_finder.revision();
}
