#pragma once

#include <QtGlobal>

#include <random>

/// Makes the nominal values of one port move as measured ones do: a slow drift and noise, both
/// far below the step of current that a FIM makes. Repeatable: the same seed gives the same course.
class PortSignal
{
public:
    explicit PortSignal(quint32 seed);

    /// Voltage in mV under a load, which is a current in 0.01 mA.
    quint16 voltage(int load, bool isMeasuring, bool isSurging, qint64 now);
    /// Current in 0.01 mA around the nominal one.
    qint16 current(int nominal, qint64 now);

private:
    double wave(qint64 now) const;
    int noise(int amplitude);

    std::minstd_rand m_random;
    int m_openVoltage; ///< mV without a load
    double m_phase;
};
