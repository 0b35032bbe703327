#include "serial/link/serialbusport.h"

#include <chrono>

SerialBusPort::SerialBusPort(const QString& name, QObject* parent)
    : BusPort(parent)
{
    m_port.setPortName(name);
    m_port.setBaudRate(QSerialPort::Baud9600);
    m_port.setDataBits(QSerialPort::Data8);
    m_port.setParity(QSerialPort::NoParity);
    m_port.setStopBits(QSerialPort::OneStop);
    m_port.setFlowControl(QSerialPort::NoFlowControl);
}

bool SerialBusPort::open()
{
    if (!m_port.open(QIODevice::ReadWrite)) {
        return false;
    }
    m_port.clear(QSerialPort::Input); // what came before the run
    connect(&m_port, &QSerialPort::readyRead, this, &SerialBusPort::readyRead);
    connect(&m_port, &QSerialPort::errorOccurred, this, [this] {
        if (isBroken()) {
            emit broken();
        }
    });
    return true;
}

void SerialBusPort::close()
{
    m_port.disconnect(this);
    if (m_port.isOpen()) {
        m_port.close();
    }
}

void SerialBusPort::write(const QByteArray& bytes)
{
    m_port.write(bytes);
    m_port.flush(); // else it would wait for the next turn of the event loop
}

void SerialBusPort::fetch()
{
    if (m_port.isOpen()) {
        m_port.waitForReadyRead(0);
    }
}

qint64 SerialBusPort::now() const
{
    const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::microseconds>(sinceStart).count();
}

bool SerialBusPort::isBroken() const
{
    const QSerialPort::SerialPortError error = m_port.error();
    return error != QSerialPort::NoError && error != QSerialPort::TimeoutError &&
           error != QSerialPort::UnsupportedOperationError;
}
