#pragma once

/// The serial link's share of the tuning file. A missing file or key leaves the default.
struct SerialTuning
{
    int disconnectedCount = 3; ///< misses in a row that are still forgiven; the next one is a loss
    int answerWaitTime = 1500; ///< ms, answer window of a polling request
    /// In every how many rounds an LDB gives name and firmware; 0: as the length of the rounds has
    /// it.
    int identityEveryRounds = 0;
    int selectedWithin =
        2000; ///< ms between two statuses of the selected LDB in long rounds; 0: off

    /// Reads the tuning file of the working directory. Numbers that make no sense become the
    /// nearest ones that do; what is no number is warned of and leaves the default.
    static SerialTuning load();
};
