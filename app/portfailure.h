#pragma once

#include "app/messagebox.h"

#include <QPointer>
#include <QString>

/// What a port said when it failed.
struct PortFailure
{
    QString portName;
    int error = 0;       ///< a `QSerialPort::SerialPortError`
    QString description; ///< as the system words it
};

/// The box about a failed link: what to check, what the port said and, when the system refused
/// access, whether another program has the port or which group's members may use it.
BoxText portFailureText(const PortFailure& failure);

/// The group that a user must be in to use the port; empty where ports belong to no group.
QString portGroup(const QString& portName);

/// Tells the user that the link has failed: one box at a time, with what the port said last. GUI
/// thread.
class PortFailureReporter
{
public:
    /// `window` is the box's parent and outlives this object.
    explicit PortFailureReporter(QWidget* window)
        : m_window(window)
    {
    }

    /// Keeps what the port said, for the report to come.
    void note(const PortFailure& failure) { m_failure = failure; }
    void report();

private:
    QWidget* m_window;
    PortFailure m_failure;
    QPointer<MessageBox> m_box;
};
