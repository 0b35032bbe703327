#pragma once

#include "app/shared/text.h"

#include <QMetaType>
#include <QObject>
#include <QStringList>

#include <memory>
#include <vector>

class LdbTransfer;
class SerialLink;

/// Saves the settings of every connected LDB into one file, or writes such a file back into the
/// LDBs. One object a transfer; destroying it ends the transfer, and nothing more is told. A
/// transfer that is not cancelled ends with exactly one status. GUI thread only.
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
    /// The LDBs to which an import has sent something.
    QStringList touchedLdbs() const { return m_touched; }

public slots:
    /// Where the forms without a path look; at first the folder "files" beside the program.
    void setDefaultDirectory(const QString& directory) { m_defaultDirectory = directory; }

    void exportDeviceSettings(const QString& exportFilePath);
    void exportDeviceSettings();
    void importDeviceSettings(const QString& importFilePath);
    void importDeviceSettings();

    /// Ends the transfer: no further LDB is asked or written, and no status comes any more.
    void cancel();

signals:
    void statusChanged(ImportExportDeviceSettings::ImportExportStatus status);
    /// Commands still to be answered, and all of them.
    void progressChanged(int left, int total);

private:
    QString defaultFilePath() const;
    void begin(std::unique_ptr<LdbTransfer> transfer, const QString& filePath,
               ImportExportStatus started, ImportExportStatus failed);
    void end(ImportExportStatus status);

    SerialLink* m_link;
    QString m_defaultDirectory;
    std::unique_ptr<LdbTransfer> m_transfer;
    std::vector<Text> m_failures;
    Text m_done; ///< what was done, where it was not all
    QStringList m_touched;
};

Q_DECLARE_METATYPE(ImportExportDeviceSettings::ImportExportStatus)
