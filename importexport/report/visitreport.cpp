#include "importexport/report/visitreport.h"

#include "importexport/report/faultspans.h"

#include <algorithm>

QString FaultSpan::text() const
{
    RecordedEvent event;
    event.kind = place == FaultPlace::None ? EventKind::Lost : EventKind::FaultBegun;
    event.place = place;
    return event.description();
}

const ReportedLdb* VisitReport::find(const QString& hexId) const
{
    const auto found = std::find_if(
        ldbs.begin(), ldbs.end(), [&hexId](const ReportedLdb& ldb) { return ldb.hexId == hexId; });
    return found == ldbs.end() ? nullptr : &*found;
}

QString VisitReport::nameOf(const QString& hexId) const
{
    const ReportedLdb* ldb = find(hexId);
    return ldb ? ldb->name : QString();
}

namespace {

/// Of what flapped, what it was.
EventKind foldedKind(const RecordedEvent& event)
{
    return event.kind == EventKind::Flapped ? static_cast<EventKind>(event.before.toInt())
                                            : event.kind;
}

} // namespace

bool FaultSpans::isTaken(const RecordedEvent& event)
{
    switch (event.kind) {
    case EventKind::FaultBegun:
    case EventKind::FaultEnded:
    case EventKind::FaultRemembered:
    case EventKind::Lost:
    case EventKind::Returned:
        return true;
    case EventKind::Flapped:
        return foldedKind(event) != EventKind::ModeChanged;
    default:
        return false;
    }
}

void FaultSpans::take(const RecordedEvent& event)
{
    if (!isTaken(event)) {
        return;
    }
    FaultSpan span;
    span.hexId = event.hexId;
    span.place = event.place;
    span.begun = event.at;
    switch (event.kind) {
    case EventKind::FaultBegun:
    case EventKind::Lost:
        begin(event, span);
        break;
    case EventKind::FaultEnded:
    case EventKind::Returned:
        end(event);
        break;
    case EventKind::FaultRemembered:
        span.isRemembered = true;
        m_ended.push_back(span);
        break;
    default:
        fold(event);
        break;
    }
}

void FaultSpans::begin(const RecordedEvent& event, FaultSpan span)
{
    end(event); // of one whose end nobody has seen
    m_open[{event.hexId, event.place}] = std::move(span);
}

void FaultSpans::end(const RecordedEvent& event)
{
    FaultSpan span;
    const auto open = m_open.find({event.hexId, event.place});
    if (open != m_open.end()) {
        span = open->second;
        m_open.erase(open);
    } else if (event.kind == EventKind::FaultBegun || event.kind == EventKind::Lost) {
        return;
    } else {
        span.hexId = event.hexId;
        span.place = event.place;
        span.begun = event.since;
    }
    span.ended = event.at;
    m_ended.push_back(std::move(span));
}

/// One that came and went more often than is told one by one. What was told to have begun before
/// is the first of them.
void FaultSpans::fold(const RecordedEvent& event)
{
    FaultSpan span;
    span.hexId = event.hexId;
    span.place = event.place;
    span.begun = event.since;
    span.times = event.count;
    const auto open = m_open.find({event.hexId, event.place});
    if (open != m_open.end()) {
        FaultSpan before = open->second;
        m_open.erase(open);
        before.ended = qMax(before.begun, event.since);
        m_ended.push_back(std::move(before));
    }
    if (event.isStill) {
        span.isFlapStill = true;
        m_open[{event.hexId, event.place}] = std::move(span);
    } else {
        span.ended = event.at;
        m_ended.push_back(std::move(span));
    }
}

std::vector<FaultSpan> FaultSpans::all() const
{
    std::vector<FaultSpan> spans = m_ended;
    spans.reserve(m_ended.size() + m_open.size());
    for (const auto& [key, span] : m_open) {
        spans.push_back(span);
    }
    std::stable_sort(spans.begin(), spans.end(),
                     [](const FaultSpan& a, const FaultSpan& b) { return a.begun < b.begun; });
    return spans;
}
