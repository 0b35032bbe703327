#include "app/notices/linknotices.h"

#include "app/notices/notices.h"
#include "serial/link/seriallink.h"

#include <QFileInfo>
#include <QSerialPort>
#include <QSerialPortInfo>
#include <QStringList>

namespace {

#ifdef Q_OS_UNIX
QFileInfo deviceOf(const QString& portName)
{
    return QFileInfo(portName.startsWith(QLatin1Char('/'))
                         ? portName
                         : QSerialPortInfo(portName).systemLocation());
}
#endif

/// Whether the system lets the user use the port: it then refuses it while somebody else does.
bool mayUsePort(const QString& portName)
{
#ifdef Q_OS_UNIX
    const QFileInfo device = deviceOf(portName);
    return device.isReadable() && device.isWritable();
#else
    Q_UNUSED(portName)
    return true;
#endif
}

/// What to do about a port that the system refuses; may be empty.
QString refusalHint(const QString& portName)
{
    if (mayUsePort(portName)) {
        return LinkNotices::tr("Another program is using this port.");
    }
    const QString group = portGroup(portName);
    if (group.isEmpty()) {
        return {};
    }
    return LinkNotices::tr("To use this port, you must be in the group \"%1\"; a new "
                           "membership counts from the next login.")
        .arg(group);
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

QString portGroup(const QString& portName)
{
#ifdef Q_OS_UNIX
    // Where the port itself does not tell (it is gone, or root's own), the system's usual one.
    const QString usualGroup = QStringLiteral("dialout");
    const QFileInfo device = deviceOf(portName);
    const QString group = device.exists() ? device.group() : QString();
    return group.isEmpty() || group == QLatin1String("root") ? usualGroup : group;
#else
    Q_UNUSED(portName)
    return {};
#endif
}

BoxText portFailureText(const PortFailure& failure)
{
    BoxText text;
    text.title = LinkNotices::tr("Error");
    text.text = LinkNotices::tr(
        "Cannot establish the serial communication, check the serial port settings!");
    QStringList details;
    if (!failure.description.isEmpty()) {
        details.append(LinkNotices::tr("Port %1: %2").arg(failure.portName, failure.description));
    }
    const QString hint =
        failure.error == QSerialPort::PermissionError ? refusalHint(failure.portName) : QString();
    if (!hint.isEmpty()) {
        details.append(hint);
    }
    text.details = details.join(QLatin1Char('\n'));
    return text;
}

LinkNotices::LinkNotices(Notices* notices, QObject* parent)
    : QObject(parent)
    , m_notices(notices)
{
}

void LinkNotices::follow(const SerialLink* link)
{
    connect(link, &SerialLink::ldbDisconnected, this,
            [this, link](const QString& hexId) { tellLoss(hexId, link->nameOf(hexId)); });
    connect(link, &SerialLink::portFailed, this,
            [this](const QString& portName, int error, const QString& description) {
                m_failure = {portName, error, description};
            });
    connect(link, &SerialLink::communicationFailed, this, [this] {
        m_notices->box(
            QMessageBox::Critical, [failure = m_failure] { return portFailureText(failure); },
            QStringLiteral("communicationErrorBox"));
    });
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
