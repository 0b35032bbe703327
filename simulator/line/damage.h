#pragma once

#include "simulator/line/chance.h"

#include <QByteArray>

/// What a bad line does to the bytes of a frame. Pure but for the chance handed in.
namespace damage {

/// With one bit turned round.
QByteArray flipped(const QByteArray& bytes, Chance& chance);

/// With bits turned round until the check digits give it away, or a single answer byte is none.
QByteArray garbled(const QByteArray& bytes, Chance& chance);

/// What a receiver makes of two bytes that came over each other.
char merged(char one, char other, Chance& chance);

/// Whether it is a frame, SOH to EOT, whose check digits are right.
bool isSound(const QByteArray& frame);

} // namespace damage
