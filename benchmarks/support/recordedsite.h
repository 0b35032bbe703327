#pragma once

#include "recording/recorderinput.h"

/// A recording of a busy installation, piece by piece.
namespace recordedsite {

constexpr int kLdbs = 32;
constexpr qint64 kPiece = 600LL * 1000000; ///< µs

/// Ten minutes of a conversation on a simulated line, as the recorder collects them.
RecorderInputs makePiece();
/// The same, so many µs later.
RecorderInput later(RecorderInput input, qint64 by);

} // namespace recordedsite
