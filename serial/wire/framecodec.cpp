#include "serial/wire/framecodec.h"

#include "serial/wire/hextext.h"

#include <array>

namespace framecodec {

namespace {

constexpr int kCheckDigits = 2;
constexpr int kShortestContent = 1 + kCheckDigits;

constexpr std::array<quint8, 256> makeCrcTable()
{
    constexpr unsigned kReflectedPolynomial = 0x8C; // 0x31, bit-reversed
    std::array<quint8, 256> table{};
    for (unsigned i = 0; i < table.size(); ++i) {
        unsigned value = i;
        for (int bit = 0; bit < 8; ++bit) {
            const bool dropsOne = (value & 1U) != 0;
            value >>= 1U;
            if (dropsOne) {
                value ^= kReflectedPolynomial;
            }
        }
        table[i] = static_cast<quint8>(value);
    }
    return table;
}

constexpr std::array<quint8, 256> kCrcTable = makeCrcTable();

/// The check digits of a body. The firmware handles bodies as C strings with a 16-bit length.
QByteArray checkDigits(const QByteArray& body)
{
    const auto length = static_cast<quint16>(qstrlen(body.constData()));
    return hextext::fromNumber(crc8(reinterpret_cast<const quint8*>(body.constData()), length));
}

} // namespace

quint8 crc8(const quint8* bytes, quint16 length)
{
    quint8 crc = 0xFF;
    for (quint16 i = 0; i < length; ++i) {
        crc = static_cast<quint8>(crc ^ kCrcTable[static_cast<quint8>(crc ^ bytes[i])]);
    }
    return crc;
}

QByteArray createCommand(QByteArray data)
{
    data.append(checkDigits(data));
    data.prepend(kSoh);
    data.append(kEot);
    return data;
}

bool processReceivedData(QByteArray& receivedData, QByteArray& totalData)
{
    const int lastStart = receivedData.lastIndexOf(kSoh);
    if (lastStart >= 0) {
        totalData.clear();
        receivedData.remove(0, lastStart);
    }
    for (int i = 0; i < receivedData.size(); ++i) {
        if (isTerminator(receivedData.at(i))) {
            totalData.append(receivedData.constData(), i + 1);
            return true;
        }
    }
    totalData.append(receivedData);
    if (totalData.size() > kMaxCollected) {
        totalData.clear();
    }
    return false;
}

bool responseValidation(QByteArray& responseData)
{
    if (responseData.isEmpty()) {
        return false;
    }
    if (!(responseData.startsWith(kSoh) && responseData.endsWith(kEot))) {
        return responseData.startsWith(kAck);
    }
    responseData.remove(0, 1);
    responseData.chop(1);
    if (responseData.size() < kShortestContent) {
        return false;
    }
    const QByteArray received = responseData.right(kCheckDigits);
    responseData.chop(kCheckDigits);
    return received == checkDigits(responseData);
}

} // namespace framecodec
