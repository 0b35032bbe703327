#include "serial/link/portsource.h"

#include "serial/link/serialbusport.h"

PortSource PortSource::serialPorts()
{
    return {[](const QString& portName) { return std::make_unique<SerialBusPort>(portName); },
            Thread::Worker, QDateTime::currentMSecsSinceEpoch};
}
