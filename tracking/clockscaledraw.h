#pragma once

#include <qwt_date_scale_draw.h>

/// Labels a time axis with the clock: hours and minutes, finer or coarser where the steps are.
/// Where labels would run into each other it leaves out all but every second, fifth, ... of them.
class ClockScaleDraw : public QwtDateScaleDraw
{
public:
    /// Local time is taken as a fixed offset from UTC, see `setUtcOffset()` (seconds).
    ClockScaleDraw();

    /// One label is shown for so many steps, when a step and a label are so many pixels wide.
    static int stepsPerLabel(double stepWidth, double labelWidth);

protected:
    void drawLabel(QPainter* painter, double value) const override;
};
