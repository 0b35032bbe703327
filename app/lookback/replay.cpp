#include "app/lookback/replay.h"

#include "serial/ldb/generalinformation.h"
#include "serial/ldb/microseconds.h"

#include <QThread>

#include <algorithm>
#include <iterator>
#include <utility>

using namespace generalinformation;

namespace {

using microseconds::kMillisecond;
constexpr qint64 kMillisecondsPerSecond = 1000;

} // namespace

Replay::Replay(QObject* parent)
    : RecordSource(parent)
{
}

bool Replay::isAwaited(const QString& hexId) const
{
    return m_list.contains(hexId) && !m_records.contains(hexId);
}

QString Replay::nameOf(const QString& hexId) const
{
    const auto record = m_records.constFind(hexId);
    if (record != m_records.constEnd()) {
        return ownName(*record);
    }
    const RecordedRun* const in = runAt(m_position);
    return in == nullptr ? QString() : in->names.value(hexId);
}

void Replay::show(Moment moment)
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_steps.assign(std::make_move_iterator(moment.stretch.steps.begin()),
                   std::make_move_iterator(moment.stretch.steps.end()));
    m_runs = std::move(moment.stretch.runs);
    m_gaps = std::move(moment.stretch.gaps);
    m_lastRun = moment.lastRun;
    m_round = moment.round;
    m_isRoundOn = false;
    m_polling = {};
    m_position = moment.at;
    m_readyUntil = moment.at;
    m_past = std::move(moment.past);
    m_list.clear();
    m_records.clear();
    for (const RecordedRecord& record : moment.base) {
        m_list.append(record.hexId);
        if (!record.rows.isEmpty()) {
            m_records.insert(record.hexId, record.rows);
        }
    }
    for (const RecordedEvent& told : moment.told) {
        if (const RecordedRun* const in = runAt(m_position);
            in != nullptr && told.at >= in->begun) {
            takeTold(told);
        }
    }
    for (const ReplayStep& step : moment.asked) {
        tell(step);
    }
    for (const RecordedRecord& record : moment.base) {
        hear(record);
    }
    const Polling atBase = m_polling;
    lookAhead();
    emit monitoringChanged(monitoring());
    emit replaced(m_list);
    std::stable_sort(
        moment.base.begin(), moment.base.end(),
        [](const RecordedRecord& left, const RecordedRecord& right) { return left.at < right.at; });
    m_polling = atBase;
    for (const RecordedRecord& record : moment.base) {
        if (!record.rows.isEmpty()) {
            emit momentTold(monitoringAt(record.at));
            tellRecord(record);
        }
    }
    tellDue(m_position);
    for (const QString& hexId : qAsConst(m_list)) {
        if (isAwaited(hexId)) {
            emit awaitedChanged(hexId);
        }
    }
}

/// The views ask what is live when they are told of it: all that it depends on comes first.
void Replay::lookAhead()
{
    for (const ReplayStep& step : m_steps) {
        if (step.kind == ReplayStep::Kind::Round &&
            !(m_round && m_round->wall == step.round.wall)) {
            m_round = step.round;
        } else if (step.kind == ReplayStep::Kind::List) {
            m_list = step.hexIds;
        } else if (step.kind == ReplayStep::Kind::Record) {
            hear(step.record);
        } else if (step.kind != ReplayStep::Kind::Round) {
            tell(step);
        }
    }
}

/// Loss and answer, as far as they say how the bus is polled.
void Replay::hear(const RecordedRecord& record)
{
    if (record.rows.isEmpty()) {
        return;
    }
    if (isLost(record.rows)) {
        m_polling.pace.lose(record.hexId);
    } else {
        m_polling.lastAnswer = std::max(m_polling.lastAnswer.value_or(0), clockOf(record.at));
    }
}

void Replay::add(Stretch stretch)
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (stretch.span.from != m_readyUntil) {
        return;
    }
    m_readyUntil = stretch.span.to;
    std::move(stretch.steps.begin(), stretch.steps.end(), std::back_inserter(m_steps));
    if (const RecordedRun* const last = runAt(m_position)) {
        m_lastRun = last->until;
    }
    m_runs = std::move(stretch.runs);
    m_gaps = std::move(stretch.gaps);
}

void Replay::advance(qint64 microseconds)
{
    Q_ASSERT(QThread::currentThread() == thread());
    const qint64 position = std::min(m_position + microseconds, m_readyUntil);
    if (position <= m_position) {
        return;
    }
    if (const RecordedRun* const last = runAt(m_position)) {
        m_lastRun = last->until;
    }
    m_position = position;
    emit monitoringChanged(monitoring());
    tellDue(position);
}

void Replay::tellDue(qint64 until)
{
    while (!m_steps.empty() && m_steps.front().at <= until) {
        const ReplayStep step = std::move(m_steps.front());
        m_steps.pop_front();
        if (step.kind == ReplayStep::Kind::Record) {
            emit momentTold(monitoringAt(step.at));
        }
        tell(step);
    }
    emit momentTold(monitoring());
}

void Replay::tell(const ReplayStep& step)
{
    switch (step.kind) {
    case ReplayStep::Kind::Round:
        tellRound(step.round);
        break;
    case ReplayStep::Kind::Record:
        tellRecord(step.record);
        break;
    case ReplayStep::Kind::List:
        setList(step.hexIds);
        break;
    case ReplayStep::Kind::Told:
        takeTold(step.told);
        break;
    case ReplayStep::Kind::Asked:
        // The last one of a run is not waited for until the next run.
        if (const RecordedRun* const in = runAt(m_position);
            in != nullptr && step.at - step.waited * kMillisecond >= in->begun) {
            m_polling.pace.take(step.hexId, step.isSilent, step.waited);
        }
        break;
    }
}

void Replay::takeTold(const RecordedEvent& told)
{
    switch (told.kind) {
    case EventKind::RunBegun:
        m_polling = {};
        break;
    case EventKind::TurnTold:
        m_polling.pace.setTurn(told.count);
        break;
    case EventKind::PolledAlone:
        m_polling.alone = told.hexId;
        break;
    case EventKind::ScanTold:
        m_polling.isScanning = told.isStill;
        m_polling.scanBegun = told.since;
        m_polling.scanChanged = told.at;
        break;
    default:
        break;
    }
}

void Replay::tellRound(const RecordedRound& round)
{
    if (m_isRoundOn && m_round && m_round->wall == round.wall) {
        return; // the file of the next day repeats it, with its own begin
    }
    m_round = round;
    // When a round ended is not recorded, but with the next one, whether it did.
    if (round.isBreak) {
        // Only a part of the bus was monitored in between, so no round was whole.
        Monitoring broken = monitoring();
        broken.state = Monitoring::State::Scanning;
        emit monitoringChanged(broken);
        emit monitoringChanged(monitoring());
    } else if (m_isRoundOn) {
        emit roundEnded();
    }
    m_isRoundOn = true;
    emit roundBegun(QDateTime::fromMSecsSinceEpoch(round.wall, Qt::OffsetFromUTC, round.offset));
}

void Replay::setList(const QStringList& hexIds)
{
    m_list = hexIds;
    for (auto record = m_records.begin(); record != m_records.end();) {
        record = hexIds.contains(record.key()) ? std::next(record) : m_records.erase(record);
    }
    emit ldbListChanged(hexIds);
}

void Replay::tellRecord(const RecordedRecord& record)
{
    if (!m_list.contains(record.hexId)) {
        m_list.append(record.hexId);
    }
    m_records.insert(record.hexId, record.rows);
    hear(record);
    if (record.isExtra) {
        emit extraInformationUpdated(record.hexId, record.rows);
    } else {
        emit generalInformationUpdated(record.hexId, record.rows);
    }
}

const RecordedRun* Replay::runAt(qint64 at) const
{
    const auto found = std::find_if(m_runs.begin(), m_runs.end(), [at](const RecordedRun& run) {
        return run.begun <= at && run.until >= at;
    });
    return found == m_runs.end() ? nullptr : &*found;
}

const RecordedGap* Replay::gapAt(qint64 at) const
{
    const auto found = std::find_if(m_gaps.begin(), m_gaps.end(), [at](const RecordedGap& gap) {
        return gap.from <= at && gap.to > at;
    });
    return found == m_gaps.end() ? nullptr : &*found;
}

/// What a clock on the wall showed then, as it was set in that run; ms.
qint64 Replay::clockOf(qint64 at) const
{
    if (!m_round) {
        return clockTime(at / kMillisecond);
    }
    return m_round->wall + (at - m_round->at) / kMillisecond +
           m_round->offset * kMillisecondsPerSecond;
}

QDateTime Replay::wallTime() const
{
    if (!m_round) {
        const QDateTime local = microseconds::localTime(m_position);
        return local.toOffsetFromUtc(local.offsetFromUtc());
    }
    return QDateTime::fromMSecsSinceEpoch(clockOf(m_position) -
                                              m_round->offset * kMillisecondsPerSecond,
                                          Qt::OffsetFromUTC, m_round->offset);
}

Monitoring Replay::monitoringAt(qint64 at) const
{
    using State = Monitoring::State;
    Monitoring result;
    result.now = clockOf(at);
    result.known = m_list.size();
    for (const QString& hexId : m_list) {
        const auto record = m_records.constFind(hexId);
        if (record == m_records.constEnd()) {
            ++result.awaited;
        } else if (isLost(*record)) {
            ++result.lost;
        }
    }
    result.lifetime = m_polling.pace.lifetime(result.known);
    result.polledAlone = m_polling.alone;
    const RecordedRun* const in = runAt(at);
    if (in == nullptr) {
        result.state = m_lastRun ? State::Stopped : State::NotStarted;
        if (m_lastRun) {
            result.since = clockOf(*m_lastRun);
        }
        return result;
    }
    const qint64 scanBegun = std::max(m_polling.scanBegun, in->begun);
    result.from = clockOf(scanBegun);
    if (const RecordedGap* const missing = gapAt(at)) {
        result.state = State::NotRecorded;
        result.since = clockOf(missing->from);
        return result;
    }
    // A run that knows its LDBs begins without a scan.
    const bool isBegun =
        m_polling.scanChanged >= in->begun || (m_round && m_round->at >= in->begun);
    if (m_polling.isScanning || !isBegun) {
        result.state = State::Scanning;
        return result;
    }
    result.state = State::Polling;
    const qint64 polledSince = clockOf(std::max(m_polling.scanChanged, in->begun));
    const qint64 heard = std::max(m_polling.lastAnswer.value_or(0), polledSince);
    if (result.now - heard > m_polling.pace.longestQuiet(result.known)) {
        result.state = State::NoAnswer;
        result.since = heard;
    }
    return result;
}
