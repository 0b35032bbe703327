#pragma once

#include "recording/recordedevent.h"
#include "recording/recordedvalues.h"
#include "recording/recorderinput.h"
#include "serial/ldb/exchange.h"

#include <QByteArray>
#include <QString>

#include <variant>
#include <vector>

/// The rows of a recording's file, as values.
namespace filerow {

// The table of exchanges also has records that say "lost", in the same order of time. So its `kind`
// is an `ExchangeKind` with flags, or `kLossTold`.
constexpr int kKindMask = 15;
constexpr int kExtraFlag = 16;  ///< asked between the turns
constexpr int kPackedFlag = 64; ///< the answer is packed into half the bytes
constexpr int kLossTold = 32;   ///< a record that says "lost"

/// In the bits above an `ExchangeOutcome`: which sound frame of the status answer became the
/// record.
constexpr int kFrameShift = 4;
constexpr int kNoFrame = 15; ///< none did
constexpr int kOutcomeMask = (1 << kFrameShift) - 1;

// Of an event.
constexpr int kStillFlag = 1;
constexpr int kVagueFlag = 2;

struct Transmission
{
    qint64 at = 0; ///< the key; raised by one where a row has it already
    int ldb = 0;   ///< address
    int kind = 0;
    int outcome = 0; ///< with the frame
    qint64 flight = -1;
    QByteArray request; ///< empty: the usual one of this kind and LDB
    QByteArray answer;
};

// What a round is, as a sum of flags.
constexpr int kSingleFlag = 1;
constexpr int kBreakFlag = 2;

using input::Round;

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
