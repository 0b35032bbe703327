#include "views/lamps/lampcondition.h"

#include "serial/ldb/generalinformation.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

/// The record's text for a page on which it belongs.
QString condition(CausePage page, const QList<QStringList>& dataList)
{
    using namespace generalinformation;

    switch (page) {
    case CausePage::A:
    case CausePage::D:
    case CausePage::Out:
        return text(dataList, ModeRow);
    case CausePage::B:
        return text(dataList, EarthRow);
    case CausePage::C:
        break;
    }
    QStringList parts;
    if (ldbLoopFault(integer(dataList, LoopRow)) != FaultLevel::None) {
        parts << text(dataList, LoopRow);
    }
    if (ldbAmplifierFault(integer(dataList, AmplifierRow)) != FaultLevel::None) {
        parts << QCoreApplication::translate("LampCauses", "Amplifier: %1")
                     .arg(text(dataList, AmplifierRow));
    }
    return parts.join(QStringLiteral(", "));
}

} // namespace

void LampLevels::raise(Lamp lamp, FaultLevel level)
{
    FaultLevel& current = m_levels[static_cast<std::size_t>(lamp)];
    current = std::max(current, level);
}

void LampLevels::raise(const LampLevels& other)
{
    for (const Lamp lamp : kLamps) {
        raise(lamp, other.of(lamp));
    }
}

LampLevels lampLevels(const QList<QStringList>& dataList)
{
    using namespace generalinformation;

    LampLevels levels;
    switch (static_cast<LdbState>(integer(dataList, ModeRow))) {
    case LdbState::ServiceMode:
        levels.raise(Lamp::A, FaultLevel::Minor);
        break;
    case LdbState::CheckSettings:
        levels.raise(Lamp::D, FaultLevel::Minor);
        break;
    default:
        break;
    }
    levels.raise(Lamp::B, ldbEarthFault(integer(dataList, EarthRow)));
    levels.raise(Lamp::C, ldbLoopFault(integer(dataList, LoopRow)));
    levels.raise(Lamp::C, ldbAmplifierFault(integer(dataList, AmplifierRow)));
    return levels;
}

void BusCondition::add(const QString& hexId, const QList<QStringList>& dataList)
{
    const LampLevels levels = lampLevels(dataList);
    m_latest.insert(hexId, levels);
    m_round.raise(levels);
    m_shown.raise(levels);
}

void BusCondition::endRound()
{
    m_shown = std::exchange(m_round, LampLevels());
    for (const LampLevels& levels : qAsConst(m_latest)) {
        m_shown.raise(levels);
    }
}

void BusCondition::keepOnly(const QStringList& hexIds)
{
    for (auto levels = m_latest.begin(); levels != m_latest.end();) {
        levels = hexIds.contains(levels.key()) ? std::next(levels) : m_latest.erase(levels);
    }
}

bool isOut(const QList<QStringList>& dataList)
{
    using namespace generalinformation;

    const auto state = static_cast<LdbState>(integer(dataList, ModeRow));
    return state == LdbState::Disconnected || state == LdbState::Fault ||
           state == LdbState::FactoryResetFailed;
}

bool isFaulty(const QList<QStringList>& dataList)
{
    const LampLevels levels = lampLevels(dataList);
    return isOut(dataList) || std::any_of(kLamps.begin(), kLamps.end(), [&levels](Lamp lamp) {
               return levels.of(lamp) != FaultLevel::None;
           });
}

QList<CausePage> LampCauses::update(const QString& hexId, const QList<QStringList>& dataList)
{
    const LampLevels levels = lampLevels(dataList);
    QList<CausePage> changed;
    for (const CausePage page : kCausePages) {
        ByHexId& causes = m_causes[static_cast<std::size_t>(page)];
        const bool belongs = page == CausePage::Out
                                 ? isOut(dataList)
                                 : levels.of(static_cast<Lamp>(page)) != FaultLevel::None;
        if (!belongs) {
            if (causes.remove(hexId) > 0) {
                changed << page;
            }
            continue;
        }
        const LampCause cause{generalinformation::ownName(dataList).simplified(),
                              condition(page, dataList)};
        const auto known = causes.constFind(hexId);
        if (known == causes.constEnd() || !(*known == cause)) {
            causes.insert(hexId, cause);
            changed << page;
        }
    }
    return changed;
}

void LampCauses::keepOnly(const QStringList& hexIds)
{
    for (ByHexId& causes : m_causes) {
        for (auto cause = causes.begin(); cause != causes.end();) {
            cause = hexIds.contains(cause.key()) ? std::next(cause) : causes.erase(cause);
        }
    }
}
