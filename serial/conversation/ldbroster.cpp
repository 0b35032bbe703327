#include "serial/conversation/ldbroster.h"

#include "serial/ldb/busaddress.h"

#include <utility>

void LdbRoster::forget()
{
    m_schedule.clear();
    m_memory.clear();
    m_expected.clear();
    m_announced.reset();
    m_givenUp.clear();
    m_awaited.clear();
    m_owing.clear();
}

void LdbRoster::clear()
{
    // An LDB that has never answered a poll may never have been there.
    for (const QString& hexId : all()) {
        if (m_memory.isProven(hexId) || isAwaited(hexId)) {
            m_expected.insert(hexId, {m_memory.name(hexId), isLost(hexId) || isAwaited(hexId)});
        }
    }
    m_schedule.clear();
    m_memory.clear();
    m_givenUp.clear(); // the scan finds them
    m_awaited.clear();
    m_owing.clear();
}

void LdbRoster::tellMissing(const Moment& moment)
{
    m_roundTime = moment.wall;
    dropDismissed();
    addMissing();
}

void LdbRoster::expect(const std::vector<KnownLdb>& ldbs)
{
    m_announced.emplace();
    for (const KnownLdb& ldb : ldbs) {
        m_announced->insert(ldb.hexId, {ldb.name, true});
    }
}

void LdbRoster::updateList()
{
    dropDismissed();
    if (!m_announced) {
        return;
    }
    const QStringList listed = all();
    for (const QString& hexId : listed) {
        if (isLost(hexId) && !m_announced->contains(hexId)) {
            remove(hexId);
        }
    }
    addMissing();
}

void LdbRoster::addMissing()
{
    if (m_announced) {
        m_expected = *std::exchange(m_announced, std::nullopt);
    }
    for (const QString& hexId : all()) {
        m_expected.remove(hexId);
    }
    const auto expected = std::exchange(m_expected, {});
    for (auto ldb = expected.begin(); ldb != expected.end(); ++ldb) {
        const QString& hexId = ldb.key();
        m_schedule.add(hexId);
        m_schedule.markLost(hexId);
        m_memory.recall(hexId, ldb->name);
        tellList();
        tellLost(hexId);
        if (!ldb->wasLost) {
            m_telling.tell(event::Loss{hexId});
        }
    }
}

void LdbRoster::await(const std::vector<KnownLdb>& ldbs)
{
    forget();
    QMap<int, QString> names;
    for (const KnownLdb& ldb : ldbs) {
        names.insert(busaddress::fromHexId(ldb.hexId), ldb.name);
    }
    for (auto ldb = names.begin(); ldb != names.end(); ++ldb) {
        if (ldb.key() >= busaddress::kFirst && ldb.key() <= busaddress::kLast) {
            const QString hexId = busaddress::toHexId(ldb.key());
            m_schedule.add(hexId);
            m_schedule.markLost(hexId);
            m_memory.remember(hexId, ldb.value());
            tellAwaited(hexId, true);
        }
    }
    tellList();
}

void LdbRoster::resume(const Moment& moment)
{
    m_schedule.setAlone({});
    m_schedule.restart();
    m_memory.beginRun();
    m_owing.clear();
    m_roundTime = moment.wall;
    const QSet<QString> awaited = m_awaited;
    for (const QString& hexId : awaited) {
        tellAwaited(hexId, true);
    }
    tellList();
    for (const QString& hexId : all()) {
        if (isLost(hexId)) {
            tellLost(hexId);
        }
    }
}

void LdbRoster::add(const QString& hexId)
{
    if (all().contains(hexId)) {
        m_schedule.markPresent(hexId);
        return;
    }
    m_schedule.add(hexId);
    tellList();
}

void LdbRoster::dropDismissed()
{
    for (const QString& hexId : std::exchange(m_dismissed, {})) {
        const bool wasListed = isLost(hexId);
        if (wasListed) {
            remove(hexId);
        }
        const bool wasAnnounced = m_announced && m_announced->remove(hexId) > 0;
        if (m_expected.remove(hexId) > 0 || wasAnnounced || wasListed) {
            m_givenUp.append(hexId);
        }
    }
}

void LdbRoster::remove(const QString& hexId)
{
    m_schedule.remove(hexId);
    m_memory.forget(hexId);
    if (isAwaited(hexId)) {
        tellAwaited(hexId, false);
    }
    tellList();
}

LdbRoster::Proof LdbRoster::prove(const QString& hexId, bool isSilent, const Moment& moment)
{
    if (m_memory.isProven(hexId) || isAwaited(hexId)) {
        return Proof::Stays;
    }
    if (!isSilent) {
        m_memory.setProven(hexId);
        m_givenUp.removeAll(hexId);
        return Proof::Stays;
    }
    m_telling.log(LimitedLog::Kind::Lists,
                  QStringLiteral("%1 was found but never answered: taken from the list").arg(hexId),
                  moment.now);
    m_schedule.remove(hexId);
    m_memory.forget(hexId);
    tellList();
    return Proof::Ghost;
}

PollSchedule::Turn LdbRoster::nextTurn(const Moment& moment)
{
    PollSchedule::Turn turn = m_schedule.next();
    if (turn.endsRound) {
        m_telling.tell(event::RoundEnded{});
    }
    if (turn.beginsRound) {
        beginRound(moment);
    }
    return turn;
}

void LdbRoster::beginRound(const Moment& moment)
{
    m_schedule.beginRound();
    m_roundTime = moment.wall;
    m_owing.clear();
    m_telling.tell(event::RoundBegun{m_roundTime});
}

void LdbRoster::endRound()
{
    if (m_schedule.endRound()) {
        m_telling.tell(event::RoundEnded{});
    }
}

void LdbRoster::heardStatus(const QString& hexId, const LdbStatus& status, bool isOwnTurn,
                            const Moment& moment)
{
    const bool isOfRound = m_owing.remove(hexId) || isOwnTurn;
    heard(hexId);
    m_schedule.markPresent(hexId);
    if (m_awaited.contains(hexId)) {
        m_memory.setProven(hexId);
        tellAwaited(hexId, false);
    }
    tellRecord(hexId, status, isOfRound ? m_roundTime : moment.wall, !isOfRound);
}

void LdbRoster::heard(const QString& hexId)
{
    m_memory.forgetMisses(hexId);
    if (!m_owing.contains(hexId)) {
        m_schedule.dropAgain(hexId);
    }
}

/// Counts every failure of a polling answer, except a sound answer that is not believed.
void LdbRoster::missed(const QString& hexId, bool isSilent, const Moment& moment)
{
    if (isAwaited(hexId)) {
        if (isSilent) {
            m_schedule.markLost(hexId); // to be probed
        }
        return;
    }
    if (isLost(hexId)) {
        tellLost(hexId);
        return;
    }
    const int misses = m_memory.countMiss(hexId);
    m_telling.log(LimitedLog::Kind::Miss,
                  QStringLiteral("%1: miss %2 in a row").arg(hexId).arg(misses), moment.now);
    if (misses > m_forgivenMisses) {
        m_schedule.markLost(hexId);
        // After the record, so that whoever is told of the loss has the record.
        tellLost(hexId);
        m_telling.tell(event::Loss{hexId});
    }
}

/// Nothing is known of an awaited LDB that could be told.
void LdbRoster::tellLost(const QString& hexId)
{
    if (!isAwaited(hexId)) {
        tellRecord(hexId, LdbStatus::disconnected(), m_roundTime, false);
    }
}

void LdbRoster::tellRecord(const QString& hexId, const LdbStatus& status, qint64 time, bool isExtra)
{
    m_telling.tell(event::Record{hexId, m_memory.name(hexId), status, time, isExtra});
    if (m_memory.updateState(hexId, status.state)) {
        m_telling.tell(event::StateChange{hexId, status.state});
    }
}

void LdbRoster::tellList()
{
    m_telling.tell(event::ListChange{all()});
}

void LdbRoster::tellAwaited(const QString& hexId, bool isAwaited)
{
    if (isAwaited) {
        m_awaited.insert(hexId);
    } else {
        m_awaited.remove(hexId);
    }
    m_telling.tell(event::AwaitedChange{hexId, isAwaited});
}
