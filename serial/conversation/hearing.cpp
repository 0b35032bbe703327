#include "serial/conversation/hearing.h"

#include "serial/wire/framecodec.h"
#include "serial/wire/hextext.h"

#include <algorithm>

namespace {

/// Several times the longest frame. No answer can be longer.
constexpr int kMaxBytes = 1024;
constexpr int kFewestDigits = 8;

} // namespace

void Hearing::begin(qint64 requestEnd)
{
    *this = Hearing();
    m_requestEnd = requestEnd;
}

void Hearing::take(const QByteArray& bytes, qint64 now)
{
    if (m_bytes.size() + bytes.size() > kMaxBytes) {
        setAside();
    }
    const int before = m_bytes.size();
    m_bytes.append(bytes.right(kMaxBytes));
    m_lastByteAt = now;
    if (now >= m_requestEnd) {
        m_digits +=
            static_cast<int>(std::count_if(bytes.begin(), bytes.end(), hextext::isUpperDigit));
    }
    if (!m_soundBody) {
        findSoundFrame(before);
    } else {
        m_isAlone = false;
    }
}

void Hearing::setAside()
{
    m_hasSetAside = m_hasSetAside || !m_bytes.isEmpty();
    m_bytes.clear();
    m_digits = 0;
    m_soundBody.reset();
    m_isAlone = false;
}

void Hearing::findSoundFrame(int from)
{
    for (int end = m_bytes.indexOf(framecodec::kEot, from); end >= 0;
         end = m_bytes.indexOf(framecodec::kEot, end + 1)) {
        const int start = m_bytes.lastIndexOf(framecodec::kSoh, end);
        if (start < 0) {
            continue;
        }
        QByteArray frame = m_bytes.mid(start, end + 1 - start);
        if (framecodec::responseValidation(frame)) {
            m_soundBody = frame;
            m_isAlone = start == 0 && end == m_bytes.size() - 1 && !m_hasSetAside;
            return;
        }
    }
}

std::optional<char> Hearing::singleByte() const
{
    const bool isSingle = m_bytes.size() == 1 && !m_hasSetAside;
    if (isSingle && (m_bytes.at(0) == framecodec::kAck || m_bytes.at(0) == framecodec::kNak)) {
        return m_bytes.at(0);
    }
    return std::nullopt;
}

bool Hearing::isDamagedAnswer(qint64 now) const
{
    if (m_soundBody || m_digits < kFewestDigits) {
        return false;
    }
    return framecodec::isTerminator(m_bytes.back()) || now - m_lastByteAt >= kPause;
}

std::optional<qint64> Hearing::pauseAt() const
{
    return m_digits < kFewestDigits ? std::nullopt : std::make_optional(m_lastByteAt + kPause);
}

bool Hearing::isUnderWay(qint64 now) const
{
    return now - m_lastByteAt < kPause && !m_bytes.isEmpty() &&
           !framecodec::isTerminator(m_bytes.back()) &&
           (m_digits > 0 || m_bytes.contains(framecodec::kSoh));
}

bool Hearing::hasStrayBytes() const
{
    return m_hasSetAside || (!m_bytes.isEmpty() && !m_isAlone && !singleByte());
}
