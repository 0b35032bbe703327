#include "serial/serialprocessor.h"

#include "serial/generalinformation.h"

#include <QDateTime>
#include <QThread>

namespace {

constexpr int kShortWindowMs = 120; ///< scan probes and external commands
constexpr int kCommandTransmissions = 3;

} // namespace

SerialProcessor::SerialProcessor(QObject* parent)
    : QObject(parent)
    , m_tuning(SerialTuning::load())
    , m_ledger(m_tuning.answerWaitTime)
{
    qRegisterMetaType<QList<QStringList>>("QList<QStringList>");
    qRegisterMetaType<LdbState>("LdbState");
    m_clock.start();
}

SerialProcessor::~SerialProcessor() = default;

bool SerialProcessor::start()
{
    Q_ASSERT(QThread::currentThread() == thread());
    initializeVariables();
    m_timer = std::make_unique<QTimer>();
    m_timer->setSingleShot(true);
    m_timer->setTimerType(Qt::PreciseTimer); // a coarse one strays by more than a byte time
    m_timer->setInterval(m_tuning.answerWaitTime);
    connect(m_timer.get(), &QTimer::timeout, this, &SerialProcessor::timeout);

    m_port = std::make_unique<BusPort>(m_portName);
    if (!m_port->open()) {
        failPort();
        return true;
    }
    connect(m_port.get(), &BusPort::readyRead, this, &SerialProcessor::readData);
    connect(m_port.get(), &BusPort::broken, this, &SerialProcessor::failPort);
    m_scan.request();
    m_timer->start();
    goTo(State::Dispatch);
    return true;
}

void SerialProcessor::stop()
{
    Q_ASSERT(QThread::currentThread() == thread());
    endQueue();
    m_state = State::Stopped;
    m_timer.reset();
    m_port.reset();
    emit stopped();
}

void SerialProcessor::requestRescan()
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_scan.request();
}

void SerialProcessor::pollOnly(const QString& hexId)
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_schedule.setAlone(hexId);
}

void SerialProcessor::appendCommand(std::unique_ptr<ISerialCommand> command)
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (m_state == State::Stopped) {
        return;
    }
    m_queue.append(std::move(command));
    emit externalCommandsInQueueUpdated(m_queue.size());
}

void SerialProcessor::initializeVariables()
{
    m_state = State::Stopped;
    m_scan.clear();
    m_queue.clear();
    m_schedule.clear();
    m_ledger.clear();
    m_guard.clear();
    m_received.clear();
    m_lastFrame.clear();
    m_timeouts = 0;
    m_hexId.clear();
    m_memory.clear();
}

void SerialProcessor::goTo(State state)
{
    if (m_state == State::Stopped && state != State::Dispatch) {
        return; // the port failed on the way here
    }
    m_state = state;
    processState();
}

void SerialProcessor::processState()
{
    Q_ASSERT(QThread::currentThread() == thread());
    switch (m_state) {
    case State::Stopped:
    case State::LostProbe:
        break;
    case State::Dispatch:
        processDispatch();
        break;
    case State::StatusPoll:
        processStatusPoll();
        break;
    case State::NameRequest:
        request(RequestCommand(m_hexId, LdbParameter::Name), m_tuning.answerWaitTime);
        break;
    case State::FirmwareRequest:
        request(ExecuteCommand(m_hexId, LdbAction::FirmwareId), m_tuning.answerWaitTime);
        break;
    case State::ExternalCommands:
        processExternalCommands();
        break;
    }
}

void SerialProcessor::processDispatch()
{
    if (m_scan.isDue()) {
        processScan();
        return;
    }
    if (m_schedule.isEmpty()) {
        m_state = State::Stopped;
        m_timer->stop();
        emit stopped();
        return;
    }
    goTo(State::StatusPoll);
}

void SerialProcessor::processScan()
{
    if (m_scan.isRunning()) {
        emit ldbListInitializationProgress(m_scan.address(), m_schedule.found().size());
    } else {
        m_scan.begin();
        m_hexId.clear();
        m_schedule.clear();
        m_memory.clear();
        emit ldbListChanged({});
        emit ldbListInitializationStateChange(true);
    }
    const std::optional<int> address = m_scan.next();
    if (!address) {
        m_hexId.clear();
        m_schedule.restart();
        emit ldbListInitializationStateChange(false);
        goTo(State::Dispatch);
        return;
    }
    m_hexId = busaddress::toHexId(*address);
    request(PollCommand(m_hexId), kShortWindowMs);
}

void SerialProcessor::processStatusPoll()
{
    const PollSchedule::Turn turn = m_schedule.next();
    if (turn.beginsRound) {
        beginRound();
    }
    m_hexId = turn.hexId;
    if (turn.kind == PollSchedule::Turn::Kind::Probe) {
        m_state = State::LostProbe;
        request(PollCommand(m_hexId), kShortWindowMs);
        return;
    }
    request(ExecuteCommand(m_hexId, LdbAction::Status), m_tuning.answerWaitTime);
}

void SerialProcessor::beginRound()
{
    const QDateTime now = QDateTime::currentDateTime();
    m_roundSeconds = now.toString(generalinformation::kSecondsFormat);
    m_roundMilliseconds = now.toString(generalinformation::kMillisecondsFormat);
}

void SerialProcessor::processExternalCommands()
{
    if (m_queue.isEmpty()) {
        goTo(State::Dispatch);
        return;
    }
    request(m_queue.front(), kShortWindowMs);
}

void SerialProcessor::request(const ISerialCommand& command, int window)
{
    m_timeouts = 0;
    m_received.clear();
    m_ledger.begin({command.hexId(), command.commandData(), command.answerShape()});
    // Whatever has come in by now answers something else.
    if (m_port->discardInput()) {
        logUnexpected(QStringLiteral("Unexpected bytes"));
    }
    if (m_state == State::Stopped) {
        return; // the port broke under the look at it
    }
    m_window = window;
    sendSerialData(createCommand(command.commandData()));
}

void SerialProcessor::sendSerialData(const QByteArray& data)
{
    m_lastFrame = data;
    retrySendSerialData();
}

void SerialProcessor::retrySendSerialData()
{
    m_ledger.transmitted(m_clock.elapsed());
    m_timer->start(m_window);
    m_port->write(m_lastFrame);
}

void SerialProcessor::logUnexpected(const QString& what)
{
    m_log.write(LimitedLog::Kind::UnexpectedBytes,
                QStringLiteral("%1 dropped, the request is %2")
                    .arg(what, QString::fromLatin1(m_ledger.pending().body)));
}

void SerialProcessor::timeout()
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_received.clear();
    if (m_guard.isWaiting()) {
        endGuardedWait();
        return;
    }
    ++m_timeouts;
    switch (m_state) {
    case State::Stopped:
        return;
    case State::Dispatch:
        processState();
        return;
    case State::LostProbe:
        emitDisconnectedRows(m_hexId);
        goTo(State::ExternalCommands);
        return;
    case State::StatusPoll:
    case State::NameRequest:
    case State::FirmwareRequest:
    case State::ExternalCommands:
        break;
    }
    m_log.write(LimitedLog::Kind::TimeOut, QStringLiteral("No answer to %1, transmission %2")
                                               .arg(QString::fromLatin1(m_ledger.pending().body))
                                               .arg(m_timeouts));
    if (isPolling() ? m_timeouts == 1 : m_timeouts < kCommandTransmissions) {
        retrySendSerialData();
        return;
    }
    m_guard.noteSilence();
    if (isPolling()) {
        countMiss();
        leavePollingStep(m_state == State::FirmwareRequest ? State::ExternalCommands
                                                           : State::FirmwareRequest);
    } else {
        finishExternalCommand({});
    }
}

void SerialProcessor::readData()
{
    Q_ASSERT(QThread::currentThread() == thread());
    QByteArray batch = m_port->readAll();
    if (m_state == State::Stopped || drainsLine(batch) || !processReceivedData(batch, m_received)) {
        return;
    }
    QByteArray answer;
    answer.swap(m_received);
    const bool isRefusal = answer.size() == 1 && answer.at(0) == framecodec::kNak;
    const bool isAnswer = responseValidation(answer);
    // A refusal answers a command; asked for its status or name, no LDB refuses.
    if (isAnswer || (isRefusal && m_state == State::ExternalCommands)) {
        processAnswer(answer);
    } else {
        processInvalidAnswer(isRefusal);
    }
}

void SerialProcessor::processAnswer(const QByteArray& answer)
{
    if (m_scan.isRunning()) {
        // Every address before this one may have been silent: debts tell nothing here.
        m_ledger.settle();
        m_timer->stop();
        m_schedule.add(m_hexId);
        emit ldbListChanged(m_schedule.found());
        processState();
        return;
    }
    const AnswerLedger::Verdict verdict = m_ledger.judge(answer, m_clock.elapsed());
    if (verdict == AnswerLedger::Verdict::Drop) {
        logUnexpected(QStringLiteral("Late answer"));
        return;
    }
    const bool isMisfit = verdict == AnswerLedger::Verdict::Misfit;
    if (isMisfit || !m_guard.hold(answer)) {
        deliverAnswer(answer, isMisfit);
    } else {
        m_timer->start(SilenceGuard::kQuietMs);
    }
}

void SerialProcessor::deliverAnswer(const QByteArray& answer, bool isMisfit)
{
    m_timer->stop();
    if (m_state == State::ExternalCommands) {
        finishExternalCommand(answer);
    } else if (m_state == State::LostProbe) {
        clearDisconnectedDevice(m_hexId);
        goTo(State::ExternalCommands);
    } else if (isMisfit) {
        rejectAnswer(QStringLiteral("Answer of another kind"));
    } else {
        processPollingAnswer(answer);
    }
}

/// Whether the bytes are part of a burst, which is thrown away.
bool SerialProcessor::drainsLine(const QByteArray& batch)
{
    if (m_scan.isRunning() || !m_guard.isDisturbedBy(batch)) {
        return false;
    }
    if (m_guard.disturb()) {
        logUnexpected(QStringLiteral("Burst of answers"));
        m_timer->start(m_tuning.answerWaitTime);
    }
    return true;
}

void SerialProcessor::endGuardedWait()
{
    if (const auto held = m_guard.endWait()) {
        deliverAnswer(*held, false);
    } else {
        m_port->discardInput();
        retrySendSerialData();
    }
}

void SerialProcessor::processInvalidAnswer(bool isRefusal)
{
    if (m_scan.isRunning()) {
        m_ledger.settle();
        m_timer->stop();
        processState();
    } else if (m_ledger.isOwed(m_clock.elapsed())) {
        logUnexpected(QStringLiteral("Remains of an answer"));
    } else {
        m_ledger.settle();
        rejectAnswer(isRefusal ? QStringLiteral("Refusal") : QStringLiteral("Invalid answer"));
    }
}

void SerialProcessor::rejectAnswer(const QString& reason)
{
    m_timer->stop();
    m_log.write(
        LimitedLog::Kind::FailedCheck,
        QStringLiteral("%1 to %2").arg(reason, QString::fromLatin1(m_ledger.pending().body)));
    if (isPolling()) {
        countMiss();
        leavePollingStep(nextPollingState());
    } else {
        timeout();
    }
}

SerialProcessor::State SerialProcessor::nextPollingState() const
{
    switch (m_state) {
    case State::StatusPoll:
        return State::NameRequest;
    case State::NameRequest:
        return State::FirmwareRequest;
    default:
        return State::ExternalCommands;
    }
}

void SerialProcessor::processPollingAnswer(const QByteArray& answer)
{
    if (m_state == State::StatusPoll) {
        const LdbStatusDecoding decoded = decodeLdbStatus(answer);
        if (!decoded.valid) {
            rejectAnswer(QStringLiteral("Unreadable status"));
            return;
        }
        handleGeneralInformationEmit(m_hexId, m_memory.name(m_hexId), decoded.status,
                                     m_roundSeconds, m_roundMilliseconds);
    } else if (m_state == State::NameRequest) {
        m_memory.setName(m_hexId, hextext::toText(answer));
    }
    clearDisconnectedDevice(m_hexId);
    goTo(nextPollingState());
}

void SerialProcessor::countMiss()
{
    addDisconnectedDevice(m_hexId, m_roundSeconds, m_roundMilliseconds);
}

void SerialProcessor::leavePollingStep(State next)
{
    // Nothing more is asked of an LDB that has just been given up.
    goTo(m_schedule.isLost(m_hexId) ? State::ExternalCommands : next);
}

void SerialProcessor::finishExternalCommand(const QByteArray& answer)
{
    m_queue.finishFront(answer);
    emit externalCommandsInQueueUpdated(m_queue.size());
    goTo(State::Dispatch);
}

void SerialProcessor::handleGeneralInformationEmit(const QString& hexId, const QString& deviceName,
                                                   LdbStatus ldbStatus,
                                                   const QString& timestampSeconds,
                                                   const QString& timestampMiliseconds)
{
    emit generalInformationUpdated(hexId, generalinformation::buildRows(hexId, deviceName,
                                                                        ldbStatus, timestampSeconds,
                                                                        timestampMiliseconds));
    if (m_memory.updateState(hexId, ldbStatus.state)) {
        emit ldbStateUpdated(hexId, ldbStatus.state);
    }
}

void SerialProcessor::addDisconnectedDevice(const QString& hexId, const QString& timestampSeconds,
                                            const QString& timestampMiliseconds)
{
    if (m_port->isBroken()) {
        failPort();
        return;
    }
    const int misses = m_memory.countMiss(hexId);
    m_log.write(LimitedLog::Kind::Miss,
                QStringLiteral("Miss %1 of %2 in a row").arg(misses).arg(hexId));
    if (misses <= m_tuning.disconnectedCount) {
        return;
    }
    if (!m_schedule.isLost(hexId)) {
        m_schedule.markLost(hexId);
        emit ldbDisconnected(hexId);
    }
    handleGeneralInformationEmit(hexId, ldbStateText(LdbState::Disconnected),
                                 LdbStatus::disconnected(), timestampSeconds, timestampMiliseconds);
}

void SerialProcessor::clearDisconnectedDevice(const QString& hexId)
{
    m_memory.forgetMisses(hexId);
    m_schedule.markPresent(hexId);
}

void SerialProcessor::emitDisconnectedRows(const QString& hexId)
{
    handleGeneralInformationEmit(hexId, ldbStateText(LdbState::Disconnected),
                                 LdbStatus::disconnected(), m_roundSeconds, m_roundMilliseconds);
}

void SerialProcessor::endQueue()
{
    // The first one is on the wire: what becomes of it is not known.
    if (m_state == State::ExternalCommands && !m_queue.isEmpty()) {
        m_queue.finishFront({});
    }
    m_queue.clear();
}

void SerialProcessor::failPort()
{
    Q_ASSERT(QThread::currentThread() == thread());
    endQueue();
    m_state = State::Stopped;
    m_timer->stop();
    const QSerialPort::SerialPortError error = m_port->error();
    const QString description = m_port->errorText();
    m_port->close();
    m_log.write(LimitedLog::Kind::PortError,
                QStringLiteral("Port %1: %2").arg(m_portName, description));
    emit portFailed(m_portName, error, description);
    emit communicationFailed();
}
