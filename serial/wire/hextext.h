#pragma once

#include <QByteArray>

#include <optional>

class QTextCodec;

/// The hexadecimal text conventions of the bus: numbers and texts travel as ASCII digit pairs.
/// Pure functions, callable from any thread.
namespace hextext {

/// `number` in base 16, upper case, at least `width` digits, filled with "0". Never truncates:
/// 256 at width 2 gives "100".
QByteArray fromNumber(uint number, int width = 2);

/// The digits at [position, position + length) as a number, or nothing when the range leaves
/// `text` or holds anything but hexadecimal digits (either case). At most 8 digits.
std::optional<quint32> toNumber(const QByteArray& text, int position, int length);

/// As `toNumber` for the four digits of a 16-bit field, which travels low byte first.
std::optional<quint16> toSwappedWord(const QByteArray& text, int position);

/// Whether `byte` is a digit as the bus has them: "0" to "9", "A" to "F".
constexpr bool isUpperDigit(char byte)
{
    return (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'F');
}

/// Whether `text` is a whole number (at least one) of hexadecimal digit pairs.
bool isHexPairs(const QByteArray& text);

/// `bytes` as digit pairs, upper case.
inline QByteArray fromBytes(const QByteArray& bytes)
{
    return bytes.toHex().toUpper();
}

/// `bytes` up to the first zero byte as `codec` reads them, or as Latin-1 where some are no text of
/// that codec.
QString decoded(const QByteArray& bytes, const QTextCodec* codec);

/// The text that a device sends as digit pairs: it ends at its first zero byte, blanks at its end
/// are dropped, and bytes that are no UTF-8 are read as Latin-1. Empty when `pairs` are no digit
/// pairs.
QString toText(const QByteArray& pairs);

} // namespace hextext
