#pragma once

#include "recording/recordcollector.h"
#include "recording/recordingfolder.h"
#include "recording/recordingnotice.h"

#include <QObject>
#include <QThread>
#include <QTimer>

#include <functional>
#include <memory>

class RecordWriterHost;

/// Records what the serial link tells, as long as it is enabled: collects it, and hands it once a
/// second to its writer, which lives in a thread of its own. Only the end of the program waits for
/// the disk, and not for long. GUI thread only.
class Recorder : public QObject
{
    Q_OBJECT
public:
    struct Options
    {
        bool isEnabled = true;
        QString folder; ///< made when the first row is written
        recordingfolder::Limits limits;

        bool operator==(const Options& other) const
        {
            return isEnabled == other.isEnabled && folder == other.folder &&
                   limits.days == other.limits.days && limits.bytes == other.limits.bytes;
        }
    };
    enum class Thread
    {
        Own,
        Callers ///< for virtual time: writes when the event loop comes to it, and waits for no disk
    };
    /// `wallTime`: the clock of the link's ports, ms since 1970 UTC.
    Recorder(const QString& programVersion, std::function<qint64()> wallTime,
             Thread thread = Thread::Own, QObject* parent = nullptr);
    /// Waits until what was told by now is on the disk, unless the disk hangs.
    ~Recorder() override;

    /// May be called at any time; what is told afterwards goes there.
    void setOptions(const Options& options);
    const Options& options() const { return m_options; }
    /// Moves the recordings of a folder that is no longer recorded into to where recordings go now;
    /// `tookOver` comes when that is done, as far as it can be.
    void takeOver(const QString& folder);
    /// Whether a run is on and is being written to the disk.
    bool isRecording() const { return m_options.isEnabled && m_isRunning && !m_isOutage; }
    /// Whether nothing can be written.
    bool isOutage() const { return m_isOutage; }
    /// The file that is being recorded into; empty without one.
    QString filePath() const { return m_filePath; }
    /// The moment of now, on the time line of the recording (UTC, µs since 1970).
    qint64 moment() const { return m_collector.moment(); }

    /// Takes an event that is not in the records: an action, a save, a mark of the user. One
    /// without a time is of now.
    void note(const RecordedEvent& event);
    /// Hands over at once what was told by now.
    void flush();

public slots:
    // What the serial link tells.
    void beginRun(const QString& port);
    void endRun();
    void beginRound(const QDateTime& wall);
    void endRound();
    void takeExchange(const Exchange& exchange);
    /// Records of the rounds and those in between.
    void takeRecord(const QString& hexId, const QList<QStringList>& rows);
    /// During a scan the list is not whole.
    void setList(const QStringList& hexIds);
    void endScan(const QStringList& found);

signals:
    /// What the user has to know.
    void noticeGiven(const RecordingNotice& notice);
    /// An event is in the recording: found in the records, or handed in.
    void eventRecorded(const RecordedEvent& event);
    void tookOver(const QString& folder);
    /// `isRecording()` or `filePath()` may have changed.
    void changed();

private:
    friend class RecordWriterHost;
    void processWritten(int inputs, const std::vector<RecordingNotice>& notices,
                        const std::vector<RecordedEvent>& events, const QString& path);
    bool isTaking();

    Options m_options;
    RecordCollector m_collector;
    QTimer m_handOver;
    QThread m_thread;
    RecordWriterHost* m_host; ///< in the thread, which deletes it
    bool m_hasThread;
    int m_unwritten = 0;
    bool m_isRunning = false;
    bool m_isOutage = false;
    QString m_filePath;
    QString m_port;
    QStringList m_list;
};
