#pragma once

#include "simulator/line/line.h"
#include "tests/support/linerig.h"

#include <vector>

/// The ways in which lines are bad that the conversation is held against, by tests and benchmark.
struct BadLine
{
    const char* name;
    Adversaries adversaries;
    /// Records, at least, against those of the clean line in the same time.
    double pace = 0;
    double paceOnHalfDuplex = 0;
    int ldbs = 8;
    int absent = 0; ///< of them

    /// A rig of this line that is still good.
    LineRig::Setup setup(LineKind kind, quint64 seed) const;
    /// Lets it become bad: to be called when the rig has been through its scan.
    void begin(LineRig& rig) const;
    double paceOn(LineKind kind) const
    {
        return kind == LineKind::HalfDuplex ? paceOnHalfDuplex : pace;
    }
};

const std::vector<BadLine>& badLines();

struct NamedLineKind
{
    LineKind kind;
    const char* name;
};
constexpr NamedLineKind kLineKinds[] = {{LineKind::FullDuplex, "full duplex"},
                                        {LineKind::HalfDuplex, "half duplex"},
                                        {LineKind::QueuingConverter, "queue"}};
