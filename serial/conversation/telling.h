#pragma once

#include "serial/conversation/event.h"
#include "serial/conversation/limitedlog.h"

#include <QString>

#include <utility>
#include <vector>

/// What the parts of the conversation tell, in the order in which they tell it.
class Telling
{
public:
    template <typename What>
    void tell(What&& what)
    {
        m_events.emplace_back(std::forward<What>(what));
    }
    /// A line for the diagnostics, unless there are too many of its kind. `now`: monotonic µs.
    void log(LimitedLog::Kind kind, const QString& text, qint64 now)
    {
        for (const QString& line : m_log.admit(kind, text, now)) {
            tell(event::Diagnostic{line});
        }
    }
    std::vector<Event> take() { return std::exchange(m_events, {}); }
    void clear() { m_events.clear(); }

private:
    LimitedLog m_log;
    std::vector<Event> m_events;
};
