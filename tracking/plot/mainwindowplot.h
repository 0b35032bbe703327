#pragma once

#include <QObject>
#include <QPointer>
#include <QStringList>

class Plot;
class QWidget;

/// Feeds the main window's live chart with the port voltages (V, left axis) and currents (mA, right
/// axis) of the selected LDB. Lives in the GUI thread. A link that stops leaves the picture as it
/// is.
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
    QWidget* m_container;
    QPointer<Plot> m_plot; // owned by the container
    QString m_hexId;
    QList<int> m_curveNumbers; // in the order of the curves
    bool m_zoomEnabled = false;
};
