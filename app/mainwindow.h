#pragma once

#include "app/actionenabling.h"
#include "app/lossreporter.h"
#include "app/portfailure.h"
#include "app/statusbardisplay.h"
#include "app/windowlayoutstore.h"
#include "importexport/importexportdevicesettings.h"
#include "serial/portsource.h"

#include <QMainWindow>
#include <QPointer>

#include <memory>

namespace Ui {
class MainWindow;
}

class DeviceDetailTable;
class DeviceOverviewTable;
class FileLogger;
class FimTracking;
class LampPanel;
class LdbActions;
class LdbSettingsEditor;
class LogControls;
class MainWindowPlot;
class SerialLink;
class SettingsMenu;
class SettingsTransfer;

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
    void init();
    void initVariables();
    /// Shows in the language in force what the code, not the form, has set.
    void retranslate();

    void on_startButton_toggled(bool checked);
    void on_reloadDevicesButton_clicked();
    void on_exportDeviceSettingsButton_clicked();
    void on_importDeviceSettingsButton_clicked();
    void on_settingsMenuButton_clicked();
    void on_helpButton_clicked();
    void on_logSelectedRadioButton_clicked();
    void on_logAllRadioButton_clicked();
    void on_logFileBrowseButton_clicked();
    void on_logStartStopButton_toggled(bool checked);
    void on_zoomButton_toggled(bool checked);
    void on_fimResetButton_clicked();
    void on_ldbResetButton_clicked();
    void on_serviceModeButton_clicked();
    void on_fimTrackingButton_clicked();
    void on_allFimResetButton_clicked();
    void on_allLdbResetButton_clicked();
    void on_allServiceModeButton_clicked();

    void processComPortUpdated(const QString& comPort);
    void processSelectedLdbChanged(const QString& deviceId);
    void processLdbStateUpdated(const QString& deviceId, LdbState state);
    void processExportImportStatus(ImportExportDeviceSettings::ImportExportStatus state);

    void serialProcessorStopped();
    void serialProcessorLdbDisconnected(const QString& deviceId);
    void serialProcessorPortFailed(const QString& portName, int error, const QString& description);
    void serialProcessorCommunicationError();
    void serialProcessorLdbInitializationStateChange(bool initialization);
    void serialProcessorLdbInitializationProgress(int checked, int found);
    void serialProcessorExternalCommandQueueUpdated(int commandsInQueue);

    void loadApplicationState();
    void saveApplicationState();

private:
    void initLink();
    void initTables();
    void initLamps();
    void initLog();
    void initPlot();
    void initSettingsMenu();
    void initSettingsEditor();
    void setSaving(bool saving);
    void updateButtonTexts();
    void startRun();
    /// Enables what the situation allows.
    void setLdbActionButtonsState();
    windowlayoutstore::Layout layoutParts();

    std::unique_ptr<Ui::MainWindow> m_ui;
    StatusBarDisplay m_status;
    LossReporter m_losses;
    PortFailureReporter m_portFailures;
    std::unique_ptr<SerialLink> m_link;
    LdbActions* m_actions = nullptr;
    LdbSettingsEditor* m_settingsEditor = nullptr;
    DeviceDetailTable* m_detailTable = nullptr;
    DeviceOverviewTable* m_overviewTable = nullptr;
    FileLogger* m_logger = nullptr;
    LogControls* m_logControls = nullptr;
    LampPanel* m_lamps = nullptr;
    MainWindowPlot* m_plot = nullptr;
    SettingsMenu* m_settingsMenu = nullptr;
    SettingsTransfer* m_transfer = nullptr;
    QPointer<FimTracking> m_tracking; // deletes itself when closed
    LinkSituation m_situation;
    QString m_selectedLdb;
};
