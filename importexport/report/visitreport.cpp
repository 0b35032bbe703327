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

/// The kind of what flapped.
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
    span.isBeginVague = event.isVague;
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
    end(event); // a former one whose end nobody has seen
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
    span.isEndVague = event.isVague;
    m_ended.push_back(std::move(span));
}

/// Takes one that flapped, so that it was not told each time. The begin that was told is that of
/// its first time.
void FaultSpans::fold(const RecordedEvent& event)
{
    FaultSpan span;
    span.hexId = event.hexId;
    span.place = event.place;
    span.begun = event.since;
    span.times = event.count;
    const auto open = m_open.find({event.hexId, event.place});
    if (open != m_open.end()) {
        span.begun = open->second.begun;
        span.isBeginVague = open->second.isBeginVague;
        span.times += open->second.times;
        m_open.erase(open);
    }
    if (event.isStill) {
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
