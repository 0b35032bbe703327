#include "serial/link/seriallink.h"

#include "serial/ldb/generalinformation.h"
#include "serial/link/serialprocessor.h"

#include <QCoreApplication>
#include <QDebug>
#include <QEvent>

#include <utility>

namespace {

constexpr unsigned long kStopWaitMs = 1000;

} // namespace

SerialLink::SerialLink(const PortSource& ports, QObject* parent)
    : RecordSource(parent)
    , m_processor(std::make_unique<SerialProcessor>(ports.make))
{
    if (ports.thread == PortSource::Thread::OfLink) {
        return;
    }
    m_thread = std::make_unique<QThread>();
    m_thread->setObjectName(QStringLiteral("serial"));
    m_processor->moveToThread(m_thread.get());
    connect(m_thread.get(), &QThread::started, m_processor.get(), &SerialProcessor::start);
    connect(m_thread.get(), &QThread::finished, m_processor.get(), &SerialProcessor::stop);
}

SerialLink::~SerialLink()
{
    stop();
    if (!hasThreadEnded()) {
        // Nothing that the worker can still call may be destroyed: it is left to the system.
        qCritical("The serial worker does not end");
        static_cast<void>(m_processor.release());
        static_cast<void>(m_thread.release());
    }
}

void SerialLink::setPortName(const QString& portName)
{
    Q_ASSERT(!m_running && (!m_thread || !m_thread->isRunning()));
    const bool isResumed = m_plan.kind == StartPlan::Kind::Resume;
    m_processor->setPortName(portName, isResumed);
    if (std::exchange(m_portName, portName) != portName && !isResumed) {
        forgetLdbs();
        m_names.clear();
        emit ldbListChanged({});
    }
}

void SerialLink::setStart(const StartPlan& plan)
{
    Q_ASSERT(QThread::currentThread() == thread() && !m_running);
    m_plan = plan;
}

void SerialLink::start()
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (m_running) {
        return;
    }
    if (!hasThreadEnded()) {
        emit portFailed(QString(), 0, tr("The former connection has not ended yet."));
        emit communicationFailed();
        return;
    }
    ++m_run;
    m_running = true;
    forgetLdbs();
    const QStringList dismissed = std::exchange(m_dismissed, {});
    dropPosted();
    followRun();
    for (const KnownLdb& ldb : m_plan.ldbs) {
        m_names.insert(ldb.hexId, ldb.name);
    }
    m_processor->setStart(std::exchange(m_plan, {}));
    if (m_thread) {
        m_thread->start();
    } else {
        postToRun([](SerialProcessor& processor) { processor.start(); });
    }
    if (!dismissed.isEmpty()) {
        dismiss(dismissed);
    }
    setSelectedLdb(m_selected);
    setBackgroundSearchHeld(m_isSearchHeld);
    emit started();
}

void SerialLink::stop()
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (!m_running) {
        return;
    }
    m_running = false;
    setPolledAlone(QString());
    if (m_thread) {
        m_thread->quit();
    } else {
        m_processor->stop();
    }
    if (hasThreadEnded()) {
        dropPosted();
        tellLastExchanges();
    } else {
        qWarning("The serial worker takes long to end");
    }
    m_processor->disconnect(this);
    emit stopped();
}

/// An exchange is over only when the next one begins, or the run ends.
void SerialLink::tellLastExchanges()
{
    m_isEnding = true;
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
    m_isEnding = false;
}

/// Waits for the worker that has been told to end; whether there is none any more.
bool SerialLink::hasThreadEnded()
{
    // A thread counts as running no more while the processor still stops in it.
    return !m_thread || m_thread->wait(kStopWaitMs);
}

/// Destroys what was posted to a run that has ended before it took it. Only while no thread runs.
void SerialLink::dropPosted()
{
    QCoreApplication::removePostedEvents(m_processor.get(), QEvent::MetaCall);
}

void SerialLink::rescan()
{
    if (m_running) {
        postToRun([](SerialProcessor& processor) { processor.requestRescan(); });
    } else {
        m_plan = {};
        start();
    }
}

void SerialLink::ask(std::unique_ptr<ISerialCommand> command, QObject* context,
                     std::function<void(const Reply&)> function)
{
    command->addObserver(
        std::make_unique<ISerialCommand::ReplyObserver>(context, std::move(function)));
    post(std::move(command));
}

void SerialLink::post(std::unique_ptr<ISerialCommand> command)
{
    if (!m_running || !command) {
        return;
    }
    listenForMute(*command);
    postToRun([owned = std::move(command)](SerialProcessor& processor) mutable {
        processor.appendCommand(std::move(owned));
    });
}

void SerialLink::listenForMute(ISerialCommand& command)
{
    const QString hexId = command.request().hexId;
    const QByteArray body = command.commandData();
    const auto listen = [&](auto heard) {
        command.addObserver(std::make_unique<ISerialCommand::ReplyObserver>(this, heard));
    };
    if (body == RequestCommand(hexId, LdbParameter::Settings).commandData()) {
        listen([this, hexId](const Reply& reply) {
            if (const auto settings = decodeLdbSettings(reply.answer(), hexId)) {
                emit audioMuteTold(hexId, settings->audioMute);
            }
        });
    }
    for (const bool isMuted : {false, true}) {
        const ChangeCommand mute(hexId, LdbParameter::AudioMute, encodeAudioMute(isMuted));
        if (body == mute.commandData()) {
            listen([this, hexId, isMuted](const Reply& reply) {
                if (reply.isAccepted()) {
                    emit audioMuteTold(hexId, isMuted);
                }
            });
        }
    }
}

void SerialLink::pollOnly(const QString& hexId)
{
    if (!m_running || !(hexId.isEmpty() || m_ldbs.contains(hexId))) {
        return;
    }
    setPolledAlone(hexId);
    postToRun([hexId](SerialProcessor& processor) { processor.pollOnly(hexId); });
}

void SerialLink::setPolledAlone(const QString& hexId)
{
    if (std::exchange(m_polledAlone, hexId) != hexId) {
        emit polledAloneChanged();
    }
}

void SerialLink::setSelectedLdb(const QString& hexId)
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_selected = hexId;
    if (m_running) {
        postToRun([hexId](SerialProcessor& processor) { processor.setSelectedLdb(hexId); });
    }
}

void SerialLink::setBackgroundSearchHeld(bool isHeld)
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_isSearchHeld = isHeld;
    if (m_running) {
        postToRun(
            [isHeld](SerialProcessor& processor) { processor.setBackgroundSearchHeld(isHeld); });
    }
}

void SerialLink::dismiss(const QStringList& hexIds)
{
    for (const QString& hexId : hexIds) {
        if (m_ldbs.contains(hexId) && !isConnected(hexId)) {
            m_ldbs.removeAll(hexId);
            m_states.remove(hexId);
        }
    }
    if (m_running) {
        postToRun([hexIds](SerialProcessor& processor) { processor.dismiss(hexIds); });
    } else {
        m_dismissed += hexIds;
    }
    emit ldbListChanged(m_ldbs);
}

void SerialLink::expect(const std::vector<KnownLdb>& ldbs)
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (m_running) {
        postToRun([ldbs](SerialProcessor& processor) { processor.expect(ldbs); });
    }
}

template <typename Task>
void SerialLink::postToRun(Task task)
{
    SerialProcessor* processor = m_processor.get();
    QMetaObject::invokeMethod(
        processor, [processor, task = std::move(task)]() mutable { task(*processor); },
        Qt::QueuedConnection);
}

QStringList SerialLink::connectedLdbs() const
{
    QStringList connected;
    for (const QString& hexId : m_ldbs) {
        if (isConnected(hexId)) {
            connected.append(hexId);
        }
    }
    return connected;
}

bool SerialLink::isConnected(const QString& hexId) const
{
    // Found but not polled yet counts as connected: it has answered the scan.
    return m_ldbs.contains(hexId) && !isAwaited(hexId) &&
           m_states.value(hexId, LdbState::Booting) != LdbState::Disconnected;
}

LdbState SerialLink::stateOf(const QString& hexId) const
{
    return m_states.value(hexId, LdbState::Disconnected);
}

void SerialLink::followRun()
{
    using Processor = SerialProcessor;
    follow(&Processor::opened, &SerialLink::opened);
    follow(&Processor::stopped, &SerialLink::stop);
    connect(
        m_processor.get(), &Processor::exchanged, this,
        [this, run = m_run](const Exchange& exchange) {
            if ((m_running || m_isEnding) && run == m_run) {
                emit exchanged(exchange);
            }
        },
        Qt::QueuedConnection);
    follow(&Processor::roundBegun, &SerialLink::roundBegun);
    follow(&Processor::roundEnded, &SerialLink::roundEnded);
    follow(&Processor::usualTurnTold, &SerialLink::usualTurnTold);
    follow(&Processor::nameTold, &SerialLink::nameTold);
    follow(&Processor::extraInformationUpdated, &SerialLink::processExtraRecord);
    follow(&Processor::awaitedChanged, &SerialLink::processAwaited);
    follow(&Processor::knownProbed, &SerialLink::knownProbed);
    follow(&Processor::ldbListChanged, &SerialLink::processListChanged);
    follow(&Processor::ldbStateUpdated, &SerialLink::processStateUpdated);
    follow(&Processor::ldbListInitializationStateChange,
           &SerialLink::ldbListInitializationStateChange);
    follow(&Processor::ldbListInitializationProgress, &SerialLink::ldbListInitializationProgress);
    follow(&Processor::generalInformationUpdated, &SerialLink::processRecord);
    follow(&Processor::externalCommandsInQueueUpdated, &SerialLink::externalCommandsInQueueUpdated);
    follow(&Processor::portFailed, &SerialLink::portFailed);
    follow(&Processor::communicationFailed, &SerialLink::communicationFailed);
    follow(&Processor::ldbDisconnected, &SerialLink::processLoss);
}

template <typename Signal, typename Handler>
void SerialLink::follow(Signal signal, Handler handler)
{
    // Queued even within one thread: what is told may stop the run, and the processor with it.
    connect(
        m_processor.get(), signal, this,
        [this, run = m_run, handler](const auto&... told) {
            // What was on its way when the run ended still arrives.
            if (m_running && run == m_run) {
                (this->*handler)(told...);
            }
        },
        Qt::QueuedConnection);
}

void SerialLink::forgetLdbs()
{
    m_ldbs.clear();
    m_states.clear();
    m_awaited.clear();
    setPolledAlone(QString());
}

void SerialLink::processListChanged(const QStringList& hexIds)
{
    if (hexIds.isEmpty()) {
        forgetLdbs();
    }
    m_ldbs = hexIds;
    emit ldbListChanged(hexIds);
}

void SerialLink::processLoss(const QString& hexId)
{
    // Whoever is told asks for the state at once.
    m_states.insert(hexId, LdbState::Disconnected);
    emit ldbDisconnected(hexId);
}

void SerialLink::processAwaited(const QString& hexId, bool isAwaited)
{
    if (isAwaited) {
        m_awaited.insert(hexId);
    } else {
        m_awaited.remove(hexId);
    }
    emit awaitedChanged(hexId);
}

/// Whether it is to be told.
bool SerialLink::takeRecord(const QString& hexId, const QList<QStringList>& dataList)
{
    // One that has just been dismissed may still be told of.
    if (!m_ldbs.contains(hexId)) {
        return false;
    }
    const QString name = generalinformation::ownName(dataList);
    if (!name.isEmpty()) {
        m_names.insert(hexId, name);
    }
    return true;
}

void SerialLink::processRecord(const QString& hexId, const QList<QStringList>& dataList)
{
    if (takeRecord(hexId, dataList)) {
        emit generalInformationUpdated(hexId, dataList);
    }
}

void SerialLink::processExtraRecord(const QString& hexId, const QList<QStringList>& dataList)
{
    if (takeRecord(hexId, dataList)) {
        emit extraInformationUpdated(hexId, dataList);
    }
}

void SerialLink::processStateUpdated(const QString& hexId, LdbState state)
{
    m_states.insert(hexId, state);
    emit ldbStateUpdated(hexId, state);
}
