#pragma once

#include "recording/recordedevent.h"
#include "recording/recordedvalues.h"

#include <QString>

#include <functional>

class QIODevice;
class RecordingReader;

/// What of a recording leaves the program. Each writes into an open device, a piece of the span at
/// a time, and gives an empty text, or why it could not be written, as the system says it.
/// `goesOn` is asked between the pieces, with the share that is done (0 to 1): false ends it there,
/// which is no error. Used in the reader's thread.
///
/// Who reads a piece at a time, so that others get their turn, takes the `...Piece`: they write
/// the same. Even of an empty span there is one piece.
namespace recordingexport {

/// Writes one piece of a span behind the former one; what it carries on it has in itself.
using Piece = std::function<QString(RecordingReader& reader, TimeSpan piece, QIODevice& device)>;

using GoesOn = std::function<bool(double share)>;

/// What a log takes.
struct LogChoice
{
    QString hexId;    ///< empty: all
    int interval = 0; ///< s; 0 takes every record
};
/// The log of a span as the live one would have written it, in the language in force.
QString writeLog(RecordingReader& reader, TimeSpan span, const LogChoice& choice, QIODevice& device,
                 const GoesOn& goesOn = {});

Piece logPiece(const LogChoice& choice);

/// A capture for Wireshark (pcapng, link type RTAC serial): what was sent and what came, and where
/// something is missing.
QString writeCapture(RecordingReader& reader, TimeSpan span, QIODevice& device,
                     const GoesOn& goesOn = {});

/// The lines of such a table, each with its end: the header, and that of an event.
QString eventHeader();
QString eventLine(const RecordedEvent& event);
Piece capturePiece();

/// The events of a span as a table, separated by ";", in the language and local time in force.
QString writeEvents(RecordingReader& reader, TimeSpan span, QIODevice& device);
Piece eventsPiece();

/// What of a span there is: it is in pieces, one behind the other.
TimeSpan readable(const RecordingReader& reader, TimeSpan span);
/// How long a piece is, µs.
constexpr qint64 kPiece = 600LL * 1000000;

} // namespace recordingexport
