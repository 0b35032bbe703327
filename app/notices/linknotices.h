#pragma once

#include "app/notices/messagebox.h"

#include <QString>
#include <QStringList>

class Notices;

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

/// The boxes about the link. GUI thread.
class LinkNotices
{
public:
    /// `notices` outlives this object.
    explicit LinkNotices(Notices* notices)
        : m_notices(notices)
    {
    }

    /// An LDB was lost: one box at a time, to which every LDB lost while it is open adds a line.
    void tellLoss(const QString& hexId);

    /// Keeps what the port said, for the failure to be told.
    void noteFailure(const PortFailure& failure) { m_failure = failure; }
    /// The link has failed: one box at a time, with what the port said last.
    void tellFailure();

private:
    Notices* m_notices;
    PortFailure m_failure;
    QStringList m_lostLdbs; ///< the lines of the open box
};
