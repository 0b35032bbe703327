#pragma once

#include "importexport/importexportdevicesettings.h"
#include "importexport/importplan.h"
#include "importexport/settingsbatch.h"

#include <QObject>

#include <memory>

class Notices;
class SerialLink;
class StatusBarDisplay;
class QWidget;
struct BoxText;

/// Exports, imports and writes the settings of LDBs at the user's wish, one at a time: while one is
/// on, no other begins. Asks for the file, and tells of progress and end. What an import would
/// change it hands on to be shown, and writes what becomes of that. GUI thread.
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
    /// Reads the LDBs, tells by `planned()` what the import would do, and waits for `write()` or
    /// `refuse()`; it is not on meanwhile.
    void importFrom(const QString& path);

    /// The file of the last import.
    QString importPath() const { return m_importPath; }
    /// An import waits. The following two are valid while it does.
    bool isPlanned() const { return m_planned != nullptr; }
    const ImportPlan& plan() const { return m_planned->plan(); }
    const BusSnapshot& bus() const { return m_planned->bus(); }
    /// Plans anew, with the file's IDs read so.
    void planWith(IdReading reading);
    /// The user does not want the import that waits.
    void refuse();

    /// Begins to write; where an import waits, this is its writing. Gives the writing, which lives
    /// until its end is told; null where it cannot begin now.
    SettingsBatch* write(std::vector<LdbChange> changes);

    /// Ends the transfer after the LDB under way, and says what was done and what not.
    void stop();

    bool isOn() const { return m_isOn; }
    /// What an end of the program would break off, as a sentence; null when no transfer is on.
    Text underWay() const;
    /// The LDBs to which the last transfer has sent something.
    QStringList touchedLdbs() const
    {
        return m_kind == Kind::Write ? m_touched : m_transfer->touchedLdbs();
    }

    /// The box at the end of a transfer, in the language in force.
    static BoxText boxText(Status status, const QString& details);

signals:
    /// An import has read the LDBs.
    void planned();
    void statusChanged(ImportExportDeviceSettings::ImportExportStatus status);
    /// Settings were written into an LDB, or were to be.
    void ldbDone(const SettingsOutcome& outcome, bool isImport);
    /// A transfer begins, or is over in whatever way.
    void changed(bool isOn);

private:
    enum class Kind
    {
        Export,
        Import,
        Write
    };

    /// Null while another one is on.
    ImportExportDeviceSettings* begin(Kind kind);
    void setOn(Kind kind);
    void end();
    void processStatus(Status status);
    void processStopped();
    void processPlanned();
    void processWritten(const SettingsOutcome& outcome);
    void endWriting();

    SerialLink* m_link;
    Notices* m_notices;
    StatusBarDisplay* m_display;
    QWidget* m_window;
    std::unique_ptr<ImportExportDeviceSettings> m_transfer; ///< the last one
    std::unique_ptr<ImportExportDeviceSettings> m_planned;  ///< the import that waits
    std::unique_ptr<SettingsBatch> m_batch;                 ///< of no import
    QStringList m_touched;                                  ///< of the last one of these
    QStringList m_written;
    std::vector<Text> m_failures;
    QString m_importPath;
    Kind m_kind = Kind::Write;
    bool m_isOn = false;
};
