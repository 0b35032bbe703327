#include "serial/portsource.h"

#include "serial/serialbusport.h"

PortSource PortSource::serialPorts()
{
    return {[](const QString& portName) { return std::make_unique<SerialBusPort>(portName); },
            Thread::Worker};
}
