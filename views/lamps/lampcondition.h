#pragma once

#include "serial/ldb/ldbstatus.h"

#include <QMap>
#include <QStringList>

#include <array>
#include <optional>

/// The four lamps that sum up the bus.
enum class Lamp : int
{
    A, ///< service mode
    B, ///< earth fault
    C, ///< loop fault (open, short, DC leakage) and amplifier
    D, ///< settings to be checked
};
constexpr std::array<Lamp, 4> kLamps{Lamp::A, Lamp::B, Lamp::C, Lamp::D};

/// How bad the condition is that each lamp stands for. Levels only ever rise; lamps A and D know no
/// `Major`.
class LampLevels
{
public:
    FaultLevel of(Lamp lamp) const { return m_levels[static_cast<std::size_t>(lamp)]; }
    void raise(Lamp lamp, FaultLevel level);
    void raise(const LampLevels& other);

private:
    std::array<FaultLevel, kLamps.size()> m_levels{};
};

/// The lamps that one record raises, and how far. Missing rows raise nothing, nor do codes that no
/// LDB should report. This alone decides it: the lamps and the pages that name their causes must
/// never disagree.
LampLevels lampLevels(const QList<QStringList>& dataList);

/// Folds the records of all LDBs into the levels of one polling round.
///
/// A round ends when the LDB that was seen first comes again. That record still counts for the
/// round it ends. The LDB that marks the rounds never changes; while it sends nothing, no round
/// ends.
class BusCondition
{
public:
    /// The levels of the round that this record ends, or nothing while the round goes on. The very
    /// first record ends a round too.
    std::optional<LampLevels> add(const QString& hexId, const QList<QStringList>& dataList);

private:
    std::optional<QString> m_cycleStartHexId;
    LampLevels m_levels;
};

/// Why an LDB raises a lamp.
struct LampCause
{
    QString name;      ///< the LDB's own name, may be empty
    QString condition; ///< in the language the record was made in

    bool operator==(const LampCause& other) const
    {
        return name == other.name && condition == other.condition;
    }
};

/// For each lamp the LDBs that raise it now, that is by their latest record.
class LampCauses
{
public:
    using ByHexId = QMap<QString, LampCause>;

    /// Takes an LDB's record in place of its former one; gives the lamps whose causes changed.
    QList<Lamp> update(const QString& hexId, const QList<QStringList>& dataList);
    void clear() { m_causes = {}; }

    /// A lamp's causes in the order of the addresses.
    const ByHexId& of(Lamp lamp) const { return m_causes[static_cast<std::size_t>(lamp)]; }

private:
    std::array<ByHexId, kLamps.size()> m_causes;
};
