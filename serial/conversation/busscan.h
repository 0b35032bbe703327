#pragma once

#include "serial/ldb/busaddress.h"

#include <optional>

/// How far the search for LDBs has come. The scan probes every address once, in ascending order.
/// When anything was unclean in it or in the first rounds after it, an LDB may have been missed:
/// then every address is gone through once more, in the background of the polling.
class BusScan
{
public:
    void clear() { *this = BusScan(); }
    /// A scan that is asked for while one runs follows it.
    void request() { m_isRequested = true; }
    /// Whether the next dispatch belongs to a scan.
    bool isDue() const { return m_isRequested || m_isRunning; }
    bool isRunning() const { return m_isRunning; }
    void begin()
    {
        clear();
        m_isRunning = true;
    }
    /// The last address probed; one before the first when none has been.
    int address() const { return m_address; }
    /// The address to be probed next; none when all have been, which ends the scan.
    std::optional<int> next()
    {
        m_isRunning = m_address < busaddress::kLast;
        return m_isRunning ? std::make_optional(++m_address) : std::nullopt;
    }

    void countRound() { ++m_rounds; }
    void noteUnclean() { m_isUnclean = m_isUnclean || m_rounds <= kWatchedRounds; }
    /// The address that the background is to probe next.
    std::optional<int> nextInBackground()
    {
        const bool isLeft = m_isUnclean && m_background < busaddress::kLast;
        return isLeft ? std::make_optional(++m_background) : std::nullopt;
    }

private:
    static constexpr int kWatchedRounds = 2;

    bool m_isRequested = false;
    bool m_isRunning = false;
    int m_address = busaddress::kFirst - 1;
    int m_rounds = 0; ///< begun since the scan
    bool m_isUnclean = false;
    int m_background = busaddress::kFirst - 1;
};
