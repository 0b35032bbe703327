#pragma once

#include "serial/link/portidentity.h"

#include <QDateTime>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

class BusPort;

/// Where a link gets its ports from, and which thread works with them.
struct PortSource
{
    /// Makes the port of a name, not open yet. Called in the thread that works with it, once a run.
    using Make = std::function<std::unique_ptr<BusPort>(const QString& portName)>;
    enum class Thread
    {
        Worker, ///< one that the link starts for each run
        OfLink  ///< for ports that never wait and cost little: nothing passes between threads
    };

    Make make;
    Thread thread = Thread::Worker;
    /// The clock of those ports, for whoever compares times with those of the records: ms since
    /// 1970 UTC. Any thread.
    std::function<qint64()> wallTime = QDateTime::currentMSecsSinceEpoch;
    /// The ports that there are now, with what tells them apart. GUI thread.
    std::function<std::vector<PortIdentity>()> list = systemPortIdentities;
    /// Whether there is a port of that name, listed or not (pseudo-terminals are not): it may be
    /// tried. GUI thread.
    std::function<bool(const QString& portName)> isThere = isSystemPort;

    /// The system's serial ports.
    static PortSource serialPorts();

private:
    static bool isSystemPort(const QString& portName);
};
