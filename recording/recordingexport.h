#pragma once

#include "recording/recordedevent.h"
#include "recording/recordedvalues.h"

#include <QString>

#include <functional>

class QIODevice;
class RecordingReader;

/// Writes a span of a recording in the formats of other programs. Each function writes into an open
/// device, piece by piece, and gives an empty text, or the system's reason for a failure. It asks
/// `goesOn` between the pieces, with the share that is done (0 to 1): false ends the writing there
/// and is no error. Used in the reader's thread.
///
/// The `...Piece` functions write the same one piece a call, so that other readers get their turn.
/// An empty span has one piece, too.
namespace recordingexport {

/// Writes one piece of a span after the former one; keeps what the next piece needs of it.
using Piece = std::function<QString(RecordingReader& reader, TimeSpan piece, QIODevice& device)>;

using GoesOn = std::function<bool(double share)>;

/// Which records go into a log.
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

/// The lines of that table, each with its line end: the header, and that of an event.
QString eventHeader();
QString eventLine(const RecordedEvent& event);
Piece capturePiece();

/// The events of a span as a table, separated by ";", in the language and local time in force.
QString writeEvents(RecordingReader& reader, TimeSpan span, QIODevice& device);
Piece eventsPiece();

/// The part of a span that is recorded, cut into pieces.
TimeSpan readable(const RecordingReader& reader, TimeSpan span);
/// How long a piece is, µs.
constexpr qint64 kPiece = 600LL * 1000000;

} // namespace recordingexport
