#pragma once

#include "simulator/pseudoterminal.h"

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

/// A bus that answers as a test tells it, on a pseudo-terminal. Without a script it acts as a
/// healthy bus: a poll of a present address gets ACK and of an absent one NAK (so that a scan takes
/// milliseconds), the three cyclic requests get `status()`, `name()` and `firmware()`, everything
/// else ACK; requests to absent addresses get silence.
class ScriptedBus : public QObject
{
    Q_OBJECT
public:
    /// Gets a request's body and gives the raw bytes to answer (empty: silence), or nothing to let
    /// the healthy bus answer.
    using Script = std::function<std::optional<QByteArray>(const QByteArray& body)>;

    explicit ScriptedBus(const QStringList& presentHexIds, QObject* parent = nullptr);

    QString portName() const { return m_terminal.portName(); }

    void setScript(Script script) { m_script = std::move(script); }
    void setPresent(const QStringList& hexIds) { m_present = hexIds; }

    /// Bodies of all requests so far, in order.
    QList<QByteArray> requests() const { return m_requests; }
    void clearRequests() { m_requests.clear(); }

    /// Sends bytes that nobody asked for.
    void write(const QByteArray& raw) { m_terminal.write(raw); }
    void hangUp() { m_terminal.hangUp(); }

    /// The answer of the healthy bus, or empty for silence.
    QByteArray healthyAnswer(const QByteArray& body) const;

    /// `body` as a whole frame.
    static QByteArray framed(const QByteArray& body);
    /// A 50-character status body of a quiescent, healthy LDB with the state byte given.
    static QByteArray status(int state = 10);
    static QByteArray name(const QString& hexId);
    static QByteArray firmware();

private:
    void processBytes(const QByteArray& bytes);
    void processRequest(const QByteArray& body);

    PseudoTerminal m_terminal;
    QStringList m_present;
    Script m_script;
    QByteArray m_collected;
    QList<QByteArray> m_requests;
};
