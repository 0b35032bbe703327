#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

/// What the processor needs of the line to the bus: bytes in both directions, word of its end, and
/// the time at which they come. A serial port is one; recorded data, or a line that is there in
/// virtual time, are others. Made, used and deleted in the processor's thread.
class BusPort : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    /// False when the port cannot be had; `error()` and `errorText()` say why. Once.
    virtual bool open() = 0;
    virtual void close() = 0;
    virtual bool isOpen() const = 0;

    /// Hands the bytes over at once.
    virtual void write(const QByteArray& bytes) = 0;
    virtual QByteArray readAll() = 0;
    /// Looks at once for bytes that have come and were not told of yet; `readyRead` tells of them.
    virtual void fetch() = 0;

    /// Monotonic µs. Of all ports of one kind this is the same clock.
    virtual qint64 now() const = 0;
    /// ms since 1970 UTC.
    virtual qint64 wallTime() const = 0;

    /// A `QSerialPort::SerialPortError`.
    virtual int error() const = 0;
    virtual QString errorText() const = 0;

signals:
    void readyRead();
    /// The line is gone; `error()` and `errorText()` say why. May come again until the port is
    /// closed.
    void broken();
};
