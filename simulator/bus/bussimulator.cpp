#include "simulator/bus/bussimulator.h"

#include "serial/ldb/serialcommand.h"
#include "serial/wire/framecodec.h"
#include "simulator/board/ldbresponder.h"

#include <algorithm>

namespace {

/// Neighbours on the bus shall not move in step.
quint32 boardSeed(quint32 seed, int address)
{
    constexpr quint32 kSpread = 2654435761U;
    return (seed + static_cast<quint32>(address)) * kSpread;
}

/// The request in a frame, and in `hearing` who was asked for what, or why nobody understands it.
std::optional<BusRequest> parse(const QByteArray& frame, HeardRequest& hearing)
{
    QByteArray body = frame;
    if (!frame.startsWith(framecodec::kSoh) || !framecodec::responseValidation(body)) {
        hearing.text = QStringLiteral("not understood: broken check");
        return std::nullopt;
    }
    auto request = parseBusRequest(body);
    hearing.text =
        request ? describe(*request) : QStringLiteral("not understood: not from the master");
    if (request) {
        hearing.address = request->address;
        hearing.hexId = busaddress::toHexId(request->address);
    }
    return request;
}

} // namespace

BusSimulator::BusSimulator(const Scenario& scenario, quint32 seed, qint64 now)
    : m_seed(seed)
    , m_random(seed)
    , m_timing(scenario.timing)
{
    for (const ScenarioLdb& entry : scenario.ldbs) {
        const int address = entry.spec.address;
        Member member{SimulatedLdb(entry.spec, m_timing, boardSeed(seed, address), now), {}};
        for (const SimulatorCommand& fault : entry.faults) {
            apply(member, fault, now);
        }
        m_members.emplace(address, std::move(member));
    }
}

HeardRequest BusSimulator::read(const QByteArray& frame)
{
    HeardRequest hearing;
    parse(frame, hearing);
    return hearing;
}

HeardRequest BusSimulator::hear(const QByteArray& frame, qint64 now, const AbsentBoards& absent)
{
    HeardRequest hearing;
    const auto request = parse(frame, hearing);
    if (!request) {
        return hearing;
    }
    if (request->isBroadcast()) {
        obeyBroadcast(*request, now, absent);
        return hearing;
    }
    const auto member = m_members.find(request->address);
    if (member != m_members.end() && member->second.isPresent &&
        !absent.test(static_cast<std::size_t>(request->address))) {
        hearing.answer = answer(member->second, *request, now);
    }
    return hearing;
}

QString BusSimulator::execute(const SimulatorCommand& command, qint64 now)
{
    if (command.address != SimulatorCommand::kAllLdbs) {
        if (command.verb == CommandVerb::Appear) {
            appear(command.address, now);
            return {};
        }
        const auto member = m_members.find(command.address);
        return member == m_members.end()
                   ? QStringLiteral("no LDB at %1").arg(busaddress::toHexId(command.address))
                   : apply(member->second, command, now);
    }
    QString error;
    for (auto& [address, member] : m_members) {
        const QString failure = apply(member, command, now);
        error = error.isEmpty() ? failure : error;
    }
    return error;
}

QStringList BusSimulator::describe(qint64 now)
{
    QStringList lines;
    for (auto& [address, member] : m_members) {
        lines.append(describe(member, now));
    }
    return lines;
}

int BusSimulator::ldbCount() const
{
    return static_cast<int>(
        std::count_if(m_members.begin(), m_members.end(),
                      [](const auto& entry) { return entry.second.isPresent; }));
}

void BusSimulator::obeyBroadcast(const BusRequest& request, qint64 now, const AbsentBoards& absent)
{
    for (auto& [address, member] : m_members) {
        if (member.isPresent && !absent.test(static_cast<std::size_t>(address)) &&
            !member.wire.takeSilence() && !member.wire.takeRefusal(request)) {
            respond(member.ldb, request, now);
        }
    }
}

std::optional<Transmission> BusSimulator::answer(Member& member, const BusRequest& request,
                                                 qint64 now)
{
    if (member.wire.takeSilence()) {
        return std::nullopt;
    }
    const bool isRefused = member.wire.takeRefusal(request);
    const QByteArray bytes =
        isRefused ? QByteArray(1, framecodec::kNak) : respond(member.ldb, request, now);
    return member.wire.spoil(bytes, describeAnswer(request, bytes), m_random);
}

QString BusSimulator::apply(Member& member, const SimulatorCommand& command, qint64 now)
{
    SimulatedLdb& ldb = member.ldb;
    switch (command.verb) {
    case CommandVerb::LoopFault:
        return applyLoopFault(member, command, now);
    case CommandVerb::EarthWire:
        ldb.setEarthWire(command.phase);
        break;
    case CommandVerb::PortShort:
        ldb.setPortShort(command.port, command.phase);
        break;
    case CommandVerb::SecondaryPort:
        ldb.setSecondaryConnected(command.on, now);
        break;
    case CommandVerb::Amplifier:
        ldb.setAmplifier(command.amplifier);
        break;
    case CommandVerb::Mode:
        ldb.setReportedState(command.mode);
        break;
    case CommandVerb::ResetsFail:
        ldb.setResetsFail(command.on);
        break;
    case CommandVerb::Vanish:
        member.isPresent = false;
        break;
    case CommandVerb::Appear:
        appear(ldb.address(), now);
        break;
    default:
        member.wire.apply(command);
        break;
    }
    return {};
}

QString BusSimulator::applyLoopFault(Member& member, const SimulatorCommand& command, qint64 now)
{
    const int fims = member.ldb.loop().fims();
    const int afterFim = command.afterFim.value_or(fims / 2);
    if (afterFim > fims) {
        return QStringLiteral("the loop of %1 has only %2 FIMs")
            .arg(busaddress::toHexId(member.ldb.address()))
            .arg(fims);
    }
    member.ldb.setLoopFault(command.loopFault, command.phase, afterFim, now);
    return {};
}

void BusSimulator::appear(int address, qint64 now)
{
    const auto [member, isNew] = m_members.try_emplace(
        address,
        Member{SimulatedLdb(standardLdb(address), m_timing, boardSeed(m_seed, address), now), {}});
    if (isNew || !member->second.isPresent) {
        member->second.isPresent = true;
        member->second.ldb.powerUp(now);
    }
}

QString BusSimulator::describe(Member& member, qint64 now)
{
    SimulatedLdb& ldb = member.ldb;
    const LdbStatus status = ldb.measure(now);
    const QStringList faults = member.wire.names();
    constexpr int kCountWidth = 3;
    // One call: a name may hold place markers of its own.
    return QStringLiteral("%1  %2  %3 FIMs  %4, loop %5, earth %6, amplifier %7%8")
        .arg(busaddress::toHexId(ldb.address()),
             QString::fromUtf8(ldb.settings().name).leftJustified(kMaxNameBytes),
             QString::number(ldb.loop().fims()).rightJustified(kCountWidth),
             member.isPresent ? ldbStateText(status.state) : QStringLiteral("not on the bus"),
             ldbLoopStateText(status.loopState()), ldbEarthStateText(status.earthState()),
             ldbAmplifierText(status.amplifier),
             faults.isEmpty() ? QString()
                              : QStringLiteral("  [%1]").arg(faults.join(QStringLiteral(", "))));
}
