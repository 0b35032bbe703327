#pragma once

#include <QByteArray>

/// The warning sound: two tones, the second higher, a third of a second in all.
namespace bleep {

/// A whole WAVE file, 16-bit PCM, one channel.
QByteArray wave();

} // namespace bleep
