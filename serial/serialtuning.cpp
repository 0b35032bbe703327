#include "serial/serialtuning.h"

#include "app/shared/constants.h"

#include <QSettings>

#include <algorithm>

SerialTuning SerialTuning::load()
{
    SerialTuning tuning;
    const QSettings file(constants::kTuningFileName, QSettings::IniFormat);
    tuning.disconnectedCount =
        std::max(0, file.value(constants::kDisconnectedCountKey, tuning.disconnectedCount).toInt());
    // A window of nothing would declare every LDB lost at once.
    tuning.answerWaitTime = std::max(
        1, file.value(constants::kBytesReceivedWaitTimeKey, tuning.answerWaitTime).toInt());
    return tuning;
}
