#pragma once

#include "importexport/devicesettingsfile.h"
#include "importexport/ldbtransfer.h"

class SettingsWriter;

/// Checks a whole settings file and writes every good line into its LDB. Of several things that
/// are true at the end it tells the first of these: an LDB of the file is not connected; a wrong
/// line, a refusal, silence, or nothing to do though no line was missing; a connected LDB has no
/// line.
class SettingsImport : public LdbTransfer
{
    Q_DECLARE_TR_FUNCTIONS(LdbTransfer)
public:
    using LdbTransfer::LdbTransfer;

    bool begin(const QString& filePath) override;

private:
    bool readFile(const QString& filePath);
    void takeLine(const DeviceSettingsLine& line);
    void writeNext();
    void processImportDeviceSettings(const DeviceSettingsLine& line);
    void processWritten(const DeviceSettingsLine& line, SettingsWriter* writer);
    Status status() const;
    void failLine(const DeviceSettingsLine& line, const Text& what);
    void failUnwritten(const DeviceSettingsLine& line, const char* what);

    std::vector<DeviceSettingsLine> m_lines; ///< those to be written
    std::size_t m_nextToWrite = 0;
    int m_writing = 0;
    QStringList m_withoutLine; ///< connected LDBs
    bool m_someNotConnected = false;
    bool m_someFailed = false;
};
