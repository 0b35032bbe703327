#pragma once

#include "serial/ldb/monitoring.h"

#include <QObject>
#include <QPointer>
#include <QStringList>

#include <optional>

class Plot;
class QWidget;

/// Feeds the main window's live chart with the port voltages (V, left axis) and currents (mA, right
/// axis) of the selected LDB. While these are not live the curves are grey and the chart says how
/// old its newest values are; what was not measured is a gap. GUI thread.
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

public slots:
    /// Makes the chart with its curves, with no LDB selected. The constructor does it.
    void init();
    void initVariables();
    void initPlot();
    void initPlotCurves();
    /// Plots a record of the selected LDB; those of others are ignored. A record whose time cannot
    /// be read is left out and said so in the diagnostics.
    void processData(const QString& hexId, const QList<QStringList>& dataList);
    /// The same with a record from between the turns of a long round, which carries its own time.
    void processExtra(const QString& hexId, const QList<QStringList>& dataList);

    /// What is live.
    void setMonitoring(const Monitoring& monitoring);

    /// Starts an empty chart for another LDB; the one already selected keeps its history.
    void setSelectedDevice(const QString& hexId);
    /// While on, wheel and drag move the view; switching off brings the rolling view back.
    void setZoomEnabled(bool enabled);
    /// Starts an empty, rolling chart for the same LDB.
    void clearPlot();
    /// Puts the axis titles into the present language.
    void retranslate();

signals:
    /// Zoom was switched on or off, also by `clearPlot()`.
    void zoomEnabledChanged(bool enabled);

private:
    void showLiveness();
    void forgetSamples();
    std::optional<double> timeOf(const QString& hexId, const QList<QStringList>& dataList) const;
    void add(const QList<QStringList>& dataList, double timeMs);
    void addSamples(const QList<QStringList>& dataList, double timeMs);

    QWidget* m_container;
    QPointer<Plot> m_plot; // owned by the container
    QString m_hexId;
    QList<int> m_curveNumbers; // in the order of the curves
    bool m_zoomEnabled = false;
    bool m_rowsInOrder = false;
    Monitoring m_monitoring;
    std::optional<qint64> m_newest;    ///< clock time of the newest record
    double m_newestSample = 0.0;       ///< the same, ms since 1970 UTC
    std::optional<double> m_roundTime; ///< of the round's newest record, ms since 1970 UTC
    bool m_isLive = false;
};
