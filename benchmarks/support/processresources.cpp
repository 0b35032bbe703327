#include "benchmarks/support/processresources.h"

#include <QDir>
#include <QFile>

#include <cstddef>
#include <malloc.h>
#include <unistd.h>

// gcc tells of its sanitizer by a macro, clang as a feature.
#ifdef __SANITIZE_ADDRESS__
#define HAS_SANITIZED_HEAP
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define HAS_SANITIZED_HEAP
#endif
#endif

#ifdef HAS_SANITIZED_HEAP
// Part of the sanitizer's runtime, whose headers not every compiler brings.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace {

qint64 heapInUse()
{
#ifdef HAS_SANITIZED_HEAP
    // The sanitizer's allocator stands in for the one that mallinfo tells about.
    return static_cast<qint64>(__sanitizer_get_current_allocated_bytes());
#else
    const struct mallinfo2 info = mallinfo2();
    return static_cast<qint64>(info.uordblks) + static_cast<qint64>(info.hblkhd);
#endif
}

qint64 residentSize()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    const bool isOpen = file.open(QIODevice::ReadOnly);
    const qint64 pages = isOpen ? file.readAll().split(' ').value(1).toLongLong() : 0;
    return pages * sysconf(_SC_PAGESIZE);
}

int entries(const char* folder)
{
    return QDir(QLatin1String(folder))
        .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
        .size();
}

} // namespace

ProcessResources ProcessResources::now()
{
    // Reading a folder takes a descriptor, but the same one each time.
    return {heapInUse(), residentSize(), entries("/proc/self/fd"), entries("/proc/self/task")};
}
