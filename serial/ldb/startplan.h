#pragma once

#include <QString>

#include <vector>

/// An LDB that is remembered from an earlier run. `name` is empty where it has none, and null where
/// it was never told.
struct KnownLdb
{
    QString hexId;
    QString name;
};

/// How a run finds its LDBs. A plain value.
struct StartPlan
{
    enum class Kind
    {
        Scan,   ///< all addresses are probed before anything is polled
        Known,  ///< `ldbs` are listed at once and probed first, the other addresses after them
        Resume, ///< goes on with the LDBs of the run before, without a search
    };
    Kind kind = Kind::Scan;
    std::vector<KnownLdb> ldbs; ///< only for `Known`; with none of them it is a `Scan`
};
