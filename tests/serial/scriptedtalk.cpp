#include "tests/serial/scriptedtalk.h"

namespace {

constexpr double kMinute = 60000;

} // namespace

void ScriptedTalk::start(const StartPlan& plan)
{
    m_conversation.start(moment(), plan);
    pump();
}

void ScriptedTalk::cut()
{
    m_conversation.lineGone();
    m_arrivals.clear();
    pump();
}

void ScriptedTalk::scan()
{
    start();
    while (!m_scanned && step(m_now + us(kMinute))) {
    }
}

void ScriptedTalk::settle(const char* firstLdb, int rounds)
{
    scan();
    for (int i = 0; i <= rounds; ++i) {
        nextOf(scriptedtalk::ask(firstLdb, scriptedtalk::kFirmware));
    }
    forgetEvents();
}

void ScriptedTalk::queue(const Request& request)
{
    m_conversation.queueCommand(request, ++m_number);
    pump();
}

void ScriptedTalk::run(double milliseconds)
{
    const qint64 end = m_now + us(milliseconds);
    while (step(end)) {
    }
    m_now = end;
}

ScriptedTalk::Sent ScriptedTalk::next()
{
    const auto before = m_sent.size();
    const qint64 end = m_now + us(kMinute);
    while (m_sent.size() == before && step(end)) {
    }
    return m_sent.value(before);
}

double ScriptedTalk::nextOf(const QByteArray& body)
{
    const double end = now() + 10 * kMinute;
    for (Sent sent = next(); !sent.body.isEmpty() && sent.at < end; sent = next()) {
        if (sent.body == body) {
            return sent.at;
        }
    }
    return -1;
}

QList<QByteArray> ScriptedTalk::nextBodies(int count)
{
    QList<QByteArray> bodies;
    while (bodies.size() < count) {
        bodies.append(next().body);
    }
    return bodies;
}

QString ScriptedTalk::diagnostics() const
{
    QStringList lines;
    for (const auto& line : told<event::Diagnostic>()) {
        lines.append(line.text);
    }
    return lines.join('\n');
}

QByteArray ScriptedTalk::status(quint16 millivolts)
{
    QByteArray body(50, '0');
    body.replace(10, 2, "0A");
    const QByteArray digits = QByteArray::number(millivolts, 16).toUpper().rightJustified(4, '0');
    return frame(body.replace(26, 4, digits.mid(2) + digits.left(2)));
}

ScriptedTalk::Said ScriptedTalk::late(const QByteArray& body, double by)
{
    const QByteArray id = body.mid(2, 2);
    const QByteArray request = body.mid(4);
    QByteArray bytes("\x06");
    if (request == scriptedtalk::kStatus) {
        bytes = status(static_cast<quint16>(id.toInt(nullptr, 16)));
    } else if (request == scriptedtalk::kName) {
        bytes = name("LDB " + id);
    } else if (request == scriptedtalk::kFirmware) {
        bytes = firmware("LDB16 V3.21");
    } else if (request == scriptedtalk::kSettings) {
        bytes = settings(id);
    }
    return {kTurnaround + bytes.size() * kByte + by, bytes};
}

bool ScriptedTalk::step(qint64 end)
{
    const auto arrival = m_arrivals.begin();
    const bool arrives = arrival != m_arrivals.end() && arrival->first <= m_conversation.deadline();
    const qint64 at = arrives ? arrival->first : m_conversation.deadline();
    if (at > end) {
        return false;
    }
    m_now = std::max(m_now, at);
    if (arrives) {
        m_conversation.bytesCame(arrival->second, moment());
        m_arrivals.erase(arrival);
    } else {
        m_conversation.deadlinePassed(moment());
    }
    pump();
    return true;
}

void ScriptedTalk::pump()
{
    const QByteArray bytes = m_conversation.takeTransmission();
    if (!bytes.isEmpty()) {
        const QByteArray body = bytes.mid(1, bytes.size() - 4);
        m_sent.append({now(), body});
        ++m_timesSent[body];
        for (const Said& said : answers(body)) {
            say(bytes.size() * kByte + said.after, said.bytes);
        }
    }
    for (const Event& event : m_conversation.takeEvents()) {
        const auto* scan = std::get_if<event::ScanState>(&event);
        m_scanned = scan ? !scan->isRunning : m_scanned;
        m_events.push_back(event);
    }
}

QList<ScriptedTalk::Said> ScriptedTalk::answers(const QByteArray& body) const
{
    if (const auto said = m_script ? m_script(body, timesSent(body)) : std::nullopt) {
        return *said;
    }
    return m_present.contains(body.mid(2, 2)) ? QList<Said>{usual(body)} : QList<Said>{};
}

ScriptedTalk::Script scriptedtalk::first(const QByteArray& body, const QList<QList<Said>>& answers)
{
    return [=, given = 0](const QByteArray& asked, int) mutable -> Answers {
        if (asked != body || given >= answers.size()) {
            return std::nullopt;
        }
        return answers.at(given++);
    };
}
