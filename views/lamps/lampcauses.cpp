#include "views/lamps/lampcauses.h"

#include "serial/generalinformation.h"

#include <QCoreApplication>

namespace {

/// What the record says of the lamp; only asked for a lamp that the record raises.
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
