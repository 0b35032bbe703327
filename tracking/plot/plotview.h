#pragma once

#include "tracking/plot/plothistory.h"

#include <QObject>
#include <qwt_interval.h>
#include <qwt_plot.h>

#include <map>

class ClockScaleDraw;
class ClockScaleEngine;
class MyQwtPlotMagnifier;
class QwtPlotPanner;

/// Which part of its history a plot shows: the newest window of time, which rolls, or what the user
/// has zoomed or moved to, which is held whatever comes in until he follows again. GUI thread.
class PlotView : public QObject
{
    Q_OBJECT
public:
    /// Scaling of a Y axis: by what the curves show in the window, or by the numbers, which also
    /// hold while there are no samples.
    struct AxisSetting
    {
        bool autoScale = true;
        double minimum = 0.0;
        double maximum = 100.0;
        double step = 20.0;
    };

    /// Plot and history outlive the view.
    PlotView(QwtPlot* plot, const PlotHistory& history);

    bool isHeld() const { return m_held; }
    bool isZoomEnabled() const { return m_zoom; }
    int windowTime() const { return m_maxWindowTime; }
    /// The shown time, ms since the epoch.
    QwtInterval shownTime() const;

    /// Wheel and drag, on or off. On holds the view where it is, off follows the newest time.
    void setZoom(bool enabled);
    /// Back to the newest window; wheel and drag stay as they are.
    void follow();
    /// Zooms in by so many notches of the wheel; does nothing while zoom is off, as `pan()`.
    void zoom(int notches);
    /// Shows a later time by that share of the shown span; an earlier one if negative.
    void pan(double share);

    /// Samples have come: rolls on, unless the view is held. `isFirst`: there were none.
    void processSamples(bool isFirst);
    /// The scales set for the Y axes, and the newest window.
    void restoreAxisScale();
    AxisSetting axisSetting(QwtPlot::Axis axis) const { return m_axisSettings.at(axis); }
    void setAxisSetting(QwtPlot::Axis axis, const AxisSetting& setting);
    void setMaxWindowTime(int timeMs);
    void setWindowIntervalTime(int timeMs);
    /// Labels the time axis with the clock of the place as it stands at that moment.
    void setLocalTimeOf(double timeMsSinceEpoch);

signals:
    /// A scale is about to be taken from the curves, which must be up to date.
    void aboutToScale();
    /// Something else is shown than before, by the user's hand or from the outside.
    void changed();

private:
    void initZoom();
    void setHeld(bool held);
    /// Keeps the view as it is from now on, whatever comes in.
    void holdView();
    void applyAxisSetting(QwtPlot::Axis axis);
    void showNewestWindow();

    QwtPlot* m_plot;
    const PlotHistory& m_history;
    std::map<QwtPlot::Axis, AxisSetting> m_axisSettings; // the two Y axes
    ClockScaleDraw* m_clockDraw = nullptr;               // owned by the plot, as is the engine
    ClockScaleEngine* m_clockEngine = nullptr;
    MyQwtPlotMagnifier* m_magnifier = nullptr; // owned by the canvas, as is the panner
    QwtPlotPanner* m_panner = nullptr;
    int m_maxWindowTime;
    int m_windowIntervalTime;
    bool m_zoom = false;
    bool m_held = false;
};
