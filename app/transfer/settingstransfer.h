#pragma once

#include "importexport/importexportdevicesettings.h"

#include <QObject>

#include <memory>

class Notices;
class SerialLink;
class StatusBarDisplay;
class QWidget;
struct BoxText;

/// Exports and imports the settings of all LDBs at the user's wish: asks for the file, runs the
/// transfer, and shows its progress and its end. One transfer at a time; a new one ends the one
/// before. GUI thread.
class SettingsTransfer : public QObject
{
    Q_OBJECT
public:
    using Status = ImportExportDeviceSettings::ImportExportStatus;

    /// `window` is the parent of this object and of its dialogs. The others outlive this object.
    SettingsTransfer(SerialLink* link, Notices* notices, StatusBarDisplay* display,
                     QWidget* window);
    ~SettingsTransfer() override;

    // Ask for the file first.
    void chooseExport();
    void chooseImport();

    void exportTo(const QString& path);
    void importFrom(const QString& path);

    static bool isRunning(Status status);
    /// The LDBs to which the last import has sent something.
    QStringList touchedLdbs() const { return m_transfer->touchedLdbs(); }

    /// The box at the end of a transfer, in the language in force.
    static BoxText boxText(Status status, const QString& details);

signals:
    void statusChanged(ImportExportDeviceSettings::ImportExportStatus status);

private:
    ImportExportDeviceSettings* begin();
    void processStatus(Status status);

    SerialLink* m_link;
    Notices* m_notices;
    StatusBarDisplay* m_display;
    QWidget* m_window;
    std::unique_ptr<ImportExportDeviceSettings> m_transfer;
};
