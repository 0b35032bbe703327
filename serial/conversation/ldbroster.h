#pragma once

#include "serial/conversation/ldbmemory.h"
#include "serial/conversation/pollschedule.h"
#include "serial/conversation/telling.h"
#include "serial/ldb/startplan.h"

#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// The LDBs of the bus: who is in the list, whose turn it is, what each has said and missed, and
/// what is told of that. Knows nothing of questions and answers on the line.
///
/// An LDB that was there before a scan and does not answer it stays in the list as a lost one,
/// until it is dismissed. One that is awaited, because it was known before the run, is probed like
/// a lost one until it is heard first, but nothing is told of its silence; a scan that it does not
/// answer makes it a lost one.
class LdbRoster
{
public:
    struct Moment
    {
        qint64 now = 0;  ///< monotonic µs
        qint64 wall = 0; ///< ms since 1970 UTC
    };

    /// `forgivenMisses`: in a row; the next one is a loss.
    LdbRoster(int forgivenMisses, Telling& telling)
        : m_forgivenMisses(forgivenMisses)
        , m_telling(telling)
    {
    }

    // Who is in the list.

    bool isEmpty() const { return m_schedule.isEmpty(); }
    const QStringList& all() const { return m_schedule.found(); }
    bool isLost(const QString& hexId) const { return m_schedule.isLost(hexId); }
    bool isAwaited(const QString& hexId) const { return m_awaited.contains(hexId); }
    /// Whether it is in the round.
    bool isPolled(const QString& hexId) const { return all().contains(hexId) && !isLost(hexId); }

    /// The next run is on another bus, where no former LDB is expected.
    void forget();
    /// Empties the list, but remembers who was there.
    void clear();
    /// A scan has ended: an LDB that was there before and was not found is lost.
    void tellMissing(const Moment& moment);
    /// It is known by now which LDBs the bus has, beside those that answer: from the next
    /// `updateList` on, or behind the scan that is due or on, those of them that do not answer are
    /// lost, and no others are. No loss is told of them.
    void expect(const std::vector<KnownLdb>& ldbs);
    /// What was expected in another run does not count.
    void dropExpectation() { m_announced.reset(); }
    /// The list is these, in the order of their addresses; all are awaited.
    void await(const std::vector<KnownLdb>& ldbs);
    /// A new run with the list as it is.
    void resume(const Moment& moment);
    /// It has answered a probe: joins the list, or the round if it is in the list already.
    void add(const QString& hexId);
    /// The user gives up a lost LDB: it leaves the list until it answers. One that is there stays.
    void dismiss(const QString& hexId) { m_dismissed.insert(hexId); }
    /// Between two turns, and in no scan: takes out of the list who was dismissed, and follows what
    /// is expected.
    void updateList();
    /// Those dismissed that have not answered since.
    const QStringList& givenUp() const { return m_givenUp; }
    /// The first status request since the LDB was found has ended. If it met silence, the answer to
    /// the search was another LDB's late one: the LDB leaves the list again, untold.
    enum class Proof
    {
        Stays,
        Ghost
    };
    Proof prove(const QString& hexId, bool isSilent, const Moment& moment);

    // Whose turn it is.

    PollSchedule::Turn nextTurn(const Moment& moment);
    int position() const { return m_schedule.position(); }
    int polled() const { return m_schedule.polled(); }
    /// Begins a round outside the turns: that of awaited LDBs as they answer.
    void beginRound(const Moment& moment);
    void endRound();
    /// Lets the next turn begin a round.
    void restartRounds() { m_schedule.restart(); }
    void pollAlone(const QString& hexId) { m_schedule.setAlone(hexId); }
    bool isOneAlone() const { return !m_schedule.alone().isEmpty(); }
    void askAgain(const QString& hexId) { m_schedule.askAgain(hexId); }

    // What came.

    /// Whether a status that comes between the turns is extra, not the round's own.
    bool isExtra(const QString& hexId) const { return !m_owing.contains(hexId); }
    /// `isOwnTurn`: of the LDB in the round.
    void heardStatus(const QString& hexId, const LdbStatus& status, bool isOwnTurn,
                     const Moment& moment);
    /// Its own turn gave no status, so the next one in the same round is the round's own.
    void owes(const QString& hexId) { m_owing.insert(hexId); }
    /// It answered something.
    void heard(const QString& hexId);
    /// It did not answer, or not with anything that can be used.
    void missed(const QString& hexId, bool isSilent, const Moment& moment);
    void tellLost(const QString& hexId);
    /// Names, firmware.
    LdbMemory& memory() { return m_memory; }

private:
    void dropDismissed();
    void addMissing();
    void remove(const QString& hexId);
    void tellList();
    void tellRecord(const QString& hexId, const LdbStatus& status, qint64 time, bool isExtra);
    void tellAwaited(const QString& hexId, bool isAwaited);

    /// What is kept of an LDB through a scan.
    struct Expected
    {
        QString name;
        bool wasLost = false;
    };

    const int m_forgivenMisses;
    Telling& m_telling;
    PollSchedule m_schedule;
    LdbMemory m_memory;
    QSet<QString> m_awaited;
    QMap<QString, Expected> m_expected; ///< LDBs there were before the scan that is due or on
    /// What was told to be expected, until that is followed.
    std::optional<QMap<QString, Expected>> m_announced;
    QSet<QString> m_dismissed; ///< to be dropped
    QStringList m_givenUp;
    QSet<QString> m_owing;
    qint64 m_roundTime = 0;
};
