#pragma once

#include "app/shared/text.h"
#include "serial/ldb/ldbsettings.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QStringList>

#include <optional>
#include <vector>

/// How the ID column is read. Exports write it in decimal; an import takes it for hexadecimal
/// unless the user says otherwise.
enum class IdReading
{
    Hexadecimal,
    Decimal
};

/// One LDB's line of a device-settings file, checked as a whole.
struct DeviceSettingsLine
{
    int number = 0;   ///< position in the file, from 1
    QString idText;   ///< the ID as it stands in the file, shortened
    int address = -1; ///< the ID read, 0 to 255; -1 when it is no such number
    QString hexId;    ///< empty then
    /// What the line wants written (audio mute stays at its default: the file has no column for
    /// it); nothing for a wrong line, of which `error` then says what is wrong.
    std::optional<LdbSettings> settings;
    Text error;
};

/// Reads device-settings files, also as spreadsheets save them. Pure functions.
class DeviceSettingsFile
{
    Q_DECLARE_TR_FUNCTIONS(DeviceSettingsFile)
public:
    /// Every line but headings and empty ones, in order. A byte-order mark tells the encoding,
    /// without one it is the local one; lines end with LF or CRLF. An ID that has several lines
    /// makes all of them wrong, for none is known to be the one meant.
    static std::vector<DeviceSettingsLine> read(const QByteArray& content,
                                                IdReading reading = IdReading::Hexadecimal);

    /// Reads one line; nothing for the title, the column titles and lines without an ID. An ID that
    /// is no number below 256 makes the line wrong.
    static std::optional<DeviceSettingsLine> readLine(const QString& line, int number,
                                                      IdReading reading = IdReading::Hexadecimal);

private:
    struct Reading
    {
        LdbSettings settings;
        Text error; ///< nothing for a good line
    };
    static Reading readFields(const QStringList& fields);
    static Text nameError(const QString& name);
    static void readSettings(const QString& line, DeviceSettingsLine& result);
    static void rejectRepeatedIds(std::vector<DeviceSettingsLine>& lines);
};
