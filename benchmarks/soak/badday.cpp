#include "benchmarks/soak/badday.h"

#include "serial/framecodec.h"
#include "serial/serialcommand.h"
#include "simulator/bussimulator.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace {

constexpr int kWindowMs = 1500;
constexpr int kLateFromMs = 130;
constexpr int kLateToMs = 1800;
constexpr int kFirstNeighbour = 3;

constexpr int kFewestFims = 4;
constexpr int kFimSpread = 13;

/// The states that boards pass through, so that they change about as often in an hour.
constexpr double kBoardSpeedUp = 60;
constexpr double kBootSeconds = 8;
constexpr double kMeasuringSeconds = 20;
constexpr double kQuiescentSeconds = 40;

QString badBus(int from, int to)
{
    return QStringLiteral("bad-bus 1 1 %1 %2").arg(from).arg(to);
}

} // namespace

BadDay::BadDay(int ldbs, int scale, quint32 seed)
    : m_scale(scale)
    , m_seed(seed)
    , m_random(seed)
{
    const int neighbours = ldbs / 2;
    const int others = ldbs - neighbours;
    const int begin = kFirstNeighbour + neighbours;
    for (int i = 0; i < ldbs; ++i) {
        const int other = i - neighbours;
        const int address = other < 0 ? kFirstNeighbour + i
                                      : begin + (busaddress::kLast - begin) * (other + 1) / others;
        const QString hexId = busaddress::toHexId(address);
        m_ldbs.append(hexId);
        m_names.insert(hexId, QStringLiteral("Board %1").arg(hexId));
    }
}

QByteArray BadDay::scenarioJson() const
{
    QJsonArray ldbs;
    for (int i = 0; i < m_ldbs.size(); ++i) {
        const QString& hexId = m_ldbs.at(i);
        ldbs.append(QJsonObject{{QStringLiteral("address"), hexId},
                                {QStringLiteral("name"), m_names.value(hexId)},
                                {QStringLiteral("fims"), kFewestFims + i % kFimSpread}});
    }
    const QJsonObject timing{
        {QStringLiteral("bootSeconds"), kBootSeconds / kBoardSpeedUp},
        {QStringLiteral("measuringSeconds"), kMeasuringSeconds / kBoardSpeedUp},
        {QStringLiteral("quiescentSeconds"), kQuiescentSeconds / kBoardSpeedUp}};
    const QJsonObject badBus{{QStringLiteral("garbledPercent"), 1},
                             {QStringLiteral("latePercent"), 1},
                             {QStringLiteral("lateFromMs"), kLateFromMs},
                             {QStringLiteral("lateToMs"), kLateToMs}};
    return QJsonDocument(QJsonObject{{QStringLiteral("seed"), static_cast<int>(m_seed)},
                                     {QStringLiteral("timing"), timing},
                                     {QStringLiteral("badBus"), badBus},
                                     {QStringLiteral("ldbs"), ldbs}})
        .toJson();
}

QByteArray BadDay::tuning() const
{
    return "[SerialSettings]\nBYTES_RECEIVED_WAIT_TIME=" + QByteArray::number(kWindowMs / m_scale) +
           '\n';
}

double BadDay::pacedExchangeMs() const
{
    constexpr double kByteMs = static_cast<double>(linetime::kByte) / 1e6;
    Scenario healthy = readScenario(scenarioJson()).scenario.value_or(Scenario());
    BusSimulator bus(healthy, m_seed, 0);
    double total = 0;
    int exchanges = 0;
    const auto exchange = [&](const ISerialCommand& request) {
        const QByteArray frame = framecodec::createCommand(request.commandData());
        const Hearing hearing = bus.hear(frame, 0);
        total +=
            (frame.size() + hearing.answer->bytes.size()) * kByteMs + healthy.line.mostTurnaround;
        ++exchanges;
    };
    for (const QString& hexId : m_ldbs) {
        exchange(ExecuteCommand(hexId, LdbAction::Status));
        exchange(RequestCommand(hexId, LdbParameter::Name));
        exchange(ExecuteCommand(hexId, LdbAction::FirmwareId));
    }
    return total / exchanges;
}

QString BadDay::scaledLateness() const
{
    return badBus(std::max(1, kLateFromMs / m_scale), kLateToMs / m_scale);
}

QString BadDay::fullLateness()
{
    return badBus(kLateFromMs, kLateToMs);
}

std::vector<BadDay::Event> BadDay::nextHour()
{
    std::vector<Event> events;
    // Each is gone for three minutes.
    for (const double at : {0.15, 0.55}) {
        const QString hexId = anyLdb();
        events.push_back({at, QStringLiteral("vanish ") + hexId, hexId});
        events.push_back({at + 0.05, QStringLiteral("appear ") + hexId, {}});
    }
    const QStringList faults{QStringLiteral("open"), QStringLiteral("dc-leakage"),
                             QStringLiteral("earth-leakage"), QStringLiteral("short")};
    for (const QString& fault : faults) {
        const QString hexId = anyLdb();
        const double at = 0.05 + 0.1 * static_cast<double>(m_random() % 4);
        events.push_back({at, QStringLiteral("%1 %2").arg(fault, hexId), {}});
        events.push_back({at + 0.4, QStringLiteral("%1 %2 memory").arg(fault, hexId), {}});
        events.push_back({at + 0.5, QStringLiteral("%1 %2 clear").arg(fault, hexId), {}});
    }
    const QString shorted = anyLdb();
    events.push_back({0.3, QStringLiteral("port-short %1 secondary").arg(shorted), {}});
    events.push_back({0.5, QStringLiteral("port-short %1 secondary clear").arg(shorted), {}});
    std::sort(events.begin(), events.end(),
              [](const Event& one, const Event& other) { return one.at < other.at; });
    return events;
}

QString BadDay::anyLdb()
{
    return m_ldbs.at(static_cast<int>(m_random() % static_cast<quint32>(m_ldbs.size())));
}
