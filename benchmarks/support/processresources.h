#pragma once

#include <QtGlobal>

/// What the process holds of the system's resources at one moment. Linux.
struct ProcessResources
{
    qint64 heapBytes = 0;     ///< allocated and not freed, whatever the allocator keeps beside it
    qint64 residentBytes = 0; ///< in memory, code and shared libraries included
    int descriptors = 0;
    int threads = 0;

    static ProcessResources now();
};
