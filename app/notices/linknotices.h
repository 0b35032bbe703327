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

/// What the system says of a port's device.
struct PortDevice
{
    bool isThere = true;
    bool mayBeUsed = true; ///< by this user
    QString group = {};    ///< whose members may use it; empty where ports belong to no group
};

/// Asks the system, now. A port that is gone or root's own has the group that ports usually have.
PortDevice portDevice(const QString& portName);

/// Why a port failed.
enum class PortTrouble
{
    Other,        ///< what the port said is all that is known
    NotThere,     ///< there was no such port to open
    Unplugged,    ///< it vanished while it was used
    BrokenOff,    ///< it failed while it was used, and is still there
    NoPermission, ///< the user may not use it
    InUse         ///< by another program
};

/// Pure: the one place that reads a port's error.
PortTrouble portTrouble(const PortFailure& failure, const PortDevice& device);

/// The box about a failed link: what to check and, below, the reason and what to do. Pure.
/// `isWaited`: the program goes on by itself when the port is back.
BoxText portFailureText(const PortFailure& failure, const PortDevice& device,
                        bool isWaited = false);

/// The boxes about the link. GUI thread.
class LinkNotices : public QObject
{
    Q_OBJECT
public:
    /// `notices` outlives this object.
    explicit LinkNotices(Notices* notices, QObject* parent = nullptr);

    /// Tells what this link says from now on. To be called before whoever waits for a port follows
    /// the link: the first failure is told, those of the tries after it are not.
    void follow(const SerialLink* link);

    /// While a port that died is waited for, its box blocks nothing, and goes when it is back.
    void setWaiting(bool isWaiting);
    /// While held, no loss is told; then those that last are.
    void holdLosses(bool isHeld);

    /// An LDB was lost: one box at a time, to which every LDB lost while it is open adds a line.
    /// `name`: the LDB's own, may be empty.
    void tellLoss(const QString& hexId, const QString& name);

private:
    void tellFailure();
    void showFailure();

    const SerialLink* m_link = nullptr;
    Notices* m_notices;
    bool m_isWaiting = false;
    bool m_isTry = false; ///< the last failure is of a port that was waited for already
    bool m_holdsLosses = false;
    QStringList m_heldLosses; ///< ids
    PortFailure m_failure;    ///< what the port said last
    PortDevice m_device;      ///< as it was then
    QStringList m_lostLdbs;   ///< the lines of the open box
};
