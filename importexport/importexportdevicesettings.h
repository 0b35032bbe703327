#pragma once

#include "app/shared/text.h"

#include <QMetaType>
#include <QObject>
#include <QStringList>

#include <memory>
#include <vector>

class LdbTransfer;
class SerialLink;
class SettingsBatch;
class SettingsImport;
enum class IdReading;
struct BusSnapshot;
struct ImportPlan;
struct LdbChange;

/// Saves the settings of every connected LDB into one file, or writes such a file back into the
/// LDBs. One object a transfer; destroying it ends the transfer, and nothing more is told. A
/// transfer that is neither cancelled nor stopped ends with exactly one status. An import reads the
/// LDBs first and writes only what differs, and nothing before `write()`. GUI thread only.
class ImportExportDeviceSettings : public QObject
{
    Q_OBJECT
public:
    enum ImportExportStatus
    {
        ExportStarted = 0,
        ExportFinished,
        ExportFailed,
        ImportStarted,
        ImportFinished,
        ImportFailed,
        ImportFailedNotAllConnected,
        ImportFailedSettingsMissing
    };
    Q_ENUM(ImportExportStatus)

    /// `link` outlives the object.
    explicit ImportExportDeviceSettings(SerialLink* link, QObject* parent = nullptr);
    ~ImportExportDeviceSettings() override;

    /// Why the transfer did not end well: a sentence each, naming lines and LDBs. Complete once
    /// the failure's status is told.
    QStringList failures() const;
    /// The same as a text for a message box: what was done, the first failures, and how many more
    /// there are. Outlives this object.
    Text failureText() const;
    /// After a stop: which LDBs are done, which are not, and the failures.
    Text stopText() const;
    /// What the import would do; valid from `importPlanned()` to the end.
    const ImportPlan& plan() const;
    /// What the LDBs had when they were read for it; valid likewise.
    const BusSnapshot& bus() const;
    /// The LDBs to which an import has sent something.
    QStringList touchedLdbs() const { return m_touched; }

public slots:
    /// Where the forms without a path look; at first the folder "files" beside the program.
    void setDefaultDirectory(const QString& directory) { m_defaultDirectory = directory; }

    void exportDeviceSettings(const QString& exportFilePath);
    void exportDeviceSettings();
    void importDeviceSettings(const QString& importFilePath);
    void importDeviceSettings();

    /// Plans the import anew, with the file's IDs read so. Only between `importPlanned()` and
    /// `write()`.
    void planWith(IdReading reading);
    /// Writes what is planned, once.
    void write();
    /// Writes what the user has made of the plan, once. Gives the writing, for who follows it; it
    /// lives until the end is told. Null where no plan waits for its yes.
    SettingsBatch* write(std::vector<LdbChange> changes);

    /// Ends the transfer after the LDB under way: `stopped()` comes in place of a status, perhaps
    /// before this returns.
    void stop();
    /// Ends the transfer: no further LDB is asked or written, and no status comes any more.
    void cancel();

signals:
    void statusChanged(ImportExportDeviceSettings::ImportExportStatus status);
    /// Commands still to be answered, and all of them; an import that reads counts its LDBs.
    void progressChanged(int left, int total);
    /// The LDBs of an import are read: it waits for `write()`.
    void importPlanned();
    /// The end after `stop()`.
    void stopped();

private:
    QString defaultFilePath() const;
    void begin(std::unique_ptr<LdbTransfer> transfer, const QString& filePath,
               ImportExportStatus started, ImportExportStatus failed);
    void end(ImportExportStatus status);
    void endStopped();
    /// Keeps what is told of the transfer, which is over, and lets go of it.
    void takeResults();

    SerialLink* m_link;
    QString m_defaultDirectory;
    std::unique_ptr<LdbTransfer> m_transfer;
    SettingsImport* m_import = nullptr; ///< the same, where it is one
    std::vector<Text> m_failures;
    Text m_done; ///< what was done, where it was not all
    QStringList m_touched;
    QStringList m_doneLdbs;
    QStringList m_leftLdbs;
};

Q_DECLARE_METATYPE(ImportExportDeviceSettings::ImportExportStatus)
