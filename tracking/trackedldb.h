#pragma once

#include "serial/serialcommand.h"

#include <QMetaType>
#include <QObject>
#include <QPointer>
#include <QStringList>

#include <functional>
#include <memory>

class SerialLink;

/// The one LDB that a tracking run works on, as the run sees it: its records and its commands. GUI
/// thread only.
class TrackedLdb : public QObject
{
    Q_OBJECT
public:
    enum class Command
    {
        FactoryReset,
        LdbReset,
        MuteAudio,
        EndAudioMute
    };
    enum class Answer
    {
        Accepted,
        Refused,
        None ///< the LDB said nothing, or the command was never sent
    };
    using AnswerFunction = std::function<void(Answer)>;

    explicit TrackedLdb(const QString& hexId, QObject* parent = nullptr);

    QString hexId() const { return m_hexId; }

    /// Sends a command. `answered` is called from the event loop, exactly once, unless `context`
    /// dies before; also without a connection.
    void send(Command command, QObject* context, AnswerFunction answered);

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
    const QString m_hexId;
};
Q_DECLARE_METATYPE(TrackedLdb::Command)

/// A tracked LDB on the serial link.
class SerialTrackedLdb : public TrackedLdb
{
    Q_OBJECT
public:
    SerialTrackedLdb(const QString& hexId, SerialLink* link, QObject* parent = nullptr);

    bool isReachable() const override;
    void setPolledAlone(bool alone) override;

protected:
    void post(std::unique_ptr<ISerialCommand> command) override;

private:
    QPointer<SerialLink> m_link; // may die first, when the program ends
};
