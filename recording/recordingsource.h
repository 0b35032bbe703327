#pragma once

#include "recording/recordedevent.h"
#include "recording/recordedvalues.h"
#include "recording/recordingnotice.h"
#include "recording/recordingschema.h"
#include "serial/ldb/exchange.h"

#include <QMap>
#include <QSet>
#include <QSqlQuery>

#include <functional>
#include <memory>
#include <optional>

/// One file of a recording, read. What is damaged in it ends what is read of it, with a notice; it
/// never ends the program. Used in the thread that made it.
class RecordingSource
{
public:
    explicit RecordingSource(QString path);
    ~RecordingSource();
    RecordingSource(const RecordingSource&) = delete;
    RecordingSource& operator=(const RecordingSource&) = delete;

    QString path() const { return m_path; }
    /// Opens it, if it is not. False when nothing can be read of it.
    bool open();
    bool isOpen() const { return m_connection != nullptr; }
    void close();

    /// First and last moment of what is in it, the last one included; nothing of an empty file.
    std::optional<TimeSpan> extent();

    // Ascending. A limit leaves the last ones; -1 is none.
    std::vector<RecordedRecord> records(const QString& hexId, TimeSpan span, int limit);
    std::vector<Exchange> exchanges(const QString& hexId, TimeSpan span, int limit,
                                    std::optional<ExchangeKind> only = {});
    std::vector<RecordedMinute> minutes(const QString& hexId, TimeSpan span, int each);
    /// All but those that are not for people.
    std::vector<RecordedEvent> events(TimeSpan span);
    std::vector<RecordedRun> runs();

    /// The last list up to `at`; nothing when there is none.
    struct Listed
    {
        qint64 at = 0;
        QStringList hexIds;
    };
    std::optional<Listed> listAt(qint64 at);
    /// The last record up to `at` of each of these LDBs that has one; of all without any.
    std::vector<RecordedRecord> latest(qint64 at, const QSet<QString>& hexIds);
    /// The next record after, or the last one before `at`.
    std::optional<qint64> neighbour(qint64 at, bool isAfter, const QString& hexId);

    /// A copy of the whole in a file that does not exist yet; an empty text, or why not.
    QString copyTo(const QString& path);

    std::vector<RecordingNotice> takeNotices() { return std::exchange(m_notices, {}); }

private:
    struct Round
    {
        qint64 wall = 0;
        int offset = 0;
    };
    struct Row;
    /// What the records of a span take from the small tables.
    struct Context;

    bool openAs(const QString& name, const QString& options);
    bool say(RecordingNotice::Kind kind, const QString& reason = {});
    std::optional<QSqlQuery> ask(const QString& statement, const QVariantList& values);
    bool next(QSqlQuery& query);
    std::optional<TimeSpan> rangeOf(const QString& statement);
    std::vector<Row> rows(const QString& condition, const QVariantList& values, bool isDescending,
                          int limit);
    Context contextOf(TimeSpan span);
    std::optional<RecordedRecord> recordOf(const Row& row, const Context& context);
    void sayDamaged(const QString& reason = {});
    std::vector<RecordedEvent> readEvents(const QString& condition, const QVariantList& values);
    qint64 beginOfLast(const QString& hexId, qint64 to, int count);
    std::optional<Row> lastOf(const QString& hexId, qint64 at);

    QString m_path;
    std::unique_ptr<recordingschema::Connection> m_connection;
    bool m_isUnreadable = false;
    bool m_isDamageTold = false;
    std::vector<RecordingNotice> m_notices;
};
