#include "app/lookback/moment.h"

#include "recording/recordingreader.h"
#include "serial/ldb/buspace.h"
#include "serial/ldb/generalinformation.h"
#include "serial/ldb/microseconds.h"
#include "serial/ldb/monitoring.h"

#include <QDateTime>

#include <algorithm>
#include <array>
#include <iterator>

namespace {

/// The round that is on, the one before it, the one before these, and one that stands twice in the
/// recording at midnight.
constexpr int kRounds = 4;
/// Longer than any round, µs.
constexpr qint64 kFurthestBase = 300LL * 1000000;
/// A round of most LDBs, of which some are silent, µs.
constexpr qint64 kLongestRound = 60LL * 1000000;
/// No LDB is waited for so long, µs.
constexpr qint64 kLongestWait = 10LL * 1000000;
using microseconds::kMillisecond;
/// In the order in which they count where they meet.
constexpr std::array kOfPolling{EventKind::RunBegun, EventKind::TurnTold, EventKind::PolledAlone,
                                EventKind::ScanTold};
/// The run before is looked for so far back, µs.
constexpr qint64 kDays = 3LL * 86400 * 1000000;

template <typename Value, typename Make>
void append(std::vector<ReplayStep>& steps, std::vector<Value>&& values, const Make& make)
{
    steps.reserve(steps.size() + values.size());
    for (Value& value : values) {
        ReplayStep step;
        step.at = value.at;
        make(step, std::move(value));
        steps.push_back(std::move(step));
    }
}

/// The round from which on the lamps show what they showed: the last whole one, or the one with
/// which they began anew.
std::size_t firstRound(const std::vector<RecordedRound>& rounds, qint64 at)
{
    std::size_t first = rounds.size();
    bool isBehindWhole = false;
    while (first > 0 && rounds[first - 1].at > at - kFurthestBase && !isBehindWhole) {
        --first;
        const bool isOther =
            first + 1 < rounds.size() && rounds[first].wall != rounds[first + 1].wall;
        isBehindWhole = rounds[first].isBreak || isOther;
    }
    return first;
}

/// What became of a question is known when the next one is asked.
std::vector<ReplayStep> asked(RecordingReader& reader, TimeSpan span)
{
    auto questions = reader.questions({span.from - kLongestWait, span.to});
    questions.erase(
        std::remove_if(questions.begin(), questions.end(),
                       [](const RecordedQuestion& question) { return question.isLoss; }),
        questions.end());
    std::vector<ReplayStep> steps;
    steps.reserve(questions.size());
    for (std::size_t i = 1; i < questions.size(); ++i) {
        const RecordedQuestion& question = questions[i - 1];
        if (questions[i].at >= span.from && !question.hexId.isEmpty() &&
            BusPace::isPoll(static_cast<ExchangeKind>(question.kind))) {
            ReplayStep step;
            step.kind = ReplayStep::Kind::Asked;
            step.at = questions[i].at;
            step.hexId = question.hexId;
            step.waited = (step.at - question.at) / kMillisecond;
            step.isSilent = question.isSilent;
            steps.push_back(std::move(step));
        }
    }
    return steps;
}

/// How old a record was then, ms.
qint64 ageWhen(const RecordedRecord& record, qint64 at)
{
    // It carries the time at which its round began.
    const QDateTime told = generalinformation::timestamp(record.rows);
    const qint64 asked = record.at / kMillisecond;
    const qint64 lag = told.isValid() ? asked - told.toMSecsSinceEpoch() : 0;
    const bool isOfRound = lag > 0 && lag < Monitoring::kLongestLife;
    return at / kMillisecond - asked + (isOfRound ? lag : 0);
}

/// How long a value was live then, ms.
qint64 lifetimeAt(RecordingReader& reader, qint64 at)
{
    BusPace pace;
    for (const RecordedEvent& turn : reader.eventsOf(EventKind::TurnTold, {0, at}, 1)) {
        pace.setTurn(turn.count);
    }
    const auto questions = reader.questions({at - kLongestRound, at + 1});
    for (std::size_t i = 1; i < questions.size(); ++i) {
        const RecordedQuestion& question = questions[i - 1];
        if (question.isLoss) {
            pace.lose(question.hexId);
        } else if (BusPace::isPoll(static_cast<ExchangeKind>(question.kind))) {
            pace.take(question.hexId, question.isSilent,
                      (questions[i].at - question.at) / kMillisecond);
        }
    }
    const auto lists = reader.lists({at - kDays, at + 1});
    return pace.lifetime(lists.empty() ? 0 : static_cast<int>(lists.back().hexIds.size()));
}

} // namespace

Stretch moment::stretchOf(RecordingReader& reader, qint64 from, qint64 to)
{
    Stretch result;
    const auto extent = reader.extent();
    result.span = {from, extent ? std::clamp(extent->to, from, to) : from};
    const TimeSpan span{from + 1, result.span.to + 1};
    // At the same moment, the list and the round come before the record.
    append(result.steps, reader.lists(span), [](ReplayStep& step, RecordedList&& list) {
        step.kind = ReplayStep::Kind::List;
        step.hexIds = std::move(list.hexIds);
    });
    append(result.steps, reader.rounds(span), [](ReplayStep& step, RecordedRound&& round) {
        step.kind = ReplayStep::Kind::Round;
        step.round = round;
    });
    append(result.steps, reader.records({}, span), [](ReplayStep& step, RecordedRecord&& record) {
        step.kind = ReplayStep::Kind::Record;
        step.record = std::move(record);
    });
    for (const EventKind kind : kOfPolling) {
        append(result.steps, reader.eventsOf(kind, span),
               [](ReplayStep& step, RecordedEvent&& told) {
                   step.kind = ReplayStep::Kind::Told;
                   step.told = std::move(told);
               });
    }
    std::vector<ReplayStep> questions = asked(reader, span);
    std::move(questions.begin(), questions.end(), std::back_inserter(result.steps));
    std::stable_sort(
        result.steps.begin(), result.steps.end(),
        [](const ReplayStep& left, const ReplayStep& right) { return left.at < right.at; });
    result.runs = reader.runs({from, result.span.to + 1});
    result.gaps = reader.gaps({from, result.span.to + 1});
    return result;
}

Moment moment::read(RecordingReader& reader, qint64 at, const QString& hexId)
{
    Moment result;
    const auto extent = reader.extent();
    if (!extent) {
        return result;
    }
    at = std::clamp(at, extent->from, std::max(extent->from, extent->to - 1));
    result.at = at;
    result.isRecorded = true;
    const auto rounds = reader.rounds({0, at + 1}, kRounds);
    const std::size_t first = firstRound(rounds, at);
    const qint64 begin = first < rounds.size() ? rounds[first].at - 1 : at;
    if (first > 0) {
        result.round = rounds[first - 1];
        result.asked =
            asked(reader, {std::max(rounds[first - 1].at, begin - kLongestRound), begin});
    }
    result.base = reader.stateAt(begin);
    result.stretch = stretchOf(reader, begin, at);
    result.stretch.span.to = at;
    for (const EventKind kind : kOfPolling) {
        auto last = reader.eventsOf(kind, {0, begin + 1}, 1);
        std::move(last.begin(), last.end(), std::back_inserter(result.told));
    }
    const bool isInRun =
        std::any_of(result.stretch.runs.begin(), result.stretch.runs.end(),
                    [at](const RecordedRun& run) { return run.begun <= at && run.until >= at; });
    if (!isInRun) {
        for (const RecordedRun& run : reader.runs({at - kDays, at})) {
            result.lastRun = std::max(result.lastRun.value_or(run.until), run.until);
        }
    }
    const auto own =
        std::find_if(result.base.begin(), result.base.end(),
                     [&hexId](const RecordedRecord& record) { return record.hexId == hexId; });
    const bool isKnown = own != result.base.end() && !own->rows.isEmpty();
    if (!hexId.isEmpty()) {
        result.past = pastOf(reader, hexId, {at - kPast, isKnown ? own->at : begin});
    }
    return result;
}

Past moment::pastOf(RecordingReader& reader, const QString& hexId, TimeSpan span)
{
    Past past{hexId, span, reader.records(hexId, span), {}};
    for (const RecordedEvent& run : reader.eventsOf(EventKind::RunBegun, span)) {
        past.breaks.push_back(run.at);
    }
    for (const RecordedEvent& scan : reader.eventsOf(EventKind::ScanTold, span)) {
        if (scan.isStill) {
            past.breaks.push_back(scan.at);
        }
    }
    for (const RecordedGap& gap : reader.gaps(span)) {
        past.breaks.push_back(gap.to);
    }
    for (std::size_t i = 1; i < past.records.size(); ++i) {
        const qint64 age = ageWhen(past.records[i - 1], past.records[i].at);
        if (age > Monitoring::kShortestLife && age > lifetimeAt(reader, past.records[i].at)) {
            past.breaks.push_back(past.records[i].at);
        }
    }
    std::sort(past.breaks.begin(), past.breaks.end());
    return past;
}
