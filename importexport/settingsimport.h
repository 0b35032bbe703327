#pragma once

#include "importexport/devicesettingsfile.h"
#include "serial/commandbatch.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <map>
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
    const QStringList& failures() const { return m_failures; }

signals:
    /// Commands still to be answered, and all of them.
    void progressChanged(int left, int total);
    /// The end, once, after the last answer or the end of the link.
    void finished(SettingsImport::Outcome outcome);

private:
    struct Ldb
    {
        DeviceSettingsLine line;
        QStringList notWritten; ///< what it refused or left unanswered
        bool isDone = false;
    };

    bool readFile(const QString& filePath);
    void takeLine(const DeviceSettingsLine& line);
    void processImportDeviceSettings(const DeviceSettingsLine& line);
    void noteMissingLines(const std::vector<DeviceSettingsLine>& lines);
    void processImportProgress(const QString& hexId, int command, const Reply& reply);
    void processLdbDone(const QString& hexId);
    void abort();
    void finish();
    Outcome outcome() const;
    void addFailure(const DeviceSettingsLine& line, const QString& what);

    SerialLink* m_link;
    CommandBatch m_batch;
    std::map<QString, Ldb> m_ldbs; ///< those written to
    QStringList m_connected;
    bool m_someNotConnected = false;
    bool m_someFailed = false;
    bool m_someMissing = false;
    QStringList m_failures;
};
