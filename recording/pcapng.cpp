#include "recording/pcapng.h"

#include <QtEndian>

namespace pcapng {

namespace {

constexpr quint32 kSectionHeader = 0x0A0D0D0A;
constexpr quint32 kInterfaceDescription = 1;
constexpr quint32 kEnhancedPacket = 6;
constexpr quint32 kByteOrder = 0x1A2B3C4D;
constexpr quint16 kRtacSerial = 250;
constexpr qint64 kMicrosecondsPerSecond = 1000000;
constexpr int kWord = 4;

/// In the byte order that the section header tells.
template <typename Number>
void put(QByteArray& bytes, Number number)
{
    char raw[sizeof(Number)];
    qToLittleEndian(number, raw);
    bytes.append(raw, sizeof(Number));
}

template <typename Number>
void putBigEndian(QByteArray& bytes, Number number)
{
    char raw[sizeof(Number)];
    qToBigEndian(number, raw);
    bytes.append(raw, sizeof(Number));
}

/// A block: type and length, the body filled up to a word, and the length again.
QByteArray framed(quint32 type, QByteArray body)
{
    body.append((kWord - body.size() % kWord) % kWord, '\0');
    const auto length = static_cast<quint32>(body.size() + 3 * kWord);
    QByteArray bytes;
    put(bytes, type);
    put(bytes, length);
    bytes += body;
    put(bytes, length);
    return bytes;
}

} // namespace

QByteArray header()
{
    QByteArray section;
    put(section, kByteOrder);
    put<quint16>(section, 1); // version 1.0
    put<quint16>(section, 0);
    put<qint64>(section, -1); // length not told
    QByteArray line;
    put(line, kRtacSerial);
    put<quint16>(line, 0);
    put<quint32>(line, 0); // no limit to a packet
    return framed(kSectionHeader, section) + framed(kInterfaceDescription, line);
}

QByteArray block(const Packet& packet)
{
    QByteArray data;
    putBigEndian(data, static_cast<quint32>(packet.at / kMicrosecondsPerSecond));
    putBigEndian(data, static_cast<quint32>(packet.at % kMicrosecondsPerSecond));
    data.append(static_cast<char>(packet.event));
    data.append(3, '\0'); // the lines' state, which nobody knows, and what is reserved
    data += packet.bytes;
    QByteArray body;
    put<quint32>(body, 0); // the interface
    put(body, static_cast<quint32>(static_cast<quint64>(packet.at) >> 32U));
    put(body, static_cast<quint32>(packet.at));
    put(body, static_cast<quint32>(data.size()));
    put(body, static_cast<quint32>(data.size()));
    return framed(kEnhancedPacket, body + data);
}

} // namespace pcapng
