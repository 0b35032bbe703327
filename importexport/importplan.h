#pragma once

#include "importexport/devicesettingsfile.h"
#include "importexport/settingscomparison.h"

#include <map>

/// The LDBs of the bus, as far as an import must know them.
struct BusSnapshot
{
    QStringList known; ///< lost ones included
    QStringList connected;
    std::map<QString, LdbSettings> settings; ///< of those that gave them
};

/// How many names of a file are those of the LDBs, depending on how its IDs are read.
struct NameAgreement
{
    int hexadecimal = 0;
    int decimal = 0;

    int with(IdReading reading) const
    {
        return reading == IdReading::Decimal ? decimal : hexadecimal;
    }
    /// Whether the names fit better in the other way.
    bool isAgainst(IdReading reading) const;
};

/// What an import of a file would do, in whole; nothing has been sent for it. A value.
struct ImportPlan
{
    struct Entry
    {
        DeviceSettingsLine line;
        SettingsComparison comparison; ///< without differences nothing is written
    };

    QByteArray content; ///< of the file
    IdReading reading = IdReading::Hexadecimal;
    NameAgreement names;
    int lineCount = 0;
    std::vector<Entry> entries;  ///< lines that can be used, in the file's order
    std::vector<Text> problems;  ///< a sentence for each line and each LDB that is left out
    bool hasUnconnected = false; ///< an LDB of the file is not connected
    bool hasWrongLines = false;
    bool hasMissingLines = false; ///< a connected LDB has none

    /// How many LDBs get something written, and how many fields in them.
    int ldbsToWrite() const;
    int fieldsToWrite() const;

    /// Reads a file as far as it can be one of settings; what is wrong with it goes into `error`.
    static QByteArray load(const QString& filePath, Text& error);
    static ImportPlan make(const QByteArray& content, IdReading reading, const BusSnapshot& bus);
    /// Pure: counts lines with a name that the LDB of that ID has as well.
    static NameAgreement compareNames(const QByteArray& content,
                                      const std::map<QString, LdbSettings>& settings);
    /// The sentence about a line.
    static Text lineText(const DeviceSettingsLine& line, IdReading reading, const Text& what);

private:
    void take(const DeviceSettingsLine& line, const BusSnapshot& bus);
    void leaveOut(const DeviceSettingsLine& line, const char* why);
};
