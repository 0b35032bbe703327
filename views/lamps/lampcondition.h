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
/// round it ends. While that LDB sends nothing, no round ends.
class BusCondition
{
public:
    /// The levels of the round that this record ends, or nothing while the round goes on. The very
    /// first record ends a round too.
    std::optional<LampLevels> add(const QString& hexId, const QList<QStringList>& dataList);
    /// The LDB that marks the rounds; none before the first record.
    std::optional<QString> marker() const { return m_cycleStartHexId; }

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

/// The pages that name LDBs: one a lamp, and one for those that are lost, in fault, or whose
/// factory reset has failed.
enum class CausePage : int
{
    A = static_cast<int>(Lamp::A),
    B = static_cast<int>(Lamp::B),
    C = static_cast<int>(Lamp::C),
    D = static_cast<int>(Lamp::D),
    Out
};
constexpr std::array<CausePage, 5> kCausePages{CausePage::A, CausePage::B, CausePage::C,
                                               CausePage::D, CausePage::Out};

/// Whether an LDB does not do its work: lost, in fault, or with a failed factory reset.
bool isOut(const QList<QStringList>& dataList);

/// For each page the LDBs that belong there now, that is by their latest record.
class LampCauses
{
public:
    using ByHexId = QMap<QString, LampCause>;

    /// Takes an LDB's record in place of its former one; gives the pages that changed.
    QList<CausePage> update(const QString& hexId, const QList<QStringList>& dataList);
    /// Forgets all other LDBs.
    void keepOnly(const QStringList& hexIds);
    void clear() { m_causes = {}; }

    /// A page's causes in the order of the addresses.
    const ByHexId& of(CausePage page) const { return m_causes[static_cast<std::size_t>(page)]; }

private:
    std::array<ByHexId, kCausePages.size()> m_causes;
};
