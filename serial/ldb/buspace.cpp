#include "serial/ldb/buspace.h"

#include "serial/ldb/microseconds.h"
#include "serial/ldb/monitoring.h"

#include <algorithm>
#include <numeric>

namespace {

/// In a turn: a command now and then, and the selected LDB in between; per cent.
constexpr qint64 kTurnWithRoom = 110;
constexpr qint64 kPerCent = 100;
constexpr qint64 kTurnStep = 5; // ms
/// An LDB that does not answer is asked two things in its turn, each twice.
constexpr qint64 kQuestions = 4;
/// However many are silent, ms.
constexpr qint64 kLongestQuiet = 20000;
using microseconds::kMillisecond;
/// More than any wait for an answer, ms; a clock that was set must not look like one.
constexpr qint64 kLongestSilence = 10000;

} // namespace

void BusPace::take(const QString& hexId, bool isSilent, qint64 waited)
{
    if (!isSilent) {
        m_silences.remove(hexId);
        m_lost.remove(hexId);
    } else if (!m_lost.contains(hexId)) {
        m_silences.insert(hexId, kQuestions * std::clamp(waited, qint64(0), kLongestSilence));
    }
}

void BusPace::lose(const QString& hexId)
{
    m_silences.remove(hexId);
    m_lost.insert(hexId);
}

qint64 BusPace::turn() const
{
    return m_turn.value_or(Monitoring::kTurn);
}

qint64 BusPace::silence() const
{
    return std::accumulate(m_silences.begin(), m_silences.end(), qint64(0));
}

qint64 BusPace::lifetime(int ldbs) const
{
    return Monitoring::lifetimeOf(ldbs, silence(), turn());
}

qint64 BusPace::longestQuiet(int ldbs) const
{
    // Any LDB counts here: how long it is until one is asked again makes no difference.
    return std::clamp(silence() + Monitoring::roundOf(ldbs, turn()), Monitoring::kShortestLife,
                      kLongestQuiet);
}

qint64 BusPace::turnOf(qint64 usual)
{
    const qint64 step = kTurnStep * kMillisecond;
    return (usual * kTurnWithRoom / kPerCent + step - 1) / step * kTurnStep;
}

bool BusPace::isPoll(ExchangeKind kind)
{
    return kind == ExchangeKind::Status || kind == ExchangeKind::Name ||
           kind == ExchangeKind::Firmware;
}
