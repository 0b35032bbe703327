#include "simulator/line/mischief.h"

#include "simulator/line/damage.h"

using linetime::kMicrosecond;
using linetime::kMillisecond;
using linetime::kSecond;

namespace {

/// What each thing left to chance is seeded with.
enum Purpose : quint64
{
    RequestFate,
    AnswerFate,
    Lateness,
    Strays,
    Stalls,
    Absences // and one for each board
};

} // namespace

Mischief::Mischief(quint64 seed)
    : m_requestFate(Chance(seed).split(RequestFate))
    , m_answerFate(Chance(seed).split(AnswerFate))
    , m_lateness(Chance(seed).split(Lateness))
    , m_strays(Chance(seed).split(Strays))
    , m_stalls(Chance(seed).split(Stalls))
{
    m_absences.reserve(AbsentBoards().size());
    for (quint64 board = 0; board < AbsentBoards().size(); ++board) {
        m_absences.emplace_back(Chance(seed).split(Absences + board));
    }
}

void Mischief::setAdversaries(const Adversaries& adversaries, qint64 at)
{
    const Adversaries before = m_adversaries;
    m_adversaries = adversaries;
    if (before.strayEvery != adversaries.strayEvery) {
        restart(m_nextStray, adversaries.strayEvery, at);
    }
    if (before.burstEvery != adversaries.burstEvery) {
        restart(m_nextBurst, adversaries.burstEvery, at);
    }
    if (before.stallEvery != adversaries.stallEvery) {
        m_stalls.start(adversaries.stallEvery * kSecond, Adversaries::kShortestStall * kMillisecond,
                       Adversaries::kLongestStall * kMillisecond, at);
    }
    if (before.vanishEvery != adversaries.vanishEvery ||
        before.vanishFor != adversaries.vanishFor) {
        const auto length = static_cast<qint64>(adversaries.vanishFor * kSecond);
        for (Interruptions& absence : m_absences) {
            absence.start(adversaries.vanishEvery * kSecond, length, length, at);
        }
    }
}

Harms Mischief::harmRequest(int address, qint64 at, AbsentBoards& absent)
{
    Harms harms;
    // Both are drawn whatever comes of the other, so that one does not change the other's course.
    if (m_requestFate.happens(m_adversaries.lostRequests)) {
        harms |= Harm::Loss;
    }
    if (m_requestFate.happens(m_adversaries.flippedRequests)) {
        harms |= Harm::Flip;
    }
    if (m_adversaries.vanishEvery > 0) {
        const bool isForOne = address > 0 && address < LineAnswer::kMaster;
        const int first = isForOne ? address : 0;
        const int last = isForOne ? address : static_cast<int>(absent.size()) - 1;
        for (int board = first; board <= last; ++board) {
            absent.set(static_cast<std::size_t>(board), isAbsent(board, at));
        }
        if (isForOne && absent.any()) {
            harms |= Harm::Absent;
        }
    }
    return harms;
}

void Mischief::harmAnswer(LineAnswer& answer)
{
    answer.sent = answer.bytes;
    if (m_answerFate.happens(m_adversaries.lostAnswers)) {
        answer.harms |= Harm::Loss;
    }
    if (m_answerFate.happens(m_adversaries.flippedAnswers)) {
        answer.harms |= Harm::Flip;
        answer.sent = damage::flipped(answer.sent, m_answerFate);
    }
    if (m_answerFate.happens(m_adversaries.garbledAnswers)) {
        answer.harms |= Harm::Garble;
        answer.sent = damage::garbled(answer.sent, m_answerFate);
    }
    if (m_lateness.happens(m_adversaries.lateAnswers)) {
        constexpr qint64 kMicroseconds = kMillisecond / kMicrosecond;
        answer.lateBy += m_lateness.between(m_adversaries.lateFrom * kMicroseconds,
                                            m_adversaries.lateTo * kMicroseconds);
    }
    if (answer.lateBy > 0) {
        answer.harms |= Harm::Late;
    }
}

QByteArray Mischief::takeStrays(qint64 at)
{
    if (m_nextStray <= at) {
        restart(m_nextStray, m_adversaries.strayEvery, at);
        return strays(1);
    }
    restart(m_nextBurst, m_adversaries.burstEvery, at);
    return strays(Adversaries::kBurstBytes);
}

Span Mischief::absence(int board, qint64 at)
{
    return m_absences[static_cast<std::size_t>(board)].at(at);
}

QByteArray Mischief::strays(int count)
{
    constexpr char kStrays[] = {0x06, 0x15, 0x04, 0x01, 0x55, 0x00};
    QByteArray bytes;
    for (int i = 0; i < count; ++i) {
        bytes.append(kStrays[m_strays.between(0, static_cast<qint64>(sizeof kStrays) - 1)]);
    }
    return bytes;
}

void Mischief::restart(qint64& next, double every, qint64 at)
{
    next = every > 0 ? at + m_strays.waiting(every * kSecond) : linetime::kNever;
}
