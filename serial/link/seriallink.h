#pragma once

#include "serial/ldb/exchange.h"
#include "serial/ldb/ldbstatus.h"
#include "serial/ldb/recordsource.h"
#include "serial/ldb/serialcommand.h"
#include "serial/ldb/startplan.h"
#include "serial/link/portsource.h"

#include <QDateTime>
#include <QHash>
#include <QObject>
#include <QSet>
#include <QStringList>
#include <QThread>

#include <functional>
#include <memory>
#include <vector>

class SerialProcessor;

/// The GUI side of the serial processor: owns it and its thread, starts and stops runs, posts to
/// it, and keeps the GUI's own copy of what its signals told (LDB list, states). GUI thread only;
/// nothing here reads the processor.
///
/// Every start is a run of its own. What a stopped run still had to say is dropped here, and what
/// it had not sent yet is destroyed unsent.
class SerialLink : public RecordSource
{
    Q_OBJECT
public:
    explicit SerialLink(const PortSource& ports = PortSource::serialPorts(),
                        QObject* parent = nullptr);
    /// Ends the worker before the processor is destroyed.
    ~SerialLink() override;

    bool isRunning() const { return m_running; }

    /// The port of the next run. Only while no run is on. With another one than before, the LDBs
    /// known are forgotten, unless the run is to resume the one before: then `setStart` comes
    /// first.
    void setPortName(const QString& portName);
    QString portName() const { return m_portName; }

    /// How the next run finds its LDBs; the one behind it scans again. Only while no run is on.
    void setStart(const StartPlan& plan);

    /// Begins a run: opens the port, finds the LDBs (see `setStart`), polls. Does nothing while one
    /// is on.
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
    QString polledAlone() const { return m_polledAlone; }

    /// In long rounds the status of this LDB is asked in between; none for an empty id. Stays over
    /// runs.
    void setSelectedLdb(const QString& hexId);
    /// While held, no address is probed in the background. Stays over runs.
    void setBackgroundSearchHeld(bool isHeld);

    /// Takes these out of the list where they are lost; one that is there stays. Also without a
    /// run. A dismissed LDB comes back when it answers.
    void dismiss(const QStringList& hexIds);
    /// The bus has these LDBs, beside those that answer: those of them that do not, and no others,
    /// are listed as lost; behind the scan, if one is asked for or on. No loss is told of them.
    /// Does nothing without a run.
    void expect(const std::vector<KnownLdb>& ldbs);

    /// Every LDB of the last scan, in the order found, then those that were there before it and
    /// did not answer it; lost ones included.
    QStringList knownLdbs() const override { return m_ldbs; }
    /// Whether an LDB is listed because it was known before the run, and has not been heard in it.
    bool isAwaited(const QString& hexId) const override { return m_awaited.contains(hexId); }
    /// The known LDBs less those lost now, and those awaited.
    QStringList connectedLdbs() const;
    bool isConnected(const QString& hexId) const;
    /// The last state told; `Disconnected` for an id that is not known.
    LdbState stateOf(const QString& hexId) const;
    /// The name that the LDB told last; empty until it has, stays when the LDB is lost. Of one that
    /// is awaited, the remembered name.
    QString nameOf(const QString& hexId) const override { return m_names.value(hexId); }

signals:
    void started();
    /// The port is open: what fails from now on is a port that was there.
    void opened();
    void stopped();
    /// A transmission and what became of it; each one, in order.
    void exchanged(const Exchange& exchange);
    /// What of a round an LDB takes on the average when all is well, µs. Once a round, when that
    /// is known.
    void usualTurnTold(qint64 time);
    /// An LDB has told its name, and that is the one taken for its own now: at each time.
    void nameTold(const QString& hexId, const QString& name);
    /// Each LDB that a `Known` start was given has been probed, and so many of those asked
    /// answered. Once in such a run, at the earliest before the first round.
    void knownProbed(int answered, int asked);
    void ldbListInitializationStateChange(bool initializing);
    void ldbListInitializationProgress(int checked, int found);
    void ldbStateUpdated(QString hexId, LdbState state);
    void externalCommandsInQueueUpdated(int commandsInQueue);
    /// An LDB's settings were read, or a mute was written and accepted, whoever asked for it.
    void audioMuteTold(const QString& hexId, bool isMuted);
    void communicationFailed();
    /// Comes before `communicationFailed()`: what the port said. `error` is a
    /// `QSerialPort::SerialPortError`.
    void portFailed(const QString& portName, int error, const QString& description);
    void ldbDisconnected(QString hexId);
    void polledAloneChanged();

private:
    template <typename Task>
    void postToRun(Task task);
    bool hasThreadEnded();
    void dropPosted();
    void tellLastExchanges();
    void followRun();
    template <typename Signal, typename Handler>
    void follow(Signal signal, Handler handler);
    void listenForMute(ISerialCommand& command);
    void forgetLdbs();
    void processListChanged(const QStringList& hexIds);
    void processLoss(const QString& hexId);
    void processStateUpdated(const QString& hexId, LdbState state);
    bool takeRecord(const QString& hexId, const QList<QStringList>& dataList);
    void processRecord(const QString& hexId, const QList<QStringList>& dataList);
    void processExtraRecord(const QString& hexId, const QList<QStringList>& dataList);
    void processAwaited(const QString& hexId, bool isAwaited);
    void setPolledAlone(const QString& hexId);

    std::unique_ptr<QThread> m_thread; ///< none if the processor lives in this one
    std::unique_ptr<SerialProcessor> m_processor;
    bool m_running = false;
    bool m_isEnding = false; ///< the last exchanges of a run that has ended are being told
    int m_run = 0;
    QString m_portName;
    QString m_polledAlone;
    QStringList m_ldbs;
    QHash<QString, LdbState> m_states;
    QHash<QString, QString> m_names;
    QSet<QString> m_awaited;
    StartPlan m_plan;
    QString m_selected;
    bool m_isSearchHeld = false;
    QStringList m_dismissed; ///< without a run: for the next one
};
