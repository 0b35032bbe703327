#pragma once

#include "tracking/plot/plothistory.h"
#include "tracking/plot/plotview.h"

#include <QColor>
#include <QString>
#include <QWidget>
#include <qwt_plot.h>

#include <array>
#include <map>
#include <memory>
#include <set>

class HistoryCurve;
class PlotInspector;
class QPushButton;
class QwtPlotTextLabel;

/// What is said of a curve of a plot.
struct PlotCurveInfo
{
    int number;
    QString name;
    QColor color;
    QString unit; ///< as the title of its axis
    bool isVisible;
};

/// A rolling time chart of up to ten named curves over one clock axis. It shows the last
/// `maxWindowTime` milliseconds; the user may hide curves by the legend, read values and set marks
/// (`PlotInspector`) and, while zoom is on, look at any part (`PlotView`). While a view is held,
/// new samples are kept but do not move it, and a button "Follow" is there that ends it. Lives in
/// the GUI thread. Repaints at most once a turn of the event loop and not while hidden.
class Plot : public QWidget
{
    Q_OBJECT
public:
    explicit Plot(QWidget* parent = nullptr);
    ~Plot() override;

    static constexpr int kMaxCurves = 10;

    QSize sizeHint() const override { return {640, 260}; }

    const PlotHistory& history() const { return m_history; }
    PlotView& view() const { return *m_view; }
    QwtPlot* chart() const { return m_plot.get(); }
    PlotInspector* inspector() const { return m_inspector.get(); }
    std::vector<PlotCurveInfo> curves() const;

    /// Whose values these are, as pictures and the names of files say it: "LDB 0A".
    void setCaption(const QString& caption) { m_caption = caption; }
    const QString& caption() const { return m_caption; }

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

    /// Puts samples before all that are held, see `PlotHistory::prepend`.
    void prependData(const std::vector<double>& times,
                     const std::map<int, std::vector<double>>& values);

    /// Switches wheel zoom and dragging on or off. Off brings the rolling view back.
    void setZoom(bool enabled) { m_view->setZoom(enabled); }
    /// Leaves out the samples of the first milliseconds of the history.
    void setSkipData(double skipMsFromStart);
    /// Back to the scales set for the Y axes and to the newest window of time.
    void restoreAxisScale() { m_view->restoreAxisScale(); }
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
    void setMaxWindowTime(int timeMs) { m_view->setMaxWindowTime(timeMs); }
    /// Step of the time axis in ms; 0 leaves it to the axis.
    void setWindowIntervalTime(int timeMs) { m_view->setWindowIntervalTime(timeMs); }

signals:
    /// Another part of the time is shown, and not because it rolls on.
    void viewChanged();

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private slots:
    void plotLegendClick(const QVariant& item, bool on);

private:
    struct AxisTitle
    {
        QString text;
        bool visible = true;
    };

    void init();
    void initLegend();
    void initFollowButton();

    /// Shows in the legend which curves are visible.
    void updateLegendItems();
    void updateAxisTitle(QwtPlot::Axis axis);

    void redrawCurves();
    /// Redraws once control is back in the event loop; when hidden, once shown.
    void scheduleRedraw();
    void updateSeries();
    int calculateSkipPoints(double skipMsFromStart) const;
    int generateUniqueCurveNumber();

    void processViewChange();
    void placeFollowButton();

    std::unique_ptr<QwtPlot> m_plot;
    PlotHistory m_history;
    std::map<int, std::unique_ptr<HistoryCurve>> m_curves; // by number; gone before the plot
    std::set<int> m_freeNumbers;

    std::array<AxisTitle, QwtPlot::axisCnt> m_axisTitles;
    std::unique_ptr<PlotView> m_view; // gone before the plot, as is the inspector
    std::unique_ptr<PlotInspector> m_inspector;
    QPushButton* m_followButton = nullptr; // owned as a child
    QString m_caption;

    std::unique_ptr<QwtPlotTextLabel> m_past; // gone before the plot
    int m_skipMsFromStart = 0;
    bool m_legendVisible = false;
    bool m_redrawPending = false;
};
