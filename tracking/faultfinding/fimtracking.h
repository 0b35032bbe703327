#pragma once

#include "history/keptldbs.h"
#include "tracking/counting/trackingrun.h"

#include <QTimer>
#include <QWidget>

#include <memory>
#include <optional>

class FormerState;
class RunFindings;
class SerialLink;
class SidePanel;
class StartQuestions;
class TrackedLdb;

namespace Ui {
class FimTracking;
}

/// The fault-finding window of one LDB: asks what to do, then shows a `TrackingRun` from the
/// factory reset to the result. While it is open, this LDB alone is polled. GUI thread only.
///
/// Before a run sends anything, what it will change is read and kept on disk. Putting it back is
/// left to whoever hears `runEnds()`.
///
/// It shows itself, begins with the question whether to start, and deletes itself when closed. All
/// its boxes are opened without blocking.
class FimTracking : public QWidget
{
    Q_OBJECT
public:
    FimTracking(const QString& hexId, SerialLink* link, QWidget* parent = nullptr,
                const KeptLdbs& kept = KeptLdbs());
    explicit FimTracking(std::shared_ptr<TrackedLdb> ldb, QWidget* parent = nullptr,
                         const KeptLdbs& kept = KeptLdbs());
    ~FimTracking() override;

    QString hexId() const;
    const TrackingRun& run() const { return m_run; }
    /// The FIMs that the LDB was told to have, as read before the run; nothing where that failed.
    std::optional<int> configuredFims() const;
    /// The last finished run; empty before there is one.
    QString reportText() const;

public slots:
    /// Takes a record of any LDB; only those of the tracked one count.
    void processData(const QString& hexId, const QList<QStringList>& dataList);
    /// What became of `takeOverWanted()`: an empty `failure` is success.
    void processTakenOver(int fimCount, const QString& failure);

signals:
    /// A run is being prepared: nothing may be put back into this LDB until `runEnds()`.
    void runBegins();
    /// Whatever ended it. `former` is what the LDB was like before, empty if nothing was sent;
    /// `isMuted`: the run has muted it, so that no reset can still be under way.
    void runEnds(const KeptLdb& former, bool isMuted);
    /// The user wants the counted FIMs written as the LDB's number of FIMs.
    void takeOverWanted(int fimCount);

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private slots:
    void on_startButton_toggled(bool checked);
    void on_zoomButton_toggled(bool checked);
    void on_copyReportButton_clicked();

private:
    /// Of what stands behind the Start button.
    enum class Stage
    {
        Idle,      ///< or the user is asked
        Preparing, ///< what the run will change is read and kept
        Running
    };

    void init();
    void initConnections();
    void initGui();
    void initPalette();
    void placeOver(const QWidget* parent);

    void start();
    void stop();
    void resetPlots();
    void prepare(TrackingMode mode);
    void begin();
    void endRun();
    void followLink();

    void showPhase();
    void advance();
    void showTimes();
    void setFactoryResetCountdownVisible(bool visible);
    void showCountdown(int secondsLeft);
    void processDeviceInformation(const QString& name, const QString& mode,
                                  const QString& loopState, const QString& earthState);
    void processPlotData(double primaryCurrent, double secondaryCurrent,
                         const QDateTime& timestamp);
    void processSideFinished(int ldbPort, SideEnd result);
    void processFault(const FaultReport& report);
    void showResults(int totalFimCount, LoopResult result);

    void sendCommand(TrackingCommand command);
    void processFailure(int runNumber, TrackingCommand command, bool isRefused);
    void showNotice(const QString& text);
    void releaseLdb();
    SidePanel* panel(int ldbPort) const;

    std::unique_ptr<Ui::FimTracking> m_ui;
    std::shared_ptr<TrackedLdb> m_ldb;
    TrackingRun m_run;
    StartQuestions* m_questions; // owned as a child, as are the findings
    RunFindings* m_findings;
    QTimer m_clock;        ///< wakes the run when something is due, and the times shown
    FormerState* m_former; // owned as a child
    Stage m_stage = Stage::Idle;
    TrackingMode m_mode = TrackingMode::Cancelled;
    QString m_deviceName;
    int m_runNumber = 0;
    bool m_ldbHeld = false;
    bool m_audioMuted = false; ///< sent, and not refused
};
