#pragma once

#include "app/shared/text.h"
#include "serial/link/portsource.h"

#include <QMainWindow>
#include <QPointer>

#include <memory>
#include <vector>

namespace Ui {
class MainWindow;
}

class DeviceDetailTable;
class DeviceOverviewTable;
class FimTracking;
class LampPanel;
class MainWindowPlot;
class Monitor;
class MuteMarks;
class Notices;
class PutBack;
struct Monitoring;
class RunControl;
class SerialLink;
class SettingsMenu;
class SettingsTransfer;
class StatusBarDisplay;

/// The program's window: builds the views, wires them to the serial link, and forwards what the
/// user does. GUI thread.
class MainWindow : public QMainWindow
{
    Q_OBJECT
public:
    /// `ports`: where the link gets its port from.
    explicit MainWindow(const PortSource& ports = PortSource::serialPorts(),
                        QWidget* parent = nullptr);
    /// Ends the serial worker before anything that it could still reach.
    ~MainWindow() override;

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
    void processTransfer(bool isOn);

    void serialProcessorStopped();
    void serialProcessorLdbInitializationStateChange(bool initialization);

    /// Enables what the situation allows.
    void setLdbActionButtonsState();

private:
    void initLink(const PortSource& ports);
    void initViews();
    void initPanels();
    void processRunBegun();
    void dropUnknownLdbs();
    void dismiss(const QStringList& hexIds);
    /// Makes the LDB the selected one; unsaved edits of the settings stay.
    void showLdb(const QString& deviceId);
    void updateButtonTexts();
    /// What a closing of the window would break off, a sentence each; empty when nothing is under
    /// way.
    std::vector<Text> workUnderWay() const;
    /// Asks whether to close all the same, with staying as the default.
    void askToClose(const std::vector<Text>& reasons);

    std::unique_ptr<Ui::MainWindow> m_ui;
    std::unique_ptr<Notices> m_notices;
    std::unique_ptr<StatusBarDisplay> m_status;
    std::unique_ptr<SerialLink> m_link;
    QString m_portName; ///< in force
    RunControl* m_run = nullptr;
    Monitor* m_monitor = nullptr;
    DeviceDetailTable* m_detailTable = nullptr;
    DeviceOverviewTable* m_overviewTable = nullptr;
    LampPanel* m_lamps = nullptr;
    MainWindowPlot* m_plot = nullptr;
    SettingsMenu* m_settingsMenu = nullptr;
    SettingsTransfer* m_transfer = nullptr;
    PutBack* m_putBack = nullptr;
    MuteMarks* m_muteMarks = nullptr;
    QPointer<FimTracking> m_tracking; // deletes itself when closed
    bool m_mayClose = false;          ///< the user has said so
};
