#pragma once

#include "serial/framecodec.h"

#include <QByteArray>

#include <optional>

/// Watches the first answer after a silence. An adapter that has stalled for longer than LDBs may
/// be late hands over many LDBs' answers in one burst, of which none says whose it is. So the first
/// answer after a request that was given up is held until the line has been quiet for a moment; if
/// more comes instead, all of it is nobody's and the request is to be repeated.
class SilenceGuard
{
public:
    /// How long the line must be quiet, ms: longer than adapters keep single bytes back.
    static constexpr int kQuietMs = 40;

    void clear() { *this = {}; }

    /// A request has been given up without an answer.
    void noteSilence() { m_state = m_state == State::Trusting ? State::Doubting : m_state; }

    /// Whether an answer is held, or the line is drained.
    bool isWaiting() const { return m_state == State::Holding || m_state == State::Draining; }
    /// Whether these bytes, just read, are part of a burst.
    bool isDisturbedBy(const QByteArray& bytes) const
    {
        return isWaiting() || (m_state == State::Doubting && bytes.count(framecodec::kSoh) > 1);
    }

    /// An answer that would be taken. Whether it is held; then the wait for quiet begins.
    bool hold(const QByteArray& answer)
    {
        if (m_state != State::Doubting) {
            return false;
        }
        m_state = State::Holding;
        m_held = answer;
        return true;
    }

    /// More came, so that it was a burst. Whether that is news: then the line is to be drained.
    bool disturb()
    {
        const bool isNews = m_state != State::Draining;
        m_state = State::Draining;
        m_held.clear();
        return isNews;
    }

    /// The wait is over: the answer held, or nothing after a burst.
    std::optional<QByteArray> endWait()
    {
        auto held = m_state == State::Holding ? std::make_optional(m_held) : std::nullopt;
        clear();
        return held;
    }

private:
    enum class State
    {
        Trusting,
        Doubting, ///< the next answer will be held
        Holding,
        Draining
    };
    State m_state = State::Trusting;
    QByteArray m_held;
};
