#pragma once

#include "importexport/settingswriter.h"

#include <QDateTime>

#include <map>
#include <set>

/// One LDB of the table of settings. A value.
struct TableRow
{
    enum class Reading
    {
        Never,
        Awaited, ///< asked for in the reading that is on
        Read,
        Unanswered,
        Unsent ///< the run ended first
    };

    QString hexId;
    /// What the LDB had when it was last read; stays when a later reading fails.
    std::optional<LdbSettings> read;
    QDateTime readAt;
    QString firmwareId;
    Reading reading = Reading::Never;
    bool isListed = false; ///< an LDB of the bus, lost ones included
    bool isConnected = false;
    LdbSettings wanted;       ///< the values of the edits
    std::set<LdbField> edits; ///< fields to be changed
    /// What became of the fields last written. A field that is not `Written` stays an edit.
    std::map<LdbField, FieldOutcome> outcomes;
    /// Fields whose value in the LDB is not known: they were written to, and not read back.
    std::set<LdbField> doubtful;

    bool isEdited(LdbField field) const { return edits.count(field) > 0; }
    bool isKnown(LdbField field) const { return isEdited(field) || read; }
    /// The value that the LDB is to have, where it is known.
    LdbSettings shown() const;

    /// Makes the field's value in `values` an edit, unless the LDB has it already.
    void edit(LdbField field, const LdbSettings& values);
    void takeBack(LdbField field);

    /// The LDB was read: edits that it has already end.
    void take(const LdbSettings& record, const QDateTime& at);
    /// The edits, or some of them, were written. Without a record nothing is claimed of what the
    /// LDB has.
    void take(const SettingsOutcome& outcome, const std::vector<LdbField>& asked,
              const QDateTime& at);
    /// What is to be written; nothing where the LDB was never read.
    std::optional<SettingsChange> change() const;
};
