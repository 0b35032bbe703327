#include "serial/link/serialtuning.h"

#include "app/shared/tuningfile.h"

#include <algorithm>

SerialTuning SerialTuning::load()
{
    SerialTuning tuning;
    const QSettings file = tuningFile();
    tuning.disconnectedCount =
        std::max(0, tuningNumber(file, constants::kDisconnectedCountKey, tuning.disconnectedCount));
    // A window of nothing would declare every LDB lost at once.
    tuning.answerWaitTime = std::max(
        1, tuningNumber(file, constants::kBytesReceivedWaitTimeKey, tuning.answerWaitTime));
    tuning.identityEveryRounds = std::max(
        0, tuningNumber(file, constants::kIdentityEveryRoundsKey, tuning.identityEveryRounds));
    tuning.selectedWithin =
        std::max(0, tuningNumber(file, constants::kSelectedWithinKey, tuning.selectedWithin));
    return tuning;
}
