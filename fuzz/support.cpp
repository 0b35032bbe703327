#include "fuzz/support.h"

#include <cstdio>
#include <cstdlib>

QByteArray inputBytes(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), static_cast<int>(size)};
}

void require(bool holds, const char* property)
{
    if (!holds) {
        std::fprintf(stderr, "Does not hold: %s\n", property);
        std::abort();
    }
}
