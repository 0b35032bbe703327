#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

class QSocketNotifier;

/// The device end of a serial line without hardware: a raw pseudo-terminal whose other end opens
/// like any serial port. Needs an event loop in its thread.
class PseudoTerminal : public QObject
{
    Q_OBJECT
public:
    /// `isOpen()` tells whether the system gave a terminal.
    explicit PseudoTerminal(QObject* parent = nullptr);
    ~PseudoTerminal() override;

    bool isOpen() const { return m_master >= 0; }
    /// Path of the end that a program opens.
    QString portName() const { return m_portName; }

    /// Writes all of `bytes`; false when the line is cut or its buffer stays full.
    bool write(const QByteArray& bytes);

    /// Cuts the line for good: whoever has the port open sees it fail.
    void hangUp();

signals:
    void received(const QByteArray& bytes);

private:
    void readAvailable();

    int m_master = -1;
    // Held open so that the master end does not report an error while no program has the port.
    int m_slave = -1;
    QString m_portName;
    QSocketNotifier* m_notifier = nullptr;
};
