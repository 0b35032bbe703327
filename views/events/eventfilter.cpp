#include "views/events/eventfilter.h"

#include <algorithm>
#include <tuple>

bool EventFilter::accepts(const RecordedEvent& event, const QString& text) const
{
    return event.at >= span.from && event.at < span.to &&
           (hexId.isEmpty() || event.hexId == hexId) &&
           (!group || eventkinds::groupOf(event) == *group) &&
           std::all_of(words.begin(), words.end(), [&text](const QString& word) {
               return text.contains(word, Qt::CaseInsensitive);
           });
}

bool EventFilter::operator==(const EventFilter& other) const
{
    const auto tied = [](const EventFilter& filter) {
        return std::tie(filter.hexId, filter.group, filter.span.from, filter.span.to, filter.words);
    };
    return tied(*this) == tied(other);
}
