#pragma once

#include "serial/conversation/conversation.h"
#include "serial/wire/framecodec.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QStringList>

#include <functional>
#include <map>
#include <optional>
#include <vector>

/// A conversation in virtual time with boards that say what a test tells them to. All times in ms
/// from the start of the talk; an answer's is from the end of its request to its last byte.
class ScriptedTalk
{
public:
    struct Said
    {
        double after = 0;
        QByteArray bytes;
    };
    /// Gets a request's body and how often it has been transmitted so far, this time included;
    /// nothing to let the healthy boards answer.
    using Script = std::function<std::optional<QList<Said>>(const QByteArray& body, int count)>;
    struct Sent
    {
        double at = 0;
        QByteArray body;
    };

    static constexpr double kByte = 1.042;
    static constexpr double kTurnaround = 8;

    explicit ScriptedTalk(const QStringList& present, int forgivenMisses = 3)
        : m_present(present)
        , m_conversation(1500, forgivenMisses)
    {
    }

    void setScript(Script script) { m_script = std::move(script); }
    void setPresent(const QStringList& present) { m_present = present; }

    void start(const StartPlan& plan = {});
    /// The line is gone; `start` has it back.
    void cut();
    /// Until the scan is over.
    void scan();
    /// Through the scan and `rounds` rounds, until the next one is about to begin.
    void settle(const char* firstLdb, int rounds);
    void queue(const Request& request);
    /// Bytes that nobody asked for.
    void say(double after, const QByteArray& bytes)
    {
        m_arrivals.insert({m_now + us(after), bytes});
    }

    void run(double milliseconds);
    /// Until the next transmission, which is returned; empty when there is none for a minute.
    Sent next();
    /// Until this is transmitted; when, or -1 if it is not for ten minutes.
    double nextOf(const QByteArray& body);
    QList<QByteArray> nextBodies(int count);

    double now() const { return static_cast<double>(m_now) / 1000; }
    Conversation& conversation() { return m_conversation; }
    const QList<Sent>& sent() const { return m_sent; }
    int timesSent(const QByteArray& body) const { return m_timesSent.value(body); }
    void forgetEvents() { m_events.clear(); }
    template <typename What>
    QList<What> told() const
    {
        QList<What> found;
        for (const Event& event : m_events) {
            if (const What* what = std::get_if<What>(&event)) {
                found.append(*what);
            }
        }
        return found;
    }
    QString diagnostics() const;

    static QByteArray frame(const QByteArray& body) { return framecodec::createCommand(body); }
    /// A status of so many mV at the primary port.
    static QByteArray status(quint16 millivolts);
    static QByteArray name(const QByteArray& text)
    {
        return frame(text.toHex().toUpper().leftJustified(32, '0'));
    }
    static QByteArray firmware(const QByteArray& text) { return frame(text.toHex().toUpper()); }
    /// Settings that name this LDB.
    static QByteArray settings(const QByteArray& hexId)
    {
        return frame(hexId + QByteArray(54, '0'));
    }

    /// A usual answer to `body`, after the usual time.
    static Said usual(const QByteArray& body) { return late(body, 0); }
    static Said late(const QByteArray& body, double by);

private:
    static qint64 us(double milliseconds) { return qRound64(milliseconds * 1000); }
    Conversation::Moment moment() const { return {m_now, m_now / 1000}; }
    bool step(qint64 end);
    void pump();
    QList<Said> answers(const QByteArray& body) const;

    QStringList m_present;
    Conversation m_conversation;
    Script m_script;
    qint64 m_now = 0; ///< µs
    quint64 m_number = 0;
    bool m_scanned = false;
    std::multimap<qint64, QByteArray> m_arrivals;
    QList<Sent> m_sent;
    QHash<QByteArray, int> m_timesSent;
    std::vector<Event> m_events;
};

Q_DECLARE_METATYPE(ScriptedTalk::Said)

/// What the tests of a talk share.
namespace scriptedtalk {

using Said = ScriptedTalk::Said;
using Answers = std::optional<QList<Said>>;

const QByteArray kAck("\x06");
const QByteArray kNak("\x15");
const QList<Said> kSilence;

// The questions of a turn, and others.
const QByteArray kStatus("737803");
const QByteArray kName("737202");
const QByteArray kFirmware("737804");
const QByteArray kSettings("737201");
const QByteArray kPoll("70");

// Milliseconds.
constexpr double kHorizon = 1560;
constexpr double kLongHorizon = 1960;
constexpr double kQuiet = 40;

inline bool about(double a, double b)
{
    return qAbs(a - b) < 0.1;
}
inline QByteArray ask(const char* hexId, const QByteArray& request)
{
    return "FE" + QByteArray(hexId) + request;
}
inline QList<QByteArray> turnOf(const char* hexId)
{
    return {ask(hexId, kStatus), ask(hexId, kName), ask(hexId, kFirmware)};
}
/// The first answers to one request; then the healthy boards answer.
ScriptedTalk::Script first(const QByteArray& body, const QList<QList<Said>>& answers);

} // namespace scriptedtalk
