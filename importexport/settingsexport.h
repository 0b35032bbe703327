#pragma once

#include "app/shared/text.h"
#include "serial/ldb/ldbsettings.h"
#include "serial/ldb/reply.h"

#include <QFile>
#include <QObject>
#include <QString>
#include <QTextStream>

#include <memory>
#include <optional>
#include <vector>

class ISerialCommand;
class SerialLink;

/// One export: asks every known LDB for its settings and its firmware id and writes a line for each
/// that gave its settings, in the order of the LDB list. Destroying it ends the export; what was
/// written so far stays. GUI thread only; receivers may destroy it from any of its signals.
class SettingsExport : public QObject
{
    Q_OBJECT
public:
    explicit SettingsExport(SerialLink* link, QObject* parent = nullptr);

    /// Opens the file (its former content goes) and begins. False when that was not possible;
    /// then nothing else comes.
    bool begin(const QString& filePath);

    /// What went wrong so far, a sentence each, naming the LDB.
    const std::vector<Text>& failures() const { return m_failures; }
    /// How many LDBs have their line, of how many.
    int doneCount() const { return m_writtenLines; }
    int ldbCount() const { return static_cast<int>(m_entries.size()); }

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
        int repliesLeft;
        bool isSilent = false; ///< some answer did not come
        bool isCut = false;    ///< some command was never sent
    };

    bool openFile(const QString& filePath);
    void askNext();
    void ask(std::size_t index, std::unique_ptr<ISerialCommand> command,
             void (SettingsExport::*take)(Entry& entry, const QByteArray& answer));
    void takeSettings(Entry& entry, const QByteArray& answer);
    void takeFirmware(Entry& entry, const QByteArray& answer);
    void writeEntriesInTurn();
    void writeEntry(const Entry& entry);
    void finish();
    void flushFile();
    void tellProgress();
    void addFailure(const Entry& entry, const char* what);

    SerialLink* m_link;
    QFile m_file;
    QTextStream m_stream;
    std::vector<Entry> m_entries;
    std::size_t m_nextToAsk = 0;
    std::size_t m_nextToWrite = 0;
    int m_repliesLeft = 0;
    int m_writtenLines = 0;
    bool m_linkEnded = false;
    bool m_writeFailed = false;
    std::vector<Text> m_failures;
};
