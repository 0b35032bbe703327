#pragma once

#include "recording/recordedevent.h"

#include <QColor>
#include <QString>

/// What a user tells events apart by.
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
/// Of the event wherever it is shown.
QColor colourOf(const RecordedEvent& event);

/// What lasts from an event on, until another one ends it: a fault, a loss, a run, a lost port. Of
/// one LDB and place it has one id; empty for an event that neither begins nor ends anything.
QString lastingId(const RecordedEvent& event);
bool isBegin(const RecordedEvent& event);

} // namespace eventkinds
