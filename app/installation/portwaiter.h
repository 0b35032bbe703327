#pragma once

#include "app/installation/portwatch.h"
#include "serial/link/portsource.h"

#include <QObject>
#include <QTimer>

class SerialLink;

/// Waits for a port that died in a run, and says when to try it. A run that begins in any other way
/// ends the waiting. Knows no widgets. GUI thread.
class PortWaiter : public QObject
{
    Q_OBJECT
public:
    /// `link` outlives this object.
    PortWaiter(SerialLink* link, const PortSource& ports, QObject* parent = nullptr);

    bool isWaiting() const { return m_timer.isActive(); }
    bool isLongAway() const { return m_watch.isLongAway(m_wallTime()); }
    /// The port of that name, as the system knows it now.
    PortIdentity identity(const QString& portName) const;
    /// The name of the port that is waited for.
    QString portName() const { return m_watch.lost().name; }

    /// The user has chosen the port to try.
    void take(const QString& portName);
    /// The user does not want to wait any more.
    void end();

signals:
    void waitingChanged(bool isWaiting);
    /// The port is there and has to be tried at once.
    void found(const PortIdentity& port);
    /// Any of these ports may be it.
    void severalFound(const QStringList& names);
    /// The port is open again; comes after `waitingChanged(false)`.
    void back();

private:
    void processStart();
    void processFailure(const QString& portName);
    void processOpen();
    void look();

    SerialLink* m_link;
    const std::function<std::vector<PortIdentity>()> m_list;
    const std::function<bool(const QString&)> m_isThere;
    const std::function<qint64()> m_wallTime;
    QTimer m_timer;
    PortWatch m_watch;
    std::vector<PortIdentity> m_before; ///< the ports at the start of the run
    bool m_isTrying = false;            ///< the run is a try
    bool m_isOpen = false;              ///< the port, in this run
};
