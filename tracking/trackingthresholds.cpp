#include "tracking/trackingthresholds.h"

#include "app/shared/constants.h"
#include "serial/tuningnumber.h"

#include <QSettings>

TrackingThresholds TrackingThresholds::fromTuningFile()
{
    const QSettings tuning(constants::kTuningFileName, QSettings::IniFormat);
    TrackingThresholds thresholds;
    const auto read = [&tuning](const QString& key, double& threshold) {
        threshold = tuningNumber(tuning, key, static_cast<int>(threshold));
    };
    read(constants::kShortDetectionCurrentKey, thresholds.shortDetection);
    read(constants::kPrimaryFimStartupCurrentKey, thresholds.fimStartup.primary);
    read(constants::kSecondaryFimStartupCurrentKey, thresholds.fimStartup.secondary);
    return thresholds;
}
