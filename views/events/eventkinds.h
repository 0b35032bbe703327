#pragma once

#include "recording/recordedevent.h"

#include <QColor>
#include <QString>

/// The groups into which the user sorts events.
enum class EventGroup : int
{
    Faults,
    Losses, ///< and what scans miss
    Modes,
    Work, ///< actions, saves, imports, names
    FaultFinding,
    Marks,
    Recording ///< runs, the port, the recorder's gaps, the clock
};

namespace eventkinds {

constexpr int kGroups = static_cast<int>(EventGroup::Recording) + 1;

EventGroup groupOf(const RecordedEvent& event);
/// In the language in force.
QString textOf(EventGroup group);
/// The event's colour, in the list and on the time bar.
QColor colourOf(const RecordedEvent& event);

/// The id of what lasts from one event to another: a fault of an LDB's part, a loss, a run, a lost
/// port. The event that begins it and the one that ends it give the same id. Empty for events that
/// neither begin nor end anything.
QString lastingId(const RecordedEvent& event);
bool isBegin(const RecordedEvent& event);

} // namespace eventkinds
