#pragma once

#include "serial/ldb/ldbsettings.h"

#include <QString>

/// The text of a device-settings file: a title, the column titles, and one line an LDB, each
/// followed by an empty line. Pure functions.
namespace settingscsv {

constexpr char kSeparator = ';';

/// Positions of the fields in an LDB's line.
enum Column : int
{
    IdColumn = 0, ///< the bus address, written in decimal and read in hexadecimal
    NameColumn,
    GeneralFaultOutputColumn,
    OpenDetectionColumn,
    OpenDetectionDelayColumn,
    EarthLeakageDetectionColumn,
    EarthWireOpenDetectionColumn,
    StartInServiceModeColumn,
    AmplifierDetectionColumn,
    NumberOfFimsColumn,
    FirmwareIdColumn, ///< written only
    ColumnCount
};

/// The title of a column in the language in force.
QString columnTitle(Column column);

/// What every file begins with, in all languages.
QString title();

/// What stands above the first LDB.
QString fileHead();

/// One LDB's line with the empty line after it. There is no quoting: control characters become
/// blanks, a separator in the name stays, and one in the firmware id becomes a blank, for only the
/// name can take surplus fields back.
QString settingsLine(const LdbSettings& record, const QString& firmwareId);

} // namespace settingscsv
