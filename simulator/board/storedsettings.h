#pragma once

#include "serial/ldb/ldbsettings.h"

#include <QByteArray>

/// Bits of the flag byte in a board's memory.
enum SettingsFlag : unsigned
{
    GeneralFaultOutputFlag = 1U << 0U,
    EarthLeakageDetectionFlag = 1U << 1U,
    EarthWireOpenDetectionFlag = 1U << 2U,
    StartInServiceModeFlag = 1U << 3U,
    AmplifierDetectionFlag = 1U << 4U,
};

/// The settings as a board keeps them. The defaults are those of a factory reset.
struct StoredSettings
{
    QByteArray name; ///< at most `kMaxNameBytes` bytes, in whatever encoding they came
    quint8 flags = GeneralFaultOutputFlag | EarthLeakageDetectionFlag | AmplifierDetectionFlag;
    bool audioMute = false;
    quint16 openDetectionDelay = 10; ///< 0 switches open detection off
    quint16 numberOfFims = 0;

    bool has(SettingsFlag flag) const { return (flags & flag) != 0; }
    void set(SettingsFlag flag, bool on);

    /// Writes a parameter from the digits of a change request. False when the digits are not what
    /// the parameter wants, and then nothing changes.
    bool write(LdbParameter parameter, const QByteArray& digits);

    /// Back to the defaults; the name and the number of FIMs belong to the place, and stay.
    void resetToFactory();
};
