#include "serial/link/portidentity.h"

#include <QSerialPortInfo>

#include <algorithm>

bool isSamePort(const PortIdentity& known, const PortIdentity& seen)
{
    if (!known.isUsb()) {
        return known.name == seen.name;
    }
    return known.vendor == seen.vendor && known.product == seen.product &&
           known.serialNumber == seen.serialNumber;
}

PortIdentity identityOf(const QString& portName, const std::vector<PortIdentity>& ports)
{
    const auto found = std::find_if(ports.begin(), ports.end(), [&](const PortIdentity& port) {
        return port.name == portName;
    });
    return found == ports.end() ? PortIdentity{portName} : *found;
}

std::vector<PortIdentity> systemPortIdentities()
{
    std::vector<PortIdentity> ports;
    const QList<QSerialPortInfo> infos = QSerialPortInfo::availablePorts();
    for (const QSerialPortInfo& info : infos) {
        PortIdentity port{info.portName(), info.serialNumber()};
        if (info.hasVendorIdentifier() && info.hasProductIdentifier()) {
            port.vendor = info.vendorIdentifier();
            port.product = info.productIdentifier();
        }
        ports.push_back(port);
    }
    return ports;
}
