#include "app/notices/linknotices.h"

#include "app/notices/notices.h"
#include "serial/link/seriallink.h"

#include <QFileInfo>
#include <QSerialPort>
#include <QSerialPortInfo>
#include <QStringList>

#include <cerrno>
#include <utility>

namespace {

const QString kFailureBox = QStringLiteral("communicationErrorBox");

#ifdef Q_OS_UNIX
QFileInfo deviceOf(const QString& portName)
{
    return QFileInfo(portName.startsWith(QLatin1Char('/'))
                         ? portName
                         : QSerialPortInfo(portName).systemLocation());
}
#endif

/// What the port said, unless that tells nothing.
QString portSaid(const PortFailure& failure)
{
    if (failure.error == QSerialPort::NoError) {
        return failure.description; // of no port
    }
    const bool isEmpty =
        failure.description.isEmpty() || failure.description == QLatin1String("Unknown error");
    return isEmpty ? LinkNotices::tr("Port %1: no reason is known.").arg(failure.portName)
                   : LinkNotices::tr("Port %1: %2").arg(failure.portName, failure.description);
}

QString waitingText()
{
    return LinkNotices::tr(
        "The program waits for the port, and goes on by itself when it is back.");
}

QString reasonText(const PortFailure& failure, const PortDevice& device, bool isWaited)
{
    if (failure.portName.isEmpty()) {
        return LinkNotices::tr("No serial port is chosen. Choose one in the settings dialog: the "
                               "button with the gear, at the top left.");
    }
    switch (portTrouble(failure, device)) {
    case PortTrouble::NotThere:
        return LinkNotices::tr(
                   "There is no port %1. Plug the adapter in, or choose another port in "
                   "the settings dialog.")
            .arg(failure.portName);
    case PortTrouble::Unplugged:
        if (isWaited) {
            return LinkNotices::tr("Port %1 is gone: the adapter was unplugged. Plug it in.")
                       .arg(failure.portName) +
                   QLatin1Char('\n') + waitingText();
        }
        return LinkNotices::tr("Port %1 is gone: the adapter was unplugged. Plug it in and start "
                               "again.")
            .arg(failure.portName);
    case PortTrouble::BrokenOff:
        if (isWaited) {
            return LinkNotices::tr("The connection to port %1 broke off. Check the adapter and its "
                                   "cable.")
                       .arg(failure.portName) +
                   QLatin1Char('\n') + waitingText();
        }
        return LinkNotices::tr("The connection to port %1 broke off. Check the adapter and its "
                               "cable, and start again.")
            .arg(failure.portName);
    case PortTrouble::InUse:
        return portSaid(failure) + QLatin1Char('\n') +
               LinkNotices::tr("Another program is using this port.");
    case PortTrouble::NoPermission:
        if (!device.group.isEmpty()) {
            return portSaid(failure) + QLatin1Char('\n') +
                   LinkNotices::tr("To use this port, you must be in the group \"%1\"; a new "
                                   "membership counts from the next login.")
                       .arg(device.group);
        }
        break;
    case PortTrouble::Other:
        break;
    }
    return isWaited ? portSaid(failure) + QLatin1Char('\n') + waitingText() : portSaid(failure);
}

BoxText lossText(const QStringList& hexIds)
{
    QStringList lines;
    for (const QString& hexId : hexIds) {
        lines.append(LinkNotices::tr("The LDB with ID: %1 is disconnected!").arg(hexId));
    }
    return {LinkNotices::tr("Error"), lines.join(QLatin1Char('\n'))};
}

} // namespace

PortDevice portDevice(const QString& portName)
{
#ifdef Q_OS_UNIX
    // Where the port itself does not tell (it is gone, or root's own), the system's usual one.
    const QString usualGroup = QStringLiteral("dialout");
    const QFileInfo file = deviceOf(portName);
    const QString group = file.exists() ? file.group() : QString();
    return {file.exists(), file.isReadable() && file.isWritable(),
            group.isEmpty() || group == QLatin1String("root") ? usualGroup : group};
#else
    return {!QSerialPortInfo(portName).isNull(), true, {}};
#endif
}

PortTrouble portTrouble(const PortFailure& failure, const PortDevice& device)
{
    switch (failure.error) {
    case QSerialPort::NoError:
        return PortTrouble::Other;
    case QSerialPort::DeviceNotFoundError:
        return PortTrouble::NotThere;
    case QSerialPort::PermissionError:
        // The system words a port in use like a missing right. It refuses it to those who have the
        // right only while somebody else uses it.
        return device.mayBeUsed || failure.description.contains(qt_error_string(EBUSY))
                   ? PortTrouble::InUse
                   : PortTrouble::NoPermission;
    case QSerialPort::ResourceError:
        return device.isThere ? PortTrouble::BrokenOff : PortTrouble::Unplugged;
    default:
        // Some adapters leave with an error that says nothing.
        return device.isThere ? PortTrouble::Other : PortTrouble::Unplugged;
    }
}

BoxText portFailureText(const PortFailure& failure, const PortDevice& device, bool isWaited)
{
    return {LinkNotices::tr("Error"),
            LinkNotices::tr(
                "Cannot establish the serial communication, check the serial port settings!"),
            reasonText(failure, device, isWaited)};
}

LinkNotices::LinkNotices(Notices* notices, QObject* parent)
    : QObject(parent)
    , m_notices(notices)
{
}

void LinkNotices::follow(const SerialLink* link)
{
    m_link = link;
    connect(link, &SerialLink::ldbDisconnected, this, [this](const QString& hexId) {
        if (m_holdsLosses) {
            m_heldLosses.append(hexId);
        } else {
            tellLoss(hexId, m_link->nameOf(hexId));
        }
    });
    connect(link, &SerialLink::portFailed, this,
            [this](const QString& portName, int error, const QString& description) {
                m_isTry = m_isWaiting;
                m_failure = {portName, error, description};
                m_device = portDevice(portName);
            });
    connect(link, &SerialLink::communicationFailed, this, &LinkNotices::tellFailure);
}

void LinkNotices::tellFailure()
{
    if (!m_isTry) {
        showFailure();
    }
}

void LinkNotices::showFailure()
{
    const auto texts = [failure = m_failure, device = m_device, isWaited = m_isWaiting] {
        return portFailureText(failure, device, isWaited);
    };
    m_notices->box(QMessageBox::Critical, texts, kFailureBox,
                   m_isWaiting ? Qt::NonModal : Qt::WindowModal);
}

void LinkNotices::setWaiting(bool isWaiting)
{
    m_isWaiting = isWaiting;
    if (isWaiting) {
        return;
    }
    if (m_link->isRunning()) {
        m_notices->closeBox(kFailureBox);
    } else if (m_notices->isOpen(kFailureBox)) {
        showFailure(); // it says that the program waits
    }
}

void LinkNotices::holdLosses(bool isHeld)
{
    m_holdsLosses = isHeld;
    if (isHeld) {
        return;
    }
    for (const QString& hexId : std::exchange(m_heldLosses, {})) {
        if (m_link->isRunning() && m_link->knownLdbs().contains(hexId) &&
            !m_link->isConnected(hexId)) {
            tellLoss(hexId, m_link->nameOf(hexId));
        }
    }
}

void LinkNotices::tellLoss(const QString& hexId, const QString& name)
{
    const QString boxName = QStringLiteral("lossBox");
    const QString ldb = name.simplified().isEmpty()
                            ? hexId
                            : QStringLiteral("%1 (%2)").arg(hexId, name.simplified());
    if (!m_notices->isOpen(boxName)) {
        m_lostLdbs.clear();
    }
    // An LDB that comes and goes while the user is away must not fill the box with itself.
    if (!m_lostLdbs.contains(ldb)) {
        m_lostLdbs.append(ldb);
    }
    m_notices->box(
        QMessageBox::Critical, [lost = m_lostLdbs] { return lossText(lost); }, boxName);
}
