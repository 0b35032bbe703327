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
    using Command = TrackingCommand;
    enum class Answer
    {
        Accepted,
        Refused,
        None ///< the LDB said nothing, or the command was never sent
    };
    using AnswerFunction = std::function<void(Answer)>;

    explicit TrackedLdb(const QString& hexId, QObject* parent = nullptr);

    QString hexId() const { return m_hexId; }

    /// Sends a command; a mute that nothing came back to is read back. `answered` is called from
    /// the event loop, exactly once, unless `context` dies before; also without a connection. This
    /// object lives as long as `context`.
    void send(Command command, QObject* context, AnswerFunction answered);

    /// Reads the LDB's settings; `read` is called as above, with nothing if the LDB did not tell.
    using SettingsFunction = std::function<void(const std::optional<LdbSettings>&)>;
    void readSettings(QObject* context, SettingsFunction read);

    /// The time for the run: ms on a clock that never goes back.
    virtual qint64 now() const = 0;
    /// Whether there is a connection to send on, with this LDB on it.
    virtual bool isReachable() const = 0;
    /// Polls this LDB and no other, or all again.
    virtual void setPolledAlone(bool alone) = 0;

signals:
    /// A record of any LDB.
    void generalInformationUpdated(const QString& hexId, const QList<QStringList>& dataList);
    /// No record comes any more, and no command goes out.
    void connectionLost();
    /// `isReachable()` may differ from before.
    void reachableChanged();

protected:
    virtual void post(std::unique_ptr<ISerialCommand> command) = 0;

private:
    void readMute(QObject* context, const AnswerFunction& answered);
    void ask(std::unique_ptr<ISerialCommand> command, QObject* context,
             std::function<void(const Reply&)> function);

    const QString m_hexId;
};

/// A tracked LDB on the serial link.
class SerialTrackedLdb : public TrackedLdb
{
    Q_OBJECT
public:
    SerialTrackedLdb(const QString& hexId, SerialLink* link, QObject* parent = nullptr);

    qint64 now() const override;
    bool isReachable() const override;
    void setPolledAlone(bool alone) override;

protected:
    void post(std::unique_ptr<ISerialCommand> command) override;

private:
    QPointer<SerialLink> m_link; // may die first, when the program ends
    QTimer m_clock; ///< of the event loop, so that the run's time goes with that of its timers
    qint64 m_hands = 0; ///< ms at the clock's last full turn
};
