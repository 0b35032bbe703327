#include "simulator/bus/simulatorcommand.h"

#include "serial/ldb/serialcommand.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr int kHexBase = 16;
constexpr int kMaxMilliseconds = 60000;
constexpr int kMaxTimes = 1000000;
constexpr double kMaxSeconds = 86400;
constexpr double kShortestEvery = 0.01; // s

/// The words of one command, taken one after another; remembers the first thing that was wrong.
class Words
{
public:
    explicit Words(const QString& text)
        : m_words(text.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts))
    {
    }

    bool isEmpty() const { return m_words.isEmpty(); }
    QString take() { return m_words.isEmpty() ? QString() : m_words.takeFirst(); }
    bool takeIf(const char* word)
    {
        const bool matches = !isEmpty() && m_words.constFirst() == QLatin1String(word);
        if (matches) {
            m_words.removeFirst();
        }
        return matches;
    }

    int takeInteger(const char* what, int lowest, int highest, int base = 10)
    {
        const QString word = take();
        bool isNumber = false;
        const int number = word.toInt(&isNumber, base);
        if (!isNumber || number < lowest || number > highest) {
            fail(QStringLiteral("%1 must be a number from %2 to %3%4, not \"%5\"")
                     .arg(QLatin1String(what), QString::number(lowest, base).toUpper(),
                          QString::number(highest, base).toUpper(),
                          base == kHexBase ? QStringLiteral(" (hexadecimal)") : QString(), word));
        }
        return number;
    }

    double takeReal(const char* what, double highest, double lowest = 0)
    {
        const QString word = take();
        bool isNumber = false;
        const double number = word.toDouble(&isNumber);
        if (!isNumber || !(number >= lowest && number <= highest)) {
            fail(QStringLiteral("%1 must be a number from %2 to %3, not \"%4\"")
                     .arg(QLatin1String(what))
                     .arg(lowest)
                     .arg(highest)
                     .arg(word));
        }
        return number;
    }

    void fail(const QString& error)
    {
        if (m_error.isEmpty()) {
            m_error = error;
        }
    }
    const QString& error() const { return m_error; }

private:
    QStringList m_words;
    QString m_error;
};

template <typename Value>
struct Choice
{
    const char* word;
    Value value;
};

/// The value of the next word, which must be one of the choices.
template <typename Value, std::size_t Count>
Value takeChoice(Words& words, const Choice<Value> (&choices)[Count])
{
    const QString word = words.take();
    QStringList known;
    for (const Choice<Value>& choice : choices) {
        if (word == QLatin1String(choice.word)) {
            return choice.value;
        }
        known.append(QLatin1String(choice.word));
    }
    words.fail(
        QStringLiteral("expected %1, not \"%2\"").arg(known.join(QStringLiteral("|")), word));
    return choices[0].value;
}

void takeTarget(Words& words, SimulatorCommand& command)
{
    if (!words.takeIf("all")) {
        command.address =
            words.takeInteger("the LDB", busaddress::kFirst, busaddress::kLast, kHexBase);
    }
}

void takePhase(Words& words, SimulatorCommand& command)
{
    if (words.takeIf("memory")) {
        command.phase = FaultPhase::Memory;
    } else if (words.takeIf("clear")) {
        command.phase = FaultPhase::Clear;
    } else {
        words.takeIf("present");
    }
}

void takeSwitch(Words& words, SimulatorCommand& command)
{
    command.on = !words.takeIf("off");
    if (command.on) {
        words.takeIf("on");
    }
}

void takeTimes(Words& words, SimulatorCommand& command)
{
    if (words.takeIf("times")) {
        command.times = words.takeInteger("times", 1, kMaxTimes);
    }
}

void takeLoopFault(Words& words, SimulatorCommand& command)
{
    takeTarget(words, command);
    takePhase(words, command);
    if (words.takeIf("after")) {
        command.afterFim = words.takeInteger("after", 0, LoopModel::kMaxFims);
    }
}

void takePhaseOnly(Words& words, SimulatorCommand& command)
{
    takeTarget(words, command);
    takePhase(words, command);
}

void takePortShort(Words& words, SimulatorCommand& command)
{
    constexpr Choice<LoopPort> kPorts[] = {{"primary", LoopPort::Primary},
                                           {"secondary", LoopPort::Secondary}};
    takeTarget(words, command);
    command.port = takeChoice(words, kPorts);
    takePhase(words, command);
}

void takeSecondaryPort(Words& words, SimulatorCommand& command)
{
    constexpr Choice<bool> kStates[] = {{"connected", true}, {"disconnected", false}};
    takeTarget(words, command);
    command.on = takeChoice(words, kStates);
}

void takeAmplifier(Words& words, SimulatorCommand& command)
{
    constexpr Choice<LdbAmplifierState> kStates[] = {
        {"ok", LdbAmplifierState::Ok},
        {"polling", LdbAmplifierState::Polling},
        {"disconnected", LdbAmplifierState::Disconnected},
        {"reconnected", LdbAmplifierState::Reconnected},
        {"not-supported", LdbAmplifierState::NotSupported}};
    takeTarget(words, command);
    command.amplifier = takeChoice(words, kStates);
}

void takeMode(Words& words, SimulatorCommand& command)
{
    constexpr Choice<std::optional<LdbState>> kModes[] = {
        {"normal", std::nullopt},
        {"check-settings", LdbState::CheckSettings},
        {"fault", LdbState::Fault}};
    takeTarget(words, command);
    command.mode = takeChoice(words, kModes);
}

void takeSwitchOnly(Words& words, SimulatorCommand& command)
{
    takeTarget(words, command);
    takeSwitch(words, command);
}

void takeSwitchAndTimes(Words& words, SimulatorCommand& command)
{
    takeSwitchOnly(words, command);
    takeTimes(words, command);
}

void takeNak(Words& words, SimulatorCommand& command)
{
    takeTarget(words, command);
    command.nakScope = NakScope::All;
    if (words.takeIf("off")) {
        command.nakScope = NakScope::None;
    } else if (words.takeIf("changes")) {
        command.nakScope = NakScope::Changes;
    } else if (words.takeIf("index")) {
        command.nakScope = NakScope::Index;
        command.index = words.takeInteger("index", 0, 0xFF, kHexBase);
    } else {
        words.takeIf("all");
    }
    takeTimes(words, command);
}

void takeLate(Words& words, SimulatorCommand& command)
{
    takeTarget(words, command);
    command.on = !words.takeIf("off");
    if (command.on) {
        command.milliseconds = words.takeInteger("the milliseconds", 1, kMaxMilliseconds);
    }
    takeTimes(words, command);
}

void takeTargetOnly(Words& words, SimulatorCommand& command)
{
    takeTarget(words, command);
}

double takePercent(Words& words, const char* what)
{
    constexpr double kAll = 100;
    return words.takeReal(what, kAll);
}

/// FROM TO at the end of a command that is about lateness.
void takeLateness(Words& words, SimulatorCommand& command)
{
    command.hasLateness = !words.isEmpty();
    if (command.hasLateness) {
        int& from = command.adversaries.lateFrom;
        from = words.takeInteger("the least lateness in ms", 0, kMaxMilliseconds);
        command.adversaries.lateTo =
            words.takeInteger("the greatest lateness in ms", from, kMaxMilliseconds);
    }
}

void takeBadBus(Words& words, SimulatorCommand& command)
{
    if (!words.takeIf("off")) {
        command.adversaries.garbledAnswers =
            takePercent(words, "the percentage of garbled answers");
        command.adversaries.lateAnswers = takePercent(words, "the percentage of late answers");
        takeLateness(words, command);
    }
}

void takeLineKind(Words& words, SimulatorCommand& command)
{
    constexpr Choice<LineKind> kKinds[] = {{"full", LineKind::FullDuplex},
                                           {"half", LineKind::HalfDuplex},
                                           {"queue", LineKind::QueuingConverter}};
    command.lineKind = takeChoice(words, kKinds);
}

void takeFlips(Words& words, SimulatorCommand& command)
{
    if (!words.takeIf("off")) {
        command.adversaries.flippedRequests = takePercent(words, "the percentage of requests");
        command.adversaries.flippedAnswers = takePercent(words, "the percentage of answers");
    }
}

void takeLosses(Words& words, SimulatorCommand& command)
{
    if (!words.takeIf("off")) {
        command.adversaries.lostRequests = takePercent(words, "the percentage of requests");
        command.adversaries.lostAnswers = takePercent(words, "the percentage of answers");
    }
}

void takeLateAnswers(Words& words, SimulatorCommand& command)
{
    if (!words.takeIf("off")) {
        command.adversaries.lateAnswers = takePercent(words, "the percentage of answers");
        takeLateness(words, command);
    }
}

void takeStray(Words& words, SimulatorCommand& command)
{
    if (!words.takeIf("off")) {
        command.adversaries.strayEvery =
            words.takeReal("the seconds between two bytes", kMaxSeconds, kShortestEvery);
        command.adversaries.burstEvery =
            words.isEmpty()
                ? 0
                : words.takeReal("the seconds between two bursts", kMaxSeconds, kShortestEvery);
    }
}

void takeStalls(Words& words, SimulatorCommand& command)
{
    constexpr Choice<Adversaries::Stall> kStalls[] = {{"hold", Adversaries::Stall::Hold},
                                                      {"lose", Adversaries::Stall::Lose}};
    if (!words.takeIf("off")) {
        command.adversaries.stall = takeChoice(words, kStalls);
        command.adversaries.stallEvery =
            words.takeReal("the seconds between two stalls", kMaxSeconds, 1);
    }
}

void takeVanishing(Words& words, SimulatorCommand& command)
{
    if (!words.takeIf("off")) {
        command.adversaries.vanishEvery =
            words.takeReal("the seconds between two absences", kMaxSeconds, 1);
        if (words.takeIf("for")) {
            command.adversaries.vanishFor =
                words.takeReal("the seconds of absence", kMaxSeconds, kShortestEvery);
        }
    }
}

void takeCut(Words& words, SimulatorCommand& command)
{
    if (words.takeIf("for")) {
        command.seconds = words.takeReal("the seconds", kMaxSeconds);
    }
}

void takeNothing(Words& words, SimulatorCommand& command)
{
    Q_UNUSED(words)
    Q_UNUSED(command)
}

struct Grammar
{
    const char* word;
    CommandVerb verb;
    LoopFaultKind loopFault;
    void (*take)(Words& words, SimulatorCommand& command);
    const char* form;
    const char* help;
};

constexpr LoopFaultKind kNoLoopFault = LoopFaultKind::Open;
constexpr char kLoopFaultForm[] = "LDB [present|memory|clear] [after FIM]";
constexpr char kPhaseForm[] = "LDB [present|memory|clear]";
constexpr char kSwitchForm[] = "LDB [on|off]";
constexpr char kSwitchTimesForm[] = "LDB [on|off] [times N]";

constexpr Grammar kGrammar[] = {
    {"open", CommandVerb::LoopFault, LoopFaultKind::Open, takeLoopFault, kLoopFaultForm,
     "the loop is open behind a FIM (0: at the primary port)"},
    {"short", CommandVerb::LoopFault, LoopFaultKind::Short, takeLoopFault, kLoopFaultForm,
     "the loop is shorted behind a FIM"},
    {"dc-leakage", CommandVerb::LoopFault, LoopFaultKind::DcLeakage, takeLoopFault, kLoopFaultForm,
     "DC leakage behind a FIM"},
    {"earth-leakage", CommandVerb::LoopFault, LoopFaultKind::EarthLeakage, takeLoopFault,
     kLoopFaultForm, "earth leakage behind a FIM"},
    {"earth-wire", CommandVerb::EarthWire, kNoLoopFault, takePhaseOnly, kPhaseForm,
     "the earth wire is open (seen with earth wire open detection on)"},
    {"port-short", CommandVerb::PortShort, kNoLoopFault, takePortShort,
     "LDB primary|secondary [present|memory|clear]", "a port is shorted and cannot be measured"},
    {"secondary-port", CommandVerb::SecondaryPort, kNoLoopFault, takeSecondaryPort,
     "LDB connected|disconnected", "the connector of the secondary port"},
    {"amplifier", CommandVerb::Amplifier, kNoLoopFault, takeAmplifier,
     "LDB ok|polling|disconnected|reconnected|not-supported", "what is reported of the amplifier"},
    {"mode", CommandVerb::Mode, kNoLoopFault, takeMode, "LDB normal|check-settings|fault",
     "the operating state reported"},
    {"resets-fail", CommandVerb::ResetsFail, kNoLoopFault, takeSwitchOnly, kSwitchForm,
     "FIM and factory resets end in failure"},
    {"silent", CommandVerb::Silent, kNoLoopFault, takeSwitchAndTimes, kSwitchTimesForm,
     "hears nothing and says nothing"},
    {"bad-check", CommandVerb::BadCheck, kNoLoopFault, takeSwitchAndTimes, kSwitchTimesForm,
     "framed answers carry wrong check digits"},
    {"wrong-length", CommandVerb::WrongLength, kNoLoopFault, takeSwitchAndTimes, kSwitchTimesForm,
     "framed answers are well formed, but one byte short"},
    {"nak", CommandVerb::Nak, kNoLoopFault, takeNak,
     "LDB [all|changes|index PARAMETER|off] [times N]", "refuses requests"},
    {"late", CommandVerb::Late, kNoLoopFault, takeLate, "LDB MILLISECONDS|off [times N]",
     "answers late"},
    {"noise", CommandVerb::Noise, kNoLoopFault, takeSwitchAndTimes, kSwitchTimesForm,
     "noise bytes before every answer"},
    {"fragments", CommandVerb::Fragments, kNoLoopFault, takeSwitchAndTimes, kSwitchTimesForm,
     "answers come in pieces with pauses"},
    {"vanish", CommandVerb::Vanish, kNoLoopFault, takeTargetOnly, "LDB", "is taken off the bus"},
    {"appear", CommandVerb::Appear, kNoLoopFault, takeTargetOnly, "LDB",
     "is put on the bus and boots; a new one where none was"},
    {"bad-bus", CommandVerb::BadBus, kNoLoopFault, takeBadBus, "GARBLED LATE [FROM TO] | off",
     "percentages of all answers that are spoiled, at random; FROM, TO: ms late"},
    {"line", CommandVerb::LineKind, kNoLoopFault, takeLineKind, "full|half|queue",
     "what overlaps: answers; requests, too; or nothing, through a converter that queues"},
    {"flips", CommandVerb::Flips, kNoLoopFault, takeFlips, "REQUESTS ANSWERS | off",
     "percentages of which one bit is flipped"},
    {"losses", CommandVerb::Losses, kNoLoopFault, takeLosses, "REQUESTS ANSWERS | off",
     "percentages that are lost whole"},
    {"late-answers", CommandVerb::LateAnswers, kNoLoopFault, takeLateAnswers,
     "PERCENT [FROM TO] | off", "percentage of all answers that are late; FROM, TO: ms"},
    {"stray", CommandVerb::Stray, kNoLoopFault, takeStray, "SECONDS [BURST_SECONDS] | off",
     "a byte that nobody sent every so often, and 20 of them at once"},
    {"stalls", CommandVerb::Stalls, kNoLoopFault, takeStalls, "hold|lose SECONDS | off",
     "the line holds answers back, or loses them, for up to 5 s every so often"},
    {"vanishing", CommandVerb::Vanishing, kNoLoopFault, takeVanishing,
     "SECONDS [for SECONDS] | off", "every LDB is gone every so often, for 30 s"},
    {"cut", CommandVerb::Cut, kNoLoopFault, takeCut, "[for SECONDS]",
     "cuts the line: the port is gone"},
    {"restore", CommandVerb::Restore, kNoLoopFault, takeNothing, "",
     "the line is back, on a new port"},
    {"list", CommandVerb::List, kNoLoopFault, takeNothing, "", "what every LDB is doing"},
    {"help", CommandVerb::Help, kNoLoopFault, takeNothing, "", "this list"},
    {"quit", CommandVerb::Quit, kNoLoopFault, takeNothing, "", "ends the simulation"},
};

} // namespace

CommandParsing parseSimulatorCommand(const QString& text)
{
    Words words(text);
    if (words.isEmpty()) {
        return {};
    }
    const QString verb = words.take();
    const auto* grammar =
        std::find_if(std::begin(kGrammar), std::end(kGrammar),
                     [&verb](const Grammar& entry) { return verb == QLatin1String(entry.word); });
    if (grammar == std::end(kGrammar)) {
        return {std::nullopt, QStringLiteral("unknown command \"%1\"; try help").arg(verb)};
    }
    SimulatorCommand command;
    command.verb = grammar->verb;
    command.loopFault = grammar->loopFault;
    grammar->take(words, command);
    if (!words.isEmpty()) {
        words.fail(QStringLiteral("\"%1\" is too much").arg(words.take()));
    }
    if (!words.error().isEmpty()) {
        return {std::nullopt, QStringLiteral("%1: %2 (%1 %3)")
                                  .arg(verb, words.error(), QLatin1String(grammar->form))};
    }
    return {command, {}};
}

QStringList simulatorCommandHelp()
{
    constexpr int kFormWidth = 65;
    QStringList lines;
    for (const Grammar& grammar : kGrammar) {
        const QString form =
            QStringLiteral("%1 %2").arg(QLatin1String(grammar.word), QLatin1String(grammar.form));
        lines.append(form.leftJustified(kFormWidth) + QLatin1String(grammar.help));
    }
    lines.append(QStringLiteral("LDB is a bus address in hexadecimal (01 to FD), or \"all\"."));
    return lines;
}
