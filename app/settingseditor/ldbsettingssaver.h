#pragma once

#include "serial/commandbatch.h"
#include "serial/ldbsettings.h"
#include "serial/ldbstatus.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <memory>

class SerialLink;

/// Writes settings into one LDB and then makes sure of them: every refusal and every missing answer
/// is told, and the record is read again and compared. GUI thread only.
class LdbSettingsSaver : public QObject
{
    Q_OBJECT
public:
    /// How long a rebooting LDB is waited for before its record is read the second time.
    static constexpr int kRebootLimitMs = 15000;

    /// `link` outlives the saver.
    explicit LdbSettingsSaver(SerialLink* link, QObject* parent = nullptr);
    ~LdbSettingsSaver() override;

    /// Begins; not while one is writing. A former Save that is being checked is left at that.
    void save(const QString& hexId, const LdbSettings& settings);

    /// Until the answer to the last command.
    bool isWriting() const { return m_isWriting; }

signals:
    /// The last command has been answered or given up.
    void finished();
    /// What the LDB has now; `isComplete` when it had accepted all that was written.
    void recordRead(const QString& hexId, const LdbSettings& record, const LdbSettings& written,
                    bool isComplete);
    /// All is accepted, and the LDB reports it.
    void saved(const QString& hexId);
    /// What went wrong, in words; again with more when reading the record shows more.
    void failed(const QString& text);

private:
    void processReply(int command, const Reply& reply);
    void processAllWritten();
    void processWritingAborted();
    void readRecord();
    void processRecord(const QByteArray& answer);
    void waitForReboot();
    void processStateUpdated(const QString& hexId, LdbState state);
    void readAgain();
    void processReadingAborted();
    void fail(const QString& what);
    std::unique_ptr<CommandBatch> batchOf(std::vector<std::unique_ptr<ISerialCommand>> commands);

    SerialLink* m_link;
    std::unique_ptr<CommandBatch> m_batch;
    QTimer m_rebootTimer{this};
    QString m_hexId;
    LdbSettings m_written;
    QStringList m_notWritten;
    QByteArray m_recordAnswer;
    bool m_isWriting = false;
    bool m_isSecondReading = false;
};
