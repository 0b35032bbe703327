#pragma once

#include <QByteArray>
#include <QMetaType>
#include <QString>

/// Operating state of an LDB as its status answer carries it. Values that no enumerator names can
/// occur and read "Unknown".
enum class LdbState : quint32
{
    Booting = 0,
    Quiescent = 10,
    Measuring = 20,
    ServiceMode = 30,
    FimResetExecuting = 40,
    FimResetFailed = 41,
    FimResetDone = 42,
    FactoryResetExecuting = 50,
    FactoryResetFailed = 51,
    FactoryResetDone = 52,
    CheckSettings = 253,
    Fault = 254,
    Disconnected = 255
};
Q_DECLARE_METATYPE(LdbState)

/// State of a loop: a sum of the flags below, 0 to 127. A fault is present, or remembered after it
/// has gone; codes above 42, and sums the boards do not report, read "Unknown".
enum class LdbLoopState : int
{
    Ok = 0,
    Open = 1,
    OpenMemory = 2,
    Short = 4,
    ShortMemory = 8,
    DcLeakage = 16,
    DcLeakageMemory = 32,
    Undefined = 64
};

/// State of the earth connection: a sum of the flags below, 0 to 31; above 15 reads "Unknown".
enum class LdbEarthState : int
{
    Ok = 0,
    Open = 1,
    OpenMemory = 2,
    Leakage = 4,
    LeakageMemory = 8,
    Undefined = 16
};

/// Amplifier codes; any other value reads "Unknown".
enum class LdbAmplifierState : int
{
    Ok = 0,
    Polling = 1,
    Disconnected = 2,
    Reconnected = 3,
    NotSupported = 254,
    Unknown = 255
};

/// Values of a port's short field.
enum class LdbPortShort : quint8
{
    None = 0,
    Short = 1,
    ShortMemory = 2
};

/// One decoded status answer.
struct LdbStatus
{
    quint8 firstByte = 0;  ///< not shown
    quint8 secondByte = 0; ///< not shown
    LdbState state = LdbState::Booting;
    quint8 loopByte = 0;            ///< open flags: bit 0 present, bit 1 remembered
    quint8 loopNibbles = 0;         ///< high nibble DC leakage, low nibble short
    quint8 earthByte1 = 0;          ///< leakage flags
    quint8 earthByte2 = 0;          ///< earth-wire open flags
    quint8 primaryPortShort = 0;    ///< `LdbPortShort`
    quint8 secondaryPortShort = 0;  ///< `LdbPortShort`
    quint8 amplifier = 0;           ///< `LdbAmplifierState`
    quint16 primaryVoltage = 0;     ///< mV
    quint16 primaryAuxiliary = 0;   ///< shown raw
    quint16 secondaryVoltage = 0;   ///< mV
    quint16 secondaryAuxiliary = 0; ///< shown raw
    quint16 primaryCurrent = 0;     ///< 0.01 mA, two's complement
    quint16 secondaryCurrent = 0;   ///< 0.01 mA, two's complement

    LdbLoopState loopState() const;
    LdbEarthState earthState() const;

    /// What is known of an LDB that does not answer: state 255, no volts, no milliamperes, and
    /// loop, earth and amplifier "Unknown".
    static LdbStatus disconnected();
};

/// A decoded record together with whether it may be used.
struct LdbStatusDecoding
{
    LdbStatus status;
    bool valid = false;
};

/// Length of a status answer's body.
constexpr int kStatusAnswerLength = 50;

/// Decodes the body of a status answer. A body of another length gives an all-zero invalid record.
/// Malformed currents alone leave the record valid and read 0.
LdbStatusDecoding decodeLdbStatus(const QByteArray& body);

// Display texts, translated into the language in force.
QString ldbStateText(LdbState state);
QString ldbLoopStateText(LdbLoopState state);
QString ldbEarthStateText(LdbEarthState state);
QString ldbAmplifierText(int amplifier);

/// How bad the fault is that a code stands for. A code that reads "Unknown" stands for none.
enum class FaultLevel : int
{
    None,
    Minor, ///< remembered, and gone
    Major  ///< present
};

// The one place that knows which codes mean a fault.
FaultLevel ldbLoopFault(int code);
FaultLevel ldbEarthFault(int code);
FaultLevel ldbAmplifierFault(int code);
/// Leakage that is present, whatever else is.
bool isEarthLeakage(LdbEarthState state);
bool isLoopDcLeakage(LdbLoopState state);
