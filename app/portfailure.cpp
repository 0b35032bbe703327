#include "app/portfailure.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSerialPort>
#include <QSerialPortInfo>
#include <QStringList>

namespace {

QString translated(const char* text)
{
    return QCoreApplication::translate("PortFailure", text);
}

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
        return translated(QT_TRANSLATE_NOOP("PortFailure", "Another program is using this port."));
    }
    const QString group = portGroup(portName);
    if (group.isEmpty()) {
        return {};
    }
    return translated(QT_TRANSLATE_NOOP("PortFailure",
                                        "To use this port, you must be in the group \"%1\"; a new "
                                        "membership counts from the next login."))
        .arg(group);
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
    text.title = translated(QT_TRANSLATE_NOOP("PortFailure", "Error"));
    text.text = translated(QT_TRANSLATE_NOOP(
        "PortFailure",
        "Cannot establish the serial communication, check the serial port settings!"));
    QStringList details;
    if (!failure.description.isEmpty()) {
        details.append(translated(QT_TRANSLATE_NOOP("PortFailure", "Port %1: %2"))
                           .arg(failure.portName, failure.description));
    }
    const QString hint =
        failure.error == QSerialPort::PermissionError ? refusalHint(failure.portName) : QString();
    if (!hint.isEmpty()) {
        details.append(hint);
    }
    text.details = details.join(QLatin1Char('\n'));
    return text;
}

void PortFailureReporter::report()
{
    if (m_box == nullptr) {
        m_box = new MessageBox(
            QMessageBox::Critical, [this] { return portFailureText(m_failure); }, m_window);
        m_box->setObjectName(QStringLiteral("communicationErrorBox"));
    }
    m_box->refresh();
    m_box->open();
}
