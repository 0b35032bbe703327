#pragma once

#include "importexport/ldbtransfer.h"
#include "importexport/settingsfilewriter.h"
#include "importexport/settingsreader.h"

#include <QCoreApplication>
#include <QFile>

#include <memory>
#include <vector>

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
    void proceed() override;

private:
    struct Entry
    {
        LdbReading reading;
        bool isRead = false;
    };

    bool openFile(const QString& filePath);
    void take(const LdbReading& reading);
    void processEnd();
    void writeEntry(const LdbReading& reading);
    void noteWritten(bool isWritten);

    QFile m_file;
    std::unique_ptr<SettingsFileWriter> m_writer;
    std::unique_ptr<SettingsReader> m_reader;
    std::vector<Entry> m_entries;
    std::size_t m_nextToWrite = 0;
    bool m_writeFailed = false;
};
