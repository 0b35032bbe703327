#include "app/lookback/pastsamples.h"

#include "app/lookback/replay.h"
#include "recording/recordingaccess.h"
#include "serial/ldb/generalinformation.h"
#include "serial/ldb/microseconds.h"
#include "serial/ldb/monitoring.h"

#include <algorithm>

namespace {

using microseconds::kMillisecond;

std::vector<PlotSample> within(std::vector<PlotSample> samples, qint64 from, qint64 to)
{
    samples.erase(std::remove_if(samples.begin(), samples.end(),
                                 [from, to](const PlotSample& sample) {
                                     return sample.time < static_cast<double>(from) ||
                                            sample.time >= static_cast<double>(to);
                                 }),
                  samples.end());
    return samples;
}

} // namespace

std::vector<PlotSample> samplesOf(const Past& past)
{
    std::vector<PlotSample> samples;
    samples.reserve(past.records.size());
    auto nextBreak = past.breaks.begin();
    // Whether one lies before that moment and behind what came last.
    const auto passesBreak = [&](qint64 at) {
        const auto former = nextBreak;
        while (nextBreak != past.breaks.end() && *nextBreak <= at) {
            ++nextBreak;
        }
        return nextBreak != former;
    };
    for (const RecordedRecord& record : past.records) {
        const QDateTime timestamp = generalinformation::timestamp(record.rows);
        if (!timestamp.isValid()) {
            continue;
        }
        auto time = static_cast<double>(timestamp.toMSecsSinceEpoch());
        const bool isBroken = passesBreak(record.at);
        if (!samples.empty()) {
            const double newest = samples.back().time;
            if (newest - time > static_cast<double>(Monitoring::kLongestLife)) {
                samples.clear(); // the clock was set back: later times are no past
            } else if (time <= newest) {
                time = newest + 1.0; // of a round that began before an extra record
            } else if (isBroken) {
                samples.push_back(PlotSample::gap(newest + 1.0));
            }
        }
        samples.push_back(PlotSample::ofRecord(record.rows, time));
    }
    if (!samples.empty() && passesBreak(past.span.to)) {
        samples.push_back(PlotSample::gap(samples.back().time + 1.0));
    }
    return samples;
}

PastSamples::PastSamples(const Replay* replay, RecordingAccess* access)
    : m_replay(replay)
    , m_access(access)
{
}

void PastSamples::ask(const QString& hexId, qint64 from, qint64 to, const Answer& answer)
{
    // The plot goes by the clock on the wall as it was set there.
    QDateTime shown = m_replay->wallTime();
    shown.setTimeSpec(Qt::LocalTime);
    const qint64 now = shown.toMSecsSinceEpoch();
    const auto momentOf = [this, now](qint64 time) {
        return m_replay->position() + (time - now) * kMillisecond;
    };
    if (hexId == m_replay->past().hexId && momentOf(from) >= m_replay->past().span.from) {
        answer(within(samplesOf(m_replay->past()), from, to));
        return;
    }
    const TimeSpan span{momentOf(from), momentOf(to)};
    m_access->ask(
        m_access, // the answer holds by itself what it needs
        [hexId, span](RecordingReader& reader) { return moment::pastOf(reader, hexId, span); },
        [answer, from, to](const Past& past) { answer(within(samplesOf(past), from, to)); });
}
