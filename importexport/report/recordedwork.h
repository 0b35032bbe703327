#pragma once

#include "importexport/settingswriter.h"
#include "recording/recordedevent.h"

#include <QVariant>

#include <optional>
#include <vector>

/// What was done to LDBs, as events of a recording hold it for machines. Values and pure functions.
namespace recordedwork {

/// What became of one changed setting.
enum class ChangeOutcome
{
    Verified, ///< read back, and stored
    Accepted, ///< by the LDB, but not read back
    Refused,
    NotAnswered,
    Differs,   ///< the LDB has another value
    LeftAlone, ///< somebody else has changed it meanwhile
    NotSent
};

struct FieldChange
{
    LdbField field = LdbField::Name;
    QVariant before; ///< invalid where it is not known
    QVariant after;  ///< what was to be written
    ChangeOutcome outcome = ChangeOutcome::NotSent;
};

/// The event, without a time, that says which settings were written: `kind` is `SettingsSaved` or
/// `SettingsImported`, `text` is for people. None where there was nothing to change.
std::optional<RecordedEvent> settingsEvent(EventKind kind, const SettingsOutcome& outcome);
/// Reads such an event; leaves out what it cannot understand.
std::vector<FieldChange> changesOf(const RecordedEvent& event);
/// A value of a field for people, in the language in force; a dash where it is not known.
QString valueText(LdbField field, const QVariant& value);
QString outcomeText(ChangeOutcome outcome);

/// What a run of fault finding or commissioning has found.
struct Finding
{
    enum class End
    {
        Connected = 0,
        Open = 1,
        Short = 2
    };
    struct Side
    {
        bool isTracked = true;
        bool isFinished = false;
        End end = End::Connected; ///< of a run that is finished
        int fims = 0;             ///< counted
    };
    /// A leakage that showed while the FIMs came up.
    struct Leakage
    {
        bool isOfEarth = true; ///< otherwise DC leakage of the loop
        /// The approximate FIM, counted from each side; nothing for a side that no longer counted.
        std::optional<int> primary;
        std::optional<int> secondary;
    };

    bool isCommissioning = false;
    Side primary;
    Side secondary;
    std::vector<Leakage> leakages;
    std::optional<int> configured; ///< FIMs that the LDB was told to have
};

/// The event of a finished run, without a time. `since` is when it began (UTC, µs since 1970).
RecordedEvent findingEvent(const QString& hexId, qint64 since, const Finding& finding);
/// Nothing for an event without a finding, as that of a stopped run.
std::optional<Finding> findingOf(const RecordedEvent& event);

/// The finding in lines for people, in the language in force.
QStringList findingTexts(const Finding& finding);
QString leakageText(const Finding::Leakage& leakage);

} // namespace recordedwork
