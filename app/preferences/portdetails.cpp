#include "app/preferences/portdetails.h"

#include <QSerialPortInfo>

#include <algorithm>
#include <tuple>

namespace {

constexpr int kHexadecimal = 16;

QString identifierText(std::optional<quint16> identifier)
{
    return identifier ? QString::number(*identifier, kHexadecimal) : QString();
}

/// What precedes the number at the end of a port's name, and the number (0 when there is none).
std::pair<QString, qulonglong> splitName(const QString& name)
{
    int prefixLength = name.size();
    while (prefixLength > 0 && name.at(prefixLength - 1).isDigit()) {
        --prefixLength;
    }
    return {name.left(prefixLength), name.midRef(prefixLength).toULongLong()};
}

bool isBefore(const PortDetails& left, const PortDetails& right)
{
    return std::make_tuple(splitName(left.name), left.name) <
           std::make_tuple(splitName(right.name), right.name);
}

} // namespace

QList<PortDetails> systemPorts()
{
    QList<PortDetails> ports;
    const QList<QSerialPortInfo> infos = QSerialPortInfo::availablePorts();
    for (const QSerialPortInfo& info : infos) {
        PortDetails port{info.portName(), info.description(), info.manufacturer(),
                         info.serialNumber(), info.systemLocation()};
        if (info.hasVendorIdentifier()) {
            port.vendorIdentifier = info.vendorIdentifier();
        }
        if (info.hasProductIdentifier()) {
            port.productIdentifier = info.productIdentifier();
        }
        ports.append(port);
    }
    return ports;
}

QList<PortDetails> orderedByNumber(QList<PortDetails> ports)
{
    std::sort(ports.begin(), ports.end(), isBefore);
    return ports;
}

QStringList portInfoTexts(const PortDetails& port)
{
    return {port.description,
            port.manufacturer,
            port.serialNumber,
            port.systemLocation,
            identifierText(port.vendorIdentifier),
            identifierText(port.productIdentifier)};
}
