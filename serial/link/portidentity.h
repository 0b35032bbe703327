#pragma once

#include <QString>

#include <optional>
#include <vector>

/// What tells one port from another. A plain value.
struct PortIdentity
{
    QString name;
    /// Of the USB adapter; empty where it has none.
    QString serialNumber = {};
    /// Of the USB adapter; a port on the board and a pseudo-terminal have none.
    std::optional<quint16> vendor = std::nullopt;
    std::optional<quint16> product = std::nullopt;

    bool isUsb() const { return vendor && product; }
};

/// Whether `seen` may be the port `known`, whatever its name is now: a USB adapter by its serial
/// number, one without by vendor and product, anything else by its name. Pure.
bool isSamePort(const PortIdentity& known, const PortIdentity& seen);

/// The port of that name among `ports`; one that is not there has its name alone. Pure.
PortIdentity identityOf(const QString& portName, const std::vector<PortIdentity>& ports);

/// The system's serial ports. GUI thread; takes some ms.
std::vector<PortIdentity> systemPortIdentities();
