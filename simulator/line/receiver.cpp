#include "simulator/line/receiver.h"

#include "serial/wire/framecodec.h"
#include "simulator/line/damage.h"
#include "simulator/line/linetime.h"

#include <algorithm>

namespace {

constexpr int kLongestFrame = 1024;

} // namespace

Receiver::Receiver(Chance garbage)
    : m_garbage(garbage)
{
    m_frame.reserve(kLongestFrame);
}

void Receiver::begin(const Byte& byte, LineBook& book)
{
    if (!m_isBusy) {
        m_current = byte;
        m_isBusy = true;
        return;
    }
    m_current.value = damage::merged(m_current.value, byte.value, m_garbage);
    m_current.isDamaged = true;
    noteOverlap(m_current.sender, book);
    noteOverlap(byte.sender, book);
}

void Receiver::spoil(char with, LineBook& book)
{
    m_current.value = damage::merged(m_current.value, with, m_garbage);
    m_current.isDamaged = true;
    noteOverlap(m_current.sender, book);
}

void Receiver::finish(Mischief& mischief, LineBook& book)
{
    m_isBusy = false;
    take(m_current, mischief, book);
}

void Receiver::take(const Byte& byte, Mischief& mischief, LineBook& book)
{
    const qint64 end = byte.time.to;
    LineAnswer* answer = byte.sender.exchange == Sender::kNobody
                             ? nullptr
                             : book.findAnswer(byte.sender.exchange, byte.sender.answer);
    const Span stall = mischief.stall(end);
    const bool isStalled = stall.contains(end);
    const bool isLosing = mischief.adversaries().stall == Adversaries::Stall::Lose;
    if (answer && isStalled) {
        answer->harms |= isLosing ? Harm::StallLoss : Harm::Held;
    }
    if (isStalled && isLosing) {
        m_isGenuine = false;
        return;
    }
    m_lastAt = std::max(m_lastAt, isStalled ? stall.to : end);
    m_arrived.push_back({m_lastAt, byte.value, isStalled});
    if (answer && byte.isLast) {
        answer->arrivedAt = linetime::toMicroseconds(m_lastAt);
    }
    if (byte.sender.exchange != book.exchangeCount() - 1) {
        book.noteIntrusion(byte.sender.exchange == Sender::kNobody ? Intrusion::Stray
                                                                   : Intrusion::OtherAnswer);
    }
    follow(byte, book);
}

qint64 Receiver::nextAt() const
{
    return m_arrived.empty() ? linetime::kNever : m_arrived.front().at;
}

QByteArray Receiver::takeArrived(qint64 now, LineBook& book)
{
    QByteArray bytes;
    bool wasHeld = false;
    while (!m_arrived.empty() && m_arrived.front().at <= now) {
        wasHeld = wasHeld || m_arrived.front().wasHeld;
        bytes.append(m_arrived.front().value);
        m_arrived.pop_front();
    }
    if (wasHeld) {
        book.noteIntrusion(Intrusion::Held);
    }
    return bytes;
}

void Receiver::reset()
{
    m_isBusy = false;
    m_isInFrame = false;
    m_arrived.clear();
}

void Receiver::noteOverlap(const Sender& sender, LineBook& book)
{
    if (sender.exchange == Sender::kNobody) {
        return;
    }
    if (LineAnswer* answer = book.findAnswer(sender.exchange, sender.answer)) {
        answer->harms |= Harm::Overlap;
    }
}

/// Cuts frames as the master does: the last start before an end counts.
void Receiver::follow(const Byte& byte, LineBook& book)
{
    const auto isOfSender = [this](const Sender& sender) {
        return sender.exchange == m_frameSender.exchange && sender.answer == m_frameSender.answer;
    };
    if (byte.value == framecodec::kSoh) {
        m_isInFrame = true;
        m_isGenuine = byte.sender.exchange != Sender::kNobody;
        m_frameSender = byte.sender;
        m_frame.resize(0);
    }
    if (!m_isInFrame) {
        return;
    }
    m_isGenuine = m_isGenuine && !byte.isDamaged && isOfSender(byte.sender);
    m_frame.append(byte.value);
    const bool isEnd = byte.value == framecodec::kEot;
    m_isInFrame = !isEnd && m_frame.size() < kLongestFrame;
    if (isEnd && !m_isGenuine && damage::isSound(m_frame)) {
        book.addFalseFrame(QByteArray(m_frame.constData(), m_frame.size()));
    }
}
