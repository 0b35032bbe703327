#include "simulator/board/answerencoder.h"

#include "serial/wire/hextext.h"

namespace answerencoder {

namespace {

constexpr unsigned kPresentBit = 1U << 0U;
constexpr unsigned kMemoryBit = 1U << 1U;
constexpr unsigned kNibbleBits = 4;
constexpr unsigned kByteBits = 8;
constexpr int kNameBytes = 16;
constexpr int kWordDigits = 4;

// Fields whose meaning the tool does not know; boards fill them with zero.
const QByteArray kThreeBytes("000000");
const QByteArray kOneByte("00");

QByteArray byte(unsigned value)
{
    return hextext::fromNumber(value & 0xFFU);
}

/// Low byte first.
QByteArray word(unsigned value)
{
    return hextext::fromNumber(((value & 0xFFU) << kByteBits) | ((value >> kByteBits) & 0xFFU),
                               kWordDigits);
}

} // namespace

quint8 phaseBits(FaultPhase phase)
{
    switch (phase) {
    case FaultPhase::Present:
        return kPresentBit;
    case FaultPhase::Memory:
        return kMemoryBit;
    case FaultPhase::Clear:
        break;
    }
    return 0;
}

quint8 nibbles(quint8 high, quint8 low)
{
    return static_cast<quint8>((static_cast<unsigned>(high) << kNibbleBits) | low);
}

QByteArray status(const LdbStatus& status)
{
    return byte(status.firstByte) + kThreeBytes + byte(status.secondByte) +
           byte(static_cast<unsigned>(status.state)) + byte(status.loopByte) +
           byte(status.loopNibbles) + byte(status.earthByte1) + byte(status.earthByte2) +
           byte(status.primaryPortShort) + byte(status.secondaryPortShort) +
           byte(status.amplifier) + word(status.primaryVoltage) + word(status.primaryAuxiliary) +
           word(status.secondaryVoltage) + word(status.secondaryAuxiliary) +
           word(status.primaryCurrent) + word(status.secondaryCurrent);
}

QByteArray settings(int address, const StoredSettings& settings)
{
    return byte(static_cast<unsigned>(address)) + kThreeBytes + byte(settings.flags) + kOneByte +
           byte(settings.audioMute ? 1 : 0) + word(settings.openDetectionDelay) +
           name(settings.name) + kOneByte + word(settings.numberOfFims);
}

QByteArray name(const QByteArray& name)
{
    return hextext::fromBytes(name.leftJustified(kNameBytes, '\0', true));
}

QByteArray firmware(const QByteArray& id)
{
    return hextext::fromBytes(id);
}

} // namespace answerencoder
