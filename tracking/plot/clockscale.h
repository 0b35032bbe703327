#pragma once

#include <qwt_date_scale_draw.h>
#include <qwt_date_scale_engine.h>

// A time axis by the local clock, which both classes take as a fixed offset from UTC, see
// `setUtcOffset()` (seconds).

/// Labels a time axis with the clock: hours and minutes, finer or coarser where the steps are.
/// Where labels would run into each other it leaves out all but every second, fifth, ... of them.
class ClockScaleDraw : public QwtDateScaleDraw
{
public:
    ClockScaleDraw();

    /// One label is shown for so many steps, when a step and a label are so many pixels wide.
    static int stepsPerLabel(double stepWidth, double labelWidth);

protected:
    void drawLabel(QPainter* painter, double value) const override;
};

/// Divides a time axis at whole steps of the local clock. Its base takes a given step as a hint
/// only and often doubles it; here it is kept. Without a step, or with one that would crowd the
/// axis, the base chooses.
class ClockScaleEngine : public QwtDateScaleEngine
{
public:
    ClockScaleEngine()
        : QwtDateScaleEngine(Qt::OffsetFromUTC)
    {
    }

    QwtScaleDiv divideScale(double x1, double x2, int maxMajorSteps, int maxMinorSteps,
                            double stepSize) const override;
};
