#pragma once

#include "recording/recordingexport.h"

#include <QObject>
#include <QString>

#include <memory>

class RecordingAccess;

/// Which part of the recording is written, and where.
struct EvidenceOrder
{
    enum class Kind
    {
        Log,
        Capture,
        Events,
        Copy
    };
    Kind kind = Kind::Log;
    TimeSpan span;
    recordingexport::LogChoice log; ///< of `Log`
    QString path;                   ///< a file; for `Copy` a folder, which is made
};

/// Writes what is recorded into files, a piece at a time, so that nobody waits for it. A file is
/// written as a whole or not at all. One order at a time; GUI thread.
class EvidenceWriter : public QObject
{
    Q_OBJECT
public:
    enum class Outcome
    {
        Done,
        Stopped, ///< by the user
        Failed
    };

    /// `access` outlives this object.
    explicit EvidenceWriter(RecordingAccess* access, QObject* parent = nullptr);
    ~EvidenceWriter() override;

    bool isOn() const { return m_work != nullptr; }
    /// Begins; ignored while one is on.
    void begin(const EvidenceOrder& order);
    /// Ends the order under way, if any, with the next piece.
    void stop();

signals:
    /// The share that is done, 0 to 1.
    void progressed(double share);
    /// `reason`: what the system said of a failure.
    void ended(EvidenceWriter::Outcome outcome, const QString& reason);

private:
    struct Work;
    struct Step
    {
        double share = 0.0;
        bool isDone = false;
        QString reason;
    };
    static Step write(Work& work, RecordingReader& reader);
    static Step copy(Work& work, RecordingReader& reader);
    void goOn();
    void take(const Step& step);
    void end(Outcome outcome, const QString& reason);

    RecordingAccess* m_access;
    std::shared_ptr<Work>
        m_work; ///< used by one thread at a time: within a step by the reading one
    bool m_isStopping = false;
};
