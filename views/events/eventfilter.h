#pragma once

#include "recording/recordedvalues.h"
#include "views/events/eventkinds.h"

#include <QString>
#include <QStringList>

#include <limits>
#include <optional>

/// Which events a list shows. A plain value.
struct EventFilter
{
    QString hexId; ///< empty: of all LDBs, and of the whole bus
    std::optional<EventGroup> group;
    TimeSpan span{0, std::numeric_limits<qint64>::max()};
    QStringList words; ///< each must stand in the event's text, in upper or lower case

    /// `text`: everything that the list says of the event.
    bool accepts(const RecordedEvent& event, const QString& text) const;
    bool operator==(const EventFilter& other) const;
};
