#pragma once

#include "importexport/report/visitreport.h"

#include <map>
#include <utility>
#include <vector>

/// Joins the begins and ends of faults and losses to spans, from events in their order. A value.
class FaultSpans
{
public:
    /// Takes the event if it is of a fault or a loss; gives whether it is.
    static bool isTaken(const RecordedEvent& event);
    void take(const RecordedEvent& event);

    /// Forgets what has ended by now, which is before the span of the report.
    void forgetEnded() { m_ended.clear(); }
    /// All, by begin; those that are still there included.
    std::vector<FaultSpan> all() const;

private:
    using Key = std::pair<QString, FaultPlace>;

    void begin(const RecordedEvent& event, FaultSpan span);
    void end(const RecordedEvent& event);
    void fold(const RecordedEvent& event);

    std::map<Key, FaultSpan> m_open;
    std::vector<FaultSpan> m_ended;
};
