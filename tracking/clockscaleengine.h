#pragma once

#include <qwt_date_scale_engine.h>

/// Divides a time axis at whole steps of the local clock. Its base takes a given step as a hint
/// only and often doubles it; here it is kept. Without a step, or with one that would crowd the
/// axis, the base chooses.
class ClockScaleEngine : public QwtDateScaleEngine
{
public:
    /// Local time is taken as a fixed offset from UTC, see `setUtcOffset()` (seconds).
    ClockScaleEngine();

    QwtScaleDiv divideScale(double x1, double x2, int maxMajorSteps, int maxMinorSteps,
                            double stepSize) const override;
};
