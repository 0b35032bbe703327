#pragma once

#include <QByteArray>
#include <QString>

class Plot;

/// What of a plot leaves the program: its picture and the values that it shows. GUI thread.
namespace plotexport {

enum class Kind
{
    Png,
    Svg,
    Values ///< CSV
};

/// Of a file of that kind, without a dot.
QString suffix(Kind kind);
/// A name to propose, with its suffix and without a folder: whose values, and until when.
QString fileName(const Plot& plot, Kind kind);

/// The values of all curves within the shown time: ";" between the columns, UTF-8, a line for each
/// record with the local time, its offset to UTC, and nothing where a value is missing. A line
/// without any value is a gap.
QByteArray values(const Plot& plot);

/// The content of a file of that kind; empty where the picture cannot be made.
QByteArray content(const Plot& plot, Kind kind);

/// Writes a file, whole or not at all. Returns why it could not, or nothing.
QString write(const Plot& plot, Kind kind, const QString& path);

} // namespace plotexport
