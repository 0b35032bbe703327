#include "simulator/line/linebook.h"

#include <QStringList>

#include <algorithm>

namespace {

constexpr qint64 kMicrosecondsPerMillisecond = 1000;

} // namespace

QString describe(Harms harms)
{
    const std::pair<Harm, const char*> names[] = {
        {Harm::Flip, "flipped bit"}, {Harm::Garble, "garbled"},
        {Harm::Loss, "lost"},        {Harm::Overlap, "overlapped"},
        {Harm::Absent, "absent"},    {Harm::Late, "late"},
        {Harm::Held, "held back"},   {Harm::StallLoss, "lost in a stall"}};
    QStringList result;
    for (const auto& [harm, name] : names) {
        if (harms.testFlag(harm)) {
            result.append(QLatin1String(name));
        }
    }
    return result.join(QStringLiteral(", "));
}

bool LineExchange::isHarmed() const
{
    return harms || std::all_of(answers.begin(), answers.end(),
                                [](const LineAnswer& answer) { return bool(answer.harms); });
}

bool LineExchange::isClean() const
{
    return !isHarmed() && !intrusions &&
           std::all_of(answers.begin(), answers.end(),
                       [](const LineAnswer& answer) { return answer.hasLeft(); });
}

QString LineExchange::describe() const
{
    QString text = QStringLiteral("%1 ms: %2")
                       .arg(handedAt / kMicrosecondsPerMillisecond)
                       .arg(QString::fromLatin1(request.mid(1, request.size() - 2)));
    const auto addHarms = [&text](Harms of) {
        text += of ? QStringLiteral(" [%1]").arg(::describe(of)) : QString();
    };
    addHarms(harms);
    for (const LineAnswer& answer : answers) {
        text += QStringLiteral(" -> %1 ms: %2 bytes")
                    .arg(answer.leftAt / kMicrosecondsPerMillisecond)
                    .arg(answer.bytes.size());
        addHarms(answer.harms);
    }
    if (intrusions) {
        text += QStringLiteral(" (intruded upon: %1)").arg(static_cast<int>(intrusions));
    }
    return text;
}

LineBook::LineBook(int length)
    : m_length(static_cast<std::size_t>(std::max(1, length)))
{
}

LineExchange& LineBook::add()
{
    if (m_exchanges.size() == m_length) {
        m_exchanges.pop_front();
    }
    m_exchanges.emplace_back();
    m_exchanges.back().number = m_next++;
    return m_exchanges.back();
}

LineExchange* LineBook::find(qint64 number)
{
    const qint64 oldest = m_next - static_cast<qint64>(m_exchanges.size());
    const bool isKnown = number >= oldest && number < m_next;
    return isKnown ? &m_exchanges[static_cast<std::size_t>(number - oldest)] : nullptr;
}

LineAnswer* LineBook::findAnswer(qint64 number, int answer)
{
    LineExchange* exchange = find(number);
    return exchange ? &exchange->answers[static_cast<std::size_t>(answer)] : nullptr;
}

void LineBook::addFalseFrame(const QByteArray& frame)
{
    if (m_falseFrames.size() == m_length) {
        m_falseFrames.pop_front();
    }
    m_falseFrames.push_back(frame);
}

void LineBook::noteIntrusion(Intrusion intrusion)
{
    if (!m_exchanges.empty()) {
        m_exchanges.back().intrusions |= intrusion;
    }
}
