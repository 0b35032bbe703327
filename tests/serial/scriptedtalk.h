#pragma once

#include "serial/conversation/conversation.h"
#include "serial/wire/framecodec.h"

#include <QByteArray>
#include <QList>
#include <QStringList>

#include <algorithm>
#include <functional>
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

    void start()
    {
        m_conversation.start(moment());
        pump();
    }
    void queue(const Request& request)
    {
        m_conversation.queueCommand(request, ++m_number);
        pump();
    }
    /// Bytes that nobody asked for.
    void say(double after, const QByteArray& bytes)
    {
        m_arrivals.push_back({m_now + us(after), bytes});
    }

    void run(double milliseconds)
    {
        const qint64 end = m_now + us(milliseconds);
        while (step(end)) {
        }
        m_now = end;
    }
    /// Until the next transmission, which is returned; empty when there is none for a minute.
    Sent next()
    {
        const auto before = m_sent.size();
        const qint64 end = m_now + us(60000);
        while (m_sent.size() == before && step(end)) {
        }
        return m_sent.size() == before ? Sent() : m_sent.at(before);
    }
    /// Until this is transmitted; when.
    double nextOf(const QByteArray& body)
    {
        for (Sent sent = next(); !sent.body.isEmpty(); sent = next()) {
            if (sent.body == body) {
                return sent.at;
            }
        }
        return -1;
    }
    QList<QByteArray> nextBodies(int count)
    {
        QList<QByteArray> bodies;
        while (bodies.size() < count) {
            bodies.append(next().body);
        }
        return bodies;
    }
    /// Until the scan is over.
    void scan()
    {
        start();
        while (!m_scanned && step(m_now + us(60000))) {
        }
    }

    double now() const { return static_cast<double>(m_now) / 1000; }
    Conversation& conversation() { return m_conversation; }
    const QList<Sent>& sent() const { return m_sent; }
    const std::vector<Event>& events() const { return m_events; }
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
    QString diagnostics() const
    {
        QStringList lines;
        for (const auto& line : told<event::Diagnostic>()) {
            lines.append(line.text);
        }
        return lines.join('\n');
    }

    static QByteArray frame(const QByteArray& body) { return framecodec::createCommand(body); }
    /// A status of so many mV at the primary port.
    static QByteArray status(quint16 millivolts)
    {
        QByteArray body(50, '0');
        body.replace(10, 2, "0A");
        const QByteArray digits =
            QByteArray::number(millivolts, 16).toUpper().rightJustified(4, '0');
        return frame(body.replace(26, 4, digits.mid(2) + digits.left(2)));
    }
    static QByteArray name(const QByteArray& text)
    {
        return frame(text.toHex().toUpper().leftJustified(32, '0'));
    }
    static QByteArray firmware(const QByteArray& text) { return frame(text.toHex().toUpper()); }
    /// Settings that name this LDB.
    static QByteArray settings(const QByteArray& hexId)
    {
        QByteArray body(56, '0');
        return frame(body.replace(0, 2, hexId));
    }

    /// A usual answer to `body`, after the usual time.
    static Said usual(const QByteArray& body)
    {
        const QByteArray id = body.mid(2, 2);
        const QByteArray request = body.mid(4);
        QByteArray bytes("\x06");
        if (request == "737803") {
            bytes = status(static_cast<quint16>(id.toInt(nullptr, 16)));
        } else if (request == "737202") {
            bytes = name("LDB " + id);
        } else if (request == "737804") {
            bytes = firmware("LDB16 V3.21");
        } else if (request == "737201") {
            bytes = settings(id);
        }
        return {kTurnaround + bytes.size() * kByte, bytes};
    }
    static Said late(const QByteArray& body, double by)
    {
        Said said = usual(body);
        said.after += by;
        return said;
    }

private:
    struct Arrival
    {
        qint64 at;
        QByteArray bytes;
    };
    static qint64 us(double milliseconds) { return qRound64(milliseconds * 1000); }
    Conversation::Moment moment() const { return {m_now, m_now / 1000}; }

    bool step(qint64 end)
    {
        const auto arrival =
            std::min_element(m_arrivals.begin(), m_arrivals.end(),
                             [](const Arrival& a, const Arrival& b) { return a.at < b.at; });
        const bool arrives =
            arrival != m_arrivals.end() && arrival->at <= m_conversation.deadline();
        const qint64 at = arrives ? arrival->at : m_conversation.deadline();
        if (at > end) {
            return false;
        }
        m_now = std::max(m_now, at);
        if (arrives) {
            const QByteArray bytes = arrival->bytes;
            m_arrivals.erase(arrival);
            m_conversation.bytesCame(bytes, moment());
        } else {
            m_conversation.deadlinePassed(moment());
        }
        pump();
        return true;
    }

    void pump()
    {
        const QByteArray bytes = m_conversation.takeTransmission();
        if (!bytes.isEmpty()) {
            const QByteArray body = bytes.mid(1, bytes.size() - 4);
            m_sent.append({now(), body});
            const auto count = static_cast<int>(std::count_if(
                m_sent.begin(), m_sent.end(), [&](const Sent& sent) { return sent.body == body; }));
            for (const Said& said : answers(body, count)) {
                m_arrivals.push_back({m_now + us(bytes.size() * kByte + said.after), said.bytes});
            }
        }
        for (const Event& event : m_conversation.takeEvents()) {
            const auto* scan = std::get_if<event::ScanState>(&event);
            m_scanned = scan ? !scan->isRunning : m_scanned;
            m_events.push_back(event);
        }
    }

    QList<Said> answers(const QByteArray& body, int count) const
    {
        if (m_script) {
            if (const auto said = m_script(body, count)) {
                return *said;
            }
        }
        return m_present.contains(QString::fromLatin1(body.mid(2, 2))) ? QList<Said>{usual(body)}
                                                                       : QList<Said>{};
    }

    QStringList m_present;
    Conversation m_conversation;
    Script m_script;
    qint64 m_now = 0;
    quint64 m_number = 0;
    bool m_scanned = false;
    std::vector<Arrival> m_arrivals;
    QList<Sent> m_sent;
    std::vector<Event> m_events;
};
