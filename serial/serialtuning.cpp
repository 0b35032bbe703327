#include "serial/serialtuning.h"

#include "app/shared/constants.h"
#include "serial/tuningnumber.h"

#include <QSettings>

#include <algorithm>

SerialTuning SerialTuning::load()
{
    SerialTuning tuning;
    const QSettings file(constants::kTuningFileName, QSettings::IniFormat);
    tuning.disconnectedCount =
        std::max(0, tuningNumber(file, constants::kDisconnectedCountKey, tuning.disconnectedCount));
    // A window of nothing would declare every LDB lost at once.
    tuning.answerWaitTime = std::max(
        1, tuningNumber(file, constants::kBytesReceivedWaitTimeKey, tuning.answerWaitTime));
    return tuning;
}
