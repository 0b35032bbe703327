#pragma once

#include "serial/ldb/ldbstatus.h"
#include "serial/ldb/serialcommand.h"
#include "serial/link/portsource.h"

#include <QHash>
#include <QObject>
#include <QStringList>
#include <QThread>

#include <functional>
#include <memory>

class SerialProcessor;

/// The GUI side of the serial processor: owns it and its thread, starts and stops runs, posts to
/// it, and keeps the GUI's own copy of what its signals told (LDB list, states). GUI thread only;
/// nothing here reads the processor.
///
/// Every start is a run of its own. What a stopped run still had to say is dropped here, and what
/// it had not sent yet is destroyed unsent.
class SerialLink : public QObject
{
    Q_OBJECT
public:
    explicit SerialLink(const PortSource& ports = PortSource::serialPorts(),
                        QObject* parent = nullptr);
    /// Ends the worker before the processor is destroyed.
    ~SerialLink() override;

    bool isRunning() const { return m_running; }

    /// The port of the next run. Only while no run is on.
    void setPortName(const QString& portName);

    /// Begins a run: opens the port, scans, polls. Does nothing while one is on.
    void start();
    /// Ends the run, waits at most one second for the worker, and emits `stopped()`.
    void stop();
    /// Scans the bus anew: at the next dispatch, or by starting a run.
    void rescan();

    /// Queues a command behind those waiting. `function` gets its reply exactly once, in the thread
    /// of `context` and from its event loop, unless `context` dies first: also when there is no
    /// run, the run ends, the port dies, or this link is destroyed.
    void ask(std::unique_ptr<ISerialCommand> command, QObject* context,
             std::function<void(const Reply&)> function);

    /// Queues a command behind those waiting, with the observers that it has. Without a run, and
    /// when its run ends first, it is destroyed unsent.
    void post(std::unique_ptr<ISerialCommand> command);

    /// Polls this LDB alone, with no probes of lost ones; an empty id polls all again. An id that
    /// is not in the list changes nothing.
    void pollOnly(const QString& hexId);

    /// Every LDB of the last scan, in the order found, lost ones included.
    QStringList knownLdbs() const { return m_ldbs; }
    /// The known LDBs less those lost now.
    QStringList connectedLdbs() const;
    bool isConnected(const QString& hexId) const;
    /// The last state told; `Disconnected` for an id that is not known.
    LdbState stateOf(const QString& hexId) const;

signals:
    void started();
    void stopped();
    void ldbListInitializationStateChange(bool initializing);
    void ldbListInitializationProgress(int checked, int found);
    void ldbListChanged(const QStringList& hexIds);
    void ldbStateUpdated(QString hexId, LdbState state);
    void generalInformationUpdated(QString hexId, QList<QStringList> dataList);
    void externalCommandsInQueueUpdated(int commandsInQueue);
    /// An LDB's settings were read, or a mute was written and accepted, whoever asked for it.
    void audioMuteTold(const QString& hexId, bool isMuted);
    void communicationFailed();
    /// Comes before `communicationFailed()`: what the port said. `error` is a
    /// `QSerialPort::SerialPortError`.
    void portFailed(const QString& portName, int error, const QString& description);
    void ldbDisconnected(QString hexId);

private:
    template <typename Task>
    void postToRun(Task task);
    bool hasThreadEnded();
    void dropPosted();
    void followRun();
    template <typename Signal, typename Handler>
    void follow(Signal signal, Handler handler);
    void listenForMute(ISerialCommand& command);
    void forgetLdbs();
    void processListChanged(const QStringList& hexIds);
    void processLoss(const QString& hexId);
    void processStateUpdated(const QString& hexId, LdbState state);

    std::unique_ptr<QThread> m_thread; ///< none if the processor lives in this one
    std::unique_ptr<SerialProcessor> m_processor;
    bool m_running = false;
    int m_run = 0;
    QStringList m_ldbs;
    QHash<QString, LdbState> m_states;
};
