#include "simulator/line/line.h"

#include "serial/wire/framecodec.h"
#include "serial/wire/hextext.h"
#include "simulator/line/damage.h"

#include <algorithm>

using linetime::kMicrosecond;
using linetime::toMicroseconds;

namespace {

/// What is left to chance besides the mischief.
enum Purpose : quint64
{
    Garbage = 1000,
    TurnaroundTimes
};

constexpr int kMaxFrameBytes = 1024;
constexpr int kAddressPosition = 3; // SOH and the master's own two digits are before it

/// The one whose time comes first; of two at the same time, the earlier in this order.
constexpr qint64 kBeforeStarts = -1;

int addressOf(const QByteArray& frame)
{
    return static_cast<int>(hextext::toNumber(frame, kAddressPosition, 2).value_or(0));
}

} // namespace

Line::Line(const LineOptions& options, const Adversaries& adversaries, Boards& boards)
    : m_options(options)
    , m_boards(&boards)
    , m_book(options.bookLength)
    , m_receiver(Chance(options.seed).split(Garbage))
    , m_mischief(options.seed)
    , m_turnaround(Chance(options.seed).split(TurnaroundTimes))
{
    m_mischief.setAdversaries(adversaries, 0);
}

void Line::setAdversaries(const Adversaries& adversaries, qint64 at)
{
    m_changes.push_back({std::max(m_now, at * kMicrosecond), adversaries});
}

void Line::transmit(const QByteArray& bytes, qint64 now)
{
    advance(now);
    qint64 start = std::max(m_portFree, now * kMicrosecond);
    for (int i = 0; i < bytes.size(); ++i) {
        m_portFree = start + (i + 1) * m_options.byteTime;
        takeByte(bytes.at(i), m_portFree, now);
    }
}

/// Bytes outside of frames take their time, and no board heeds them.
void Line::takeByte(char byte, qint64 end, qint64 now)
{
    if (byte == framecodec::kSoh) {
        m_isCollecting = true;
        m_collected.clear();
    }
    if (!m_isCollecting) {
        return;
    }
    m_collected.append(byte);
    m_isCollecting = byte != framecodec::kEot && m_collected.size() < kMaxFrameBytes;
    if (byte != framecodec::kEot) {
        return;
    }
    LineExchange& exchange = m_book.add();
    exchange.request = m_collected;
    exchange.address = addressOf(m_collected);
    exchange.handedAt = now;
    Request request;
    request.number = exchange.number;
    request.bytes = m_collected;
    request.start = end - m_collected.size() * m_options.byteTime;
    request.ready = request.start;
    request.end = end;
    request.isOnLine = !isQueuing();
    m_requests.push_back(request);
}

void Line::advance(qint64 now)
{
    const qint64 limit = now * kMicrosecond;
    for (;;) {
        const Next event = next();
        if (event.at > limit || event.event == Event::None) {
            break;
        }
        m_now = std::max(m_now, event.at);
        if (event.event != Event::ByteStarts || !runUndisturbed(event.index, limit)) {
            handle(event);
        }
    }
    m_now = std::max(m_now, limit);
}

void Line::consider(Next& next, Event event, qint64 at, std::size_t index) const
{
    if (at < next.at || (at == next.at && next.rank > kBeforeStarts)) {
        next = {event, at, kBeforeStarts, index};
    }
}

void Line::considerStart(Next& next, Event event, qint64 ready, std::size_t index) const
{
    const qint64 at = isQueuing() ? std::max(ready, m_lineFree) : ready;
    if (at < next.at || (at == next.at && ready < next.rank)) {
        next = {event, at, ready, index};
    }
}

Line::Next Line::next() const
{
    Next result = nextBesidesBytes();
    for (std::size_t i = 0; i < m_sendings.size(); ++i) {
        const Sending& sending = m_sendings[i];
        if (sending.isUnderWay()) {
            consider(result, Event::ByteStarts, byteStart(sending, sending.next), i);
        }
    }
    // A byte has ended before anything else that happens at the same time.
    if (m_receiver.isBusy() && m_receiver.current().time.to <= result.at) {
        result = {Event::ByteEnds, m_receiver.current().time.to, kBeforeStarts, 0};
    }
    return result;
}

Line::Next Line::nextBesidesBytes() const
{
    Next result;
    if (!m_changes.empty()) {
        consider(result, Event::Change, m_changes.front().at);
    }
    for (std::size_t i = 0; i < m_sendings.size(); ++i) {
        const Sending& sending = m_sendings[i];
        if (sending.state == Sending::State::Leaving && !sending.isUnderWay()) {
            consider(result, Event::SendingEnds, sending.end, i);
        }
    }
    if (!m_requests.empty() && m_requests.front().isOnLine) {
        consider(result, Event::RequestEnds, m_requests.front().end);
    }
    consider(result, Event::Strays, m_mischief.nextStrays());
    if (!m_requests.empty() && !m_requests.front().isOnLine) {
        considerStart(result, Event::RequestStarts, m_requests.front().ready, 0);
    }
    for (std::size_t i = 0; i < m_sendings.size(); ++i) {
        if (m_sendings[i].state == Sending::State::Waiting) {
            considerStart(result, Event::SendingStarts, m_sendings[i].due, i);
        }
    }
    return result;
}

void Line::handle(const Next& next)
{
    switch (next.event) {
    case Event::Change: {
        const Change change = m_changes.front();
        m_changes.pop_front();
        m_mischief.setAdversaries(change.adversaries, change.at);
        break;
    }
    case Event::ByteEnds:
        endByte();
        break;
    case Event::SendingEnds:
        endSending(next.index);
        break;
    case Event::RequestEnds:
        endRequest();
        break;
    case Event::RequestStarts:
        startRequest(next.at);
        break;
    case Event::SendingStarts:
        startSending(m_sendings[next.index], next.at);
        break;
    case Event::Strays:
        addStrays(next.at);
        break;
    case Event::ByteStarts:
        startByte(m_sendings[next.index]);
        break;
    case Event::None:
        break;
    }
}

/// Most bytes meet nobody: as many as end before anything else happens are taken at once.
bool Line::runUndisturbed(std::size_t index, qint64 limit)
{
    Sending& sending = m_sendings[index];
    const bool meetsRequests =
        isHalfDuplex() &&
        (!m_requests.empty() || m_lastRequest.end > byteStart(sending, sending.next));
    if (m_receiver.isBusy() || meetsRequests ||
        std::count_if(m_sendings.begin(), m_sendings.end(),
                      [](const Sending& other) { return other.isUnderWay(); }) != 1) {
        return false;
    }
    const qint64 end = std::min(limit, nextBesidesBytes().at);
    const int first = sending.next;
    while (sending.isUnderWay()) {
        const Receiver::Byte byte = byteOf(sending, sending.next);
        if (byte.time.to > end) {
            break;
        }
        m_receiver.take(byte, m_mischief, m_book);
        ++sending.next;
    }
    return sending.next > first;
}

void Line::startRequest(qint64 at)
{
    Request& request = m_requests.front();
    request.start = at;
    request.end = std::max(request.end, at + request.bytes.size() * m_options.byteTime);
    request.isOnLine = true;
    m_lineFree = request.end;
}

void Line::endRequest()
{
    Request request = m_requests.front();
    m_requests.pop_front();
    LineExchange* exchange = m_book.find(request.number);
    if (!exchange) {
        return; // the book is shorter than what waits for the line
    }
    if (m_receiver.isBusy() && byteOver(request)) {
        exchange->harms |= Harm::Overlap;
    }
    m_lastRequest = request;
    exchange->endedAt = toMicroseconds(request.end);
    hear(*exchange, request.bytes, request.end);
    if (m_watcher) {
        m_watcher->requestEnded(*exchange);
    }
}

void Line::hear(LineExchange& exchange, const QByteArray& frame, qint64 at)
{
    AbsentBoards absent;
    exchange.harms |= m_mischief.harmRequest(exchange.address, at, absent);
    exchange.isHeard = !exchange.harms && damage::isSound(frame);
    if (exchange.isHeard) {
        for (const BoardAnswer& answer : m_boards->hear(frame, toMicroseconds(at), absent)) {
            addAnswer(exchange, answer, at);
        }
    }
}

void Line::addAnswer(LineExchange& exchange, const BoardAnswer& answer, qint64 heardAt)
{
    LineAnswer entry;
    entry.board = answer.board;
    entry.bytes = answer.bytes;
    entry.tag = answer.tag;
    entry.lateBy = answer.delay;
    m_mischief.harmAnswer(entry);
    Sending sending;
    sending.sender = {exchange.number, static_cast<int>(exchange.answers.size()), answer.board};
    sending.bytes = entry.sent;
    sending.heardAt = heardAt;
    sending.delay =
        (entry.lateBy + m_turnaround.between(m_options.leastTurnaround, m_options.mostTurnaround)) *
        kMicrosecond;
    sending.due = heardAt + sending.delay;
    const int pieces = std::max(1, answer.pieces);
    sending.pieceLength = std::max(1, (answer.bytes.size() + pieces - 1) / pieces);
    sending.pause = answer.pieces > 1 ? answer.pause * kMicrosecond : 0;
    sending.isDamaged = entry.sent != entry.bytes;
    sending.isLost = entry.harms.testFlag(Harm::Loss);
    const bool isBlocked =
        std::any_of(m_sendings.begin(), m_sendings.end(),
                    [&answer](const Sending& other) { return other.sender.board == answer.board; });
    sending.state = isBlocked ? Sending::State::Blocked : Sending::State::Waiting;
    m_sendings.push_back(sending);
    exchange.answers.push_back(entry);
}

void Line::addStrays(qint64 at)
{
    Sending sending;
    sending.bytes = m_mischief.takeStrays(at);
    sending.due = at;
    m_sendings.push_back(sending);
}

void Line::startSending(Sending& sending, qint64 at)
{
    const bool isAnswer = sending.sender.exchange != Receiver::Sender::kNobody;
    const int size = sending.bytes.size();
    sending.state = Sending::State::Leaving;
    sending.start = at;
    sending.end = at;
    if (isAnswer && m_mischief.isAbsent(sending.sender.board, at)) {
        if (LineAnswer* answer =
                m_book.findAnswer(sending.sender.exchange, sending.sender.answer)) {
            answer->harms |= Harm::Absent;
        }
        sending.isLost = true;
    } else if (size > 0) {
        sending.end = byteStart(sending, size - 1) + m_options.byteTime;
    }
    if (sending.isLost) {
        sending.next = size;
    } else if (isQueuing()) {
        m_lineFree = sending.end;
    }
}

void Line::endSending(std::size_t index)
{
    const Sending sending = m_sendings[index];
    m_sendings.erase(m_sendings.begin() + static_cast<std::ptrdiff_t>(index));
    if (sending.sender.exchange == Receiver::Sender::kNobody) {
        if (m_watcher) {
            m_watcher->straysEnded(sending.bytes, toMicroseconds(sending.end));
        }
        return;
    }
    for (Sending& waiting : m_sendings) {
        if (waiting.sender.board == sending.sender.board) {
            // Its board turns to it only now.
            waiting.state = Sending::State::Waiting;
            waiting.due = sending.end + waiting.delay;
            if (LineAnswer* answer =
                    m_book.findAnswer(waiting.sender.exchange, waiting.sender.answer)) {
                answer->harms |= Harm::Late;
                answer->lateBy += (sending.end - waiting.heardAt) / kMicrosecond;
            }
            break;
        }
    }
    if (LineExchange* exchange = m_book.find(sending.sender.exchange)) {
        LineAnswer& answer = exchange->answers[static_cast<std::size_t>(sending.sender.answer)];
        answer.leftAt = toMicroseconds(sending.end);
        if (m_watcher) {
            m_watcher->answerEnded(*exchange, answer);
        }
    }
}

void Line::startByte(Sending& sending)
{
    m_receiver.begin(byteOf(sending, sending.next), m_book);
    ++sending.next;
}

void Line::endByte()
{
    for (const Request& request : m_requests) {
        if (const auto over = byteOver(request)) {
            m_receiver.spoil(*over, m_book);
            if (LineExchange* exchange = m_book.find(request.number)) {
                exchange->harms |= Harm::Overlap;
            }
        }
    }
    if (const auto over = byteOver(m_lastRequest)) {
        m_receiver.spoil(*over, m_book);
    }
    m_receiver.finish(m_mischief, m_book);
}

/// Which of the request's bytes, if any, lies over the byte that is being received.
std::optional<char> Line::byteOver(const Request& request) const
{
    const Span& time = m_receiver.current().time;
    const qint64 from = std::max(time.from, request.start);
    if (!isHalfDuplex() || from >= std::min(time.to, request.end)) {
        return std::nullopt;
    }
    const auto index = static_cast<int>((from - request.start) / m_options.byteTime);
    return request.bytes.at(std::min(request.bytes.size() - 1, index));
}

qint64 Line::byteStart(const Sending& sending, int index) const
{
    const qint64 start = sending.start + index * m_options.byteTime;
    return sending.pause == 0 ? start : start + index / sending.pieceLength * sending.pause;
}

Receiver::Byte Line::byteOf(const Sending& sending, int index) const
{
    const qint64 start = byteStart(sending, index);
    return {sending.bytes.at(index),
            {start, start + m_options.byteTime},
            sending.sender,
            sending.isDamaged,
            index == sending.bytes.size() - 1};
}

qint64 Line::nextArrival(int together) const
{
    qint64 at = std::min(m_receiver.nextAt(), nextBesidesBytes().at);
    const int begun = m_receiver.isBusy() ? 1 : 0;
    bool continues = false;
    for (const Sending& sending : m_sendings) {
        if (sending.isUnderWay()) {
            // The byte that has begun is one of those that come together.
            const int count = sending.pause == 0 ? together : 1;
            const int last = std::min(sending.bytes.size(), sending.next - begun + count) - 1;
            at = std::min(at, byteStart(sending, last) + m_options.byteTime);
            continues = true;
        }
    }
    if (m_receiver.isBusy() && !continues) {
        at = std::min(at, m_receiver.current().time.to);
    }
    return toMicroseconds(at);
}

QByteArray Line::takeArrived(qint64 now)
{
    advance(now);
    return m_receiver.takeArrived(now * kMicrosecond, m_book);
}

void Line::reset()
{
    m_collected.clear();
    m_isCollecting = false;
    m_requests.clear();
    m_sendings.clear();
    m_receiver.reset();
    m_lineFree = 0;
    m_portFree = 0;
}
