#pragma once

#include "tracking/ldbport.h"

/// Limits of the tracking, in 0.01 mA above the mean of a port's last samples.
struct TrackingThresholds
{
    double shortDetection = 220;
    BySide<double> fimStartup{11, 11};

    /// From the tuning file in the working directory. What is missing there, or is no whole
    /// number, keeps its default; the latter is warned of.
    static TrackingThresholds fromTuningFile();
};
