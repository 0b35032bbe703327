#include "simulator/line/damage.h"

#include "serial/wire/framecodec.h"

namespace damage {

namespace {

constexpr int kBitsPerByte = 8;

/// Whether the master would take the bytes, or a part of them, for a good answer.
bool passesCheck(QByteArray bytes)
{
    QByteArray answer;
    return framecodec::processReceivedData(bytes, answer) && framecodec::responseValidation(answer);
}

} // namespace

QByteArray flipped(const QByteArray& bytes, Chance& chance)
{
    if (bytes.isEmpty()) {
        return bytes;
    }
    QByteArray result = bytes;
    const auto bit = static_cast<int>(chance.between(0, qint64{kBitsPerByte} * bytes.size() - 1));
    char* byte = result.data() + bit / kBitsPerByte;
    *byte = static_cast<char>(*byte ^ (1 << (bit % kBitsPerByte)));
    return result;
}

QByteArray garbled(const QByteArray& bytes, Chance& chance)
{
    QByteArray result = bytes;
    do {
        result = flipped(result, chance);
    } while (!result.isEmpty() && passesCheck(result));
    return result;
}

char merged(char one, char other, Chance& chance)
{
    constexpr quint64 kByte = 0xFF;
    return static_cast<char>((one & other) ^ static_cast<int>(chance.next() & kByte));
}

bool isSound(const QByteArray& frame)
{
    QByteArray body = frame;
    return frame.startsWith(framecodec::kSoh) && frame.endsWith(framecodec::kEot) &&
           framecodec::responseValidation(body);
}

} // namespace damage
