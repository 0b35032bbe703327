#pragma once

/// What a bad line does, each by chance and all at once if need be. Nothing of it by default.
/// Percentages are 0 to 100; "every" is an average in seconds between two beginnings, 0 for never.
struct Adversaries
{
    enum class Stall
    {
        Hold, ///< keeps the bytes towards the master back and delivers them all at its end
        Lose  ///< the bytes towards the master are gone
    };

    bool operator==(const Adversaries& other) const;
    bool operator!=(const Adversaries& other) const { return !(*this == other); }

    double flippedRequests = 0; ///< percent; one bit of the frame is turned round
    double flippedAnswers = 0;
    double garbledAnswers = 0; ///< percent; several bits, and the check digits always give it away
    double lostRequests = 0;   ///< percent; nobody hears anything of it
    double lostAnswers = 0;
    double lateAnswers = 0; ///< percent
    int lateFrom = 0;       ///< ms beyond the turnaround, evenly up to `lateTo`
    int lateTo = 1800;
    double strayEvery = 0; ///< one byte that nobody sent
    double burstEvery = 0; ///< `kBurstBytes` of them in a row
    Stall stall = Stall::Hold;
    double stallEvery = 0;
    double vanishEvery = 0; ///< each board on its own hears and says nothing for `vanishFor`
    double vanishFor = 30;  ///< seconds

    static constexpr int kBurstBytes = 20;
    static constexpr int kShortestStall = 50;  ///< ms
    static constexpr int kLongestStall = 5000; ///< ms
};
