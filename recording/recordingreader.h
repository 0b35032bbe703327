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

/// Reads a recording: a file, or a folder of days as one. It never writes, may work while the
/// recorder writes, and sees what has been committed when it is asked. Moments are UTC, µs since
/// 1970; lists are ascending.
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
    /// Looks again which files there are, and how far the last one reaches. Otherwise an open
    /// reader sees no later file.
    void refresh();
    /// What could not be read since the last call.
    std::vector<RecordingNotice> takeNotices();

    /// From the first moment to just after the last one; nothing where nothing is recorded.
    std::optional<TimeSpan> extent() const;

    /// The records of one LDB, or of all if the id is empty. A limit leaves the last ones of the
    /// span.
    std::vector<RecordedRecord> records(const QString& hexId, TimeSpan span, int limit = -1);
    /// Every LDB that was in the list at a moment, in that order, with its last record up to then.
    /// One that had not been heard by then has no rows.
    std::vector<RecordedRecord> stateAt(qint64 at);
    /// `sentAt` is the key in the recording. A request that was not stored, as kind and LDB tell
    /// it, is filled in.
    std::vector<Exchange> exchanges(const QString& hexId, TimeSpan span, int limit = -1);
    /// The exchanges of one kind, of all LDBs.
    std::vector<Exchange> exchangesOf(ExchangeKind kind, TimeSpan span);
    /// The minutes that overlap the span. With `each` above 1, as many minutes are summed up in one
    /// from the begin of the span on; `at` is where each sum begins. LDBs that were not asked have
    /// none.
    std::vector<RecordedMinute> minutes(const QString& hexId, TimeSpan span, int each = 1);
    /// The events that are for people. A limit leaves the last ones.
    std::vector<RecordedEvent> events(TimeSpan span, int limit = -1);
    /// The runs that overlap the span. A run of several days is one.
    std::vector<RecordedRun> runs(TimeSpan span);
    /// The rounds that began in the span. A limit leaves the last ones.
    std::vector<RecordedRound> rounds(TimeSpan span, int limit = -1);
    /// The lists of LDBs that came into force in the span.
    std::vector<RecordedList> lists(TimeSpan span);
    /// Where exchanges are missing, as the recorder's events say.
    std::vector<RecordedGap> gaps(TimeSpan span);

    /// The moment of the next record after `at`, or of the last one before it: of one LDB, or of
    /// any if the id is empty.
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
    /// Reads a span from each file that overlaps it; sorted by time.
    template <typename Value, typename Read>
    std::vector<Value> collect(TimeSpan span, qint64 Value::*time, const Read& read);
    /// The same for the last `limit` ones: from the last file back, as far as needed.
    template <typename Value, typename Read>
    std::vector<Value> collectLast(TimeSpan span, int limit, qint64 Value::*time, const Read& read);
    RecordingSource& use(File& file);

    QString m_path;
    std::vector<std::unique_ptr<File>> m_files; ///< by day
    std::vector<File*> m_open;                  ///< the one used last stands last
    std::vector<RecordingNotice> m_notices;
};
