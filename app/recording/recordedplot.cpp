#include "app/recording/recordedplot.h"

#include "recording/recordingaccess.h"
#include "serial/ldb/generalinformation.h"
#include "serial/ldb/microseconds.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

using microseconds::kMillisecond;
constexpr qint64 kPiece = 3600LL * 1000;
/// A record carries the time at which its round began. Its LDB is asked at most this much later.
constexpr qint64 kLongestRound = 120LL * 1000;

double timeOf(const RecordedRecord& record)
{
    const qint64 asked = record.at / kMillisecond;
    const QDateTime told = generalinformation::timestamp(record.rows);
    // Placed as the plot places live records. Where the clocks were changed, the text may stand for
    // another moment.
    const qint64 shown = told.isValid() ? told.toMSecsSinceEpoch() : asked;
    return static_cast<double>(asked - shown >= 0 && asked - shown < kLongestRound ? shown : asked);
}

/// The moments at which former values end, ascending.
std::vector<double> breaks(RecordingReader& reader, TimeSpan span)
{
    std::vector<double> times;
    const auto add = [&](qint64 at) {
        if (at >= span.from && at < span.to) {
            const qint64 time = at / kMillisecond;
            times.push_back(static_cast<double>(time));
        }
    };
    for (const RecordedRun& run : reader.runs(span)) {
        add(run.begun);
        add(run.until);
    }
    for (const RecordedGap& gap : reader.gaps(span)) {
        add(gap.from);
    }
    std::sort(times.begin(), times.end());
    return times;
}

} // namespace

std::vector<PlotSample> recordedSamples(RecordingReader& reader, const QString& hexId, qint64 from,
                                        qint64 to)
{
    const TimeSpan span{from * kMillisecond, to * kMillisecond};
    const std::vector<RecordedRecord> records =
        reader.records(hexId, {span.from, span.to + kLongestRound * kMillisecond});
    const std::vector<double> gaps = breaks(reader, span);
    std::vector<PlotSample> samples;
    samples.reserve(records.size() + gaps.size());
    auto gap = gaps.begin();
    const auto addGaps = [&](double until) {
        for (; gap != gaps.end() && *gap <= until; ++gap) {
            if (!samples.empty() && !samples.back().isGap()) {
                samples.push_back(PlotSample::gap(std::max(*gap, samples.back().time + 1.0)));
            }
        }
    };
    for (const RecordedRecord& record : records) {
        double time = timeOf(record);
        if (time < static_cast<double>(from) || time >= static_cast<double>(to)) {
            continue;
        }
        const qint64 asked = record.at / kMillisecond;
        addGaps(static_cast<double>(asked));
        // A round's record may carry an earlier time than one from between the turns.
        time = samples.empty() ? time : std::max(time, samples.back().time + 1.0);
        samples.push_back(PlotSample::ofRecord(record.rows, time));
    }
    addGaps(static_cast<double>(to));
    return samples;
}

RecordedPlot::RecordedPlot(RecordingAccess* access, QObject* parent)
    : QObject(parent)
    , m_access(access)
{
    connect(access, &RecordingAccess::pathChanged, this, &RecordedPlot::answerAll);
}

void RecordedPlot::ask(const QString& hexId, qint64 from, qint64 to, const Answer& answer)
{
    m_questions.insert(++m_last, {hexId, from, to, answer, {}});
    readOn(m_last);
}

void RecordedPlot::readOn(int number)
{
    const Question& question = m_questions[number];
    m_access->ask(
        this,
        [hexId = question.hexId, from = question.next,
         to = qMin(question.next + kPiece, question.to)](RecordingReader& reader) {
            return recordedSamples(reader, hexId, from, to);
        },
        [this, number](std::vector<PlotSample>&& samples) { take(number, std::move(samples)); });
}

void RecordedPlot::take(int number, std::vector<PlotSample>&& samples)
{
    Question& question = m_questions[number];
    question.samples.insert(question.samples.end(), std::make_move_iterator(samples.begin()),
                            std::make_move_iterator(samples.end()));
    question.next += kPiece;
    if (question.next < question.to) {
        readOn(number);
        return;
    }
    const Question done = m_questions.take(number);
    done.answer(done.samples);
}

/// Drops what was asked of the former recording.
void RecordedPlot::answerAll()
{
    for (const Question& question : std::exchange(m_questions, {})) {
        question.answer({});
    }
}
