#pragma once

#include "importexport/ldbtransfer.h"
#include "serial/ldb/ldbsettings.h"

#include <QCoreApplication>
#include <QFile>
#include <QTextStream>

#include <memory>
#include <optional>

class ISerialCommand;

/// Asks every known LDB for its settings and its firmware id and writes a line for each that gave
/// its settings, in the order of the LDB list. What was written stays when it ends early.
class SettingsExport : public LdbTransfer
{
    Q_DECLARE_TR_FUNCTIONS(LdbTransfer)
public:
    using LdbTransfer::LdbTransfer;

    /// The file's former content goes.
    bool begin(const QString& filePath) override;
    QStringList leftLdbs() const override;

protected:
    /// Keeps some LDBs' commands at the processor: other users of the bus get their turn between
    /// them.
    void proceed() override;

private:
    struct Entry
    {
        QString hexId;
        int repliesLeft;
        std::optional<LdbSettings> settings;
        QString firmwareId;
        bool isCut = false; ///< some command was never sent
    };

    bool openFile(const QString& filePath);
    void ask(std::size_t index, std::unique_ptr<ISerialCommand> command,
             void (*take)(Entry& entry, const QByteArray& answer));
    void writeEntriesInTurn();
    void writeEntry(const Entry& entry);
    void flushFile();

    QFile m_file;
    QTextStream m_stream{&m_file};
    std::vector<Entry> m_entries;
    std::size_t m_nextToAsk = 0;
    std::size_t m_nextToWrite = 0;
    bool m_writeFailed = false;
    bool m_hasEnded = false;
};
