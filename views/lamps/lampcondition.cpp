#include "views/lamps/lampcondition.h"

#include "serial/ldb/generalinformation.h"
#include "serial/ldb/ldbstatus.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

namespace {

// Sums of `LdbLoopState` flags.
constexpr std::array kMajorLoopCodes{1, 4, 6, 9, 16, 17, 18, 20, 22, 24, 25, 26, 33, 36, 38, 41};
constexpr std::array kMinorLoopCodes{2, 3, 8, 10, 32, 34, 40, 42};
// Sums of `LdbEarthState` flags.
constexpr std::array kMajorEarthCodes{1, 4, 5, 6, 7, 9, 13};
constexpr std::array kMinorEarthCodes{2, 8, 10, 11, 14};

template <std::size_t Count>
bool contains(const std::array<int, Count>& codes, int code)
{
    return std::find(codes.begin(), codes.end(), code) != codes.end();
}

template <std::size_t MajorCount, std::size_t MinorCount>
LampLevel levelOf(int code, const std::array<int, MajorCount>& majorCodes,
                  const std::array<int, MinorCount>& minorCodes)
{
    if (contains(majorCodes, code)) {
        return LampLevel::Major;
    }
    return contains(minorCodes, code) ? LampLevel::Minor : LampLevel::None;
}

LampLevel loopLevel(int loopCode)
{
    return levelOf(loopCode, kMajorLoopCodes, kMinorLoopCodes);
}

LampLevel amplifierLevel(int amplifierCode)
{
    switch (static_cast<LdbAmplifierState>(amplifierCode)) {
    case LdbAmplifierState::Disconnected:
        return LampLevel::Major;
    case LdbAmplifierState::Reconnected:
        return LampLevel::Minor;
    default:
        return LampLevel::None;
    }
}

LampLevel earthLevel(int earthCode)
{
    return levelOf(earthCode, kMajorEarthCodes, kMinorEarthCodes);
}

/// The record's text for a lamp that it raises.
QString condition(Lamp lamp, const QList<QStringList>& dataList)
{
    using namespace generalinformation;

    switch (lamp) {
    case Lamp::A:
    case Lamp::D:
        return text(dataList, ModeRow);
    case Lamp::B:
        return text(dataList, EarthRow);
    case Lamp::C:
        break;
    }
    QStringList parts;
    if (loopLevel(integer(dataList, LoopRow)) != LampLevel::None) {
        parts << text(dataList, LoopRow);
    }
    if (amplifierLevel(integer(dataList, AmplifierRow)) != LampLevel::None) {
        parts << QCoreApplication::translate("LampCauses", "Amplifier: %1")
                     .arg(text(dataList, AmplifierRow));
    }
    return parts.join(QStringLiteral(", "));
}

} // namespace

void LampLevels::raise(Lamp lamp, LampLevel level)
{
    LampLevel& current = m_levels[static_cast<std::size_t>(lamp)];
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
        levels.raise(Lamp::A, LampLevel::Minor);
        break;
    case LdbState::CheckSettings:
        levels.raise(Lamp::D, LampLevel::Minor);
        break;
    default:
        break;
    }
    levels.raise(Lamp::B, earthLevel(integer(dataList, EarthRow)));
    levels.raise(Lamp::C, loopLevel(integer(dataList, LoopRow)));
    levels.raise(Lamp::C, amplifierLevel(integer(dataList, AmplifierRow)));
    return levels;
}

std::optional<LampLevels> BusCondition::add(const QString& hexId,
                                            const QList<QStringList>& dataList)
{
    if (!m_cycleStartHexId) {
        m_cycleStartHexId = hexId;
    }
    m_levels.raise(lampLevels(dataList));
    if (hexId != *m_cycleStartHexId) {
        return std::nullopt;
    }
    return std::exchange(m_levels, LampLevels());
}

QList<Lamp> LampCauses::update(const QString& hexId, const QList<QStringList>& dataList)
{
    const LampLevels levels = lampLevels(dataList);
    QList<Lamp> changed;
    for (const Lamp lamp : kLamps) {
        ByHexId& causes = m_causes[static_cast<std::size_t>(lamp)];
        if (levels.of(lamp) == LampLevel::None) {
            if (causes.remove(hexId) > 0) {
                changed << lamp;
            }
            continue;
        }
        const LampCause cause{
            generalinformation::text(dataList, generalinformation::NameRow).simplified(),
            condition(lamp, dataList)};
        const auto known = causes.constFind(hexId);
        if (known == causes.constEnd() || *known != cause) {
            causes.insert(hexId, cause);
            changed << lamp;
        }
    }
    return changed;
}

void LampCauses::clear()
{
    m_causes = {};
}
