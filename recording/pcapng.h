#pragma once

#include <QByteArray>
#include <QtGlobal>

/// The blocks of a capture file as Wireshark reads it, for a serial line. Pure functions.
namespace pcapng {

/// The numbers are those of the link type.
enum class Event : quint8
{
    Sent = 1,
    Received = 2,
    Lost = 5 ///< something is missing in the capture here
};

struct Packet
{
    qint64 at = 0; ///< UTC, µs since 1970
    Event event = Event::Sent;
    QByteArray bytes;
};

/// What a file begins with.
QByteArray header();
QByteArray block(const Packet& packet);

} // namespace pcapng
