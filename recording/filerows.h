#pragma once

#include "recording/recordedevent.h"
#include "recording/recordedvalues.h"
#include "serial/ldb/exchange.h"

#include <QByteArray>
#include <QString>

#include <variant>
#include <vector>

/// The rows of a recording's file, as values.
namespace filerow {

// What the table of exchanges has beside them, in one order of time. Its `kind` is an
// `ExchangeKind` with flags, or a record that says "lost".
constexpr int kKindMask = 15;
constexpr int kExtraFlag = 16;  ///< asked between the turns
constexpr int kPackedFlag = 64; ///< the answer is packed: it takes half the room
constexpr int kLossTold = 32;   ///< a record that says "lost"

/// Above an `ExchangeOutcome`: which of the sound frames in a status's answer the record is of.
constexpr int kFrameShift = 4;
constexpr int kNoFrame = 15; ///< of none
constexpr int kOutcomeMask = (1 << kFrameShift) - 1;

// Of an event.
constexpr int kStillFlag = 1;
constexpr int kVagueFlag = 2;

struct Transmission
{
    qint64 at = 0; ///< the key; the file raises it by one where two meet
    int ldb = 0;   ///< address
    int kind = 0;
    int outcome = 0; ///< with the frame
    qint64 flight = -1;
    QByteArray request; ///< empty where kind and LDB say it
    QByteArray answer;
};

/// The wall time that records carry from here on, or, of a single one, the record at that key.
struct Round
{
    qint64 at = 0;
    qint64 wall = 0; ///< ms since 1970 UTC
    int offset = 0;  ///< local time less UTC, s
    bool isSingle = false;
};

struct Run
{
    RecordedRun run;
    bool isContinued = false; ///< it began in another file
};

/// What the finder of events knows by now.
struct FinderState
{
    QByteArray json;
};

} // namespace filerow

using FileRow = std::variant<filerow::Transmission, filerow::Round, RecordedMinute, RecordedEvent,
                             filerow::Run, filerow::FinderState>;
using FileRows = std::vector<FileRow>;
