#pragma once

#include "serial/ldb/ldbstatus.h"

#include <QHash>
#include <QMap>
#include <QStringList>

#include <array>

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

/// Folds the records of all LDBs into what the lamps show. A lamp lights with the record that
/// raises it and goes dark at a round's end only, which is told: one that was raised in the round
/// stays lit, and so does one whose LDB has missed its turn.
class BusCondition
{
public:
    /// Takes a record into the round that is on.
    void add(const QString& hexId, const QList<QStringList>& dataList);
    /// The round is over, and the next one begins.
    void endRound();
    /// No other LDB is on the bus any more. What they have raised stays until the round's end.
    void keepOnly(const QStringList& hexIds);

    /// What the lamps show now.
    const LampLevels& shown() const { return m_shown; }

private:
    QHash<QString, LampLevels> m_latest; ///< what each LDB's latest record raises
    LampLevels m_round;                  ///< raised since the round has begun
    LampLevels m_shown;
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

/// Whether anything of an LDB is named on one of the pages: it is out, or raises a lamp.
bool isFaulty(const QList<QStringList>& dataList);

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
