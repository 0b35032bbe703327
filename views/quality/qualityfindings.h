#pragma once

#include "views/quality/linequality.h"

#include <QMap>
#include <QStringList>

#include <vector>

/// One certain statement about the line. A plain value.
struct QualityFinding
{
    enum class Harm : int
    {
        Damage,
        Silence
    };
    /// Which LDBs have the harm.
    enum class Spread : int
    {
        Alone,    ///< on `hexIds` alone
        Foremost, ///< on `hexIds` far more than on the others, which have it, too
        Alike,    ///< on all alike
        Uneven,   ///< on several LDBs to different degrees; none can be named
        OneLdb,   ///< on the only LDB that was asked often enough to compare
    };
    Harm harm = Harm::Damage;
    Spread spread = Spread::Alike;
    QStringList hexIds; ///< worst first

    bool operator==(const QualityFinding& other) const
    {
        return harm == other.harm && spread == other.spread && hexIds == other.hexIds;
    }
};

/// Counts of LDBs by their ids.
using CountsOfLdbs = QMap<QString, QualityCounts>;

namespace qualityfindings {

QualityCounts sumOf(const CountsOfLdbs& ldbs);
/// Whether there are too few exchanges to say anything.
bool isTooFew(const CountsOfLdbs& ldbs);
/// What stands out; nothing where nothing does, or where there are too few exchanges to tell.
std::vector<QualityFinding> find(const CountsOfLdbs& ldbs);
/// As a sentence or two, in the language in force.
QString text(const QualityFinding& finding);
/// All that is to be said, also that there are too few or that the line is good.
QString text(const CountsOfLdbs& ldbs);

} // namespace qualityfindings
