#pragma once

#include "serial/ldb/monitoring.h"

#include <QObject>
#include <QStringList>

namespace Ui {
class MainWindow;
}

class Attention;
class DeviceDetailTable;
class DeviceOverviewTable;
class LampPanel;
class MainWindowPlot;
class MuteMarks;
class PlotHistorySource;
class RecordSource;
class SerialLink;
class ShownSource;

/// All that shows what the LDBs say: overview, details, lamps, plot, the log and the strip above
/// them. They get the same records, are live or not together, and show the same LDBs: those of now
/// or, while the window looks back, of another moment. The log and the strip are always of now. GUI
/// thread.
class LdbViews : public QObject
{
    Q_OBJECT
public:
    /// Makes the views in the widgets of the form. Form, link and parent outlive this object.
    LdbViews(const Ui::MainWindow& ui, SerialLink* link, QWidget* parent);

    /// What is live now.
    void setMonitoring(const Monitoring& monitoring);
    /// Decides what is shown.
    ShownSource* source() const { return m_source; }
    /// Where the plot of another moment gets its samples from: what is told, and what was before.
    /// Once, before the window looks back; both outlive this object.
    void setPast(const RecordSource* past, PlotHistorySource* samples);
    /// From now on what is told is of another moment, or of now again.
    void setLookingBack(bool isLookingBack);
    /// What was live at the moment that is shown.
    void setPastMonitoring(const Monitoring& monitoring);
    /// What was live when the past record was told that comes next.
    void setToldMonitoring(const Monitoring& monitoring);
    /// Whether the program waits for the port.
    void setWaiting(bool isWaiting);
    /// Drops the LDBs that the link knows no more.
    void keepKnown();

    /// Ticks the row of an LDB, as the user does. False where there is no such row.
    bool select(const QString& hexId);
    void setSelectionEnabled(bool enabled);
    /// Shows this LDB wherever one is shown alone.
    void setSelectedLdb(const QString& hexId);

    /// Where the plot gets the past from; outlives the plot's use.
    void setHistorySource(PlotHistorySource* source);
    void clearPlot();
    void setZoomEnabled(bool enabled);

    void retranslate();
    /// Keeps what the views remember in the per-user settings.
    void save() const;

signals:
    /// Another row is ticked, by the user or because there is no former one any more.
    void selectedLdbChanged(const QString& hexId);
    /// The user has given up these lost LDBs.
    void dismissed(const QStringList& hexIds);
    /// The user waits for the port no more.
    void waitingEnded();
    /// What is live now is told to this object.
    void monitoringTold(const Monitoring& monitoring);
    /// A new fault or loss happens now.
    void faultTold(const QString& hexId, const QList<QStringList>& dataList);

private:
    void makeViews();
    void makePlots();
    void feed();
    void followPresent();
    void connectViews();
    void dismiss(const QStringList& hexIds);
    void keepOnly(const QStringList& hexIds);
    void showAwaited(const QString& hexId);
    void showMonitoring(const Monitoring& monitoring);
    void processReplaced(const QStringList& hexIds);

    const Ui::MainWindow& m_ui;
    SerialLink* m_link;
    // All owned as children.
    ShownSource* m_source = nullptr;
    DeviceDetailTable* m_details = nullptr;
    DeviceOverviewTable* m_overview = nullptr;
    MuteMarks* m_muteMarks = nullptr;
    MainWindowPlot* m_plot = nullptr;     ///< of now
    MainWindowPlot* m_pastPlot = nullptr; ///< of the moment that is looked back at
    LampPanel* m_lamps = nullptr;
    // Owned by the form.
    QWidget* m_presentChart = nullptr;
    QWidget* m_pastChart = nullptr;

    bool m_isLookingBack = false;
    QString m_selected;
    Monitoring m_monitoring; ///< now
    Monitoring m_past;       ///< at the moment that is looked back at
};
