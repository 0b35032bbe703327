#pragma once

#include "serial/ldb/exchange.h"

#include <QByteArray>

#include <utility>
#include <vector>

/// The transmissions of the inquiries, each with what came until the next one and what became of
/// it. All times are monotonic µs, `sentAt` too.
class ExchangeLog
{
public:
    /// A transmission is made; the one before it is over.
    void begin(Exchange exchange)
    {
        end();
        m_current = std::move(exchange);
        m_isOpen = true;
    }
    /// Bytes came. More than the longest wait has room for is not kept.
    void hear(const QByteArray& bytes)
    {
        m_current.answer += bytes.left(kMostHeard - m_current.answer.size());
    }
    /// What the bytes turned out to be; the last word counts. `at`: when the last of them came.
    void note(ExchangeOutcome outcome, qint64 at)
    {
        m_current.outcome = outcome;
        m_current.flight = at - m_current.sentAt;
    }
    /// Nothing more comes.
    void end()
    {
        if (std::exchange(m_isOpen, false)) {
            m_ended.push_back(std::exchange(m_current, {}));
        }
    }
    void clear() { *this = ExchangeLog(); }
    /// Those that are over; once.
    std::vector<Exchange> take() { return std::exchange(m_ended, {}); }

private:
    static constexpr int kMostHeard = 4096;

    Exchange m_current;
    bool m_isOpen = false;
    std::vector<Exchange> m_ended;
};
