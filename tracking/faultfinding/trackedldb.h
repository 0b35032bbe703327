#pragma once

#include "serial/ldb/ldbsettings.h"
#include "serial/ldb/serialcommand.h"
#include "tracking/counting/trackingresult.h"

#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

class SerialLink;

/// The one LDB that a tracking run works on, as the run sees it: its records and its commands. GUI
/// thread only.
class TrackedLdb : public QObject
{
    Q_OBJECT
public:
    using ReplyFunction = std::function<void(const Reply&)>;

    /// `link` may die first, when the program ends. A stand-in without a link has ways of its own.
    TrackedLdb(const QString& hexId, SerialLink* link);

    QString hexId() const { return m_hexId; }

    /// Sends a command. `replied` is called from the event loop, exactly once, unless `context`
    /// dies before; also without a connection. A mute that nothing came back to is read back: it
    /// counts as accepted where the LDB has it. This object lives as long as `context`.
    void send(TrackingCommand command, QObject* context, ReplyFunction replied);

    /// Reads the LDB's settings; `read` is called as above, with nothing if the LDB did not tell.
    using SettingsFunction = std::function<void(const std::optional<LdbSettings>&)>;
    void readSettings(QObject* context, SettingsFunction read);

    /// The time for the run: ms on a clock that never goes back.
    qint64 now() const;
    /// Whether there is a connection to send on, with this LDB on it.
    virtual bool isReachable() const;
    /// Polls this LDB and no other, or all again.
    virtual void setPolledAlone(bool alone);

signals:
    /// A record of any LDB.
    void generalInformationUpdated(const QString& hexId, const QList<QStringList>& dataList);
    /// No record comes any more, and no command goes out.
    void connectionLost();
    /// `isReachable()` may differ from before.
    void reachableChanged();

protected:
    virtual void post(std::unique_ptr<ISerialCommand> command);

private:
    void readMute(QObject* context, const ReplyFunction& replied);
    void ask(std::unique_ptr<ISerialCommand> command, QObject* context, ReplyFunction function);

    const QString m_hexId;
    const QPointer<SerialLink> m_link;
    bool m_wasReachable = false; ///< at the last state of the LDB that was told
    QTimer m_clock;              ///< of the event loop: the run's time goes with that of its timers
    qint64 m_hands = 0;          ///< ms at the clock's last full turn
};
