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
/// Its state can be saved and restored (`toJson`), so that a restart of the program or the bus
/// neither ends an event nor doubles it.
///
/// The first record after a start or a loss shows that a fault came or went, but not when
/// (`isVague`).
class EventFinder
{
public:
    /// A run begins. What happened before it is not known.
    void runBegun();
    void heard(qint64 at, const QString& hexId, const LdbStatus& status);
    /// A record says that the LDB is lost. What is known of its faults stays.
    void lost(qint64 at, const QString& hexId);
    /// The LDBs that a scan has found, in any order.
    void scanEnded(qint64 at, QStringList found);
    /// Tells what has stopped flapping by now; brings nothing new.
    void passed(qint64 at);

    std::vector<RecordedEvent> takeEvents();

    /// Grows whenever the result of `toJson` changes.
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
    /// What a track follows. Faults have the numbers of `FaultPlace`.
    enum Subject : int
    {
        Loss = 20,
        Mode = 100 ///< a mode is this plus its code
    };
    /// One fault of one LDB, or its loss or one of its modes, over time.
    struct Track
    {
        bool isPresent = false;
        qint64 since = 0;           ///< when it began last; 0: not known
        std::vector<qint64> begins; ///< the latest, no more than flapping takes
        // While it flaps:
        bool isFolding = false;
        bool isSlow = false; ///< it takes longer to settle
        qint64 foldedSince = 0;
        int folded = 0; ///< begins not told one by one
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
