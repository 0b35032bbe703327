#include "app/settingstable/tablerow.h"

#include <algorithm>

LdbSettings TableRow::shown() const
{
    LdbSettings settings = read.value_or(LdbSettings());
    for (const LdbField field : edits) {
        copyField(field, wanted, settings);
    }
    return settings;
}

void TableRow::edit(LdbField field, const LdbSettings& values)
{
    outcomes.erase(field);
    if (read && doubtful.count(field) == 0 && isSameField(field, values, *read)) {
        edits.erase(field);
        return;
    }
    copyField(field, values, wanted);
    edits.insert(field);
}

void TableRow::takeBack(LdbField field)
{
    outcomes.erase(field);
    edits.erase(field);
}

void TableRow::take(const LdbSettings& record, const QDateTime& at)
{
    // Earlier outcomes are no longer news, except those of fields that are still to be written.
    for (auto entry = outcomes.begin(); entry != outcomes.end();) {
        entry = isEdited(entry->first) ? std::next(entry) : outcomes.erase(entry);
    }
    read = record;
    readAt = at;
    reading = Reading::Read;
    doubtful.clear();
    for (auto field = edits.begin(); field != edits.end();) {
        const auto outcome = outcomes.find(*field);
        // A value that the LDB has, but did not store, has to be written again.
        const bool isOpen = outcome != outcomes.end() && isSameField(*field, wanted, record);
        field =
            isSameField(*field, wanted, record) && !isOpen ? edits.erase(field) : std::next(field);
    }
}

void TableRow::take(const SettingsOutcome& outcome, const std::vector<LdbField>& asked,
                    const QDateTime& at)
{
    for (const LdbField field : asked) {
        outcomes[field] = outcome.outcomeOf(field);
        if (outcomes[field] == FieldOutcome::Written &&
            isSameField(field, outcome.written, wanted)) {
            edits.erase(field);
        }
    }
    const std::optional<LdbSettings>& last = outcome.record ? outcome.record : outcome.fresh;
    if (last) {
        read = last;
        readAt = at;
        reading = Reading::Read;
        doubtful.clear();
    }
    for (const LdbField field : outcome.fields) {
        if (outcome.isHandedOver && !outcome.record && outcome.isSent(parameterOf(field))) {
            doubtful.insert(field);
        }
    }
}

std::optional<SettingsChange> TableRow::change() const
{
    if (!read || edits.empty()) {
        return std::nullopt;
    }
    return SettingsChange{wanted, {edits.begin(), edits.end()}, *read};
}
