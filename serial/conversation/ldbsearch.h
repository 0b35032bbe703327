#pragma once

#include "serial/conversation/ldbroster.h"
#include "serial/conversation/telling.h"
#include "serial/ldb/busaddress.h"
#include "serial/ldb/startplan.h"

#include <QString>
#include <QStringList>

#include <optional>

/// The search for LDBs: which address is to be probed, and what an answer makes of the roster. It
/// has three ways:
/// - The scan probes every address once, in ascending order, before anything is polled.
/// - Where LDBs are known, those are probed first, and polled as they answer.
/// - In the background of the polling every address is gone through once: after the known ones, or
///   when anything was unclean in the scan or in the first rounds after it, so that an LDB may have
///   been missed. Then, and else, those that the user has given up are asked whether they are back.
class LdbSearch
{
public:
    using Moment = LdbRoster::Moment;

    LdbSearch(LdbRoster& roster, Telling& telling)
        : m_roster(roster)
        , m_telling(telling)
    {
    }

    /// A run begins: with a scan if there are no LDBs to go on with, or if a scan was broken off.
    /// Gives whether it begins with a scan.
    bool begin(const StartPlan& plan, const Moment& moment);
    /// Asks for a scan. One that is asked for during another scan follows that.
    void requestScan() { m_progress.isRequested = true; }
    /// Whether the next turn waits for a scan.
    bool isScanDue() const { return m_progress.isRequested || m_progress.isScanning; }
    /// While held, nothing is probed in the background.
    void hold(bool isHeld) { m_isHeld = isHeld; }

    /// Which address to probe before the next turn; none when the turn may come. Ends a scan, or
    /// the probing of known LDBs, when all have been probed.
    std::optional<QString> nextBeforeTurn(const Moment& moment);
    /// Which address to probe after a turn.
    std::optional<QString> nextInBackground();
    enum class Then
    {
        Dispatch,
        Poll,   ///< the probed one
        EndTurn ///< the turn would have been the probed one's
    };
    /// Whether the last probe was answered; gives what comes next.
    Then probed(const QString& hexId, bool isPresent, const Moment& moment);

    void countRound() { ++m_progress.rounds; }
    /// Something on the line was not as it should be.
    void noteUnclean();

private:
    enum class Way
    {
        Scan,
        Known,
        Background
    };
    struct Progress
    {
        bool isRequested = false;
        bool isScanning = false;
        int scanned = busaddress::kFirst - 1; ///< the last address
        bool isProbingKnown = false;
        QStringList known;
        int asked = 0; ///< of those known
        int answered = 0;
        int rounds = 0;                          ///< begun since the scan
        bool isIncomplete = false;               ///< somebody may not have been found yet
        int background = busaddress::kFirst - 1; ///< the last address
        int roundOfGivenUp = 0;                  ///< in which one of them was probed last
    };

    std::optional<QString> nextOfScan(const Moment& moment);
    std::optional<QString> nextKnown();
    std::optional<QString> nextGivenUp();

    LdbRoster& m_roster;
    Telling& m_telling;
    Progress m_progress;
    Way m_way = Way::Scan; ///< of the last probe
    bool m_isHeld = false;
};
