#include "app/window/monitor.h"

#include "serial/ldb/generalinformation.h"
#include "serial/ldb/microseconds.h"
#include "serial/link/seriallink.h"

#include <algorithm>
#include <utility>

namespace {

using State = Monitoring::State;

constexpr int kTick = 1000; // ms
using microseconds::kMillisecond;

} // namespace

Monitor::Monitor(const SerialLink* link, std::function<qint64()> wallTime, QObject* parent)
    : QObject(parent)
    , m_link(link)
    , m_wallTime(std::move(wallTime))
{
    connect(link, &SerialLink::started, this, &Monitor::begin);
    connect(link, &SerialLink::ldbListInitializationStateChange, this, &Monitor::processScan);
    connect(link, &SerialLink::opened, this, [this] { m_isOpen = true; });
    connect(link, &SerialLink::roundBegun, this, &Monitor::poll);
    connect(link, &SerialLink::usualTurnTold, this,
            [this](qint64 time) { m_pace.setTurn(BusPace::turnOf(time)); });
    connect(link, &SerialLink::awaitedChanged, this, &Monitor::tell);
    connect(link, &SerialLink::portFailed, this, &Monitor::processFailure);
    connect(link, &SerialLink::stopped, this, &Monitor::end);
    connect(link, &SerialLink::exchanged, this, &Monitor::processExchange);
    connect(link, &SerialLink::ldbDisconnected, this,
            [this](const QString& hexId) { m_pace.lose(hexId); });
    connect(link, &SerialLink::polledAloneChanged, this, &Monitor::tell);
    connect(link, &SerialLink::ldbListChanged, this, &Monitor::tell);
    connect(link, &SerialLink::ldbStateUpdated, this, &Monitor::tell);
    connect(
        link, &SerialLink::generalInformationUpdated, this,
        [this](const QString&, const QList<QStringList>& dataList) { processRecord(dataList); });
    connect(&m_timer, &QTimer::timeout, this, &Monitor::tell);
    m_timer.start(kTick);
}

qint64 Monitor::now() const
{
    return generalinformation::clockTime(m_wallTime());
}

qint64 Monitor::followClock()
{
    const qint64 time = now();
    const qint64 jump = time - std::exchange(m_latest, time);
    if (jump < 0) {
        m_from += jump;
        m_polledSince += jump;
        for (std::optional<qint64>* moment : {&m_since, &m_lastAnswer}) {
            if (*moment) {
                **moment += jump;
            }
        }
    }
    return time;
}

void Monitor::tell()
{
    followClock();
    emit changed(monitoring());
}

Monitoring Monitor::monitoring() const
{
    Monitoring result;
    result.state = m_state;
    result.now = now();
    result.since = m_since;
    result.portName = m_failedPort;
    result.polledAlone = m_link->polledAlone();
    result.from = m_from;
    result.known = m_link->knownLdbs().size();
    result.lifetime = m_pace.lifetime(result.known);
    result.awaited = awaitedLdbs();
    result.lost = result.known - result.awaited - m_link->connectedLdbs().size();
    if (m_state == State::Polling) {
        const qint64 heard = std::max(m_lastAnswer.value_or(m_polledSince), m_polledSince);
        if (result.now - heard > m_pace.longestQuiet(result.known)) {
            result.state = State::NoAnswer;
            result.since = heard;
        }
    }
    return result;
}

int Monitor::awaitedLdbs() const
{
    const QStringList known = m_link->knownLdbs();
    return static_cast<int>(std::count_if(known.begin(), known.end(), [this](const QString& hexId) {
        return m_link->isAwaited(hexId);
    }));
}

void Monitor::processExchange(const Exchange& exchange)
{
    if (BusPace::isPoll(exchange.kind)) {
        m_pace.take(exchange.hexId, exchange.outcome == ExchangeOutcome::Silent,
                    m_wallTime() - exchange.sentAt / kMillisecond);
    }
}

void Monitor::begin()
{
    m_failedPort.clear();
    m_pace.clear();
    m_isOpen = false;
    m_isScanning = false;
    m_from = followClock();
    pause(State::Scanning);
}

void Monitor::processScan(bool isOn)
{
    m_isScanning = isOn;
    if (isOn) {
        m_from = followClock();
        pause(State::Scanning);
    } else {
        poll();
    }
}

/// Also where a run begins without a scan.
void Monitor::poll()
{
    if (m_isScanning || m_state == State::Polling || !m_isOpen) {
        return;
    }
    m_state = State::Polling;
    m_since.reset();
    m_polledSince = followClock();
    tell();
}

void Monitor::processFailure(const QString& portName)
{
    m_failedPort = portName;
    pause(m_isOpen ? State::ConnectionLost : State::PortNotOpened);
}

void Monitor::end()
{
    switch (m_state) {
    case State::ConnectionLost:
    case State::PortNotOpened:
        tell(); // the reason has been told already
        return;
    case State::Polling:
        pause(m_link->knownLdbs().isEmpty() ? State::NothingFound : State::Stopped);
        return;
    default:
        pause(State::Stopped);
        return;
    }
}

void Monitor::pause(State state)
{
    if (m_state == State::Polling) {
        m_since = followClock();
    }
    m_state = state;
    tell();
}

void Monitor::processRecord(const QList<QStringList>& dataList)
{
    if (!generalinformation::isLost(dataList)) {
        m_lastAnswer = followClock();
    }
}
