#pragma once

#include "recording/recordedvalues.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

class RecordingReader;

/// One thing that the window was told, in the order of the recording.
struct ReplayStep
{
    enum class Kind
    {
        Round,
        Record,
        List
    };
    Kind kind = Kind::Record;
    qint64 at = 0;         ///< UTC, µs since 1970
    RecordedRound round;   ///< of a round
    RecordedRecord record; ///< of a record
    QStringList hexIds;    ///< of a list
};

/// What was told within a span of time, and where nothing was. A plain value.
struct Stretch
{
    TimeSpan span; ///< how far it reaches
    std::vector<ReplayStep> steps;
    std::vector<RecordedRun> runs; ///< those that overlap it
    std::vector<RecordedGap> gaps;
};

/// Everything needed to show a moment: the state some rounds before it, and what was told from then
/// until the moment. The lamps need whole rounds to show what they showed. A plain value.
struct Moment
{
    qint64 at = 0;
    bool isRecorded = false;            ///< false: there is no recording at all
    std::vector<RecordedRecord> base;   ///< every LDB listed then, as `RecordingReader::stateAt`
    Stretch stretch;                    ///< from the base up to `at`, that included
    std::optional<RecordedRound> round; ///< in force at the base
    bool isScanning = false;            ///< a scan is on: nothing is asked but the addresses
    std::optional<qint64> lastRun;      ///< where no run is on: the end of the last one
    QString hexId;                      ///< the LDB of `past`
    std::vector<RecordedRecord> past;   ///< of the minutes before the base
};

/// Reads what a window needs. Used in the reader's thread.
namespace moment {

/// The moment itself, or the nearest one that is recorded, with what the plot of one LDB shows
/// before it.
Moment read(RecordingReader& reader, qint64 at, const QString& hexId);
/// What was told after `from`, up to `to` or the end of the recording.
Stretch stretchOf(RecordingReader& reader, qint64 from, qint64 to);

/// How much of the past the plot shows without asking for more, µs.
constexpr qint64 kPast = 600LL * 1000000;

} // namespace moment
