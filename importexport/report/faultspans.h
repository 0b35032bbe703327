#pragma once

#include "importexport/report/visitreport.h"

#include <map>
#include <utility>
#include <vector>

/// Puts begin and end of faults and losses together, from events in their order. A value.
class FaultSpans
{
public:
    /// Whether the event is of a fault or a loss; all others it leaves alone.
    static bool isTaken(const RecordedEvent& event);
    void take(const RecordedEvent& event);

    /// Forgets what has ended: what comes before the span of a report.
    void forgetEnded() { m_ended.clear(); }
    /// By begin; those that are there still among them.
    std::vector<FaultSpan> all() const;

private:
    using Key = std::pair<QString, FaultPlace>;

    void begin(const RecordedEvent& event, FaultSpan span);
    void end(const RecordedEvent& event);
    void fold(const RecordedEvent& event);

    std::map<Key, FaultSpan> m_open;
    std::vector<FaultSpan> m_ended;
};
