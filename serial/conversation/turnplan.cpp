#include "serial/conversation/turnplan.h"

#include "serial/ldb/microseconds.h"

#include <algorithm>
#include <optional>

namespace {

// µs.
constexpr qint64 kLongRound = 5000000;
/// A long one becomes short below this: at the limit the two would alternate.
constexpr qint64 kShortRound = 4000000;
/// What is on the line when the selected LDB becomes due is let end, and its own answer takes time.
constexpr qint64 kLead = 250000;
using microseconds::kMillisecond;

constexpr int kIdentityInLongRounds = 10;
/// So many that late answers among them do not count.
constexpr std::size_t kTimesKept = 15;

std::size_t indexOf(AnswerShape question)
{
    return static_cast<std::size_t>(question);
}

std::optional<qint64> usualTime(std::vector<qint64> times)
{
    if (times.size() < kTimesKept) {
        return std::nullopt;
    }
    const auto middle = times.begin() + kTimesKept / 2;
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

} // namespace

void TurnPlan::clear()
{
    m_times = {};
    m_isLong = false;
    m_round = 0;
    m_selectedDue = 0;
}

void TurnPlan::took(AnswerShape question, qint64 time)
{
    std::vector<qint64>& times = m_times[indexOf(question)];
    if (times.size() == kTimesKept) {
        times.erase(times.begin());
    }
    times.push_back(time);
}

std::optional<qint64> TurnPlan::usualTimeOf(AnswerShape question) const
{
    return usualTime(m_times[indexOf(question)]);
}

void TurnPlan::judge(int polled)
{
    const auto status = usualTimeOf(AnswerShape::Status);
    const auto name = usualTimeOf(AnswerShape::Name);
    const auto firmware = usualTimeOf(AnswerShape::Firmware);
    if (status && name && firmware) {
        const qint64 round = (*status + *name + *firmware) * polled;
        m_isLong = round > (m_isLong ? kShortRound : kLongRound);
    }
}

std::optional<qint64> TurnPlan::usualTurn() const
{
    const auto status = usualTimeOf(AnswerShape::Status);
    const auto name = usualTimeOf(AnswerShape::Name);
    const auto firmware = usualTimeOf(AnswerShape::Firmware);
    if (!status || !name || !firmware) {
        return std::nullopt;
    }
    return *status + (*name + *firmware) / identityEvery();
}

int TurnPlan::identityEvery() const
{
    if (m_options.identityEveryRounds > 0) {
        return m_options.identityEveryRounds;
    }
    return m_isLong ? kIdentityInLongRounds : 1;
}

TurnPlan::Questions TurnPlan::questions(int position, bool isNameDue) const
{
    const bool isDue = (position + m_round) % identityEvery() == 0;
    return {isDue || isNameDue, isDue};
}

void TurnPlan::select(const QString& hexId)
{
    if (m_selected != hexId) {
        m_selected = hexId;
        m_selectedDue = 0;
    }
}

void TurnPlan::statusEnded(const QString& hexId, qint64 now)
{
    if (hexId == m_selected) {
        const qint64 within = m_options.selectedWithin * kMillisecond;
        m_selectedDue = now + std::max(within - kLead, within / 2);
    }
}

bool TurnPlan::isSelectedDue(qint64 now) const
{
    return m_isLong && m_options.selectedWithin > 0 && !m_selected.isEmpty() &&
           now >= m_selectedDue;
}
