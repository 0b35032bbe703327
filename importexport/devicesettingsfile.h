#pragma once

#include "app/shared/text.h"
#include "serial/ldb/ldbsettings.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QStringList>

#include <optional>
#include <vector>

/// One LDB's line of a device-settings file, checked as a whole.
struct DeviceSettingsLine
{
    int number = 0;  ///< position in the file, from 1
    QString idText;  ///< the ID as it stands in the file
    int address = 0; ///< the ID read in hexadecimal, 0 to 255
    QString hexId;
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
    /// Every line that starts with an ID, in order. A byte-order mark tells the encoding, without
    /// one it is the local one; lines end with LF or CRLF. An ID that has several lines makes all
    /// of them wrong, for none is known to be the one meant.
    static std::vector<DeviceSettingsLine> read(const QByteArray& content);

    /// Reads one line; nothing when its first field is no hexadecimal number below 256, as in the
    /// title, the column titles and empty lines.
    static std::optional<DeviceSettingsLine> readLine(const QString& line, int number);

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
