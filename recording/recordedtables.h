#pragma once

#include "recording/recordedevent.h"
#include "recording/recordedvalues.h"
#include "recording/sourcefile.h"

#include <optional>
#include <vector>

/// What one file of a recording holds beside its exchanges: minutes, events, runs and lists of
/// LDBs, each in a small table of its own. Used in the thread that made it.
class RecordedTables : public SourceFile
{
public:
    using SourceFile::SourceFile;

    /// The first and the last moment in the file, both included; nothing where the file is empty.
    std::optional<TimeSpan> extent();

    /// Ascending, summed up over `each` minutes.
    std::vector<RecordedMinute> minutes(const QString& hexId, TimeSpan span, int each);
    /// Ascending; all but those that are not for people.
    std::vector<RecordedEvent> events(TimeSpan span, int limit = -1);
    std::vector<RecordedRun> runs();

    /// Ascending; a limit leaves the last ones.
    std::vector<RecordedRound> rounds(TimeSpan span, int limit);
    std::vector<RecordedList> lists(TimeSpan span);
    /// Those that overlap the span.
    std::vector<RecordedGap> gaps(TimeSpan span);

    /// The last list up to `at`; nothing when there is none.
    std::optional<RecordedList> listAt(qint64 at);

protected:
    /// The names that LDBs told before `to`, ascending.
    std::vector<RecordedEvent> namings(qint64 to);
    /// The begin of the latest minute from which on there are `count` records before `to`; 0 where
    /// there are fewer.
    qint64 beginOfLast(const QString& hexId, qint64 to, int count);

private:
    std::optional<TimeSpan> rangeOf(const QString& statement);
    std::vector<RecordedEvent> readEvents(const QString& condition, const QVariantList& values,
                                          int limit = -1);
    std::vector<RecordedList> readLists(const QString& condition, const QVariantList& values);
};
