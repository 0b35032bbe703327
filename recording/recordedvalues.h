#pragma once

#include <QHash>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QStringList>

#include <vector>

// What a recording has, as plain values. Every moment (`at`) is a UTC time in µs since 1970.

/// From one moment up to another one, which is left out.
struct TimeSpan
{
    qint64 from = 0;
    qint64 to = 0;
};

/// One LDB's record as the window had it: rows as `generalinformation::buildRows` makes them.
struct RecordedRecord
{
    qint64 at = 0; ///< when its status was asked, or the loss told
    QString hexId;
    QList<QStringList> rows; ///< empty: listed by then, and nothing heard yet
    bool isExtra = false;    ///< asked between the turns; the log leaves it out
};

/// A transmission, and whether anything came of it; or that its LDB was told as lost.
struct RecordedQuestion
{
    qint64 at = 0;
    QString hexId;
    int kind = 0; ///< an `ExchangeKind`
    bool isSilent = false;
    bool isLoss = false;
};

/// The exchanges of one LDB in one minute, counted. Probes count only if the LDB is in the list.
struct RecordedMinute
{
    qint64 at = 0; ///< where the minute begins
    QString hexId;
    int asked = 0; ///< transmissions; what is neither good, damaged nor silent was not believed
    int good = 0;
    int damaged = 0;
    int silent = 0;
    int told = 0; ///< records, those that say "lost" included
    // Flight times of the good ones, µs; 0 without one.
    qint64 leastFlight = 0;
    qint64 sumOfFlights = 0;
    qint64 mostFlight = 0;
};

/// From the start of the bus to its end.
struct RecordedRun
{
    qint64 begun = 0;
    qint64 until = 0;     ///< the end, or the last moment known of it
    bool isEnded = false; ///< false: it is on, or the program died
    QString port;
    QStringList found; ///< by its last scan
    /// By hexId, as they were when the run or, if later, the file's day began.
    QHash<QString, QString> names;
};

/// A round began: from this moment on records carry this wall time.
struct RecordedRound
{
    qint64 at = 0;
    qint64 wall = 0;      ///< ms since 1970 UTC
    int offset = 0;       ///< local time there less UTC, s
    bool isBreak = false; ///< the round before was broken off, or was of another run
};

/// The LDBs that were listed from a moment on.
struct RecordedList
{
    qint64 at = 0;
    QStringList hexIds;
};

/// A time in which exchanges took place that are not recorded.
struct RecordedGap
{
    qint64 from = 0;
    qint64 to = 0;
    int lost = 0; ///< exchanges
};
