#include "recording/recordcollector.h"

#include "serial/ldb/exchangebytes.h"
#include "serial/ldb/generalinformation.h"
#include "serial/ldb/ldbstatus.h"
#include "serial/ldb/microseconds.h"

#include <utility>

using namespace generalinformation;

namespace {

using microseconds::kMillisecond;
/// A clock that strays by more than this from one round to the next has been set.
constexpr qint64 kClockSet = 2 * microseconds::kSecond;
/// A clock strays by so small a part of what is measured in a round.
constexpr qint64 kSlowly = 64;

/// Which frame of the answer became the record; the last one where none fits.
int frameOf(const Exchange& exchange, const QList<QStringList>& rows)
{
    const QList<QByteArray> bodies = exchangebytes::answerBodies(exchange.answer);
    const int count = qMin(static_cast<int>(bodies.size()), input::Told::kNoRecord);
    for (int frame = 0; frame < count; ++frame) {
        const QList<QStringList> made =
            buildRows(exchange.hexId, ownName(rows), decodeLdbStatus(bodies.at(frame)).status,
                      text(rows, TimestampRow), field(rows, TimestampRow, MillisecondsColumn));
        if (made == rows) {
            return frame;
        }
    }
    return qMax(0, count - 1);
}

} // namespace

RecordCollector::RecordCollector(std::function<qint64()> now)
    : m_now(std::move(now))
{
}

qint64 RecordCollector::moment() const
{
    const qint64 now = m_now() * kMillisecond;
    // Within a run everything is on one time line, whatever the clock does.
    return m_isRunning ? qMax(now - m_drift, m_last) : now;
}

/// Never before the moment of the latest input, so that the order stays.
qint64 RecordCollector::nextMoment()
{
    return ++m_last;
}

void RecordCollector::put(const RecorderInput& input)
{
    const bool isExchange = std::holds_alternative<input::Told>(input);
    const bool hasRoom = m_unwritten + static_cast<int>(m_inputs.size()) < kMostInputs;
    if (!hasRoom && isExchange) {
        m_gapFrom = m_gapCount == 0 ? timeOf(input) : m_gapFrom;
        ++m_gapCount;
        return;
    }
    if (hasRoom && m_gapCount > 0) {
        RecordedEvent gap;
        gap.at = timeOf(input);
        gap.kind = EventKind::Gap;
        gap.since = m_gapFrom;
        gap.count = std::exchange(m_gapCount, 0);
        m_inputs.emplace_back(gap);
    }
    m_inputs.push_back(input);
}

void RecordCollector::runBegun(const QString& port)
{
    m_isRunning = false;
    m_drift = 0;
    m_last = moment();
    m_isRunning = true;
    m_roundDue.reset();
    m_isRoundOn = false;
    m_isBreakDue = true;
    m_isFormerDue = false;
    m_hasExchange = false;
    m_record.reset();
    m_round = QDateTime();
    put(input::RunBegun{m_last, port});
}

void RecordCollector::runEnded()
{
    if (m_isRunning) {
        put(input::RunEnded{qMax(moment(), nextMoment())});
    }
    m_isRunning = false;
}

void RecordCollector::roundBegun(const QDateTime& wall)
{
    m_isBreakDue = std::exchange(m_isRoundOn, true) || m_isBreakDue;
    m_roundDue = wall;
    m_isFormerDue = m_hasExchange;
}

/// An exchange is told when the next transmission begins. So the first one told after the begin of
/// a round is of the round before.
void RecordCollector::putRound(const Exchange& exchange)
{
    const bool isFirst = !std::exchange(m_hasExchange, true);
    if (!m_roundDue || std::exchange(m_isFormerDue, false) || exchange.isExtra) {
        return;
    }
    const qint64 wall = microseconds::of(*m_roundDue);
    if (isFirst && exchange.sentAt < wall) {
        return; // the run's first exchange was sent before its first round
    }
    m_round = *std::exchange(m_roundDue, std::nullopt);
    put(input::Round{exchange.sentAt, m_round.toMSecsSinceEpoch(), m_round.offsetFromUtc(), false,
                     std::exchange(m_isBreakDue, false)});
    const qint64 drift = wall - exchange.sentAt;
    const qint64 former = m_drift;
    const bool isSet = qAbs(drift - former) > kClockSet;
    // A round's first question may be asked a while behind its begin: the least such time counts.
    m_drift = isSet || drift > former ? drift : former + (drift - former) / kSlowly;
    if (isSet) {
        RecordedEvent event;
        event.at = exchange.sentAt;
        event.kind = EventKind::ClockSet;
        put(event);
    }
}

void RecordCollector::exchanged(const Exchange& exchange)
{
    m_last = qMax(m_last, exchange.sentAt);
    putRound(exchange);
    if (exchange.kind == ExchangeKind::Status && exchange.outcome == ExchangeOutcome::Believed) {
        putStatus(exchange);
    } else {
        put(input::Told{exchange, 0});
    }
}

void RecordCollector::putStatus(const Exchange& exchange)
{
    const auto record = std::exchange(m_record, std::nullopt);
    if (!record || record->hexId != exchange.hexId) {
        put(input::Told{exchange, input::Told::kNoRecord});
        return;
    }
    putName(exchange.sentAt, exchange.hexId, record->rows);
    putRecordTime(exchange.sentAt, record->rows);
    put(input::Told{exchange, frameOf(exchange, record->rows)});
}

void RecordCollector::record(const QString& hexId, const QList<QStringList>& rows)
{
    if (!isLost(rows)) {
        m_record = Record{hexId, rows};
        return;
    }
    const qint64 at = nextMoment();
    putName(at, hexId, rows);
    putRecordTime(at, rows);
    put(input::LossTold{at, hexId});
}

void RecordCollector::putName(qint64 at, const QString& hexId, const QList<QStringList>& rows)
{
    const QString name = ownName(rows);
    if (m_names.value(hexId) != name) {
        m_names.insert(hexId, name);
        put(input::NameTold{at, hexId, name});
    }
}

/// Puts the time of a record that is not its round's.
void RecordCollector::putRecordTime(qint64 at, const QList<QStringList>& rows)
{
    const bool isOfRound =
        m_round.isValid() && m_round.toLocalTime().toString(kMillisecondsFormat) ==
                                 field(rows, TimestampRow, MillisecondsColumn);
    if (!isOfRound) {
        const QDateTime time = timestamp(rows);
        put(input::Round{at, time.toMSecsSinceEpoch(), time.offsetFromUtc(), true});
    }
}

void RecordCollector::listChanged(const QStringList& hexIds)
{
    if (std::exchange(m_list, hexIds) != hexIds) {
        put(input::ListTold{qMax(moment(), m_last), hexIds});
    }
}

void RecordCollector::scanEnded(const QStringList& found)
{
    put(input::ScanEnded{qMax(moment(), m_last), found});
}

void RecordCollector::event(RecordedEvent event)
{
    if (event.at == 0) {
        event.at = moment();
    }
    put(event);
}

RecorderInputs RecordCollector::take()
{
    return std::exchange(m_inputs, {});
}
