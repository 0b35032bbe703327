#pragma once

#include "serial/commandbatch.h"
#include "serial/ldbsettings.h"

#include <QFile>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTextStream>

#include <memory>
#include <optional>
#include <vector>

class SerialLink;

/// One export: asks every known LDB for its settings and its firmware id and writes a line for each
/// that gave its settings, in the order of the LDB list. Destroying it ends the export; what was
/// written so far stays. GUI thread only;
/// receivers may destroy it from any of its signals.
class SettingsExport : public QObject
{
    Q_OBJECT
public:
    explicit SettingsExport(SerialLink* link, QObject* parent = nullptr);

    /// Opens the file (its former content goes) and begins. False when that was not possible;
    /// then nothing else comes.
    bool begin(const QString& filePath);

    /// What went wrong so far, a sentence each, naming the LDB.
    const QStringList& failures() const { return m_failures; }

signals:
    /// Commands still to be answered, and all of them.
    void progressChanged(int left, int total);
    /// The end, once: every LDB asked, or the link gone. A good export has no `failures()`.
    void finished();

private:
    struct Entry
    {
        QString hexId;
        std::optional<LdbSettings> settings;
        QString firmwareId;
        bool isDone = false;
        bool isSilent = false; ///< some answer did not come
    };

    bool openFile(const QString& filePath);
    void processExportDeviceSettings(const QString& hexId, int command, const Reply& reply);
    void processLdbDone(const QString& hexId);
    void writeEntriesInTurn();
    void writeEntry(const Entry& entry);
    void abort();
    void finish();
    void flushFile();
    Entry& entryOf(const QString& hexId);
    void addFailure(const QString& hexId, const QString& what);

    SerialLink* m_link;
    CommandBatch m_batch;
    QFile m_file;
    QTextStream m_stream;
    std::vector<Entry> m_entries;
    std::size_t m_nextToWrite = 0;
    bool m_writeFailed = false;
    QStringList m_failures;
};
