#pragma once

#include "serial/conversation/conversation.h"
#include "serial/ldb/ldbstatus.h"
#include "serial/ldb/serialcommand.h"
#include "serial/ldb/startplan.h"
#include "serial/link/busport.h"
#include "serial/link/portsource.h"
#include "serial/link/serialtuning.h"
#include "serial/wire/framecodec.h"
#include "serial/wire/hextext.h"

#include <QDateTime>
#include <QObject>
#include <QStringList>
#include <QTimer>

#include <deque>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

/// Host of the conversation with the bus: owns the port, the timer and the queued commands, hands
/// over what comes, transmits what the conversation wants, and tells its events as signals. It
/// decides nothing itself.
///
/// Lives in a worker thread, or in its link's own if the ports are made for that. Port and timer
/// are made, used and deleted there, and every member is touched there only; the exceptions are
/// `setPortName` and `setStart`, called while no run is on. Whoever is told something may call any
/// slot at once, `stop` and `start` among them. The rest of the program posts to the slots and
/// listens to the signals (see `SerialLink`).
class SerialProcessor : public QObject
{
    Q_OBJECT
public:
    /// Reads the tuning file of the working directory.
    explicit SerialProcessor(PortSource::Make makePort = PortSource::serialPorts().make,
                             QObject* parent = nullptr);
    ~SerialProcessor() override;

    /// Only while no run is on. Another port is another bus, with LDBs of its own, unless it is
    /// said to be the same one.
    void setPortName(const QString& portName, bool isSameBus = false);

    /// How the next run finds its LDBs; the one behind it scans again. Only while no run is on.
    void setStart(StartPlan plan) { m_plan = std::move(plan); }

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
    /// Takes these out of the list where they are lost.
    void dismiss(const QStringList& hexIds);
    /// The bus has these, beside those that answer.
    void expect(const std::vector<KnownLdb>& ldbs);
    /// The LDB whose status is asked in between in long rounds; none for an empty id.
    void setSelectedLdb(const QString& hexId);
    /// While held, no address is probed in the background.
    void setBackgroundSearchHeld(bool isHeld);

public:
    /// Queues a command and takes it over. It is notified once it has been transmitted: with the
    /// answer, or with nothing. One that is never transmitted is deleted without a word.
    void appendCommand(std::unique_ptr<ISerialCommand> command);

signals:
    /// The port is open. Once a run.
    void opened();
    void stopped();
    void ldbListInitializationStateChange(bool initializing);
    /// Addresses probed (1 to 253) and LDBs found so far.
    void ldbListInitializationProgress(int checked, int found);
    /// The ids found, in that order; lost LDBs stay in it.
    void ldbListChanged(QStringList hexIds);
    /// The LDB's state differs from its last one, or is the first since the start or scan.
    void ldbStateUpdated(QString hexId, LdbState state);
    /// Whether an LDB of the list, or one that joins it now, has still to be heard in this run.
    void awaitedChanged(QString hexId, bool isAwaited);
    /// The name taken for the LDB's own now, when it has told it.
    void nameTold(QString hexId, QString name);
    void knownProbed(int answered, int asked);
    void generalInformationUpdated(QString hexId, QList<QStringList> dataList);
    /// A record that is no part of a round.
    void extraInformationUpdated(QString hexId, QList<QStringList> dataList);
    void roundBegun(QDateTime wall);
    void roundEnded();
    /// What of a round an LDB takes when all is well, µs.
    void usualTurnTold(qint64 time);
    void exchanged(Exchange exchange);
    void externalCommandsInQueueUpdated(int commandsInQueue);
    /// What the port said; comes just before `communicationFailed()`.
    void portFailed(QString portName, int error, QString description);
    /// The port did not open, or failed and has been closed. Once a run.
    void communicationFailed();
    /// The LDB has missed too many polls in a row, by silence or by bad answers. Once a loss.
    void ldbDisconnected(QString hexId);

private slots:
    void readData();
    void timeout();
    void sendSerialData(const QByteArray& data);
    void handleGeneralInformationEmit(const QString& hexId, const QString& deviceName,
                                      LdbStatus ldbStatus, const QString& timestampSeconds,
                                      const QString& timestampMiliseconds);
    void failPort();

private:
    Conversation::Moment moment() const;
    void pump();
    void retirePort();
    void tell(const event::Record& record);
    void tell(const event::RoundBegun& round)
    {
        emit roundBegun(QDateTime::fromMSecsSinceEpoch(round.time));
    }
    void tell(const event::RoundEnded&) { emit roundEnded(); }
    void tell(const event::UsualTurn& turn) { emit usualTurnTold(turn.time); }
    void tell(const event::NameTold& told) { emit nameTold(told.hexId, told.name); }
    void tell(const event::AwaitedChange& awaited)
    {
        emit awaitedChanged(awaited.hexId, awaited.isAwaited);
    }
    void tell(const event::KnownProbed& probed) { emit knownProbed(probed.answered, probed.asked); }
    void tell(const Exchange& exchange) { emit exchanged(exchange); }
    void tell(const event::StateChange& change)
    {
        emit ldbStateUpdated(change.hexId, change.state);
    }
    void tell(const event::Loss& loss) { emit ldbDisconnected(loss.hexId); }
    void tell(const event::ScanState& scan)
    {
        emit ldbListInitializationStateChange(scan.isRunning);
    }
    void tell(const event::ScanProgress& scan)
    {
        emit ldbListInitializationProgress(scan.checked, scan.found);
    }
    void tell(const event::ListChange& list) { emit ldbListChanged(list.hexIds); }
    void tell(const event::CommandDone& command);
    void tell(const event::QueueLength& queue)
    {
        emit externalCommandsInQueueUpdated(queue.commands);
    }
    void tell(const event::Stopped&) { emit stopped(); }
    void tell(const event::Diagnostic& diagnostic);

    const PortSource::Make m_makePort;
    const SerialTuning m_tuning;
    Conversation m_conversation;
    StartPlan m_plan;
    QString m_portName;
    std::unique_ptr<BusPort> m_port;
    std::unique_ptr<QTimer> m_timer;
    std::unordered_map<quint64, std::unique_ptr<ISerialCommand>> m_commands;
    std::deque<Event> m_untold;
    quint64 m_commandNumber = 0;
};
