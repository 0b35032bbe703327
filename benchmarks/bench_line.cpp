#include "tests/support/linerig.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTextStream>

// What the conversation holds on a bad line: values, losses and pace under each adversary, on each
// kind of line, judged by the line's own book, in virtual time.

namespace {

constexpr qint64 kSecond = 1000000;
constexpr qint64 kMinute = 60 * kSecond;
constexpr qint64 kHour = 60 * kMinute;

struct Trial
{
    const char* name;
    Adversaries adversaries;
    double pace;     ///< at least, against the clean line
    double paceHalf; ///< on a half-duplex line
    int ldbs = 8;
    int absent = 0;
};

Adversaries everything()
{
    Adversaries all;
    all.flippedRequests = 2;
    all.flippedAnswers = 2;
    all.lostRequests = 2;
    all.lostAnswers = 2;
    all.lateAnswers = 2;
    all.strayEvery = 3;
    return all;
}

std::vector<Trial> trials()
{
    std::vector<Trial> all;
    const auto add = [&all](const char* name, double pace, double paceHalf, auto set) {
        Trial trial{name, {}, pace, paceHalf};
        set(trial.adversaries);
        all.push_back(trial);
    };
    const auto same = [&add](const char* name, double pace, auto set) {
        add(name, pace, pace, set);
    };
    same("flips in answers", 0.94, [](Adversaries& a) { a.flippedAnswers = 2; });
    same("flips both ways", 0.62, [](Adversaries& a) { a.flippedAnswers = a.flippedRequests = 2; });
    same("losses both ways", 0.48, [](Adversaries& a) { a.lostAnswers = a.lostRequests = 2; });
    same("late 0.1 %", 0.97, [](Adversaries& a) { a.lateAnswers = 0.1; });
    same("late 2 %", 0.76, [](Adversaries& a) { a.lateAnswers = 2; });
    same("late 10 %", 0.39, [](Adversaries& a) { a.lateAnswers = 10; });
    add("stray bytes, bursts", 0.95, 0.83, [](Adversaries& a) {
        a.strayEvery = 3;
        a.burstEvery = 30;
    });
    same("stalls that hold", 0.91, [](Adversaries& a) { a.stallEvery = 60; });
    same("stalls that lose", 0.91, [](Adversaries& a) {
        a.stallEvery = 60;
        a.stall = Adversaries::Stall::Lose;
    });
    same("vanishing", 0.76, [](Adversaries& a) { a.vanishEvery = 480; });
    Trial absent{"6 of 64 absent", {}, 0.97, 0.97, 64, 6};
    all.push_back(absent);
    same("all together", 0.27, [](Adversaries& a) { a = everything(); });
    same("all, bursts, stalls, vanishing", 0.19, [](Adversaries& a) {
        a = everything();
        a.burstEvery = 30;
        a.stallEvery = 60;
        a.vanishEvery = 480;
    });
    return all;
}

const std::pair<LineKind, const char*> kKinds[] = {{LineKind::FullDuplex, "full"},
                                                   {LineKind::HalfDuplex, "half"},
                                                   {LineKind::QueuingConverter, "queue"}};

LineRig::Setup setupOf(const Trial& trial, LineKind kind, quint64 seed)
{
    LineRig::Setup setup;
    setup.kind = kind;
    setup.seed = seed;
    if (trial.ldbs != static_cast<int>(setup.addresses.size())) {
        setup.addresses.clear();
        for (int address = 1; address <= trial.ldbs; ++address) {
            setup.addresses.push_back(address);
        }
    }
    return setup;
}

/// Records a second of the clean line.
double cleanPace(const Trial& trial, LineKind kind)
{
    LineRig::Setup setup = setupOf(trial, kind, 1);
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

Verdict live(const Trial& trial, LineKind kind, quint64 seed, double hours, bool withCommands)
{
    LineRig rig(setupOf(trial, kind, seed));
    rig.scan();
    rig.run(kMinute);
    for (int i = 0; i < trial.absent; ++i) {
        rig.boards().setPresent(1 + i * 10, false);
    }
    if (trial.absent > 0) {
        rig.run(10 * kMinute); // until they are lost
    }
    rig.line().setAdversaries(trial.adversaries, rig.now());
    rig.queueByChance(withCommands ? 20 * kSecond : 0);
    const int before = rig.tally().records;
    rig.run(static_cast<qint64>(hours * kHour));
    return {rig.tally(), (rig.tally().records - before) / (hours * 3600), rig.complaints()};
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    parser.addOptions({{"hours", "Virtual hours of each trial.", "number", "40"},
                       {"seeds", "Seeds from 1 on.", "number", "2"},
                       {"first-seed", "The first of them.", "number", "1"},
                       {"trial", "Only trials whose name begins so.", "name", ""},
                       {"line", "Only this kind of line.", "name", ""},
                       {"commands", "Queue commands, too; the pace is not judged then."},
                       {"short", "Six minutes each."}});
    parser.addHelpOption();
    parser.process(app);
    const double hours = parser.isSet("short") ? 0.1 : parser.value("hours").toDouble();
    const quint64 firstSeed = parser.value("first-seed").toULongLong();
    const quint64 seeds = parser.isSet("short") ? 1 : parser.value("seeds").toULongLong();
    const bool withCommands = parser.isSet("commands");

    QTextStream out(stdout);
    out << "line   adversary                        seed  records  wrong  by the book  losses  "
           "false  commands silent  stray ACKs   pace (at least)  s an hour\n";
    bool isGood = true;
    for (const auto& [kind, kindName] : kKinds) {
        if (!QLatin1String(kindName).startsWith(parser.value("line"))) {
            continue;
        }
        for (const Trial& trial : trials()) {
            if (!QLatin1String(trial.name).startsWith(parser.value("trial"))) {
                continue;
            }
            const double clean = cleanPace(trial, kind);
            for (quint64 seed = firstSeed; seed < firstSeed + seeds; ++seed) {
                QElapsedTimer timer;
                timer.start();
                const Verdict verdict = live(trial, kind, seed, hours, withCommands);
                const double pace = verdict.pace / clean;
                const double least = kind == LineKind::HalfDuplex ? trial.paceHalf : trial.pace;
                const bool isFast = withCommands || hours < 1 || pace >= least;
                const LineRig::Tally& tally = verdict.tally;
                out << QStringLiteral("%1 %2 %3 %4 %5 %6 %7 %8 %9 ")
                           .arg(QLatin1String(kindName), -6)
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
                           .arg(static_cast<double>(timer.elapsed()) / 1000 / hours, 0, 'f', 2);
                for (const QString& complaint : verdict.complaints) {
                    out << complaint << "\n";
                }
                out.flush();
                isGood = isGood && isFast && tally.wrong == 0 && tally.falseLosses == 0;
            }
        }
    }
    return isGood ? 0 : 1;
}
