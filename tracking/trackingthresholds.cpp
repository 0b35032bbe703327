#include "tracking/trackingthresholds.h"

#include "app/shared/constants.h"

#include <QDebug>
#include <QSettings>

namespace {

void read(const QSettings& tuning, const QString& key, double& threshold)
{
    if (!tuning.contains(key)) {
        return;
    }
    const QString text = tuning.value(key).toString();
    bool isNumber = false;
    const int value = text.toInt(&isNumber);
    if (isNumber) {
        threshold = value;
    } else {
        qWarning() << key << "is no whole number:" << text << "- using" << threshold;
    }
}

} // namespace

TrackingThresholds TrackingThresholds::fromTuningFile()
{
    const QSettings tuning(constants::kTuningFileName, QSettings::IniFormat);
    TrackingThresholds thresholds;
    read(tuning, constants::kShortDetectionCurrentKey, thresholds.shortDetection);
    read(tuning, constants::kPrimaryFimStartupCurrentKey, thresholds.fimStartup.primary);
    read(tuning, constants::kSecondaryFimStartupCurrentKey, thresholds.fimStartup.secondary);
    return thresholds;
}
