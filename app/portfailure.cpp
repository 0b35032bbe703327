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

} // namespace

QString portGroup(const QString& portName)
{
#ifdef Q_OS_UNIX
    // Where the port itself does not tell (it is gone, or root's own), the system's usual one.
    const QString usualGroup = QStringLiteral("dialout");
    const QFileInfo device(portName.startsWith(QLatin1Char('/'))
                               ? portName
                               : QSerialPortInfo(portName).systemLocation());
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
    const QString group = portGroup(failure.portName);
    if (failure.error == QSerialPort::PermissionError && !group.isEmpty()) {
        details.append(
            translated(QT_TRANSLATE_NOOP("PortFailure",
                                         "To use this port, you must be in the group \"%1\"; a new "
                                         "membership counts from the next login."))
                .arg(group));
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
