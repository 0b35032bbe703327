#include "simulator/bus/scenario.h"

#include "serial/ldb/serialcommand.h"
#include "simulator/bus/keyreader.h"

#include <QFile>
#include <QJsonDocument>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <tuple>

// A resource of a static library has to be asked for, outside any namespace.
static void loadResources()
{
    Q_INIT_RESOURCE(scenarios);
}

namespace {

constexpr double kMillisecondsPerSecond = 1000;
constexpr double kMaxStateSeconds = 3600;
constexpr double kMaxEventSeconds = 30.0 * 86400;
constexpr double kMaxSeed = 2147483647;
constexpr double kPercent = 100;
constexpr int kMaxLateMilliseconds = 60000;
constexpr int kMaxTurnaroundMilliseconds = 1000;
constexpr double kShortestStrayInterval = 0.01; // s
constexpr double kMaxIntervalSeconds = 86400;
constexpr int kWordMax = 65535;
constexpr int kHexBase = 16;
constexpr int kMaxFirmwareBytes = 60;
constexpr int kMinFirmwareBytes = 6; // a shorter id is no answer to the tool
constexpr int kMaxFileSize = 4 * 1024 * 1024;
constexpr int kMaxFaults = 64; // of one LDB
constexpr int kStandardFims = 8;

qint64 milliseconds(double seconds)
{
    return std::llround(seconds * kMillisecondsPerSecond);
}

struct AddressRange
{
    int first = 0;
    int last = 0;
};

/// "0A", or "01-FD" for one LDB at each address of a range.
std::optional<AddressRange> parseAddresses(const QString& text)
{
    const QStringList ends = text.split(QLatin1Char('-'));
    bool isFirst = false;
    bool isLast = false;
    const int first = ends.constFirst().toInt(&isFirst, kHexBase);
    const int last = ends.constLast().toInt(&isLast, kHexBase);
    if (ends.size() > 2 || !isFirst || !isLast || first < busaddress::kFirst ||
        last > busaddress::kLast || last < first) {
        return std::nullopt;
    }
    return AddressRange{first, last};
}

/// Reads a scenario piece by piece; all pieces share the first error.
class ScenarioReader
{
public:
    ScenarioReading read(const QJsonObject& root);

private:
    void readTiming(const QJsonObject& object);
    void readBadBus(const QJsonObject& object);
    void readLine(const QJsonObject& object);
    static void readAdversaries(KeyReader& keys, Adversaries& adversaries);
    void readLdbs(const QJsonArray& entries);
    void readLdb(const QJsonObject& object, const QString& path);
    ScenarioLdb readBoard(KeyReader& keys, int address);
    void readSettings(KeyReader& keys, LdbSpec& spec, int address);
    void readFaults(KeyReader& keys, ScenarioLdb& ldb);
    void readEvents(const QJsonArray& entries);
    std::optional<SimulatorCommand> readCommand(const QString& text, const QString& path);
    void checkTarget(const SimulatorCommand& command, const QString& path);
    void fail(const QString& path, const QString& what);

    Scenario m_scenario;
    QString m_error;
};

ScenarioReading ScenarioReader::read(const QJsonObject& root)
{
    KeyReader keys(root, {}, m_error);
    keys.text("description");
    m_scenario.seed =
        static_cast<quint32>(keys.real("seed", static_cast<double>(m_scenario.seed), 0, kMaxSeed));
    readTiming(keys.object("timing"));
    readBadBus(keys.object("badBus"));
    readLine(keys.object("line"));
    if (!keys.has("ldbs")) {
        keys.fail("ldbs", QStringLiteral("is missing"));
    }
    readLdbs(keys.array("ldbs"));
    readEvents(keys.array("events"));
    keys.complainOfUnknownKeys();
    if (!m_error.isEmpty()) {
        return {std::nullopt, m_error};
    }
    return {std::move(m_scenario), {}};
}

void ScenarioReader::readTiming(const QJsonObject& object)
{
    KeyReader keys(object, QStringLiteral("timing"), m_error);
    const auto read = [&keys](const char* key, qint64& time) {
        constexpr double kShortest = 0.1;
        time = milliseconds(keys.real(key, static_cast<double>(time) / kMillisecondsPerSecond,
                                      kShortest, kMaxStateSeconds));
    };
    LdbTiming& timing = m_scenario.timing;
    read("bootSeconds", timing.booting);
    read("measuringSeconds", timing.measuring);
    read("quiescentSeconds", timing.quiescent);
    read("fimResetSeconds", timing.fimReset);
    read("factoryResetSeconds", timing.factoryReset);
    read("factoryResetWaitSeconds", timing.factoryResetOutcome);
    keys.complainOfUnknownKeys();
}

void ScenarioReader::readBadBus(const QJsonObject& object)
{
    KeyReader keys(object, QStringLiteral("badBus"), m_error);
    Adversaries& adversaries = m_scenario.line.adversaries;
    adversaries.garbledAnswers = keys.real("garbledPercent", 0, 0, kPercent);
    adversaries.lateAnswers = keys.real("latePercent", 0, 0, kPercent);
    int& from = adversaries.lateFrom;
    int& to = adversaries.lateTo;
    from = keys.integer("lateFromMs", from, 0, kMaxLateMilliseconds);
    to = keys.integer("lateToMs", std::max(from, to), 0, kMaxLateMilliseconds);
    if (to < from) {
        keys.fail("lateToMs", QStringLiteral("must not be less than lateFromMs"));
    }
    keys.complainOfUnknownKeys();
}

void ScenarioReader::readLine(const QJsonObject& object)
{
    KeyReader keys(object, QStringLiteral("line"), m_error);
    ScenarioLine& line = m_scenario.line;
    const std::pair<const char*, LineKind> kinds[] = {{"full", LineKind::FullDuplex},
                                                      {"half", LineKind::HalfDuplex},
                                                      {"queue", LineKind::QueuingConverter}};
    const QString kind = keys.text("kind", QStringLiteral("full"));
    const auto* known =
        std::find_if(std::begin(kinds), std::end(kinds),
                     [&kind](const auto& entry) { return kind == QLatin1String(entry.first); });
    if (known == std::end(kinds)) {
        keys.fail("kind", QStringLiteral("must be \"full\", \"half\" or \"queue\""));
        return;
    }
    line.kind = known->second;
    line.leastTurnaround =
        keys.integer("turnaroundFromMs", line.leastTurnaround, 0, kMaxTurnaroundMilliseconds);
    line.mostTurnaround =
        keys.integer("turnaroundToMs", std::max(line.leastTurnaround, line.mostTurnaround), 0,
                     kMaxTurnaroundMilliseconds);
    if (line.mostTurnaround < line.leastTurnaround) {
        keys.fail("turnaroundToMs", QStringLiteral("must not be less than turnaroundFromMs"));
    }
    readAdversaries(keys, line.adversaries);
    keys.complainOfUnknownKeys();
}

void ScenarioReader::readAdversaries(KeyReader& keys, Adversaries& adversaries)
{
    const std::pair<const char*, double Adversaries::*> percentages[] = {
        {"flippedRequestsPercent", &Adversaries::flippedRequests},
        {"flippedAnswersPercent", &Adversaries::flippedAnswers},
        {"lostRequestsPercent", &Adversaries::lostRequests},
        {"lostAnswersPercent", &Adversaries::lostAnswers}};
    for (const auto& [key, member] : percentages) {
        adversaries.*member = keys.real(key, 0, 0, kPercent);
    }
    const std::tuple<const char*, double Adversaries::*, double> times[] = {
        {"strayEverySeconds", &Adversaries::strayEvery, kShortestStrayInterval},
        {"burstEverySeconds", &Adversaries::burstEvery, kShortestStrayInterval},
        {"stallEverySeconds", &Adversaries::stallEvery, 1},
        {"vanishEverySeconds", &Adversaries::vanishEvery, 1},
        {"vanishForSeconds", &Adversaries::vanishFor, kShortestStrayInterval}};
    for (const auto& [key, member, shortest] : times) {
        if (keys.has(key)) {
            adversaries.*member = keys.real(key, 0, shortest, kMaxIntervalSeconds);
        }
    }
    if (keys.flag("stallsLose", false)) {
        adversaries.stall = Adversaries::Stall::Lose;
    }
}

void ScenarioReader::readLdbs(const QJsonArray& entries)
{
    for (int i = 0; i < entries.size(); ++i) {
        const QString path = QStringLiteral("ldbs[%1]").arg(i);
        if (!entries.at(i).isObject()) {
            fail(path, QStringLiteral("must be an object"));
        }
        readLdb(entries.at(i).toObject(), path);
    }
}

void ScenarioReader::readLdb(const QJsonObject& object, const QString& path)
{
    KeyReader keys(object, path, m_error);
    const auto addresses = parseAddresses(keys.text("address"));
    if (!addresses) {
        keys.fail("address", QStringLiteral("must be a bus address from \"01\" to \"FD\", or a "
                                            "range such as \"01-1F\""));
        return;
    }
    for (int address = addresses->first; address <= addresses->last; ++address) {
        const auto& ldbs = m_scenario.ldbs;
        if (std::any_of(ldbs.begin(), ldbs.end(), [address](const ScenarioLdb& ldb) {
                return ldb.spec.address == address;
            })) {
            keys.fail("address",
                      QStringLiteral("%1 is taken twice").arg(busaddress::toHexId(address)));
            return;
        }
        m_scenario.ldbs.push_back(readBoard(keys, address));
    }
    keys.complainOfUnknownKeys();
}

ScenarioLdb ScenarioReader::readBoard(KeyReader& keys, int address)
{
    ScenarioLdb ldb;
    ldb.spec = standardLdb(address);
    ldb.spec.fims = keys.integer("fims", kStandardFims, 0, LoopModel::kMaxFims);
    ldb.spec.isInServiceMode = keys.flag("serviceMode", false);
    ldb.spec.firmware = keys.text("firmware", QString::fromLatin1(ldb.spec.firmware)).toLatin1();
    if (ldb.spec.firmware.size() < kMinFirmwareBytes ||
        ldb.spec.firmware.size() > kMaxFirmwareBytes || ldb.spec.firmware.contains('\0')) {
        keys.fail("firmware", QStringLiteral("must have %1 to %2 characters, none of them zero")
                                  .arg(kMinFirmwareBytes)
                                  .arg(kMaxFirmwareBytes));
    }
    readSettings(keys, ldb.spec, address);
    readFaults(keys, ldb);
    return ldb;
}

void ScenarioReader::readSettings(KeyReader& keys, LdbSpec& spec, int address)
{
    StoredSettings& settings = spec.settings;
    QString name = keys.text("name", QString::fromUtf8(settings.name));
    name.replace(QLatin1String("%1"), QString::number(address));
    settings.name = name.toUtf8();
    if (settings.name.size() > kMaxNameBytes || settings.name.contains('\0')) {
        keys.fail("name", QStringLiteral("must fit into %1 bytes of UTF-8").arg(kMaxNameBytes));
    }
    settings.numberOfFims =
        static_cast<quint16>(keys.integer("configuredFims", spec.fims, 0, kWordMax));
    settings.openDetectionDelay = static_cast<quint16>(
        keys.integer("openDetectionDelay", settings.openDetectionDelay, 0, kWordMax));
    settings.audioMute = keys.flag("audioMute", settings.audioMute);
    const std::pair<const char*, SettingsFlag> flags[] = {
        {"generalFaultOutput", GeneralFaultOutputFlag},
        {"earthLeakageDetection", EarthLeakageDetectionFlag},
        {"earthWireOpenDetection", EarthWireOpenDetectionFlag},
        {"startInServiceMode", StartInServiceModeFlag},
        {"amplifierDetection", AmplifierDetectionFlag}};
    for (const auto& [key, flag] : flags) {
        settings.set(flag, keys.flag(key, settings.has(flag)));
    }
}

/// Faults read like commands that do not name their LDB: "short after 3".
void ScenarioReader::readFaults(KeyReader& keys, ScenarioLdb& ldb)
{
    const QJsonArray faults = keys.array("faults");
    if (faults.size() > kMaxFaults) {
        keys.fail("faults", QStringLiteral("are more than %1").arg(kMaxFaults));
        return;
    }
    for (int i = 0; i < faults.size(); ++i) {
        const QString path = QStringLiteral("%1[%2]").arg(keys.pathOf("faults")).arg(i);
        const QString text = faults.at(i).toString().simplified();
        const QString target = busaddress::toHexId(ldb.spec.address);
        const QString command = QStringLiteral("%1 %2 %3")
                                    .arg(text.section(QLatin1Char(' '), 0, 0), target,
                                         text.section(QLatin1Char(' '), 1));
        const auto fault = readCommand(command, path);
        if (!fault) {
            return;
        }
        if (fault->afterFim.value_or(0) > ldb.spec.fims) {
            fail(path, QStringLiteral("the loop has only %1 FIMs").arg(ldb.spec.fims));
        }
        ldb.faults.push_back(*fault);
    }
}

void ScenarioReader::readEvents(const QJsonArray& entries)
{
    for (int i = 0; i < entries.size(); ++i) {
        const QString path = QStringLiteral("events[%1]").arg(i);
        if (!entries.at(i).isObject()) {
            fail(path, QStringLiteral("must be an object"));
        }
        KeyReader keys(entries.at(i).toObject(), path, m_error);
        constexpr double kShortestRepetition = 1;
        ScenarioEvent event;
        event.at = milliseconds(keys.real("at", 0, 0, kMaxEventSeconds));
        if (keys.has("every")) {
            event.every =
                milliseconds(keys.real("every", 0, kShortestRepetition, kMaxEventSeconds));
        }
        const auto command = readCommand(keys.text("do"), keys.pathOf("do"));
        keys.complainOfUnknownKeys();
        if (!command) {
            return;
        }
        checkTarget(*command, keys.pathOf("do"));
        event.command = *command;
        m_scenario.events.push_back(event);
    }
}

std::optional<SimulatorCommand> ScenarioReader::readCommand(const QString& text,
                                                            const QString& path)
{
    const CommandParsing parsing = parseSimulatorCommand(text);
    if (!parsing.command) {
        fail(path, parsing.error.isEmpty() ? QStringLiteral("is empty") : parsing.error);
    }
    return parsing.command;
}

void ScenarioReader::checkTarget(const SimulatorCommand& command, const QString& path)
{
    if (command.address == SimulatorCommand::kAllLdbs || command.verb == CommandVerb::Appear) {
        return;
    }
    const auto& ldbs = m_scenario.ldbs;
    const auto found = std::find_if(ldbs.begin(), ldbs.end(), [&command](const ScenarioLdb& ldb) {
        return ldb.spec.address == command.address;
    });
    if (found == ldbs.end()) {
        fail(path, QStringLiteral("no LDB at %1").arg(busaddress::toHexId(command.address)));
    } else if (command.afterFim.value_or(0) > found->spec.fims) {
        fail(path, QStringLiteral("the loop has only %1 FIMs").arg(found->spec.fims));
    }
}

void ScenarioReader::fail(const QString& path, const QString& what)
{
    if (m_error.isEmpty()) {
        m_error = QStringLiteral("%1: %2").arg(path, what);
    }
}

} // namespace

ScenarioReading readScenario(const QByteArray& json)
{
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(json, &parseError);
    if (parseError.error != QJsonParseError::NoError) {
        const int line = json.left(parseError.offset).count('\n') + 1;
        return {std::nullopt,
                QStringLiteral("line %1: %2").arg(line).arg(parseError.errorString())};
    }
    if (!document.isObject()) {
        return {std::nullopt, QStringLiteral("the file must hold one object")};
    }
    return ScenarioReader().read(document.object());
}

ScenarioReading readScenarioFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {std::nullopt, file.errorString()};
    }
    if (file.size() > kMaxFileSize) {
        return {std::nullopt, QStringLiteral("the file is too large")};
    }
    return readScenario(file.readAll());
}

Scenario defaultScenario()
{
    loadResources();
    const ScenarioReading reading =
        readScenarioFile(QStringLiteral(":/simulator/scenarios/default-site.json"));
    Q_ASSERT_X(reading.scenario, "defaultScenario", qPrintable(reading.error));
    return reading.scenario.value_or(Scenario());
}

LdbSpec standardLdb(int address)
{
    LdbSpec spec;
    spec.address = address;
    spec.firmware = "LDB16 V3.21";
    spec.fims = kStandardFims;
    spec.settings.name = "LDB " + QByteArray::number(address);
    spec.settings.numberOfFims = kStandardFims;
    return spec;
}
