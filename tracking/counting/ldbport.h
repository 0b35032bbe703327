#pragma once

/// The two ends from which an LDB drives its loop, as every `int ldbPort` numbers them.
enum LdbPort : int
{
    PrimaryPort = 0,
    SecondaryPort = 1,
    LdbPortCount = 2
};

constexpr bool isLdbPort(int ldbPort)
{
    return ldbPort == PrimaryPort || ldbPort == SecondaryPort;
}

constexpr int otherPort(int ldbPort)
{
    return ldbPort == PrimaryPort ? SecondaryPort : PrimaryPort;
}

/// One value for each side of a loop.
template <typename T>
struct BySide
{
    T primary{};
    T secondary{};

    constexpr const T& operator[](int ldbPort) const
    {
        return ldbPort == PrimaryPort ? primary : secondary;
    }
    constexpr T& operator[](int ldbPort) { return ldbPort == PrimaryPort ? primary : secondary; }
};
