#include "serial/busport.h"

BusPort::BusPort(const QString& name, QObject* parent)
    : QObject(parent)
    , m_name(name)
{
    m_port.setPortName(name);
    m_port.setBaudRate(QSerialPort::Baud9600);
    m_port.setDataBits(QSerialPort::Data8);
    m_port.setParity(QSerialPort::NoParity);
    m_port.setStopBits(QSerialPort::OneStop);
    m_port.setFlowControl(QSerialPort::NoFlowControl);
}

bool BusPort::open()
{
    if (!m_port.open(QIODevice::ReadWrite)) {
        return false;
    }
    m_port.clear(QSerialPort::Input); // what came before the run
    connect(&m_port, &QSerialPort::readyRead, this, &BusPort::readyRead);
    connect(&m_port, &QSerialPort::errorOccurred, this, [this] {
        if (isBroken()) {
            emit broken();
        }
    });
    return true;
}

void BusPort::close()
{
    m_port.disconnect(this);
    if (m_port.isOpen()) {
        m_port.close();
    }
}

void BusPort::write(const QByteArray& frame)
{
    m_port.write(frame);
    m_port.flush(); // else it would wait for the next turn of the event loop
}

void BusPort::fetch()
{
    if (m_port.isOpen()) {
        m_port.waitForReadyRead(0);
    }
}

bool BusPort::isBroken() const
{
    switch (m_port.error()) {
    case QSerialPort::NoError:
    case QSerialPort::TimeoutError:
    case QSerialPort::UnsupportedOperationError:
        return false;
    default:
        return true;
    }
}
