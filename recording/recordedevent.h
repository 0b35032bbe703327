#pragma once

#include <QMetaType>
#include <QString>

/// What an event is. The numbers are those in the files.
enum class EventKind : quint8
{
    FaultBegun = 0,
    FaultEnded = 1,      ///< `since` says when it began
    FaultRemembered = 2, ///< it came and went between two records
    Flapped = 3,         ///< a fault or a loss that came and went `count` times since `since`
    ModeChanged = 4,     ///< `before` and `after` are codes of `LdbState`
    Lost = 5,
    Returned = 6, ///< `since` says when it was lost
    ScanDiffers = 7,
    RunBegun = 8,
    RunEnded = 9,
    PortLost = 10,
    PortBack = 11,
    ActionSent = 12,
    SettingsSaved = 13,
    SettingsImported = 14,
    FaultFinding = 15,
    Mark = 16, ///< the user's own
    Gap = 17,  ///< `count` exchanges since `since` are not in the recording
    ClockSet = 18,
    Named = 19, ///< from here on the records carry the name `after`
    Listed = 20 ///< from here on the LDBs `after` are in the list; not for people
};

/// Which part of an LDB a fault is at.
enum class FaultPlace : quint8
{
    None = 0,
    LoopOpen = 1,
    LoopShort = 2,
    LoopDcLeakage = 3,
    EarthOpen = 4,
    EarthLeakage = 5,
    Amplifier = 6,
    PrimaryPort = 7,
    SecondaryPort = 8
};

/// One event of a recording. A plain value; moments are UTC, µs since 1970.
struct RecordedEvent
{
    qint64 at = 0;
    EventKind kind = EventKind::Mark;
    QString hexId; ///< empty: of the whole bus
    FaultPlace place = FaultPlace::None;
    qint64 since = 0;     ///< 0: not known, or not used by this kind
    int count = 1;        ///< how many were folded or lost
    bool isStill = false; ///< of what flapped: it is still there
    bool isVague = false; ///< of a fault: it came or went while nothing was heard of the LDB
    QString before;       ///< what was, for machines: codes, or settings
    QString after;
    QString text; ///< what people wrote, or were told

    /// Whether a list of events shows it.
    bool isForPeople() const;

    bool operator==(const RecordedEvent& other) const;

    /// For people, in the language in force, without the time and the LDB.
    QString description() const;
    /// Whether people can read `before` and `after`. If not, the description says what they mean.
    bool hasValues() const;
};
Q_DECLARE_METATYPE(RecordedEvent)

/// How long something took, for people: "7 min 6 s".
QString durationText(qint64 microseconds);
