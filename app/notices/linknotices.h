#pragma once

#include "app/notices/messagebox.h"

#include <QObject>
#include <QStringList>

class Notices;
class SerialLink;

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
class LinkNotices : public QObject
{
    Q_OBJECT
public:
    /// `notices` outlives this object.
    explicit LinkNotices(Notices* notices, QObject* parent = nullptr);

    /// Tells what this link says from now on.
    void follow(const SerialLink* link);

    /// An LDB was lost: one box at a time, to which every LDB lost while it is open adds a line.
    /// `name`: the LDB's own, may be empty.
    void tellLoss(const QString& hexId, const QString& name);

private:
    Notices* m_notices;
    PortFailure m_failure;  ///< what the port said last
    QStringList m_lostLdbs; ///< the lines of the open box
};
