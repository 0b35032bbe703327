#include "serial/link/serialprocessor.h"

#include "serial/ldb/generalinformation.h"
#include "serial/ldb/microseconds.h"

#include <QDateTime>
#include <QDebug>
#include <QThread>

#include <algorithm>
#include <utility>

namespace {

using microseconds::kMillisecond;
/// A wait is waited for in pieces of an hour: a timer cannot wait for more than some days.
constexpr qint64 kLongestWait = 3600000;

/// Deletes it when whoever calls has returned: it may be that very object.
template <typename Object>
void retire(std::unique_ptr<Object>& object)
{
    if (object) {
        object->disconnect();
        object.release()->deleteLater();
    }
}

} // namespace

SerialProcessor::SerialProcessor(PortSource::Make makePort, QObject* parent)
    : QObject(parent)
    , m_makePort(std::move(makePort))
    , m_tuning(SerialTuning::load())
    , m_conversation(m_tuning.answerWaitTime, m_tuning.disconnectedCount,
                     {m_tuning.identityEveryRounds, m_tuning.selectedWithin})
{
    qRegisterMetaType<QList<QStringList>>("QList<QStringList>");
    qRegisterMetaType<LdbState>("LdbState");
    qRegisterMetaType<Exchange>("Exchange");
}

SerialProcessor::~SerialProcessor() = default;

void SerialProcessor::setPortName(const QString& portName, bool isSameBus)
{
    if (portName != m_portName) {
        m_portName = portName;
        if (!isSameBus) {
            m_conversation.forgetLdbs();
        }
    }
}

bool SerialProcessor::start()
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_commands.clear();
    retirePort();
    m_timer = std::make_unique<QTimer>();
    m_timer->setSingleShot(true);
    m_timer->setTimerType(Qt::PreciseTimer); // a coarse one strays by more than a byte time
    connect(m_timer.get(), &QTimer::timeout, this, &SerialProcessor::timeout);

    m_port = m_makePort(m_portName);
    if (!m_port->open()) {
        failPort();
        return true;
    }
    connect(m_port.get(), &BusPort::readyRead, this, &SerialProcessor::readData);
    connect(m_port.get(), &BusPort::broken, this, &SerialProcessor::failPort);
    emit opened();
    m_conversation.start(moment(), std::exchange(m_plan, {}));
    pump();
    return true;
}

void SerialProcessor::stop()
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_conversation.lineGone();
    pump();
    m_commands.clear();
    retirePort();
    emit stopped();
}

/// Whoever stops or starts a run may have been told something by port or timer.
void SerialProcessor::retirePort()
{
    if (m_timer) {
        m_timer->stop();
        m_port->close();
    }
    retire(m_timer);
    retire(m_port);
}

void SerialProcessor::requestRescan()
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_conversation.requestScan();
}

void SerialProcessor::pollOnly(const QString& hexId)
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_conversation.pollAlone(hexId);
}

void SerialProcessor::dismiss(const QStringList& hexIds)
{
    Q_ASSERT(QThread::currentThread() == thread());
    for (const QString& hexId : hexIds) {
        m_conversation.dismiss(hexId);
    }
}

void SerialProcessor::expect(const std::vector<KnownLdb>& ldbs)
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_conversation.expect(ldbs);
}

void SerialProcessor::setSelectedLdb(const QString& hexId)
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_conversation.select(hexId);
}

void SerialProcessor::setBackgroundSearchHeld(bool isHeld)
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_conversation.holdSearch(isHeld);
}

void SerialProcessor::appendCommand(std::unique_ptr<ISerialCommand> command)
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (m_conversation.isStopped() || !command) {
        return;
    }
    const Request request = command->request();
    m_commands.emplace(++m_commandNumber, std::move(command));
    m_conversation.queueCommand(request, m_commandNumber);
    pump();
}

Conversation::Moment SerialProcessor::moment() const
{
    return {m_port->now(), m_port->wallTime()};
}

/// Does what the conversation wants after an entrance. Whoever is told something may call back and
/// end up here again: what was not told yet is told then, in its order.
void SerialProcessor::pump()
{
    sendSerialData(m_conversation.takeTransmission());
    for (Event& event : m_conversation.takeEvents()) {
        m_untold.push_back(std::move(event));
    }
    while (!m_untold.empty()) {
        const Event event = std::move(m_untold.front());
        m_untold.pop_front();
        std::visit([this](const auto& what) { tell(what); }, event);
    }
    const qint64 deadline = m_conversation.deadline();
    if (!m_timer || deadline == Conversation::kNever) {
        return;
    }
    // Rounded up: a deadline told early is none.
    const qint64 wait = deadline - moment().now + kMillisecond - 1;
    m_timer->start(static_cast<int>(std::clamp<qint64>(wait / kMillisecond, 0, kLongestWait)));
}

void SerialProcessor::sendSerialData(const QByteArray& data)
{
    if (!data.isEmpty() && m_port && m_port->isOpen()) {
        m_port->write(data);
    }
}

void SerialProcessor::readData()
{
    Q_ASSERT(QThread::currentThread() == thread());
    const QByteArray batch = m_port->readAll();
    if (!batch.isEmpty()) {
        m_conversation.bytesCame(batch, moment());
        pump();
    }
}

void SerialProcessor::timeout()
{
    Q_ASSERT(QThread::currentThread() == thread());
    // A thread that was held up finds the answer at the port behind the deadline that has passed.
    m_port->fetch();
    if (m_port && m_port->isOpen()) {
        m_conversation.deadlinePassed(moment());
        pump();
    }
}

void SerialProcessor::tell(const event::Record& record)
{
    const QDateTime time = QDateTime::fromMSecsSinceEpoch(record.time);
    const QString seconds = time.toString(generalinformation::kSecondsFormat);
    const QString milliseconds = time.toString(generalinformation::kMillisecondsFormat);
    if (record.isExtra) {
        emit extraInformationUpdated(
            record.hexId, generalinformation::buildRows(record.hexId, record.name, record.status,
                                                        seconds, milliseconds));
        return;
    }
    handleGeneralInformationEmit(record.hexId, record.name, record.status, seconds, milliseconds);
}

void SerialProcessor::handleGeneralInformationEmit(const QString& hexId, const QString& deviceName,
                                                   LdbStatus ldbStatus,
                                                   const QString& timestampSeconds,
                                                   const QString& timestampMiliseconds)
{
    emit generalInformationUpdated(hexId, generalinformation::buildRows(hexId, deviceName,
                                                                        ldbStatus, timestampSeconds,
                                                                        timestampMiliseconds));
}

void SerialProcessor::tell(const event::CommandDone& command)
{
    for (const quint64 number : command.numbers) {
        const auto owned = m_commands.extract(number);
        if (!owned.empty()) {
            owned.mapped()->notify(command.answer);
        }
    }
}

void SerialProcessor::tell(const event::Diagnostic& diagnostic)
{
    qInfo().noquote() << diagnostic.text;
}

void SerialProcessor::failPort()
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_timer->stop();
    const int error = m_port->error();
    const QString description = m_port->errorText();
    m_port->close();
    m_conversation.lineGone();
    pump();
    m_commands.clear();
    qWarning().noquote() << QStringLiteral("Port %1: %2").arg(m_portName, description);
    emit portFailed(m_portName, error, description);
    emit communicationFailed();
}
