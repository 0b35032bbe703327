// The input: a scenario file. What can be read is simulated for a while.

#include "fuzz/support.h"
#include "serial/ldb/ldbsettings.h"
#include "serial/ldb/serialcommand.h"
#include "serial/wire/framecodec.h"
#include "simulator/bus/bussimulator.h"
#include "simulator/bus/scenario.h"

#include <QSet>

#include <algorithm>

namespace {

constexpr qint64 kSimulated = 300000; // ms
constexpr std::size_t kMaxBoards = 6; // simulated: all of them would be slow
constexpr std::size_t kMaxEvents = 24;
constexpr qint64 kShortestState = 100; // ms
constexpr qint64 kShortestRepetition = 1000;
constexpr double kShortestInterval = 0.01; // s
constexpr int kMaxFirmwareBytes = 60;

bool isAddress(int address)
{
    return address >= 1 && address <= 253;
}

void checkAdversaries(const Adversaries& adversaries)
{
    for (const double percent :
         {adversaries.flippedRequests, adversaries.flippedAnswers, adversaries.garbledAnswers,
          adversaries.lostRequests, adversaries.lostAnswers, adversaries.lateAnswers}) {
        require(percent >= 0 && percent <= 100, "a percentage is one");
    }
    for (const double every : {adversaries.strayEvery, adversaries.burstEvery,
                               adversaries.stallEvery, adversaries.vanishEvery}) {
        require(every == 0 || every >= kShortestInterval, "nothing comes without a pause");
    }
    require(adversaries.lateFrom >= 0 && adversaries.lateTo >= adversaries.lateFrom,
            "late is later");
}

void checkCommand(const SimulatorCommand& command)
{
    require(command.address == SimulatorCommand::kAllLdbs || isAddress(command.address),
            "a command means an address of the bus or all");
    require(!command.afterFim || (*command.afterFim >= 0 && *command.afterFim <= 127),
            "a fault lies on a loop");
    require(!command.times || *command.times >= 1, "a limited fault comes at least once");
    require(command.milliseconds >= 0 && command.seconds >= 0, "times are not negative");
    checkAdversaries(command.adversaries);
}

void checkBoard(const ScenarioLdb& ldb)
{
    const LdbSpec& spec = ldb.spec;
    require(isAddress(spec.address), "a board has an address of the bus");
    require(spec.fims >= 0 && spec.fims <= LoopModel::kMaxFims, "FIMs in range");
    require(spec.settings.name.size() <= kMaxNameBytes, "the name fits");
    require(!spec.firmware.isEmpty() && spec.firmware.size() <= kMaxFirmwareBytes,
            "the firmware id fits");
    for (const SimulatorCommand& fault : ldb.faults) {
        checkCommand(fault);
        require(fault.address == spec.address, "a board's faults are its own");
        require(fault.afterFim.value_or(0) <= spec.fims, "a fault lies on the board's loop");
    }
}

void checkScenario(const Scenario& scenario)
{
    QSet<int> addresses;
    for (const ScenarioLdb& ldb : scenario.ldbs) {
        checkBoard(ldb);
        addresses.insert(ldb.spec.address);
    }
    require(static_cast<std::size_t>(addresses.size()) == scenario.ldbs.size(),
            "no address is taken twice");
    for (const ScenarioEvent& event : scenario.events) {
        checkCommand(event.command);
        require(event.at >= 0, "no event before the start");
        require(event.every == 0 || event.every >= kShortestRepetition,
                "events do not come without a pause");
    }
    const LdbTiming& timing = scenario.timing;
    for (const qint64 time : {timing.booting, timing.measuring, timing.quiescent, timing.fimReset,
                              timing.factoryReset, timing.factoryResetOutcome}) {
        require(time >= kShortestState, "every state lasts");
    }
    checkAdversaries(scenario.line.adversaries);
    require(scenario.line.mostTurnaround >= scenario.line.leastTurnaround, "answers take a time");
}

/// What the tool hears of a board, whatever has become of it on the way.
void checkAnswers(BusSimulator& bus, const QString& hexId, qint64 now)
{
    const ExecuteCommand status(hexId, LdbAction::Status);
    const HeardRequest hearing = bus.hear(framecodec::createCommand(status.commandData()), now);
    require(hearing.hexId == hexId, "a request is understood");
    require(!hearing.answer || (!hearing.answer->bytes.isEmpty() && hearing.answer->delay >= 0),
            "an answer is bytes that come after the request");
    const RequestCommand settings(hexId, LdbParameter::Settings);
    bus.hear(framecodec::createCommand(settings.commandData()), now);
}

void simulate(Scenario scenario)
{
    scenario.ldbs.resize(std::min(scenario.ldbs.size(), kMaxBoards));
    scenario.events.resize(std::min(scenario.events.size(), kMaxEvents));
    std::sort(scenario.events.begin(), scenario.events.end(),
              [](const ScenarioEvent& a, const ScenarioEvent& b) { return a.at < b.at; });
    BusSimulator bus(scenario, scenario.seed, 0);
    const auto askAll = [&](qint64 now) {
        for (const ScenarioLdb& ldb : scenario.ldbs) {
            checkAnswers(bus, busaddress::toHexId(ldb.spec.address), now);
        }
    };
    askAll(0);
    for (const ScenarioEvent& event : scenario.events) {
        const qint64 now = std::min(event.at, kSimulated);
        bus.execute(event.command, now);
        askAll(now);
    }
    askAll(kSimulated);
    require(bus.describe(kSimulated).size() >= static_cast<int>(scenario.ldbs.size()),
            "every board can be listed");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const ScenarioReading reading = readScenario(inputBytes(data, size));
    require(reading.scenario.has_value() == reading.error.isEmpty(),
            "there is a scenario, or it is told why not");
    require(!reading.error.contains(QLatin1Char('\n')), "an error is one line");
    if (reading.scenario) {
        checkScenario(*reading.scenario);
        simulate(*reading.scenario);
    }
    return 0;
}
