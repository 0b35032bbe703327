#pragma once

#include "recording/recordingfile.h"
#include "recording/recordingfolder.h"
#include "recording/recordingnotice.h"
#include "recording/rowmaker.h"

#include <QDate>

#include <vector>

/// Writes what the recorder is told into the files of a folder: one a day, and another one where a
/// file cannot be used. What cannot be written now waits; what no longer fits becomes a gap.
///
/// Has no clock: the time is that of what it is told. Used in one thread.
class RecordWriter
{
public:
    struct Options
    {
        QString folder;
        QString programVersion;
        recordingfolder::Limits limits;
        bool isSynced = true; ///< nothing is lost at a power cut; without it, nothing at a crash
    };
    explicit RecordWriter(Options options);
    ~RecordWriter();
    RecordWriter(const RecordWriter&) = delete;
    RecordWriter& operator=(const RecordWriter&) = delete;

    /// Writes them. When it returns, each is on the disk, waits, or is a part of a gap.
    void take(const RecorderInputs& inputs);
    /// Moves the files of another folder into the place in force, as far as that can be done.
    void takeOver(const QString& folder);
    /// Tries for the last time to write what waits, and closes the file.
    void finish();

    /// What is told from now on goes there; nowhere if the folder is empty.
    void setPlace(const QString& folder, const recordingfolder::Limits& limits);
    /// What the user has to know since the last call.
    std::vector<RecordingNotice> takeNotices() { return std::exchange(m_notices, {}); }
    /// The events since the last call, found or handed in.
    std::vector<RecordedEvent> takeEvents();
    /// The file that is being recorded into; empty without one.
    QString path() const { return m_file.isOpen() ? m_file.path() : QString(); }

    /// How many rows wait at most while the disk cannot be written to: about a quarter of an hour.
    static constexpr int kMostWaiting = 20000;

private:
    bool writeIntoPast(const RecordedEvent& mark);
    bool isAnotherFileDue(const RecorderInput& input) const;
    void beginFile(qint64 at);
    bool openFile();
    void enqueue(const RecorderInput& input);
    void flush();
    bool writeWaiting();
    void failed(const RecordingNotice& notice);
    void say(RecordingNotice::Kind kind, const QString& path, const QString& reason = {});
    void takeOverFinder();
    void closeLeftOpen(const QString& folder);
    void removeExcess();

    Options m_options;
    RowMaker m_maker;
    RecordingFile m_file;
    QDate m_day;           ///< of what waits
    int m_firstNumber = 1; ///< the first the first of the day's files that may be used
    QString m_ownPath;     ///< the file with what was told since `m_begunAt`
    qint64 m_endOfDay = 0;
    qint64 m_begunAt = 0; ///< the first moment of what goes into the file
    qint64 m_now = 0;     ///< the latest moment told
    FileRows m_waiting;
    int m_waitingExchanges = 0;
    qint64 m_gapFrom = 0;
    int m_gapCount = 0;
    qint64 m_retryAt = 0;
    bool m_isOutage = false;
    bool m_isOtherWindowTold = false;
    qint64 m_nextCleaning = 0;
    std::vector<RecordingNotice> m_notices;
    std::vector<RecordedEvent> m_pastMarks; ///< written, and not told yet
};
