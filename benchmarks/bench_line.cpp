#include "benchmarks/support/processresources.h"
#include "tests/support/badlines.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTextStream>

#include <algorithm>

// What the conversation holds on a bad line: values, losses and pace under each adversary, on each
// kind of line, judged by the line's own book, in virtual time. With --memory: what the heap grows
// by in days on which nothing sensible comes. With --large: what 253 LDBs make a user wait.

namespace {

constexpr qint64 kSecond = 1000000;
constexpr qint64 kMinute = 60 * kSecond;
constexpr qint64 kHour = 60 * kMinute;

/// How a trial is lived.
struct Way
{
    double hours = 0;
    bool withCommands = false;
    qint64 adapterTick = 0; ///< µs
};

/// Records a second of the clean line.
double cleanPace(const BadLine& trial, LineKind kind, const Way& way)
{
    LineRig::Setup setup = trial.setup(kind, 1);
    setup.adapterTick = way.adapterTick;
    setup.addresses.resize(static_cast<std::size_t>(trial.ldbs - trial.absent));
    LineRig rig(setup);
    rig.scan();
    const int before = rig.tally().records;
    rig.run(10 * kMinute);
    return (rig.tally().records - before) / 600.0;
}

struct Verdict
{
    LineRig::Tally tally;
    double pace = 0;
    QStringList complaints;
};

Verdict live(const BadLine& trial, LineKind kind, quint64 seed, const Way& way)
{
    LineRig::Setup setup = trial.setup(kind, seed);
    setup.adapterTick = way.adapterTick;
    LineRig rig(setup);
    rig.scan();
    rig.run(kMinute);
    trial.begin(rig);
    rig.queueByChance(way.withCommands ? 20 * kSecond : 0);
    const int before = rig.tally().records;
    rig.run(static_cast<qint64>(way.hours * kHour));
    return {rig.tally(), (rig.tally().records - before) / (way.hours * 3600), rig.complaints()};
}

/// Lives on a line on which nothing sensible comes, and says what the heap has grown by since the
/// first hour.
bool liveBarrenHours(const char* name, bool isSilent, const Adversaries& adversaries, double hours,
                     QTextStream& out)
{
    constexpr double kKilobyte = 1024;
    constexpr double kGrowthLimit = 64; // kB
    LineRig::Setup setup;
    setup.together = 16; // as a port hands them over
    LineRig rig(setup);
    rig.scan();
    rig.run(kMinute);
    for (const int address : setup.addresses) {
        rig.boards().setPresent(address, !isSilent);
    }
    rig.line().setAdversaries(adversaries, rig.now());
    rig.run(kHour);
    const qint64 before = ProcessResources::now().heapBytes;
    QElapsedTimer timer;
    timer.start();
    rig.run(static_cast<qint64>(hours * kHour));
    const qint64 after = ProcessResources::now().heapBytes;
    const double growth = static_cast<double>(after - before) / kKilobyte;
    out << QStringLiteral("%1 %2 kB after an hour, %3 kB %4 hours later: %5 kB more (%6 at "
                          "most); %7 losses, %8 wrong, %9 s\n")
               .arg(QLatin1String(name), -14)
               .arg(static_cast<double>(before) / kKilobyte, 0, 'f', 1)
               .arg(static_cast<double>(after) / kKilobyte, 0, 'f', 1)
               .arg(hours)
               .arg(growth, 0, 'f', 1)
               .arg(kGrowthLimit)
               .arg(rig.tally().losses)
               .arg(rig.tally().wrong)
               .arg(timer.elapsed() / 1000);
    out.flush();
    return growth <= kGrowthLimit && rig.tally().wrong == 0;
}

bool showMemory(double hours, QTextStream& out)
{
    Adversaries babble;
    babble.strayEvery = 0.002; // a line that is half full of bytes that nobody sent
    const bool isSilentGood = liveBarrenHours("all silent", true, {}, hours, out);
    return liveBarrenHours("babbling line", false, babble, hours, out) && isSilentGood;
}

/// Lives one trial and prints its row; whether everything held. `clean`: the good line's records a
/// second.
bool showTrial(const BadLine& trial, const NamedLineKind& line, quint64 seed, const Way& way,
               double clean, QTextStream& out)
{
    QElapsedTimer timer;
    timer.start();
    const Verdict verdict = live(trial, line.kind, seed, way);
    const double pace = verdict.pace / clean;
    const double least = trial.paceOn(line.kind);
    const bool isFast = way.withCommands || way.hours < 1 || pace >= least;
    const LineRig::Tally& tally = verdict.tally;
    out << QStringLiteral("%1 %2 %3 %4 %5 %6 %7 %8 %9 ")
               .arg(QLatin1String(line.name), -11)
               .arg(QLatin1String(trial.name), -32)
               .arg(seed, 4)
               .arg(tally.records, 8)
               .arg(tally.wrong, 6)
               .arg(tally.falseFrames, 12)
               .arg(tally.losses, 7)
               .arg(tally.falseLosses, 6)
               .arg(tally.commands, 9)
        << QStringLiteral("%1 %2   %3 (%4)%5   %6\n")
               .arg(tally.silentCommands, 6)
               .arg(tally.unfoundedAcks, 11)
               .arg(pace, 0, 'f', 3)
               .arg(least, 0, 'f', 2)
               .arg(isFast ? "" : " MISSED")
               .arg(static_cast<double>(timer.elapsed()) / 1000 / way.hours, 0, 'f', 2);
    for (const QString& complaint : verdict.complaints) {
        out << complaint << "\n";
    }
    out.flush();
    return isFast && tally.wrong == 0 && tally.falseLosses == 0;
}

/// What a user of 253 LDBs waits for. Times in µs.
struct LargeSite
{
    double round = 0;    ///< mean
    qint64 selected = 0; ///< the longest time between two statuses of the selected LDB
    qint64 loss = 0;     ///< from the first missed request to the loss, the longest of five
    LineRig::Tally tally;
    QStringList complaints;
};

LargeSite liveLarge(const Adversaries& adversaries, const TurnPlan::Options& turns, double hours)
{
    constexpr int kLdbs = 253;
    constexpr int kSelected = 0x55;
    LineRig::Setup setup;
    setup.turns = turns;
    setup.addresses.clear();
    for (int address = 1; address <= kLdbs; ++address) {
        setup.addresses.push_back(address);
    }
    LineRig rig(setup);
    rig.scan();
    rig.run(2 * kMinute);
    rig.conversation().select(busaddress::toHexId(kSelected));
    rig.line().setAdversaries(adversaries, rig.now());
    rig.run(kMinute);

    LargeSite site;
    int rounds = -1;
    qint64 begin = 0;
    qint64 end = 0;
    qint64 lastStatus = rig.now();
    QString gone;
    qint64 firstMiss = 0;
    rig.listen([&](const Event& event) {
        if (std::holds_alternative<event::RoundEnded>(event)) {
            begin = ++rounds == 0 ? rig.now() : begin;
            end = rig.now();
        } else if (const auto* record = std::get_if<event::Record>(&event)) {
            if (record->hexId == busaddress::toHexId(kSelected)) {
                site.selected = std::max(site.selected, rig.now() - lastStatus);
                lastStatus = rig.now();
            }
        } else if (const auto* exchange = std::get_if<Exchange>(&event)) {
            if (firstMiss == 0 && exchange->hexId == gone &&
                exchange->outcome == ExchangeOutcome::Silent) {
                firstMiss = exchange->sentAt - LineRig::kWallStart * 1000;
            }
        } else if (const auto* loss = std::get_if<event::Loss>(&event)) {
            if (loss->hexId == gone) {
                site.loss = std::max(site.loss, rig.now() - firstMiss);
            }
        }
    });
    rig.run(static_cast<qint64>(hours * kHour));
    site.round = static_cast<double>(end - begin) / rounds;
    const qint64 selected = site.selected;
    for (const int address : {1, 64, 128, 200, kLdbs}) {
        gone = busaddress::toHexId(address);
        firstMiss = 0;
        rig.boards().setPresent(address, false);
        rig.runUntil([&] { return rig.lost().contains(gone); }, 10 * kMinute);
        rig.boards().setPresent(address, true);
        rig.runUntil([&] { return !rig.lost().contains(gone); }, 10 * kMinute);
    }
    site.selected = selected;
    site.tally = rig.tally();
    site.complaints = rig.complaints();
    return site;
}

/// 253 LDBs on good and bad lines, asked as ever and as long rounds are; whether the limits of the
/// good line hold.
bool showLarge(double hours, const QString& named, QTextStream& out)
{
    constexpr double kRoundLimit = 0.55;
    constexpr qint64 kSelectedLimit = 2 * kSecond;
    constexpr qint64 kLossLimit = 16 * kSecond;
    const auto seconds = [](auto time) {
        return static_cast<double>(time) / kSecond;
    };
    bool isGood = true;
    out << "253 LDBs                         identity   round s  selected s  loss s  wrong  "
           "false\n";
    const auto show = [&](const char* name, const Adversaries& adversaries) {
        const bool isClean = qstrcmp(name, "good line") == 0;
        double before = 0;
        for (const bool isAsEver : {true, false}) {
            const LargeSite site = liveLarge(
                adversaries, isAsEver ? TurnPlan::Options{1, 0} : TurnPlan::Options{}, hours);
            out << QStringLiteral("%1 %2 %3 %4 %5 %6 %7\n")
                       .arg(QLatin1String(name), -32)
                       .arg(isAsEver ? "each time" : "a tenth  ")
                       .arg(seconds(site.round), 8, 'f', 2)
                       .arg(seconds(site.selected), 11, 'f', 2)
                       .arg(seconds(site.loss), 7, 'f', 2)
                       .arg(site.tally.wrong, 6)
                       .arg(site.tally.falseLosses, 6);
            for (const QString& complaint : site.complaints) {
                out << complaint << "\n";
            }
            out.flush();
            const bool isKept = isAsEver || !isClean ||
                                (site.round <= kRoundLimit * before &&
                                 site.selected <= kSelectedLimit && site.loss <= kLossLimit);
            isGood = isGood && isKept && site.tally.wrong == 0 && site.tally.falseLosses == 0;
            before = site.round;
        }
    };
    if (named.isEmpty()) {
        show("good line", {});
    }
    for (const BadLine& trial : badLines()) {
        if (trial.absent == 0 && QLatin1String(trial.name).startsWith(named)) {
            show(trial.name, trial.adversaries);
        }
    }
    return isGood;
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    parser.addOptions(
        {{"hours", "Virtual hours of each trial.", "number", "40"},
         {"seeds", "Seeds from 1 on.", "number", "2"},
         {"first-seed", "The first of them.", "number", "1"},
         {"trial", "Only trials whose name begins so.", "name", ""},
         {"line", "Only this kind of line.", "name", ""},
         {"adapter", "An adapter that hands bytes over at ticks of so many ms.", "ms", "0"},
         {"commands", "Queue commands, too; the pace is not judged then."},
         {"memory", "Only the memory, of a day (or --hours) of silence and of babble."},
         {"large", "Only 253 LDBs: rounds, the selected LDB, losses; --hours of each line."},
         {"short", "Six minutes each."}});
    parser.addHelpOption();
    parser.process(app);
    const double hours = parser.isSet("short") ? 0.1 : parser.value("hours").toDouble();
    const quint64 firstSeed = parser.value("first-seed").toULongLong();
    const quint64 seeds = parser.isSet("short") ? 1 : parser.value("seeds").toULongLong();
    const Way way{hours, parser.isSet("commands"), parser.value("adapter").toLongLong() * 1000};

    QTextStream out(stdout);
    if (parser.isSet("memory")) {
        constexpr double kDay = 24;
        return showMemory(parser.isSet("hours") ? hours : kDay, out) ? 0 : 1;
    }
    if (parser.isSet("large")) {
        return showLarge(parser.isSet("hours") ? hours : 1, parser.value("trial"), out) ? 0 : 1;
    }
    out << "line        adversary                        seed  records  wrong  by the book  losses "
           " "
           "false  commands silent  stray ACKs   pace (at least)  s an hour\n";
    bool isGood = true;
    for (const NamedLineKind& line : kLineKinds) {
        if (!QLatin1String(line.name).startsWith(parser.value("line"))) {
            continue;
        }
        for (const BadLine& trial : badLines()) {
            if (!QLatin1String(trial.name).startsWith(parser.value("trial"))) {
                continue;
            }
            const double clean = cleanPace(trial, line.kind, way);
            for (quint64 seed = firstSeed; seed < firstSeed + seeds; ++seed) {
                isGood = showTrial(trial, line, seed, way, clean, out) && isGood;
            }
        }
    }
    return isGood ? 0 : 1;
}
