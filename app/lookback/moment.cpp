#include "app/lookback/moment.h"

#include "recording/recordingreader.h"
#include "serial/ldb/exchange.h"

#include <algorithm>
#include <iterator>

namespace {

/// The round that is on, the one before it, the one before these, and one that stands twice in the
/// recording at midnight.
constexpr int kRounds = 4;
/// Longer than any round, µs.
constexpr qint64 kFurthestBase = 300LL * 1000000;
/// While the bus is polled, at most one probe comes between two other questions.
constexpr int kProbesOfScan = 4;
constexpr qint64 kRecent = 3LL * 1000000;
/// How far back the last run is looked for, µs.
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

bool isScanning(RecordingReader& reader, qint64 at)
{
    const auto last = reader.exchanges({}, {at - kRecent, at + 1}, kProbesOfScan);
    return last.size() == kProbesOfScan &&
           std::all_of(last.begin(), last.end(), [](const Exchange& exchange) {
               return exchange.kind == ExchangeKind::Probe;
           });
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
    result.hexId = hexId;
    const auto rounds = reader.rounds({0, at + 1}, kRounds);
    const std::size_t first = firstRound(rounds, at);
    const qint64 begin = first < rounds.size() ? rounds[first].at - 1 : at;
    if (first > 0) {
        result.round = rounds[first - 1];
    }
    result.base = reader.stateAt(begin);
    result.stretch = stretchOf(reader, begin, at);
    result.stretch.span.to = at;
    result.isScanning = isScanning(reader, at);
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
        result.past = reader.records(hexId, {at - kPast, isKnown ? own->at : begin});
    }
    return result;
}
