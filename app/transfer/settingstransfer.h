#pragma once

#include "importexport/importexportdevicesettings.h"

#include <QObject>
#include <QPointer>

#include <memory>

class ImportPreview;
class Notices;
class SerialLink;
class StatusBarDisplay;
class QWidget;
struct BoxText;

/// Exports and imports the settings of all LDBs at the user's wish: asks for the file, runs the
/// transfer, shows what an import would change, and tells of progress and end. One transfer at a
/// time: while one is on, no other begins. GUI thread.
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
    /// Writes nothing before the user has seen what it would change.
    void importFrom(const QString& path);

    /// Ends the transfer behind the LDB under way, and says what was done and what not.
    void stop();

    bool isOn() const { return m_isOn; }
    /// What an end of the program would break off, as a sentence; null when no transfer is on.
    Text underWay() const;
    /// The LDBs to which the last import has sent something.
    QStringList touchedLdbs() const { return m_transfer->touchedLdbs(); }

    /// The box at the end of a transfer, in the language in force.
    static BoxText boxText(Status status, const QString& details);

signals:
    void statusChanged(ImportExportDeviceSettings::ImportExportStatus status);
    /// A transfer begins, or is over in whatever way.
    void changed(bool isOn);

private:
    /// Null while another one is on.
    ImportExportDeviceSettings* begin(bool isImport);
    void end();
    void processStatus(Status status);
    void preview(const QString& path);
    void processStopped();

    SerialLink* m_link;
    Notices* m_notices;
    StatusBarDisplay* m_display;
    QWidget* m_window;
    std::unique_ptr<ImportExportDeviceSettings> m_transfer; ///< the last one
    QPointer<ImportPreview> m_preview;                      ///< deletes itself when closed
    bool m_isOn = false;
    bool m_isImport = false;
    bool m_hasRefused = false; ///< the user said no to what was shown
};
