#include "tests/support/badlines.h"

namespace {

constexpr qint64 kMinute = 60000000;
constexpr int kUntilLost = 10; ///< minutes
constexpr int kFlips = 2;      ///< percent, and of losses and late answers, too
constexpr double kStrayEvery = 3;
constexpr double kBurstEvery = 30;
constexpr double kStallEvery = 60;
constexpr double kVanishEvery = 480;

Adversaries everything()
{
    Adversaries all;
    all.flippedRequests = all.flippedAnswers = kFlips;
    all.lostRequests = all.lostAnswers = kFlips;
    all.lateAnswers = kFlips;
    all.strayEvery = kStrayEvery;
    return all;
}

template <typename Change>
BadLine line(const char* name, double pace, double paceOnHalfDuplex, Change change)
{
    BadLine line{name, {}, pace, paceOnHalfDuplex};
    change(line.adversaries);
    return line;
}

template <typename Change>
BadLine line(const char* name, double pace, Change change)
{
    return line(name, pace, pace, change);
}

} // namespace

LineRig::Setup BadLine::setup(LineKind kind, quint64 seed) const
{
    LineRig::Setup setup;
    setup.kind = kind;
    setup.seed = seed;
    if (ldbs != static_cast<int>(setup.addresses.size())) {
        setup.addresses.clear();
        for (int address = 1; address <= ldbs; ++address) {
            setup.addresses.push_back(address);
        }
    }
    return setup;
}

void BadLine::begin(LineRig& rig) const
{
    constexpr int kEvery = 10;
    for (int i = 0; i < absent; ++i) {
        rig.boards().setPresent(1 + i * kEvery, false);
    }
    if (absent > 0) {
        rig.run(kUntilLost * kMinute);
    }
    rig.line().setAdversaries(adversaries, rig.now());
}

const std::vector<BadLine>& badLines()
{
    static const std::vector<BadLine> lines = {
        line("flips in answers", 0.94, [](auto& a) { a.flippedAnswers = kFlips; }),
        line("flips both ways", 0.62,
             [](auto& a) { a.flippedAnswers = a.flippedRequests = kFlips; }),
        line("losses both ways", 0.48, [](auto& a) { a.lostAnswers = a.lostRequests = kFlips; }),
        line("late 0.1 %", 0.97, [](auto& a) { a.lateAnswers = 0.1; }),
        line("late 2 %", 0.76, [](auto& a) { a.lateAnswers = 2; }),
        line("late 10 %", 0.39, [](auto& a) { a.lateAnswers = 10; }),
        line("stray bytes, bursts", 0.95, 0.83,
             [](auto& a) {
                 a.strayEvery = kStrayEvery;
                 a.burstEvery = kBurstEvery;
             }),
        line("stalls that hold", 0.91, [](auto& a) { a.stallEvery = kStallEvery; }),
        line("stalls that lose", 0.91,
             [](auto& a) {
                 a.stallEvery = kStallEvery;
                 a.stall = Adversaries::Stall::Lose;
             }),
        line("vanishing", 0.76, [](auto& a) { a.vanishEvery = kVanishEvery; }),
        BadLine{"6 of 64 absent", {}, 0.97, 0.97, 64, 6},
        line("all together", 0.27, [](auto& a) { a = everything(); }),
        line("all, bursts, stalls, vanishing", 0.19,
             [](auto& a) {
                 a = everything();
                 a.burstEvery = kBurstEvery;
                 a.stallEvery = kStallEvery;
                 a.vanishEvery = kVanishEvery;
             }),
    };
    return lines;
}
