#include "serial/conversation/ldbsearch.h"

namespace {

/// Rounds after the scan; if one of them is unclean, the search is incomplete.
constexpr int kWatchedRounds = 2;

} // namespace

bool LdbSearch::begin(const StartPlan& plan, const Moment& moment)
{
    m_roster.dropExpectation();
    switch (plan.kind) {
    case StartPlan::Kind::Known:
        m_roster.await(plan.ldbs);
        m_progress = {};
        m_progress.known = m_roster.all();
        m_progress.isProbingKnown = true;
        break;
    case StartPlan::Kind::Resume:
        if (!isScanDue()) { // a scan that was broken off has found only some LDBs
            m_roster.resume(moment);
        }
        break;
    case StartPlan::Kind::Scan:
        requestScan();
        break;
    }
    if (isScanDue() || m_roster.isEmpty()) {
        m_progress = {};
        m_roster.clear();
        requestScan();
        return true;
    }
    m_telling.tell(event::ScanState{false});
    if (m_progress.isProbingKnown) {
        m_roster.beginRound(moment);
    }
    return false;
}

std::optional<QString> LdbSearch::nextBeforeTurn(const Moment& moment)
{
    if (isScanDue()) {
        if (auto hexId = nextOfScan(moment)) {
            return hexId;
        }
        if (isScanDue()) { // asked for while this one ran
            return nextOfScan(moment);
        }
    }
    if (m_progress.isProbingKnown && !m_roster.isOneAlone()) {
        return nextKnown();
    }
    return std::nullopt;
}

std::optional<QString> LdbSearch::nextOfScan(const Moment& moment)
{
    m_way = Way::Scan;
    if (m_progress.isScanning) {
        m_telling.tell(event::ScanProgress{m_progress.scanned, m_roster.all().size()});
    } else {
        m_progress = {};
        m_progress.isScanning = true;
        m_roster.clear();
        m_telling.tell(event::ListChange{});
        m_telling.tell(event::ScanState{true});
    }
    if (m_progress.scanned < busaddress::kLast) {
        return busaddress::toHexId(++m_progress.scanned);
    }
    m_progress.isScanning = false;
    m_roster.tellMissing(moment);
    m_roster.restartRounds();
    m_telling.tell(event::ScanState{false});
    return std::nullopt;
}

std::optional<QString> LdbSearch::nextKnown()
{
    m_way = Way::Known;
    if (m_progress.asked < m_progress.known.size()) {
        return m_progress.known.at(m_progress.asked++);
    }
    m_progress.isProbingKnown = false;
    m_progress.isIncomplete = true; // there may be others
    m_roster.endRound();
    m_roster.restartRounds();
    m_telling.tell(event::KnownProbed{m_progress.answered, m_progress.asked});
    return std::nullopt;
}

std::optional<QString> LdbSearch::nextInBackground()
{
    if (m_isHeld || m_roster.isOneAlone() || isScanDue()) {
        return std::nullopt;
    }
    m_way = Way::Background;
    while (m_progress.isIncomplete && m_progress.background < busaddress::kLast) {
        const QString hexId = busaddress::toHexId(++m_progress.background);
        if (!m_roster.all().contains(hexId) || m_roster.isAwaited(hexId)) {
            return hexId;
        }
    }
    return nextGivenUp();
}

/// One of them in each round, in turns: as often as the lost ones.
std::optional<QString> LdbSearch::nextGivenUp()
{
    const QStringList& givenUp = m_roster.givenUp();
    if (givenUp.isEmpty() || m_progress.roundOfGivenUp == m_progress.rounds) {
        return std::nullopt;
    }
    m_progress.roundOfGivenUp = m_progress.rounds;
    return givenUp.at(m_progress.rounds % givenUp.size());
}

LdbSearch::Then LdbSearch::probed(const QString& hexId, bool isPresent, const Moment& moment)
{
    if (isPresent) {
        m_roster.add(hexId);
    }
    switch (m_way) {
    case Way::Known:
        m_progress.answered += isPresent ? 1 : 0;
        return isPresent ? Then::Poll : Then::EndTurn;
    case Way::Background:
        if (isPresent) {
            m_telling.log(LimitedLog::Kind::Lists,
                          QStringLiteral("%1 was found in the background").arg(hexId), moment.now);
        }
        return Then::Dispatch;
    case Way::Scan:
        break;
    }
    return Then::Dispatch;
}

void LdbSearch::noteUnclean()
{
    // While those known are probed, what may be missed is not searched for yet.
    m_progress.isIncomplete = m_progress.isIncomplete ||
                              (m_progress.rounds <= kWatchedRounds && !m_progress.isProbingKnown);
}
