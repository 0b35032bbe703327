#pragma once

#include "serial/serialcommand.h"
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

    explicit TrackedLdb(const QString& hexId, QObject* parent = nullptr);

    QString hexId() const { return m_hexId; }

    /// Sends a command. `replied` is called from the event loop, exactly once, unless `context`
    /// dies before; also without a connection. A mute that nothing came back to is read back: it
    /// counts as accepted where the LDB has it. This object lives as long as `context`.
    void send(TrackingCommand command, QObject* context, ReplyFunction replied);

    /// The time for the run: ms on a clock that never goes back.
    virtual qint64 now() const = 0;
    /// Whether there is a connection to send on.
    virtual bool isReachable() const = 0;
    /// Polls this LDB and no other, or all again.
    virtual void setPolledAlone(bool alone) = 0;

signals:
    /// A record of any LDB.
    void generalInformationUpdated(const QString& hexId, const QList<QStringList>& dataList);
    /// No record comes any more, and no command goes out.
    void connectionLost();

protected:
    virtual void post(std::unique_ptr<ISerialCommand> command) = 0;

private:
    void readMute(bool wanted, QObject* context, const ReplyFunction& replied);
    void ask(std::unique_ptr<ISerialCommand> command, QObject* context, ReplyFunction function);

    const QString m_hexId;
};

/// A tracked LDB on the serial link.
class SerialTrackedLdb : public TrackedLdb
{
    Q_OBJECT
public:
    SerialTrackedLdb(const QString& hexId, SerialLink* link, QObject* parent = nullptr);

    qint64 now() const override { return m_clock.elapsed(); }
    bool isReachable() const override;
    void setPolledAlone(bool alone) override;

protected:
    void post(std::unique_ptr<ISerialCommand> command) override;

private:
    QPointer<SerialLink> m_link; // may die first, when the program ends
    QElapsedTimer m_clock;
};

/// Ends an LDB's audio mute when its tracking window closes, and lives on until the LDB has obeyed:
/// an LDB that nobody can hear must not be forgotten. If `wasMuted` and the LDB does not take the
/// command, a box over `boxParent` says that the LDB stays muted.
void endAudioMute(const std::shared_ptr<TrackedLdb>& ldb, bool wasMuted, QWidget* boxParent);
