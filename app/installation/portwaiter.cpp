#include "app/installation/portwaiter.h"

#include "serial/link/seriallink.h"

namespace {

constexpr int kLookEvery = 1000; // ms

} // namespace

PortWaiter::PortWaiter(SerialLink* link, const PortSource& ports, QObject* parent)
    : QObject(parent)
    , m_link(link)
    , m_list(ports.list)
    , m_isThere(ports.isThere)
    , m_wallTime(ports.wallTime)
{
    connect(link, &SerialLink::started, this, &PortWaiter::processStart);
    connect(link, &SerialLink::opened, this, &PortWaiter::processOpen);
    connect(link, &SerialLink::portFailed, this, &PortWaiter::processFailure);
    connect(link, &SerialLink::stopped, this, [this] { m_isOpen = false; });
    connect(&m_timer, &QTimer::timeout, this, &PortWaiter::look);
}

PortIdentity PortWaiter::identity(const QString& portName) const
{
    return identityOf(portName, m_list());
}

void PortWaiter::take(const QString& portName)
{
    if (isWaiting() && !m_link->isRunning()) {
        m_isTrying = true;
        emit found(identity(portName));
    }
}

void PortWaiter::end()
{
    if (isWaiting()) {
        m_timer.stop();
        emit waitingChanged(false);
    }
}

void PortWaiter::processStart()
{
    m_isOpen = false;
    if (!m_isTrying) {
        end();
    }
    m_before = m_list();
}

void PortWaiter::processOpen()
{
    m_isOpen = true;
    m_isTrying = false;
    if (isWaiting()) {
        end();
        emit back();
    }
}

void PortWaiter::processFailure(const QString& portName)
{
    m_isTrying = false;
    if (m_isOpen) {
        m_isOpen = false;
        m_watch = PortWatch(identityOf(portName, m_before), m_before, m_wallTime());
        m_timer.start(kLookEvery);
        emit waitingChanged(true);
    } else if (isWaiting()) {
        m_watch.processFailure(m_wallTime());
    }
}

void PortWaiter::look()
{
    if (m_link->isRunning()) {
        return; // a try is on
    }
    const PortWatch::Verdict verdict =
        m_watch.look(m_list(), m_isThere(m_watch.lost().name), m_wallTime());
    switch (verdict.kind) {
    case PortWatch::Verdict::Kind::Wait:
        break;
    case PortWatch::Verdict::Kind::Try:
        take(verdict.names.constFirst());
        break;
    case PortWatch::Verdict::Kind::Ask:
        emit severalFound(verdict.names);
        break;
    }
}
