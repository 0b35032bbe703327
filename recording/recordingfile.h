#pragma once

#include "recording/filerows.h"
#include "recording/recordingschema.h"

#include <QSqlQuery>

#include <memory>

class QLockFile;

/// One file that is being recorded into. While it is open nobody else writes to it; readers may
/// read. Everything written by one `write()` is on the disk when that returns, or none of it is.
///
/// Used in the thread that made it.
class RecordingFile
{
public:
    enum class Opening
    {
        Done,
        InUse,   ///< another program records into it
        Newer,   ///< of a later version of the program
        Damaged, ///< or no recording at all
        Failed   ///< the folder or the disk does not permit it
    };

    /// `isSynced`: `write` returns only when the disk has it.
    explicit RecordingFile(bool isSynced = true);
    ~RecordingFile();
    RecordingFile(const RecordingFile&) = delete;
    RecordingFile& operator=(const RecordingFile&) = delete;

    /// Opens it, makes it where there is none.
    Opening open(const QString& path, const QString& programVersion);
    bool isOpen() const { return m_lock != nullptr; }
    QString path() const { return m_path; }

    /// False when nothing of it was written; `failure()` and `errorString()` say why.
    bool write(const FileRows& rows);
    recordingschema::Failure failure() const { return m_failure; }
    QString errorString() const { return m_errorString; }

    /// Whether the file is still where it was opened.
    bool isThere() const;
    /// Of the latest exchange; 0 without one.
    qint64 lastAt() const { return m_lastAt; }
    /// The state of the event finder that was kept.
    QByteArray finderState();

    /// Closes it as one file, which also opens on a medium that cannot be written to.
    void close();

private:
    bool insert(const filerow::Transmission& row);
    bool insert(const filerow::Round& row);
    bool insert(const RecordedMinute& row);
    bool insert(const RecordedEvent& row);
    bool insert(const filerow::Run& row);
    bool insert(const filerow::FinderState& row);
    bool prepare();
    bool isSound();
    bool run(QSqlQuery& query);
    bool run(const char* statement);
    bool fail(const QSqlError& error);
    bool failInside(const QSqlError& error);
    Opening openLocked(const QString& programVersion);

    QString m_path;
    QString m_errorString;
    recordingschema::Failure m_failure = recordingschema::Failure::None;
    bool m_isSynced;
    qint64 m_lastAt = 0;
    std::unique_ptr<QLockFile> m_lock;
    // In this order: a query goes before its connection.
    std::unique_ptr<recordingschema::Connection> m_connection;
    struct Queries;
    std::unique_ptr<Queries> m_queries;
};
