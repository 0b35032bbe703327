#include "serial/wire/hextext.h"

#include <QString>
#include <QTextCodec>

#include <algorithm>

namespace hextext {

namespace {

constexpr int kBase = 16;
constexpr int kMaxDigits = 8;

bool isHexDigit(char c)
{
    return isUpperDigit(c) || (c >= 'a' && c <= 'f');
}

} // namespace

QByteArray fromNumber(uint number, int width)
{
    return QByteArray::number(number, kBase).toUpper().rightJustified(width, '0');
}

std::optional<quint32> toNumber(const QByteArray& text, int position, int length)
{
    if (position < 0 || length < 1 || length > kMaxDigits || position + length > text.size()) {
        return std::nullopt;
    }
    // QByteArray's own conversion would let signs, blanks and "0x" through.
    const QByteArray digits = text.mid(position, length);
    if (!std::all_of(digits.begin(), digits.end(), isHexDigit)) {
        return std::nullopt;
    }
    return digits.toUInt(nullptr, kBase);
}

std::optional<quint16> toSwappedWord(const QByteArray& text, int position)
{
    const std::optional<quint32> number = toNumber(text, position, 4);
    if (!number) {
        return std::nullopt;
    }
    return static_cast<quint16>(((*number & 0xFFU) << 8U) | (*number >> 8U));
}

bool isHexPairs(const QByteArray& text)
{
    return !text.isEmpty() && text.size() % 2 == 0 &&
           std::all_of(text.begin(), text.end(), isHexDigit);
}

QString decoded(const QByteArray& bytes, const QTextCodec* codec)
{
    const auto length =
        static_cast<int>(qstrnlen(bytes.constData(), static_cast<uint>(bytes.size())));
    QTextCodec::ConverterState state;
    const QString text = codec->toUnicode(bytes.constData(), length, &state);
    const bool isText = state.invalidChars == 0 && state.remainingChars == 0;
    return isText ? text : QString::fromLatin1(bytes.constData(), length);
}

QString toText(const QByteArray& pairs)
{
    if (!isHexPairs(pairs)) {
        return {};
    }
    // A shorter name may have left its predecessor's bytes after its end.
    QString text = decoded(QByteArray::fromHex(pairs), QTextCodec::codecForName("UTF-8"));
    while (text.endsWith(QLatin1Char(' '))) {
        text.chop(1);
    }
    return text;
}

} // namespace hextext
