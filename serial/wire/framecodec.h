#pragma once

#include <QByteArray>

/// The byte layout of the bus: SOH, body, two check digits, EOT; or a single ACK or NAK.
/// Pure functions over buffers that the caller owns, callable from any thread.
namespace framecodec {

constexpr char kSoh = '\x01'; ///< first byte of every frame
constexpr char kEot = '\x04'; ///< last byte of every frame
constexpr char kAck = '\x06'; ///< a whole answer: accepted
constexpr char kNak = '\x15'; ///< a whole answer: refused

/// Bytes without a terminator that are collected at most: twice what the check digits can count.
constexpr int kMaxCollected = 1 << 17;

/// Whether `byte` ends an answer: EOT, ACK or NAK.
constexpr bool isTerminator(char byte)
{
    return byte == kEot || byte == kAck || byte == kNak;
}

/// The CRC-8 that guards a body. The boards' firmware keeps the old register in every step, so
/// this is not the textbook CRC-8/MAXIM. No bytes give 0xFF.
quint8 crc8(const quint8* bytes, quint16 length);

/// The whole frame for the body `data`.
QByteArray createCommand(QByteArray data);

/// Re-assembles one answer out of batches read from the port. `totalData` persists between the
/// calls for one answer; true once it holds a complete answer, whose validity is still open.
/// A new SOH discards what was collected; bytes of the batch after the terminator are dropped.
/// So is everything collected when it exceeds `kMaxCollected`: a device that sends without end must
/// not fill the memory.
bool processReceivedData(QByteArray& receivedData, QByteArray& totalData);

/// Whether `responseData` is a good answer. On success a framed answer is reduced to its body and
/// a bare ACK stays as it is; on failure the content must not be used. A NAK is no good answer.
bool responseValidation(QByteArray& responseData);

} // namespace framecodec
