#pragma once

#include "serial/ldb/monitoring.h"
#include "tracking/plot/recentsamples.h"

#include <QObject>
#include <QPointer>
#include <QStringList>

class Plot;
class QWidget;

/// Feeds the main window's live chart with the port voltages (V, left axis) and currents (mA, right
/// axis) of the selected LDB. While these are not live the curves are grey and the chart says how
/// old its newest values are; what was not measured is a gap. GUI thread.
///
/// It begins with what this run has told of the LDB and what the history source knows of the ten
/// minutes before now, and asks that for more, up to a day, when the user looks further back.
///
/// With `MainWindowPlot/ROWS_IN_ORDER=1` in the tuning file the curves take the rows of the record
/// in their order instead, whatever their names say.
class MainWindowPlot : public QObject
{
    Q_OBJECT
public:
    /// The chart is made inside `container`, which owns it and gets a layout if it has none.
    MainWindowPlot(QWidget* container, QObject* parent);

    bool isZoomEnabled() const { return m_zoomEnabled; }

    /// Where the past comes from, from the next LDB on; null for none. Outlives this object.
    void setHistorySource(PlotHistorySource* source) { m_source = source; }

public slots:
    /// Makes the chart with its curves, with no LDB selected. The constructor does it.
    void init();
    void initVariables();
    void initPlot();
    void initPlotCurves();
    /// Plots a record of the selected LDB; those of others are kept for when they are selected. A
    /// record whose time cannot be read is left out and said so in the diagnostics.
    void processData(const QString& hexId, const QList<QStringList>& dataList);
    /// The same with a record from between the turns of a long round, which carries its own time.
    void processExtra(const QString& hexId, const QList<QStringList>& dataList);

    /// What is live.
    void setMonitoring(const Monitoring& monitoring);

    /// Starts a chart with the past of another LDB; the one already selected keeps its history.
    void setSelectedDevice(const QString& hexId);
    /// While on, wheel and drag move the view; switching off brings the rolling view back.
    void setZoomEnabled(bool enabled);
    /// Starts the chart of another moment for the same LDB, which ends with what is told from now
    /// on; before that it has what the history source knows. A held view is given up.
    void beginMoment();
    /// Starts a rolling chart for the same LDB, as for a fresh run: it has only what the history
    /// source knows.
    void clearPlot();
    /// Puts the axis titles into the present language.
    void retranslate();

signals:
    /// Zoom was switched on or off, also by `clearPlot()`.
    void zoomEnabledChanged(bool enabled);

private:
    void showLiveness();
    void take(const QString& hexId, const QList<QStringList>& dataList, bool isExtra);
    /// The time of the newest record of that LDB, ms since 1970 UTC.
    std::optional<double> newestOf(const QString& hexId) const;
    void store(const QString& hexId, const PlotSample& sample);
    void beginChart();
    void prepend(const std::vector<PlotSample>& samples);
    void ask(double from, double to);
    void processAnswer(const std::vector<PlotSample>& samples);
    void reachBack();
    double now() const;

    QWidget* m_container;
    QPointer<Plot> m_plot; // owned by the container
    QString m_hexId;
    QList<int> m_curveNumbers; // in the order of the curves
    bool m_zoomEnabled = false;
    bool m_rowsInOrder = false;
    Monitoring m_monitoring;
    RecentSamples m_recent;
    std::optional<double> m_newest;      ///< of the shown LDB's records, ms since 1970 UTC
    QHash<QString, double> m_roundTimes; ///< of each LDB's newest record of a round, the same

    PlotHistorySource* m_source = nullptr;
    double m_askedFrom = 0.0; ///< what is later is known, or there is none
    int m_question = 0;       ///< the last one; answers to former ones come too late
    bool m_isAnswerDue = false;
};
