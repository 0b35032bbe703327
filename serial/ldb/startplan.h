#pragma once

#include <QString>

#include <vector>

/// An LDB as it is remembered.
struct KnownLdb
{
    QString hexId;
    QString name; ///< may be empty
};

/// How a run begins.
struct StartPlan
{
    enum class Kind
    {
        Scan,  ///< probes every address
        Known, ///< lists `ldbs` as awaited and probes them first
        Resume ///< polls at once whom the conversation knows
    };

    Kind kind = Kind::Scan;
    std::vector<KnownLdb> ldbs = {}; ///< for `Kind::Known`, in the order of addresses
};
