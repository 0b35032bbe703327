#pragma once

#include "serial/ldbstatus.h"
#include "serial/serialcommand.h"

#include <QHash>
#include <QObject>
#include <QStringList>
#include <QThread>

#include <memory>

class SerialProcessor;
class RunSignals;

/// The GUI side of the serial processor: owns it and its worker thread, starts and stops runs,
/// posts to it, and keeps the GUI's own copy of what its signals told (LDB list, states). GUI
/// thread only; nothing here reads the processor.
///
/// Every start is a run of its own. Signals of a run that has been stopped are dropped here, so no
/// receiver ever sees a late one.
class SerialLink : public QObject
{
    Q_OBJECT
public:
    explicit SerialLink(QObject* parent = nullptr);
    /// Ends the worker before the processor is destroyed.
    ~SerialLink() override;

    bool isRunning() const;

    /// The port of the next run. Only while no run is on.
    void setPortName(const QString& portName);

    /// Begins a run: opens the port, scans, polls. Does nothing while one is on.
    void start();
    /// Ends the run, waits at most one second for the worker, and emits `stopped()`.
    void stop();
    /// Scans the bus anew: at the next dispatch, or by starting a run.
    void rescan();

    /// Queues a command behind those waiting. Without a run it is destroyed unsent.
    void post(std::unique_ptr<ISerialCommand> command);

    /// Polls this LDB alone, with no probes of lost ones; an empty id polls all again. An id that
    /// is not in the list changes nothing.
    void pollOnly(const QString& hexId);
    QString polledAlone() const { return m_polledAlone; }

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
    void communicationFailed();
    /// Comes before `communicationFailed()`: what the port said. `error` is a
    /// `QSerialPort::SerialPortError`.
    void portFailed(const QString& portName, int error, const QString& description);
    void ldbDisconnected(QString hexId);

private:
    template <typename Task>
    void postToRun(Task task);
    void forwardRunSignals();
    void forgetLdbs();
    void processListChanged(const QStringList& hexIds);
    void processLoss(const QString& hexId);
    void processStateUpdated(const QString& hexId, LdbState state);

    std::unique_ptr<QThread> m_thread;
    std::unique_ptr<SerialProcessor> m_processor;
    std::unique_ptr<RunSignals> m_runSignals;
    bool m_running = false;
    int m_run = 0;
    QString m_polledAlone;
    QStringList m_ldbs;
    QHash<QString, LdbState> m_states;
};
