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
    const RecordedRun* const in = run();
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
    m_isScanning = moment.isScanning;
    m_position = moment.at;
    m_readyUntil = moment.at;
    m_lastAnswer.reset();
    m_past = std::move(moment.past);
    m_pastOf = moment.hexId;
    m_pastFrom = moment.at - moment::kPast;
    m_list.clear();
    m_records.clear();
    for (const RecordedRecord& record : moment.base) {
        m_list.append(record.hexId);
        if (!record.rows.isEmpty()) {
            m_records.insert(record.hexId, record.rows);
        }
    }
    lookAhead(moment.base);
    emit monitoringChanged(monitoring());
    emit replaced(m_list);
    std::stable_sort(
        moment.base.begin(), moment.base.end(),
        [](const RecordedRecord& left, const RecordedRecord& right) { return left.at < right.at; });
    for (const RecordedRecord& record : moment.base) {
        if (!record.rows.isEmpty()) {
            tellRecord(record);
        }
    }
    tellDue(m_position);
    m_isScanning = moment.isScanning;
    for (const QString& hexId : qAsConst(m_list)) {
        if (isAwaited(hexId)) {
            emit awaitedChanged(hexId);
        }
    }
}

/// Views decide what is live when they are told of it, so all that this depends on comes first.
void Replay::lookAhead(const std::vector<RecordedRecord>& base)
{
    for (const ReplayStep& step : m_steps) {
        if (step.kind == ReplayStep::Kind::Round &&
            !(m_round && m_round->wall == step.round.wall)) {
            m_round = step.round;
        } else if (step.kind == ReplayStep::Kind::List) {
            m_list = step.hexIds;
        }
    }
    const auto hear = [this](const RecordedRecord& record) {
        if (!record.rows.isEmpty() && !isLost(record.rows)) {
            m_lastAnswer = std::max(m_lastAnswer.value_or(0), clockOf(record.at));
        }
    };
    std::for_each(base.begin(), base.end(), hear);
    for (const ReplayStep& step : m_steps) {
        if (step.kind == ReplayStep::Kind::Record) {
            hear(step.record);
        }
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
    if (const RecordedRun* const last = run()) {
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
    if (const RecordedRun* const last = run()) {
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
        tell(step);
    }
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
    }
}

void Replay::tellRound(const RecordedRound& round)
{
    if (m_isRoundOn && m_round && m_round->wall == round.wall) {
        return; // the file of the next day repeats it, with its own begin
    }
    m_round = round;
    m_isScanning = false;
    // The end of a round is not recorded; the next round says whether there was one.
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
    if (!isLost(record.rows)) {
        m_lastAnswer = std::max(m_lastAnswer.value_or(0), clockOf(record.at));
    }
    if (record.isExtra) {
        emit extraInformationUpdated(record.hexId, record.rows);
    } else {
        emit generalInformationUpdated(record.hexId, record.rows);
    }
}

const RecordedRun* Replay::run() const
{
    const auto found = std::find_if(m_runs.begin(), m_runs.end(), [this](const RecordedRun& run) {
        return run.begun <= m_position && run.until >= m_position;
    });
    return found == m_runs.end() ? nullptr : &*found;
}

const RecordedGap* Replay::gap() const
{
    const auto found = std::find_if(m_gaps.begin(), m_gaps.end(), [this](const RecordedGap& gap) {
        return gap.from <= m_position && gap.to > m_position;
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

Monitoring Replay::monitoring() const
{
    using State = Monitoring::State;
    Monitoring result;
    result.now = clockOf(m_position);
    result.known = m_list.size();
    for (const QString& hexId : m_list) {
        const auto record = m_records.constFind(hexId);
        if (record == m_records.constEnd()) {
            ++result.awaited;
        } else if (isLost(*record)) {
            ++result.lost;
        }
    }
    result.lifetime = Monitoring::lifetimeOf(result.known);
    const RecordedRun* const in = run();
    if (in == nullptr) {
        result.state = m_lastRun ? State::Stopped : State::NotStarted;
        if (m_lastRun) {
            result.since = clockOf(*m_lastRun);
        }
        return result;
    }
    result.from = clockOf(in->begun);
    if (const RecordedGap* const missing = gap()) {
        result.state = State::NotRecorded;
        result.since = clockOf(missing->from);
        return result;
    }
    if (m_isScanning || !m_round || m_round->at < in->begun) {
        result.state = State::Scanning;
        return result;
    }
    result.state = State::Polling;
    const qint64 heard = std::max(m_lastAnswer.value_or(0), result.from);
    if (result.now - heard > result.lifetime) {
        result.state = State::NoAnswer;
        result.since = heard;
    }
    return result;
}
