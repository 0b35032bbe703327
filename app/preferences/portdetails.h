#pragma once

#include <QStringList>

#include <optional>

/// What the system tells of one serial port.
struct PortDetails
{
    QString name;
    QString description;
    QString manufacturer;
    QString serialNumber;
    QString systemLocation;
    /// USB identifiers; a port on the board has none.
    std::optional<quint16> vendorIdentifier = std::nullopt;
    std::optional<quint16> productIdentifier = std::nullopt;
};

/// The ports that the system has now, in its own order.
QList<PortDetails> systemPorts();

/// The ports in the order of their numbers: COM2 before COM10, ttyUSB0 before ttyUSB1. Names that
/// differ before the number stand together, in alphabetical order.
QList<PortDetails> orderedByNumber(QList<PortDetails> ports);

/// Description, manufacturer, serial number, system location, vendor and product identifier. The
/// identifiers in lower-case hexadecimal without padding, empty when there is none.
QStringList portInfoTexts(const PortDetails& port);
