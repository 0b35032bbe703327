#pragma once

#include "serial/ldb/ldbstatus.h"

#include <QDateTime>
#include <QStringList>

#include <optional>

/// One LDB's polled data as every view consumes it: a list of rows, of which string 0 is the
/// text to show and the further strings are machine values. The rows travel as plain
/// `QList<QStringList>` through queued signals; the names and functions here are the only way that
/// code addresses them. Pure functions, callable from any thread.
namespace generalinformation {

/// Positions of the rows.
enum Row : int
{
    DeviceIdRow = 0,
    NameRow,
    ModeRow,
    LoopRow,
    PrimaryVoltageRow,
    PrimaryCurrentRow,
    SecondaryVoltageRow,
    SecondaryCurrentRow,
    EarthRow,
    AmplifierRow,
    TimestampRow,
    RowCount
};

/// Positions of the strings within a row.
enum Column : int
{
    TextColumn = 0,         ///< what the user reads
    ValueColumn = 1,        ///< code, V or mA; for the timestamp the text with milliseconds
    RawColumn = 2,          ///< voltage and current rows only: mV or 0.01 mA
    AuxiliaryColumn = 3,    ///< voltage rows only
    OwnNameColumn = 2,      ///< name row only: the name that the LDB told, whatever is shown
    MillisecondsColumn = 1, ///< timestamp row only
};

/// Stands in for the missing measurement of a shorted port.
constexpr int kMissingMeasurement = -40000;

/// Shown in place of a value that nobody knows, as of an LDB that does not answer.
extern const QString kNoValue;

/// Formats of the two timestamps.
extern const QString kSecondsFormat;
extern const QString kMillisecondsFormat;

/// The rows of one status record. Of an LDB that does not answer (state `Disconnected`) the
/// name says so, voltages and currents have neither text nor number, and the codes of loop, earth
/// and amplifier have no text.
QList<QStringList> buildRows(const QString& hexId, const QString& deviceName,
                             const LdbStatus& status, const QString& timestampSeconds,
                             const QString& timestampMilliseconds);

/// What an overview shows of an LDB that is remembered and has not been heard: no record, and no
/// LDB in any state.
QList<QStringList> awaitedRows(const QString& hexId, const QString& deviceName);

/// The string at a position, empty where the record has none.
QString field(const QList<QStringList>& rows, Row row, Column column);

/// The shown text of a row.
QString text(const QList<QStringList>& rows, Row row);

/// The string at a position as a number, 0 where it is missing or no number.
int integer(const QList<QStringList>& rows, Row row, Column column = ValueColumn);
double number(const QList<QStringList>& rows, Row row, Column column = ValueColumn);

/// The name that the LDB told last, also where the record shows that it is lost.
QString ownName(const QList<QStringList>& rows);

/// Whether the record has a value in that row; one that a shorted port lacks counts.
bool hasValue(const QList<QStringList>& rows, Row row);

/// Whether it is the record of an LDB that does not answer.
bool isLost(const QList<QStringList>& rows);

/// The record's time to the millisecond; invalid where it does not parse.
QDateTime timestamp(const QList<QStringList>& rows);

/// What a clock on the wall shows at a moment (ms since 1970 UTC), in ms: for differences between
/// the times of records, which are such times.
qint64 clockTime(qint64 moment);
/// The record's time as such a one; nothing where it does not parse.
std::optional<qint64> clockTime(const QList<QStringList>& rows);

} // namespace generalinformation
