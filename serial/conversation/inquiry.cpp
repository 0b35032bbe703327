#include "serial/conversation/inquiry.h"

#include "serial/ldb/microseconds.h"
#include "serial/wire/framecodec.h"

#include <algorithm>
#include <utility>

namespace {

using microseconds::kMillisecond;
constexpr qint64 kLongestFrame = 60000;
/// How much longer than its time a wait is held open for a frame that has begun.
constexpr qint64 kLetEnd = kLongestFrame + Hearing::kPause;
/// How far beyond the wait time late answers were seen to end.
constexpr qint64 kLateMargin = 460000;
constexpr qint64 kLateMemory = 600000000;
/// An ACK that something follows is no acknowledgement.
constexpr qint64 kAcknowledgeQuiet = 20000;
constexpr int kPollTransmissions = 2;
constexpr int kCommandTransmissions = 3;

} // namespace

Inquiry::Inquiry(int answerWaitTime)
    : m_wait(answerWaitTime * kMillisecond)
{
}

void Inquiry::reset()
{
    m_timing.reset();
    m_lateUntil = 0;
    m_state = State::Idle;
    m_transmissions = 0;
    m_outstanding = 0;
    m_probeUntil = 0;
    m_needsQuiet = false;
    m_log.clear();
    m_toTransmit.clear();
    m_end.reset();
    m_notes.clear();
}

void Inquiry::resume(qint64 now)
{
    const int outstanding = m_transmissions;
    // Nothing is known any more of how late this line is.
    const qint64 until = m_lastTransmission + m_wait + kLateMargin;
    reset();
    if (outstanding > 0 && now < until) {
        m_outstanding = outstanding;
        m_outstandingUntil = until;
        m_hearing.begin(0);
    }
}

qint64 Inquiry::horizon(qint64 now) const
{
    return m_wait + (now < m_lateUntil ? kLateMargin : kLongestFrame);
}

int Inquiry::allowedTransmissions() const
{
    switch (m_role) {
    case Role::Poll:
        return kPollTransmissions;
    case Role::Probe:
        return 1;
    case Role::Command:
    case Role::Broadcast:
        return kCommandTransmissions;
    }
    return 1;
}

void Inquiry::begin(const Request& request, Role role, qint64 now, ExchangeKind kind, bool isExtra)
{
    m_kind = kind;
    m_isExtra = isExtra;
    m_request = request;
    m_role = role;
    m_frame = framecodec::createCommand(request.body);
    m_transmissions = 0;
    m_isUnclean = false;
    m_timing.begin(request.hexId, request.answer, role != Role::Poll);
    clearLine(now);
}

void Inquiry::clearLine(qint64 now)
{
    if (m_outstanding > 0 && now >= m_outstandingUntil) {
        m_timing.setDoubtful();
        m_outstanding = 0;
    }
    if (m_needsQuiet && now >= m_quietBound) {
        m_needsQuiet = false;
        if (now - m_quietSince < Hearing::kPause) {
            note(QStringLiteral("the line is never quiet"));
        }
    }
    if (freeAt() <= now) {
        transmit(now);
    } else {
        m_state = State::Clearing;
    }
}

/// When the line will be free for the next transmission if nothing more comes.
qint64 Inquiry::freeAt() const
{
    qint64 free = 0;
    if (m_outstanding > 0) {
        free = m_outstandingUntil;
    }
    if (m_request.answer == AnswerShape::Acknowledge && m_role == Role::Command) {
        free = std::max(free, m_probeUntil);
    }
    if (m_needsQuiet) {
        free = std::max(free, std::min(m_quietSince + Hearing::kPause, m_quietBound));
    }
    return free;
}

void Inquiry::transmit(qint64 now)
{
    m_needsQuiet = false;
    ++m_transmissions;
    m_lastTransmission = now;
    m_toTransmit = m_frame;
    Exchange exchange;
    exchange.sentAt = now;
    exchange.hexId = m_request.hexId;
    exchange.kind = m_kind;
    exchange.request = m_frame;
    exchange.isExtra = m_isExtra;
    m_log.begin(std::move(exchange));
    m_hearing.begin(now + m_frame.size() * kByteTime);
    m_windowEnd = now + (m_role == Role::Poll ? horizon(now) : kShortWindow);
    m_windowLimit = m_windowEnd + kLetEnd;
    m_state = State::Listening;
}

void Inquiry::bytesCame(const QByteArray& bytes, qint64 now)
{
    m_log.hear(bytes);
    switch (m_state) {
    case State::Idle:
        break;
    case State::Clearing:
        hearOutstanding(bytes, now);
        break;
    case State::Confirming:
        m_state = State::Listening; // no acknowledgement, as something follows it
        [[fallthrough]];
    case State::Listening:
        m_hearing.take(bytes, now);
        listen(now);
        break;
    case State::Lingering:
        askForQuiet(now);
        m_hearing.take(bytes, now);
        listen(now);
        break;
    }
}

/// Nothing is transmitted before the line has been quiet for a moment, or never is.
void Inquiry::askForQuiet(qint64 now)
{
    const bool wasQuiet = now - m_quietSince >= Hearing::kPause;
    if (!m_needsQuiet || wasQuiet) {
        m_needsQuiet = true;
        m_quietBound = std::max(m_lastTransmission + horizon(now), now + kLetEnd);
    }
    m_quietSince = now;
}

void Inquiry::hearOutstanding(const QByteArray& bytes, qint64 now)
{
    if (m_outstanding > 0) {
        m_hearing.take(bytes, now);
        if (m_hearing.soundBody() || m_hearing.isDamagedAnswer(now)) {
            m_hearing.begin(0);
            --m_outstanding;
        }
    } else {
        m_isUnclean = true;
    }
    askForQuiet(now);
    clearLine(now);
}

void Inquiry::listen(qint64 now)
{
    if (m_role == Role::Broadcast) {
        return;
    }
    if (m_hearing.soundBody()) {
        if (m_hearing.isAlone()) {
            judgeFrame(QByteArray(*m_hearing.soundBody()), now); // the hearing may begin anew
        } else {
            fail(InquiryEnd::Outcome::Unbelieved, now);
        }
    } else if (const auto byte = m_hearing.singleByte()) {
        judgeSingleByte(*byte, now);
    } else if (m_state == State::Listening && m_hearing.isDamagedAnswer(now)) {
        fail(InquiryEnd::Outcome::Damaged, now);
    }
}

void Inquiry::judgeFrame(const QByteArray& body, qint64 now)
{
    const bool fits = hasShape(body, m_request.answer);
    const bool isSettings = m_request.answer == AnswerShape::Settings;
    if (fits && isSettings && !decodeLdbSettings(body, m_request.hexId)) {
        note(QStringLiteral("another LDB's settings dropped"));
        m_log.note(ExchangeOutcome::Late, now);
        noteLate(now);
        m_hearing.setAside();
        return;
    }
    if (m_state == State::Lingering && !(fits && isSettings)) {
        m_hearing.setAside();
        return;
    }
    switch (m_timing.judgeFrame(m_transmissions, flight(now))) {
    case AnswerTiming::Belief::TooSoon:
        note(QStringLiteral("an answer sooner than usual dropped"));
        m_log.note(ExchangeOutcome::Late, now);
        noteLate(now);
        m_hearing.setAside();
        if (m_role == Role::Poll) {
            m_windowEnd = m_lastTransmission + horizon(now);
            m_windowLimit = m_windowEnd + kLetEnd;
        }
        return;
    case AnswerTiming::Belief::TooLate:
        note(QStringLiteral("an answer later than usual dropped, after a silence"));
        m_log.note(ExchangeOutcome::Unbelieved, now);
        m_isUnclean = true;
        m_hearing.setAside();
        return;
    case AnswerTiming::Belief::Believed:
        break;
    }
    if (fits) {
        answered(body, flight(now), now);
    } else {
        fail(InquiryEnd::Outcome::OtherKind, now);
    }
}

void Inquiry::judgeSingleByte(char byte, qint64 now)
{
    if (m_state != State::Listening) {
        return;
    }
    if (m_role == Role::Probe) {
        m_log.note(ExchangeOutcome::Believed, now);
        end(InquiryEnd::Outcome::Answered, QByteArray(1, byte));
        return;
    }
    if (m_request.answer != AnswerShape::Acknowledge && m_request.answer != AnswerShape::Any) {
        return;
    }
    if (m_timing.believesAcknowledge(m_transmissions, flight(now))) {
        m_acknowledgedAt = now;
        m_state = State::Confirming;
    } else {
        m_log.note(ExchangeOutcome::Late, now);
    }
}

/// How long after the request's end.
qint64 Inquiry::flight(qint64 at) const
{
    return at - m_lastTransmission - m_frame.size() * kByteTime;
}

void Inquiry::deadlinePassed(qint64 now)
{
    if (now < deadline()) {
        return;
    }
    switch (m_state) {
    case State::Idle:
        break;
    case State::Clearing:
        clearLine(now);
        break;
    case State::Confirming:
        answered(QByteArray(1, *m_hearing.singleByte()), flight(m_acknowledgedAt), now);
        break;
    case State::Listening:
    case State::Lingering:
        windowOver(now);
        break;
    }
}

qint64 Inquiry::deadline() const
{
    switch (m_state) {
    case State::Idle:
        return kNever;
    case State::Clearing:
        return freeAt();
    case State::Confirming:
        return m_acknowledgedAt + kAcknowledgeQuiet;
    case State::Lingering:
        return m_windowEnd;
    case State::Listening:
        if (m_role == Role::Broadcast) {
            return m_windowEnd;
        }
        return std::min(m_hearing.pauseAt().value_or(kNever), m_windowEnd);
    }
    return kNever;
}

void Inquiry::windowOver(qint64 now)
{
    if (m_role != Role::Broadcast) {
        if (m_state == State::Listening && m_hearing.isDamagedAnswer(now)) {
            fail(InquiryEnd::Outcome::Damaged, now);
            return;
        }
        if (m_hearing.isUnderWay(now) && m_windowEnd < m_windowLimit) {
            m_windowEnd = std::min(now + Hearing::kPause, m_windowLimit);
            return;
        }
    }
    if (m_state == State::Lingering) {
        end(InquiryEnd::Outcome::Silent);
        return;
    }
    if (m_transmissions < allowedTransmissions()) {
        if (m_role == Role::Poll) {
            m_timing.nothingFollowed(m_transmissions);
            note(QStringLiteral("no answer, asked again"));
        }
        m_isUnclean = m_isUnclean || m_hearing.hasStrayBytes();
        transmit(now);
        return;
    }
    switch (m_role) {
    case Role::Command:
        m_state = State::Lingering;
        m_windowEnd = m_lastTransmission + horizon(now);
        m_windowLimit = m_windowEnd + kLetEnd;
        break;
    case Role::Probe:
        m_probeUntil = m_lastTransmission + horizon(now);
        end(InquiryEnd::Outcome::Silent);
        break;
    case Role::Poll:
    case Role::Broadcast:
        end(InquiryEnd::Outcome::Silent);
        break;
    }
}

/// Something came that is no answer to be used.
void Inquiry::fail(InquiryEnd::Outcome outcome, qint64 now)
{
    m_isUnclean = true;
    m_log.note(outcome == InquiryEnd::Outcome::Damaged ? ExchangeOutcome::Damaged
                                                       : ExchangeOutcome::Unbelieved,
               m_hearing.lastByteAt());
    askForQuiet(m_hearing.lastByteAt());
    if (m_state == State::Lingering) {
        m_hearing.setAside();
        return;
    }
    if (m_role == Role::Probe) {
        m_probeUntil = m_lastTransmission + horizon(now);
    }
    if (m_role == Role::Command && m_transmissions < allowedTransmissions()) {
        note(QStringLiteral("nothing usable came, asked again"));
        clearLine(now);
        return;
    }
    leaveOutstanding(flight(m_hearing.lastByteAt()), now);
    end(outcome);
}

void Inquiry::answered(const QByteArray& answer, qint64 flight, qint64 now)
{
    m_log.note(ExchangeOutcome::Believed, m_lastTransmission + m_frame.size() * kByteTime + flight);
    if (flight > m_wait / 2) {
        noteLate(now);
    }
    leaveOutstanding(flight, now);
    m_timing.answered(m_transmissions, flight);
    end(InquiryEnd::Outcome::Answered, answer);
}

/// After a repeated request more than one answer can come. One at the usual time answers the last
/// transmission; the LDB, which answers in order, then owes nothing more.
void Inquiry::leaveOutstanding(qint64 flight, qint64 now)
{
    if (m_transmissions == 1) {
        return;
    }
    const auto isUsual = m_timing.isUsual(flight);
    if (isUsual == true) {
        return;
    }
    if (isUsual == false) {
        noteLate(now);
    }
    m_outstanding = m_transmissions - 1;
    m_outstandingUntil = m_lastTransmission + horizon(now);
    m_hearing.begin(0);
}

void Inquiry::noteLate(qint64 now)
{
    m_isUnclean = true;
    m_lateUntil = now + kLateMemory;
}

void Inquiry::end(InquiryEnd::Outcome outcome, const QByteArray& answer)
{
    if (outcome == InquiryEnd::Outcome::Silent &&
        (m_role == Role::Poll || m_role == Role::Command)) {
        m_timing.setDoubtful();
    }
    m_state = State::Idle;
    const bool isUnclean = m_isUnclean || m_hearing.hasStrayBytes();
    m_end = InquiryEnd{outcome, answer, m_transmissions, isUnclean};
}

QByteArray Inquiry::takeTransmission()
{
    QByteArray bytes;
    bytes.swap(m_toTransmit);
    return bytes;
}

std::optional<InquiryEnd> Inquiry::takeEnd()
{
    auto end = std::move(m_end);
    m_end.reset();
    return end;
}

QStringList Inquiry::takeNotes()
{
    QStringList notes;
    notes.swap(m_notes);
    return notes;
}

void Inquiry::note(const QString& text)
{
    m_notes.append(text);
}

QString Inquiry::describe() const
{
    static const char* const kStates[] = {"idle", "clearing the line", "listening", "confirming",
                                          "lingering"};
    const qint64 until = deadline();
    return QStringLiteral("%1, %2, transmission %3 at %4 us, until %5, outstanding %6 until %7%8")
        .arg(QString::fromLatin1(m_request.body), QLatin1String(kStates[static_cast<int>(m_state)]))
        .arg(m_transmissions)
        .arg(m_lastTransmission)
        .arg(until == kNever ? QStringLiteral("bytes come") : QString::number(until))
        .arg(m_outstanding)
        .arg(m_outstandingUntil)
        .arg(m_needsQuiet ? QStringLiteral(", to be quiet") : QString());
}
