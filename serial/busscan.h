#pragma once

#include "serial/serialcommand.h"

#include <optional>

/// How far the search for LDBs has come: every address is probed once, in ascending order.
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
        m_isRequested = false;
        m_isRunning = true;
        m_address = busaddress::kFirst - 1;
    }
    /// The last address probed; one before the first when none has been.
    int address() const { return m_address; }
    /// The address to be probed next; none when all have been, which ends the scan.
    std::optional<int> next()
    {
        if (m_address >= busaddress::kLast) {
            m_isRunning = false;
            return std::nullopt;
        }
        return ++m_address;
    }

private:
    bool m_isRequested = false;
    bool m_isRunning = false;
    int m_address = 0;
};
