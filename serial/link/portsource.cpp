#include "serial/link/portsource.h"

#include "serial/link/serialbusport.h"

#include <QFileInfo>
#include <QSerialPortInfo>

PortSource PortSource::serialPorts()
{
    PortSource source;
    source.make = [](const QString& portName) {
        return std::make_unique<SerialBusPort>(portName);
    };
    return source;
}

bool PortSource::isSystemPort(const QString& portName)
{
    // By its path where it is no port of the system's list.
    return QFileInfo::exists(portName) || !QSerialPortInfo(portName).isNull();
}
