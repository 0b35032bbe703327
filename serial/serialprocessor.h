#pragma once

#include "serial/answerledger.h"
#include "serial/busport.h"
#include "serial/busscan.h"
#include "serial/commandqueue.h"
#include "serial/framecodec.h"
#include "serial/hextext.h"
#include "serial/ldbmemory.h"
#include "serial/ldbstatus.h"
#include "serial/limitedlog.h"
#include "serial/pollschedule.h"
#include "serial/serialcommand.h"
#include "serial/serialtuning.h"
#include "serial/silenceguard.h"

#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QStringList>
#include <QTimer>

#include <memory>

/// Master of the bus: owns the serial port and runs the whole conversation: the scan, the polling
/// cycle over the LDBs found, and the commands queued by the rest of the program.
///
/// Lives in a worker thread. Port and timer are made, used and deleted there, and every member is
/// touched there only; the one exception is `setPortName`, called while the thread is not running.
/// The rest of the program posts to the slots and listens to the signals (see `SerialLink`).
class SerialProcessor : public QObject
{
    Q_OBJECT
public:
    /// Reads the tuning file of the working directory.
    explicit SerialProcessor(QObject* parent = nullptr);
    ~SerialProcessor() override;

    /// Only while the worker thread is not running.
    void setPortName(const QString& portName) { m_portName = portName; }

    // The frame format (see `framecodec`, `hextext`).
    Q_INVOKABLE static quint8 crc8(quint8* buf, uint16_t len) { return framecodec::crc8(buf, len); }
    Q_INVOKABLE static QByteArray intToHex(int number)
    {
        return hextext::fromNumber(static_cast<uint>(number));
    }
    static QByteArray createCommand(const QByteArray& data)
    {
        return framecodec::createCommand(data);
    }
    static bool processReceivedData(QByteArray& receivedData, QByteArray& totalData)
    {
        return framecodec::processReceivedData(receivedData, totalData);
    }
    static bool responseValidation(QByteArray& responseData)
    {
        return framecodec::responseValidation(responseData);
    }

public slots:
    /// Opens the port, scans, then polls until `stop()`. A port that does not open is told by
    /// `communicationFailed()`. Always true.
    bool start();
    /// Closes the port, forgets what is queued, and says `stopped()`.
    void stop();
    /// Scans anew at the next dispatch.
    void requestRescan();
    /// Polls one LDB alone, or all again for an empty id; an LDB not found changes nothing.
    void pollOnly(const QString& hexId);

public:
    /// Queues a command and takes it over. While no run is on it is deleted unsent.
    void appendCommand(std::unique_ptr<ISerialCommand> command);

signals:
    void stopped();
    void ldbListInitializationStateChange(bool initializing);
    /// Addresses probed (1 to 253) and LDBs found so far.
    void ldbListInitializationProgress(int checked, int found);
    /// The ids found, in that order; lost LDBs stay in it.
    void ldbListChanged(QStringList hexIds);
    /// The LDB's state differs from its last one, or is the first since the start or scan.
    void ldbStateUpdated(QString hexId, LdbState state);
    void generalInformationUpdated(QString hexId, QList<QStringList> dataList);
    void externalCommandsInQueueUpdated(int commandsInQueue);
    /// What the port said; comes just before `communicationFailed()`.
    void portFailed(QString portName, int error, QString description);
    /// The port did not open, or failed and has been closed. Once a run.
    void communicationFailed();
    /// The LDB has been silent for too long. Once a loss.
    void ldbDisconnected(QString hexId);

private slots:
    void processState();
    void readData();
    void timeout();
    void sendSerialData(const QByteArray& data);
    void retrySendSerialData();
    void initializeVariables();
    void handleGeneralInformationEmit(const QString& hexId, const QString& deviceName,
                                      LdbStatus ldbStatus, const QString& timestampSeconds,
                                      const QString& timestampMiliseconds);
    void addDisconnectedDevice(const QString& hexId, const QString& timestampSeconds,
                               const QString& timestampMiliseconds);
    void clearDisconnectedDevice(const QString& hexId);
    void failPort();

private:
    enum class State
    {
        Stopped = 0,
        Dispatch = 1, ///< and the bus scan
        StatusPoll = 2,
        NameRequest = 3,
        FirmwareRequest = 4,
        ExternalCommands = 5,
        LostProbe = 6
    };

    void goTo(State state);
    void processDispatch();
    void processScan();
    void processStatusPoll();
    void beginRound();
    void processExternalCommands();
    void request(const ISerialCommand& command, int window);
    void logUnexpected(const QString& what);
    bool isPolling() const
    {
        return m_state == State::StatusPoll || m_state == State::NameRequest ||
               m_state == State::FirmwareRequest;
    }

    void processAnswer(const QByteArray& answer);
    void deliverAnswer(const QByteArray& answer, bool isMisfit);
    bool drainsLine(const QByteArray& batch);
    void endGuardedWait();
    void processInvalidAnswer(bool isRefusal);
    void rejectAnswer(const QString& reason);
    State nextPollingState() const;
    void processPollingAnswer(const QByteArray& answer);
    void countMiss();
    void leavePollingStep(State next);
    void finishExternalCommand(const QByteArray& answer);
    void endQueue();
    void emitDisconnectedRows(const QString& hexId);

    const SerialTuning m_tuning;
    QString m_portName;

    std::unique_ptr<BusPort> m_port;
    std::unique_ptr<QTimer> m_timer;
    QElapsedTimer m_clock;
    State m_state = State::Stopped;

    BusScan m_scan;
    CommandQueue m_queue;
    PollSchedule m_schedule;
    AnswerLedger m_ledger;
    SilenceGuard m_guard;
    int m_window = 0; ///< ms, of the pending request
    QByteArray m_received;
    QByteArray m_lastFrame;
    int m_timeouts = 0;
    QString m_hexId; ///< the LDB addressed now

    QString m_roundSeconds;
    QString m_roundMilliseconds;
    LdbMemory m_memory;
    LimitedLog m_log;
};
