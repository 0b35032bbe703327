#pragma once

#include "history/formersettings.h"
#include "importexport/report/recordedwork.h"
#include "recording/recordedevent.h"
#include "recording/recordedvalues.h"
#include "recording/recordingnotice.h"
#include "serial/ldb/ldbsettings.h"
#include "serial/ldb/startplan.h"

#include <QMetaType>
#include <QStringList>

#include <optional>
#include <vector>

// What a report says, as plain values. Every moment is a UTC time in µs since 1970; 0 is not known.

/// What the user and the program know besides the recording.
struct ReportHead
{
    QString installation;
    QString place;
    QString engineer;
    QString reference; ///< the customer's
    QString remarks;   ///< lines
    QString program;   ///< name and version
};

/// What the report is to cover.
struct ReportRequest
{
    ReportHead head;
    TimeSpan span;
    std::vector<KnownLdb> known; ///< LDBs remembered of the installation
    QString formerFolder;        ///< where former settings are kept; may be empty
    bool hasAppendix = false;    ///< all settings
};

/// What was read of an LDB, and when.
template <typename Value>
struct ReadValue
{
    qint64 at = 0;
    Value value;
};

struct ReportedLdb
{
    QString hexId;
    QString name; ///< empty where it has none, or has told none
    /// The last record up to the end of the span; without rows where nothing was heard.
    RecordedRecord record;
    bool isListed = true; ///< at the end of the span
    /// Only if it was told twice alike in the span.
    std::optional<ReadValue<QString>> firmware;
    /// Read last in the span; only with the appendix.
    std::optional<ReadValue<LdbSettings>> settings;
    RecordedMinute line; ///< its exchanges in the span, counted
};

/// A fault, or the loss of an LDB, from its begin to its end.
struct FaultSpan
{
    QString hexId;
    FaultPlace place = FaultPlace::None; ///< None: it did not answer
    qint64 begun = 0;
    // It was so when the LDB was heard again, so it began, or ended, earlier.
    bool isBeginVague = false;
    bool isEndVague = false;
    qint64 ended = 0;          ///< 0: it is still there at the end of the span
    int times = 1;             ///< of one that came and went
    bool isRemembered = false; ///< it came and went between two records, at `begun`

    bool isThere() const { return ended == 0 && !isRemembered; }
    /// For people, in the language in force.
    QString text() const;
};

struct ReportedChange
{
    qint64 at = 0;
    QString hexId;
    bool isImport = false;
    recordedwork::FieldChange change;
};

/// A sample of the currents during a run, mA; nothing for a gap or a port without a measurement.
struct ReportedSample
{
    qint64 at = 0;
    std::optional<double> primary;
    std::optional<double> secondary;
};

struct ReportedFinding
{
    RecordedEvent event;
    std::optional<recordedwork::Finding> finding; ///< none for a run without a result
    /// The run before it on the same LDB, whenever that was.
    std::optional<ReadValue<recordedwork::Finding>> former;
    std::vector<ReportedSample> samples;
};

/// The whole visit.
struct VisitReport
{
    ReportHead head;
    TimeSpan span;
    bool hasAppendix = false;
    std::optional<TimeSpan> recorded; ///< the part of the span that is recorded, if any
    std::vector<RecordedRun> runs;
    std::vector<ReportedLdb> ldbs; ///< by address
    std::vector<KnownLdb> missing; ///< remembered, and not listed in the span
    std::vector<FaultSpan> faults; ///< that were there in the span, by begin
    std::vector<ReportedFinding> findings;
    std::vector<ReportedChange> changes;
    /// What LDBs had before something was written, recorded or not.
    std::vector<FormerSettings> former;
    std::vector<RecordedEvent> marks;
    std::vector<RecordedEvent> others; ///< events that are in none of the lists above
    std::vector<RecordedGap> gaps;
    std::vector<RecordingNotice> notices; ///< what could not be read

    const ReportedLdb* find(const QString& hexId) const;
    QString nameOf(const QString& hexId) const;
};
Q_DECLARE_METATYPE(VisitReport)
