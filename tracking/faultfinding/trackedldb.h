#pragma once

#include "serial/ldb/serialcommand.h"
#include "tracking/counting/trackingresult.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QStringList>

#include <functional>
#include <memory>

class QWidget;
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

    /// The time for the run: ms on a clock that never goes back.
    virtual qint64 now() const { return m_clock.elapsed(); }
    /// Whether there is a connection to send on.
    virtual bool isReachable() const;
    /// Polls this LDB and no other, or all again.
    virtual void setPolledAlone(bool alone);

signals:
    /// A record of any LDB.
    void generalInformationUpdated(const QString& hexId, const QList<QStringList>& dataList);
    /// No record comes any more, and no command goes out.
    void connectionLost();

protected:
    virtual void post(std::unique_ptr<ISerialCommand> command);

private:
    void readMute(bool wanted, QObject* context, const ReplyFunction& replied);
    void ask(std::unique_ptr<ISerialCommand> command, QObject* context, ReplyFunction function);

    const QString m_hexId;
    const QPointer<SerialLink> m_link;
    QElapsedTimer m_clock;
};

/// Ends an LDB's audio mute when its tracking window closes, and lives on until the LDB has obeyed:
/// an LDB that nobody can hear must not be forgotten. If `wasMuted` and the LDB does not take the
/// command, a box over `boxParent` says that the LDB stays muted.
void endAudioMute(const std::shared_ptr<TrackedLdb>& ldb, bool wasMuted, QWidget* boxParent);
