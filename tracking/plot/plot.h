#pragma once

#include "tracking/plot/plothistory.h"

#include <QString>
#include <QWidget>
#include <qwt_plot.h>

#include <array>
#include <map>
#include <memory>
#include <set>

class ClockScaleDraw;
class ClockScaleEngine;
class HistoryCurve;
class MyQwtPlotMagnifier;
class QwtPlotPanner;
class QwtPlotTextLabel;

/// A rolling time chart of up to ten named curves over one clock axis. It shows the last
/// `maxWindowTime` milliseconds; the user may hide curves by the legend and, while zoom is on, look
/// at any part with the wheel and by dragging. While a zoomed view is held, new samples are kept
/// but do not move it. Lives in the GUI thread. Repaints at most once a turn of the event loop and
/// not while hidden.
class Plot : public QWidget
{
    Q_OBJECT
public:
    explicit Plot(QWidget* parent = nullptr);
    ~Plot() override;

    static constexpr int kMaxCurves = 10;

    QSize sizeHint() const override { return {640, 260}; }

public slots:
    /// Adds a curve, or finds the one of that name. `color` is a name that QColor knows, `yaxis`
    /// QwtPlot::yLeft or QwtPlot::yRight. Returns the curve's number, -1 when there are ten
    /// already.
    int addCurve(const QString& name, const QString& color, int yaxis);
    /// Takes a curve and its values away; its number and name are free again. False when unknown.
    bool removeCurve(int curveNumber);
    /// Keeps a value; values of several curves for one time stamp share its place on the time axis.
    /// The marker of a missing measurement, like no value at all, shows as a gap. Returns false,
    /// with nothing changed, for an unknown curve or a time that is not above 1.0 (or beyond the
    /// year 9999).
    bool addData(int curveNumber, double value, double timeMsSinceEpoch);

    /// Switches wheel zoom and dragging on or off. Off brings the rolling view back.
    void setZoom(bool enabled);
    /// Leaves out the samples of the first milliseconds of the history.
    void setSkipData(double skipMsFromStart);
    /// Back to the scales set for the Y axes and to the newest window of time.
    void restoreAxisScale();
    /// Drops all samples; the curves, their legend state and the zoom switch stay.
    void clear();

    /// With a text, says it over the curves and draws them grey: they are of the past. Empty ends
    /// that.
    void setPast(const QString& text);

    void setAxisTitle(QwtPlot::Axis axis, const QString& title);
    void setAxisTitleVisible(QwtPlot::Axis axis, bool visible);
    void setLegendVisible(bool visible);

    /// Scaling of a Y axis by its visible curves over the shown time (the default) or by the stored
    /// numbers, which also hold while there are no samples. The time axis is not the caller's to
    /// scale.
    void setAxisScale(QwtPlot::Axis axis, bool autoScale);
    void setAxisScale(QwtPlot::Axis axis, double min, double max, double stepSize);

    /// Takes effect with the next sample.
    void setMaxNumberOfSamples(int samples) { m_history.setLimit(samples); }
    /// Shown time in ms, at least 1.
    void setMaxWindowTime(int timeMs);
    /// Step of the time axis in ms; 0 leaves it to the axis.
    void setWindowIntervalTime(int timeMs);

protected:
    void showEvent(QShowEvent* event) override;

private slots:
    void plotLegendClick(const QVariant& item, bool on);

private:
    struct AxisSetting
    {
        bool autoScale = true;
        double minimum = 0.0;
        double maximum = 100.0;
        double step = 20.0;
    };
    struct AxisTitle
    {
        QString text;
        bool visible = true;
    };

    void init();
    void initLegend();
    void initZoom();

    /// Shows in the legend which curves are visible.
    void updateLegendItems();
    void updateAxisTitle(QwtPlot::Axis axis);

    void redrawCurves();
    /// Redraws once control is back in the event loop; when hidden, once shown.
    void scheduleRedraw();
    void updateSeries();
    int calculateSkipPoints(double skipMsFromStart) const;
    int generateUniqueCurveNumber();

    void setAxisSetting(QwtPlot::Axis axis, const AxisSetting& setting);
    void applyAxisSetting(QwtPlot::Axis axis);
    void showNewestWindow();
    /// Labels the time axis with the clock of the place as it stands at that moment.
    void setLocalTimeOf(double timeMsSinceEpoch);
    /// Keeps the view as it is from now on, whatever comes in.
    void holdView();

    std::unique_ptr<QwtPlot> m_plot;
    PlotHistory m_history;
    std::map<int, std::unique_ptr<HistoryCurve>> m_curves; // by number; gone before the plot
    std::set<int> m_freeNumbers;

    std::map<QwtPlot::Axis, AxisSetting> m_axisSettings; // the two Y axes
    std::array<AxisTitle, QwtPlot::axisCnt> m_axisTitles;
    ClockScaleDraw* m_clockDraw = nullptr; // owned by the plot, as is the engine
    ClockScaleEngine* m_clockEngine = nullptr;
    MyQwtPlotMagnifier* m_magnifier = nullptr; // owned by the canvas, as is the panner
    QwtPlotPanner* m_panner = nullptr;

    std::unique_ptr<QwtPlotTextLabel> m_past; // gone before the plot
    int m_maxWindowTime = 0;
    int m_windowIntervalTime = 0;
    int m_skipMsFromStart = 0;
    bool m_zoom = false;
    bool m_viewHeld = false;
    bool m_legendVisible = false;
    bool m_redrawPending = false;
};
