#include "simulator/board/portsignal.h"

#include <cmath>

namespace {

// Two waves whose periods have no common multiple that anyone would notice; ms.
constexpr double kSlowPeriod = 437000.0;
constexpr double kFastPeriod = 61000.0;
constexpr double kFastShare = 0.25;
constexpr double kTurn = 6.283185307179586;

// mV
constexpr int kLowestOpenVoltage = 26400;
constexpr int kOpenVoltageSpread = 1400;
constexpr int kVoltageDrift = 90;
constexpr int kVoltageNoise = 12;
constexpr int kDroop = 2; ///< for each 0.01 mA
constexpr int kMeasuringDip = 120;
constexpr int kSurgeDip = 9000;

// 0.01 mA
constexpr double kCurrentDrift = 3.0;
constexpr int kCurrentNoise = 1;

} // namespace

PortSignal::PortSignal(quint32 seed)
    : m_random(seed)
    , m_openVoltage(kLowestOpenVoltage + static_cast<int>(m_random() % kOpenVoltageSpread))
    , m_phase(static_cast<double>(m_random() % 1000) / 1000.0)
{
}

quint16 PortSignal::voltage(int load, bool isMeasuring, bool isSurging, qint64 now)
{
    const int drift = static_cast<int>(std::lround(kVoltageDrift * wave(now)));
    return static_cast<quint16>(m_openVoltage - kDroop * load - (isMeasuring ? kMeasuringDip : 0) -
                                (isSurging ? kSurgeDip : 0) + drift + noise(kVoltageNoise));
}

qint16 PortSignal::current(int nominal, qint64 now)
{
    const int drift = static_cast<int>(std::lround(kCurrentDrift * wave(now)));
    return static_cast<qint16>(nominal + drift + noise(kCurrentNoise));
}

/// Between about -1 and 1.
double PortSignal::wave(qint64 now) const
{
    const auto time = static_cast<double>(now);
    return (1.0 - kFastShare) * std::sin(kTurn * (time / kSlowPeriod + m_phase)) +
           kFastShare * std::sin(kTurn * (time / kFastPeriod - m_phase));
}

int PortSignal::noise(int amplitude)
{
    return static_cast<int>(m_random() % static_cast<unsigned>(2 * amplitude + 1)) - amplitude;
}
