#include "serial/conversation/answertiming.h"

void AnswerTiming::reset()
{
    m_usual.clear();
    m_isDoubtful = false;
}

void AnswerTiming::begin(const QString& hexId, AnswerShape kind, bool canComeTwice)
{
    m_hexId = hexId;
    m_kind = kind;
    m_canComeTwice = canComeTwice;
    m_untimelyAt = 0;
    m_tooSoon = 0;
    m_tooLateAt = 0;
}

/// A second answer out of time, to a transmission of its own and with nothing else outstanding, is
/// no earlier question's: then it is this LDB that has changed.
bool AnswerTiming::hasChangedItsTime(int transmission) const
{
    return m_untimelyAt != 0 && m_untimelyAt != transmission;
}

AnswerTiming::Belief AnswerTiming::judgeFrame(int transmission, qint64 flight)
{
    const auto usual = m_usual.of(m_hexId, m_kind);
    if (usual && flight < usual->least) {
        if (hasChangedItsTime(transmission)) {
            m_usual.forget(m_hexId, m_kind);
        } else if (!m_canComeTwice || transmission == 1) {
            m_untimelyAt = transmission;
            m_tooSoon = flight;
            return Belief::TooSoon;
        }
    }
    if (m_isDoubtful && !m_canComeTwice &&
        !m_usual.isPrompt(m_hexId, m_kind, flight).value_or(true)) {
        if (m_tooLateAt != 0 && m_tooLateAt != transmission) {
            m_usual.forget(m_hexId, m_kind); // it may have become slower
        }
        m_tooLateAt = transmission;
        return Belief::TooLate;
    }
    return Belief::Believed;
}

bool AnswerTiming::believesAcknowledge(int transmission, qint64 flight)
{
    if (isUsual(flight).value_or(true)) {
        return true;
    }
    if (hasChangedItsTime(transmission)) {
        m_usual.forget(m_hexId, m_kind);
        return true;
    }
    m_untimelyAt = transmission;
    return false;
}

void AnswerTiming::nothingFollowed(int transmission)
{
    if (m_untimelyAt == transmission && m_tooSoon > 0) {
        m_usual.suspect(m_hexId, m_kind, m_tooSoon);
    }
}

void AnswerTiming::answered(int transmissions, qint64 flight)
{
    if (m_usual.isPrompt(m_hexId, m_kind, flight).value_or(false)) {
        m_isDoubtful = false;
    }
    if (transmissions == 1) {
        m_usual.add(m_hexId, m_kind, flight);
    }
}

std::optional<bool> AnswerTiming::isUsual(qint64 flight) const
{
    const auto usual = m_usual.of(m_hexId, m_kind);
    if (!usual) {
        return std::nullopt;
    }
    return usual->contains(flight);
}
