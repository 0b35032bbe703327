#pragma once

#include "serial/link/busport.h"

#include <QDateTime>
#include <QSerialPort>

/// A serial port as the bus wants it: 9600 baud, 8 data bits, no parity, 1 stop bit, no flow
/// control. Errors that say nothing about the line (some calls are not supported on some ports)
/// stay inside.
class SerialBusPort : public BusPort
{
    Q_OBJECT
public:
    explicit SerialBusPort(const QString& name, QObject* parent = nullptr);

    bool open() override;
    /// To be called at once when the port is broken: an adapter that was pulled out reports its
    /// error again and again until then.
    void close() override;
    bool isOpen() const override { return m_port.isOpen(); }
    void write(const QByteArray& bytes) override;
    QByteArray readAll() override { return m_port.readAll(); }
    void fetch() override;
    qint64 now() const override;
    qint64 wallTime() const override { return QDateTime::currentMSecsSinceEpoch(); }
    int error() const override { return m_port.error(); }
    QString errorText() const override { return m_port.errorString(); }

private:
    bool isBroken() const;

    QSerialPort m_port;
};
