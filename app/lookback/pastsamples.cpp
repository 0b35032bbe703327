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

std::vector<PlotSample> samplesOf(const std::vector<RecordedRecord>& records, qint64 lifetimeMs)
{
    std::vector<PlotSample> samples;
    samples.reserve(records.size());
    for (const RecordedRecord& record : records) {
        const QDateTime timestamp = generalinformation::timestamp(record.rows);
        if (!timestamp.isValid()) {
            continue;
        }
        auto time = static_cast<double>(timestamp.toMSecsSinceEpoch());
        if (!samples.empty()) {
            const double newest = samples.back().time;
            if (newest - time > static_cast<double>(Monitoring::kLongestLife)) {
                samples.clear(); // the clock was set back: later times are no past
            } else if (time <= newest) {
                time =
                    newest +
                    1.0; // a round's record, with the time of the round's begin, after an extra one
            } else if (time - newest > static_cast<double>(lifetimeMs)) {
                samples.push_back(PlotSample::gap(newest + 1.0));
            }
        }
        samples.push_back(PlotSample::ofRecord(record.rows, time));
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
    const qint64 lifetime = m_replay->monitoring().lifetime;
    // The plot goes by the clock on the wall as it was set there.
    QDateTime shown = m_replay->wallTime();
    shown.setTimeSpec(Qt::LocalTime);
    const qint64 now = shown.toMSecsSinceEpoch();
    const auto momentOf = [this, now](qint64 time) {
        return m_replay->position() + (time - now) * kMillisecond;
    };
    if (hexId == m_replay->pastOf() && momentOf(from) >= m_replay->pastFrom()) {
        answer(within(samplesOf(m_replay->past(), lifetime), from, to));
        return;
    }
    const TimeSpan span{momentOf(from), momentOf(to)};
    m_access->ask(
        m_access, // the answer itself holds what it needs
        [hexId, span](RecordingReader& reader) { return reader.records(hexId, span); },
        [answer, lifetime, from, to](const std::vector<RecordedRecord>& records) {
            answer(within(samplesOf(records, lifetime), from, to));
        });
}
