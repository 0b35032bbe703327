#pragma once

#include "recording/recordedevent.h"
#include "recording/recordedvalues.h"
#include "recording/recordingnotice.h"
#include "serial/ldb/exchange.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

class RecordingSource;

/// Reads a recording: a file, or a folder of days as one. Reads only: it may be at work while the
/// recorder writes, and sees what was committed when it is asked. Moments are UTC, µs since 1970;
/// what is given in a list is ascending.
///
/// What cannot be read is left out and said (`takeNotices`). Used in the thread that made it; each
/// thread may have its own.
class RecordingReader
{
public:
    explicit RecordingReader(QString path);
    ~RecordingReader();
    RecordingReader(const RecordingReader&) = delete;
    RecordingReader& operator=(const RecordingReader&) = delete;

    QString path() const { return m_path; }
    /// Looks again which files there are, and how far the last one reaches by now. Without it an
    /// open reader sees no later file.
    void refresh();
    /// What could not be read since the last call.
    std::vector<RecordingNotice> takeNotices();

    /// From the first moment to behind the last one; nothing when there is nothing.
    std::optional<TimeSpan> extent() const;

    /// The records of an LDB, or with an empty id of all; with a limit the last ones of the span.
    std::vector<RecordedRecord> records(const QString& hexId, TimeSpan span, int limit = -1);
    /// Every LDB that was in the list at a moment, in that order, with its last record up to then.
    /// One that had not been heard by then has no rows.
    std::vector<RecordedRecord> stateAt(qint64 at);
    /// `sentAt` is the key in the recording; a request that kind and LDB say is there again.
    std::vector<Exchange> exchanges(const QString& hexId, TimeSpan span, int limit = -1);
    /// Of the exchanges of a span what takes little time to read.
    std::vector<RecordedQuestion> questions(TimeSpan span);
    /// Those of one kind, of all LDBs.
    std::vector<Exchange> exchangesOf(ExchangeKind kind, TimeSpan span);
    /// Those that overlap the span. With `each` above 1 so many minutes from the span's begin on
    /// are summed up in one; `at` is then where they begin. LDBs that were not asked have none.
    std::vector<RecordedMinute> minutes(const QString& hexId, TimeSpan span, int each = 1);
    /// Those that people care for; with a limit the last ones.
    std::vector<RecordedEvent> events(TimeSpan span, int limit = -1);
    /// Those of one kind, be it for people or not; with a limit the last ones.
    std::vector<RecordedEvent> eventsOf(EventKind kind, TimeSpan span, int limit = -1);
    /// Those that overlap the span. A run of several days is one.
    std::vector<RecordedRun> runs(TimeSpan span);
    /// The rounds that began in the span; with a limit the last ones.
    std::vector<RecordedRound> rounds(TimeSpan span, int limit = -1);
    /// What became of the list in the span.
    std::vector<RecordedList> lists(TimeSpan span);
    /// Where exchanges are missing, by events of the recorder.
    std::vector<RecordedGap> gaps(TimeSpan span);

    /// The moment of the next record after `at`, or of the last one before it; of an LDB, or with
    /// an empty id of any.
    std::optional<qint64> nextRecord(qint64 at, const QString& hexId = {});
    std::optional<qint64> formerRecord(qint64 at, const QString& hexId = {});

    /// The files that have something of the span.
    QStringList filesIn(TimeSpan span) const;
    /// Copies one of them, as it is now, into a folder that exists. A file of that name is an
    /// error. Gives an empty text, or what went wrong, untranslated.
    QString copyFile(const QString& path, const QString& folder);
    /// Copies the files that overlap the span, as they are now, into a folder that exists. A file
    /// of that name is an error. Gives an empty text, or what went wrong, untranslated.
    QString copyTo(const QString& folder, TimeSpan span);

private:
    struct File;
    /// Gives what a file has of a span, for each file that overlaps it; sorted by time.
    template <typename Value, typename Read>
    std::vector<Value> collect(TimeSpan span, qint64 Value::*time, const Read& read);
    /// The same of the last `limit`: from the last file back, as far as it takes.
    template <typename Value, typename Read>
    std::vector<Value> collectLast(TimeSpan span, int limit, qint64 Value::*time, const Read& read);
    RecordingSource& use(File& file);

    QString m_path;
    std::vector<std::unique_ptr<File>> m_files; ///< by day
    std::vector<File*> m_open;                  ///< the one used last is the last
    std::vector<RecordingNotice> m_notices;
};
