#include "app/window/monitor.h"

#include "serial/ldb/generalinformation.h"
#include "serial/ldb/microseconds.h"
#include "serial/link/seriallink.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

using State = Monitoring::State;

constexpr int kTick = 1000; // ms
/// In a turn: a command now and then, and the selected LDB in between.
constexpr double kRoomInTurn = 1.1;
/// An LDB that does not answer is asked two things in its turn, each twice.
constexpr qint64 kQuestions = 4;
/// After so long without any answer, ms, the bus is no longer monitored, however many are silent.
constexpr qint64 kLongestQuiet = 20000;
using microseconds::kMillisecond;
/// More than any wait for an answer, ms; a clock that was set must not look like one.
constexpr qint64 kLongestSilence = 10000;

bool isPoll(ExchangeKind kind)
{
    return kind == ExchangeKind::Status || kind == ExchangeKind::Name ||
           kind == ExchangeKind::Firmware;
}

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
    connect(link, &SerialLink::usualTurnTold, this, [this](qint64 time) {
        m_turn = std::lround(kRoomInTurn * static_cast<double>(time) / kMillisecond);
    });
    connect(link, &SerialLink::awaitedChanged, this, &Monitor::tell);
    connect(link, &SerialLink::portFailed, this, &Monitor::processFailure);
    connect(link, &SerialLink::stopped, this, &Monitor::end);
    connect(link, &SerialLink::exchanged, this, &Monitor::processExchange);
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

Monitoring Monitor::monitoring() const
{
    Monitoring result;
    result.state = m_state;
    result.now = now();
    result.since = m_since;
    result.portName = m_failedPort;
    result.polledAlone = m_link->polledAlone();
    result.from = m_from;
    result.lifetime = lifetime(silence());
    result.known = m_link->knownLdbs().size();
    result.awaited = awaitedLdbs();
    result.lost = result.known - result.awaited - m_link->connectedLdbs().size();
    if (m_state == State::Polling) {
        const qint64 heard = std::max(m_lastAnswer.value_or(m_polledSince), m_polledSince);
        // Any LDB counts here: how long it is until one is asked again makes no difference.
        const qint64 quiet =
            std::clamp(silence() + turns(), Monitoring::kShortestLife, kLongestQuiet);
        if (result.now - heard > quiet) {
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

qint64 Monitor::turns() const
{
    return Monitoring::roundOf(m_link->knownLdbs().size(), turn());
}

qint64 Monitor::silence() const
{
    // Who is lost, or has left the list, is no longer waited for.
    qint64 sum = 0;
    for (auto silence = m_silences.begin(); silence != m_silences.end(); ++silence) {
        sum += m_link->isConnected(silence.key()) ? silence.value() : 0;
    }
    return sum;
}

qint64 Monitor::lifetime(qint64 silence) const
{
    return Monitoring::lifetimeOf(m_link->knownLdbs().size(), silence, turn());
}

void Monitor::processExchange(const Exchange& exchange)
{
    if (!isPoll(exchange.kind)) {
        return;
    }
    if (exchange.outcome != ExchangeOutcome::Silent) {
        m_silences.remove(exchange.hexId);
        return;
    }
    const qint64 waited = m_wallTime() - exchange.sentAt / kMillisecond;
    m_silences.insert(exchange.hexId, kQuestions * std::clamp(waited, qint64(0), kLongestSilence));
}

void Monitor::begin()
{
    m_failedPort.clear();
    m_silences.clear();
    m_turn.reset();
    m_isOpen = false;
    m_isScanning = false;
    m_from = now();
    pause(State::Scanning);
}

void Monitor::processScan(bool isOn)
{
    m_isScanning = isOn;
    if (isOn) {
        m_from = now();
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
    m_polledSince = now();
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
        m_since = now();
    }
    m_state = state;
    tell();
}

void Monitor::processRecord(const QList<QStringList>& dataList)
{
    if (!generalinformation::isLost(dataList)) {
        m_lastAnswer = now();
    }
}
