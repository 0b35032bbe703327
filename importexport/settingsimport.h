#pragma once

#include "app/shared/text.h"
#include "importexport/devicesettingsfile.h"
#include "importexport/settingswriter.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <vector>

class SerialLink;

/// One import: checks a whole settings file, writes every good line into its LDB, and tells how it
/// went after the last answer. Destroying it ends the import between two LDBs. GUI thread only;
/// receivers may destroy it from any of its signals.
class SettingsImport : public QObject
{
    Q_OBJECT
public:
    /// How an import ended; the most telling when several are true, in this order.
    enum class Outcome
    {
        NotAllConnected, ///< an LDB of the file is not connected
        Failed, ///< a wrong line, a refusal, silence, or nothing to do though no line was missing
        SettingsMissing, ///< a connected LDB has no line
        Finished
    };

    explicit SettingsImport(SerialLink* link, QObject* parent = nullptr);

    /// Reads and checks the file and begins. False when the file cannot be read or there is no
    /// link; then nothing else comes.
    bool begin(const QString& filePath);

    /// What went wrong so far, a sentence each, naming line and ID, or the LDB.
    const std::vector<Text>& failures() const { return m_failures; }
    /// How many LDBs have all that their line says, of how many that have a line.
    int doneCount() const { return m_doneCount; }
    int ldbCount() const { return m_lineCount; }
    /// The LDBs to which something was sent.
    const QStringList& touchedLdbs() const { return m_touched; }

signals:
    /// Commands still to be answered, and all of them.
    void progressChanged(int left, int total);
    /// The end, once, after the last answer or the end of the link.
    void finished(SettingsImport::Outcome outcome);

private:
    bool readFile(const QString& filePath);
    void takeLine(const DeviceSettingsLine& line);
    void noteMissingLines(const std::vector<DeviceSettingsLine>& lines);
    void writeNext();
    void processImportDeviceSettings(const DeviceSettingsLine& line);
    void processWritten(const DeviceSettingsLine& line, SettingsWriter* writer);
    void failUnwritten(const DeviceSettingsLine& line, const char* what);
    void tellProgress();
    int commandCount() const;
    Outcome outcome() const;
    void addFailure(const DeviceSettingsLine& line, const Text& what);

    SerialLink* m_link;
    std::vector<DeviceSettingsLine> m_lines; ///< those to be written
    std::size_t m_nextToWrite = 0;
    int m_writing = 0;
    int m_repliesLeft = 0;
    int m_doneCount = 0;
    int m_lineCount = 0;
    QStringList m_connected;
    QStringList m_touched;
    bool m_linkEnded = false;
    bool m_someNotConnected = false;
    bool m_someFailed = false;
    bool m_someMissing = false;
    std::vector<Text> m_failures;
};
