#include "serial/conversation/pollschedule.h"

#include <algorithm>

namespace {

/// With the selected LDB, who may be asked in between, that makes eight.
constexpr int kOthers = 7;

} // namespace

void PollSchedule::clear()
{
    m_found.clear();
    m_lost.clear();
    m_alone.clear();
    restart();
}

void PollSchedule::remove(const QString& hexId)
{
    const int position = m_found.indexOf(hexId);
    if (position < 0) {
        return;
    }
    m_found.removeAt(position);
    m_lost.removeAll(hexId);
    dropAgain(hexId);
    if (position <= m_index) {
        --m_index;
    }
    if (m_alone == hexId) {
        m_alone.clear();
    }
}

void PollSchedule::restart()
{
    m_index = m_found.size();
    m_probed = true;
    m_isRoundOn = false;
    m_again.clear();
    m_wasAgain = false;
}

PollSchedule::Turn PollSchedule::next()
{
    m_wasAgain = isAgainDue();
    Turn turn = m_wasAgain ? Turn{Turn::Kind::Again, m_again.front().hexId} : nextOfRound();
    dropAgain(turn.hexId);
    for (Again& again : m_again) {
        ++again.others;
    }
    return turn;
}

bool PollSchedule::isAgainDue() const
{
    return !m_wasAgain && !m_again.empty() && m_again.front().others >= kOthers;
}

void PollSchedule::askAgain(const QString& hexId)
{
    dropAgain(hexId);
    m_again.push_back({hexId, 0});
}

void PollSchedule::dropAgain(const QString& hexId)
{
    m_again.erase(std::remove_if(m_again.begin(), m_again.end(),
                                 [&hexId](const Again& again) { return again.hexId == hexId; }),
                  m_again.end());
}

PollSchedule::Turn PollSchedule::nextOfRound()
{
    if (!m_alone.isEmpty()) {
        return {Turn::Kind::Poll, m_alone, true, std::exchange(m_isRoundOn, true)};
    }
    Q_ASSERT(!m_found.isEmpty());
    bool beginsRound = false;
    bool endsRound = false;
    for (;;) {
        while (++m_index < m_found.size()) {
            if (!isLost(m_found.at(m_index))) {
                return {Turn::Kind::Poll, m_found.at(m_index), beginsRound, endsRound};
            }
        }
        if (!m_probed && !m_lost.isEmpty()) {
            m_probed = true;
            m_lost.append(m_lost.takeFirst());
            return {Turn::Kind::Probe, m_lost.last(), beginsRound, endsRound};
        }
        beginsRound = true;
        endsRound = std::exchange(m_isRoundOn, true);
        m_index = -1;
        m_probed = false;
    }
}

bool PollSchedule::setAlone(const QString& hexId)
{
    if (!hexId.isEmpty() && !m_found.contains(hexId)) {
        return false;
    }
    if (m_alone != hexId) {
        m_alone = hexId;
        restart();
    }
    return true;
}

void PollSchedule::markLost(const QString& hexId)
{
    if (!isLost(hexId)) {
        m_lost.append(hexId);
        dropAgain(hexId);
    }
}
