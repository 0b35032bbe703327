#pragma once

#include "serial/link/portsource.h"

#include <QMainWindow>

#include <memory>

namespace Ui {
class MainWindow;
}

class ClosingQuestion;
class Evidence;
class InstallationDesk;
class LdbViews;
class LdbWork;
class Monitor;
struct Monitoring;
class Notices;
class RunControl;
class SerialLink;
class SettingsMenu;
struct StartPlan;
class StatusBarDisplay;

/// The program's window: puts together the link, what shows the LDBs (`LdbViews`), what works on
/// them (`LdbWork`) and the run, and keeps them on the same LDB. GUI thread.
class MainWindow : public QMainWindow
{
    Q_OBJECT
public:
    /// `ports`: where the link gets its port from.
    explicit MainWindow(const PortSource& ports = PortSource::serialPorts(),
                        QWidget* parent = nullptr);
    /// Ends the serial worker before anything that it could still reach.
    ~MainWindow() override;

    /// Looks back at a recording, a file or a folder of days, and at its last moment first.
    void openRecording(const QString& path);

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private slots:
    void init(const PortSource& ports);
    /// Shows in the language in force what the code, not the form, has set.
    void retranslate();

    void on_startButton_toggled(bool checked);
    void on_reloadDevicesButton_clicked();
    void on_zoomButton_toggled(bool checked);
    void on_fimTrackingButton_clicked();

    /// Shows everywhere what is live.
    void showMonitoring(const Monitoring& monitoring);
    void processComPortUpdated(const QString& comPort);
    /// Shows that LDB, or keeps the former one while the user is asked about its unsaved settings.
    void processSelectedLdbChanged(const QString& deviceId);

    void serialProcessorStopped();
    void serialProcessorLdbInitializationStateChange(bool initialization);

    /// Enables what the situation allows.
    void setLdbActionButtonsState();

private:
    void initLink(const PortSource& ports);
    void initPanels(const PortSource& ports);
    void processRunBegun(bool isResumed);
    /// Goes on: the port is back, perhaps under another name.
    void resume(const QString& portName, const StartPlan& plan);
    /// Makes the LDB the selected one; unsaved edits of the settings stay.
    void showLdb(const QString& deviceId);
    void updateButtonTexts();

    std::unique_ptr<Ui::MainWindow> m_ui;
    std::unique_ptr<Notices> m_notices;
    std::unique_ptr<StatusBarDisplay> m_status;
    std::unique_ptr<SerialLink> m_link;
    QString m_portName; ///< in force
    RunControl* m_run = nullptr;
    Monitor* m_monitor = nullptr;
    LdbViews* m_views = nullptr;
    LdbWork* m_work = nullptr;
    ClosingQuestion* m_closing = nullptr;
    InstallationDesk* m_desk = nullptr;
    Evidence* m_evidence = nullptr;
    SettingsMenu* m_settingsMenu = nullptr;
};
