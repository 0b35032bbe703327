#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// One request of the bus master, as a board reads it out of a frame's body.
struct BusRequest
{
    enum class Kind
    {
        Poll,
        Read,
        Change,
        Execute,
        Unknown ///< addressed well, but asks for nothing that a board knows
    };

    int address = 0; ///< 1 to 253, or `kBroadcastAddress`
    Kind kind = Kind::Unknown;
    int index = 0;   ///< of the parameter or action; none for a poll
    QByteArray data; ///< digits behind the index

    bool isBroadcast() const { return address == kBroadcastAddress; }

    static constexpr int kBroadcastAddress = 0xFF;
};

/// Reads a body whose check digits have been found right and are gone. Nothing when it is not from
/// the master or names no address: no board answers that.
std::optional<BusRequest> parseBusRequest(const QByteArray& body);

/// What is asked, for people: "status", "change 14 = 13", ...
QString describe(const BusRequest& request);
