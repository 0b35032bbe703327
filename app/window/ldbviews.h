#pragma once

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
struct Monitoring;
class SerialLink;

/// All that shows what the LDBs say: overview, details, lamps, plot, the log and the strip above
/// them. They get the same records, are live or not together, and show the same LDBs. GUI thread.
class LdbViews : public QObject
{
    Q_OBJECT
public:
    /// Makes the views in the widgets of the form. Form, link and parent outlive this object.
    LdbViews(const Ui::MainWindow& ui, SerialLink* link, QWidget* parent);

    /// What is live.
    void setMonitoring(const Monitoring& monitoring);
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

private:
    void makeViews();
    void feed(Attention* attention);
    void connectViews();
    void dismiss(const QStringList& hexIds);
    void keepOnly(const QStringList& hexIds);
    void showAwaited(const QString& hexId);

    const Ui::MainWindow& m_ui;
    SerialLink* m_link;
    // All owned as children.
    DeviceDetailTable* m_details = nullptr;
    DeviceOverviewTable* m_overview = nullptr;
    MuteMarks* m_muteMarks = nullptr;
    MainWindowPlot* m_plot = nullptr;
    LampPanel* m_lamps = nullptr;
};
