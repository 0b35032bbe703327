#pragma once

#include "recording/recordedevent.h"
#include "serial/ldb/ldbstatus.h"

#include <QByteArray>
#include <QHash>
#include <QStringList>

#include <map>
#include <vector>

/// Finds events in a stream of records: what changed since the last record of that LDB. What comes
/// and goes too often is folded into one event. Pure: the time comes with each call (UTC, µs since
/// 1970).
///
/// It can be kept and taken back (`toJson`), so that a restart of the program or of the bus neither
/// ends nor doubles an event.
///
/// The first record since the start of the bus, or since a loss, does not show when a fault came or
/// went: only that it did (`isVague`).
class EventFinder
{
public:
    /// A run begins: of what was before, nothing is known.
    void runBegun();
    void heard(qint64 at, const QString& hexId, const LdbStatus& status);
    /// A record says that the LDB is lost. What is known of its faults stays.
    void lost(qint64 at, const QString& hexId);
    /// The LDBs that a scan has found, in any order.
    void scanEnded(qint64 at, QStringList found);
    /// Nothing new: what has stopped to flap by now is told.
    void passed(qint64 at);

    std::vector<RecordedEvent> takeEvents();

    /// Grows whenever what `toJson` gives is another than before.
    int revision() const { return m_revision; }
    QByteArray toJson() const;
    static EventFinder fromJson(const QByteArray& json);

private:
    enum class Level
    {
        None,
        Remembered,
        Present
    };
    /// What a track follows; those of the faults are the numbers of `FaultPlace`.
    enum Subject : int
    {
        Loss = 20,
        Mode = 100 ///< and from there on: a mode's code is added
    };
    /// One fault of one LDB, or its loss or one of its modes, over time.
    struct Track
    {
        bool isPresent = false;
        qint64 since = 0;           ///< when it began last; 0: not known
        std::vector<qint64> begins; ///< the latest, at most as many as make it flap
        // While it flaps:
        bool isFolding = false;
        bool isSlow = false; ///< it settles later
        qint64 foldedSince = 0;
        int folded = 0; ///< begins that are not told
        qint64 lastChange = 0;
        bool isToldPresent = false;
    };
    struct Ldb
    {
        std::map<FaultPlace, Level> faults;
        bool isLost = false;
        bool isFollowed = false;     ///< heard since the run began, and not lost since
        int mode = -1;               ///< none heard yet
        std::map<int, Track> tracks; ///< by `Subject`
    };

    static std::map<FaultPlace, Level> faultsOf(const LdbStatus& status);
    void compareFault(qint64 at, const QString& hexId, Ldb& ldb, FaultPlace place, Level now);
    void changed(Track& track, bool isPresent, const RecordedEvent& event);
    static void beginFolding(Track& track, qint64 at);
    void settle(qint64 at, const QString& hexId, int subject, Track& track);
    void tellFolded(const QString& hexId, int subject, const Track& track);

    std::map<QString, Ldb> m_ldbs;
    QStringList m_found; ///< by the last scan, sorted
    bool m_hasScanned = false;
    int m_revision = 0;
    std::vector<RecordedEvent> m_events;
};
