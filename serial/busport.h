#pragma once

#include <QByteArray>
#include <QObject>
#include <QSerialPort>
#include <QString>

/// The serial port as the bus needs it: 9600 baud, 8 data bits, no parity, 1 stop bit, no flow
/// control. Made, used and deleted in the worker thread. Errors that say nothing about the link
/// (some calls are not supported on some ports) stay inside.
class BusPort : public QObject
{
    Q_OBJECT
public:
    explicit BusPort(const QString& name, QObject* parent = nullptr);

    /// False when the port cannot be had; `error()` and `errorText()` say why.
    bool open();
    /// Closed at once when it fails: an adapter that was pulled out reports its error again and
    /// again until it is.
    void close();

    /// Hands the frame to the system at once.
    void write(const QByteArray& frame);
    QByteArray readAll() { return m_port.readAll(); }
    /// Looks at once for bytes that the system has not handed over yet; they come by `readyRead`.
    void fetch();
    bool isOpen() const { return m_port.isOpen(); }

    /// The link itself is broken.
    bool isBroken() const;
    QSerialPort::SerialPortError error() const { return m_port.error(); }
    QString errorText() const { return m_port.errorString(); }
    QString name() const { return m_name; }

signals:
    void readyRead();
    void broken();

private:
    QString m_name;
    QSerialPort m_port;
};
