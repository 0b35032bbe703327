#include "serial/ldb/ldbstatus.h"

#include "serial/wire/hextext.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>

namespace {

// Positions of the fields in the body of a status answer.
namespace field {
constexpr int kFirstByte = 0;
constexpr int kSecondByte = 8;
constexpr int kState = 10;
constexpr int kLoopByte = 12;
constexpr int kLoopHighNibble = 14;
constexpr int kLoopLowNibble = 15;
constexpr int kEarthByte1 = 16;
constexpr int kEarthByte2 = 18;
constexpr int kPrimaryShort = 20;
constexpr int kSecondaryShort = 22;
constexpr int kAmplifier = 24;
constexpr int kPrimaryVoltage = 26;
constexpr int kPrimaryAuxiliary = 30;
constexpr int kSecondaryVoltage = 34;
constexpr int kSecondaryAuxiliary = 38;
constexpr int kPrimaryCurrent = 42;
constexpr int kSecondaryCurrent = 46;
} // namespace field

// The flags of one fault: present, remembered and, in some fields, one without a text.
constexpr unsigned kTwoFlags = 0x03;
constexpr unsigned kThreeFlags = 0x07;
constexpr unsigned kUndefined = 0x04;
constexpr unsigned kNibbleBits = 4;

struct CodeText
{
    int code;
    const char* text;
};

constexpr char kContext[] = "LdbStatus";

constexpr CodeText kStateTexts[] = {
    {0, QT_TRANSLATE_NOOP("LdbStatus", "Booting")},
    {10, QT_TRANSLATE_NOOP("LdbStatus", "Quiescent")},
    {20, QT_TRANSLATE_NOOP("LdbStatus", "Measuring")},
    {30, QT_TRANSLATE_NOOP("LdbStatus", "Service mode")},
    {40, QT_TRANSLATE_NOOP("LdbStatus", "Fim reset executing")},
    {41, QT_TRANSLATE_NOOP("LdbStatus", "Fim reset failed")},
    {42, QT_TRANSLATE_NOOP("LdbStatus", "Fim reset done")},
    {50, QT_TRANSLATE_NOOP("LdbStatus", "Factory reset executing")},
    {51, QT_TRANSLATE_NOOP("LdbStatus", "Factory reset failed")},
    {52, QT_TRANSLATE_NOOP("LdbStatus", "Factory reset done")},
    {253, QT_TRANSLATE_NOOP("LdbStatus", "Check Settings")},
    {254, QT_TRANSLATE_NOOP("LdbStatus", "Fault")},
    {255, QT_TRANSLATE_NOOP("LdbStatus", "Disconnected")},
};

// A present short hides the loop behind it, so the boards report no present open beside it, and a
// fault is never present and remembered at once: such sums have no text.
constexpr CodeText kLoopTexts[] = {
    {0, QT_TRANSLATE_NOOP("LdbStatus", "Ok")},
    {1, QT_TRANSLATE_NOOP("LdbStatus", "Open")},
    {2, QT_TRANSLATE_NOOP("LdbStatus", "Open(memory)")},
    {4, QT_TRANSLATE_NOOP("LdbStatus", "Short")},
    {6, QT_TRANSLATE_NOOP("LdbStatus", "Short + Open(memory)")},
    {8, QT_TRANSLATE_NOOP("LdbStatus", "Short(memory)")},
    {9, QT_TRANSLATE_NOOP("LdbStatus", "Short(memory) + Open")},
    {10, QT_TRANSLATE_NOOP("LdbStatus", "Short(memory) + Open(memory)")},
    {16, QT_TRANSLATE_NOOP("LdbStatus", "DC Leakage")},
    {17, QT_TRANSLATE_NOOP("LdbStatus", "Open + DC Leakage")},
    {18, QT_TRANSLATE_NOOP("LdbStatus", "Open(memory) + DC Leakage")},
    {20, QT_TRANSLATE_NOOP("LdbStatus", "Short + DC Leakage")},
    {22, QT_TRANSLATE_NOOP("LdbStatus", "Short + Open(memory) + DC Leakage")},
    {24, QT_TRANSLATE_NOOP("LdbStatus", "Short(memory) + DC Leakage")},
    {25, QT_TRANSLATE_NOOP("LdbStatus", "Short(memory) + Open + DC Leakage")},
    {26, QT_TRANSLATE_NOOP("LdbStatus", "Short(memory) + Open(memory) + DC Leakage")},
    {32, QT_TRANSLATE_NOOP("LdbStatus", "DC Leakage(memory)")},
    {33, QT_TRANSLATE_NOOP("LdbStatus", "Open + DC Leakage(memory)")},
    {34, QT_TRANSLATE_NOOP("LdbStatus", "Open(memory) + DC Leakage(memory)")},
    {36, QT_TRANSLATE_NOOP("LdbStatus", "Short + DC Leakage(memory)")},
    {38, QT_TRANSLATE_NOOP("LdbStatus", "Short + Open(memory) + DC Leakage(memory)")},
    {40, QT_TRANSLATE_NOOP("LdbStatus", "Short(memory) + DC Leakage(memory)")},
    // No blank before the first plus sign: files already logged carry the text like this.
    {41, QT_TRANSLATE_NOOP("LdbStatus", "Short(memory)+ Open + DC Leakage(memory)")},
    {42, QT_TRANSLATE_NOOP("LdbStatus", "Short(memory) + Open(memory) + DC Leakage(memory)")},
};

constexpr CodeText kEarthTexts[] = {
    {0, QT_TRANSLATE_NOOP("LdbStatus", "Ok")},
    {1, QT_TRANSLATE_NOOP("LdbStatus", "Open")},
    {2, QT_TRANSLATE_NOOP("LdbStatus", "Open(memory)")},
    {4, QT_TRANSLATE_NOOP("LdbStatus", "Leakage")},
    {5, QT_TRANSLATE_NOOP("LdbStatus", "Leakage + Open")},
    {6, QT_TRANSLATE_NOOP("LdbStatus", "Leakage + Open(memory)")},
    {8, QT_TRANSLATE_NOOP("LdbStatus", "Leakage(memory)")},
    {9, QT_TRANSLATE_NOOP("LdbStatus", "Leakage(memory) + Open")},
    {10, QT_TRANSLATE_NOOP("LdbStatus", "Leakage(memory) + Open(memory)")},
};

constexpr CodeText kAmplifierTexts[] = {
    {0, QT_TRANSLATE_NOOP("LdbStatus", "Ok")},
    {1, QT_TRANSLATE_NOOP("LdbStatus", "Polling")},
    {2, QT_TRANSLATE_NOOP("LdbStatus", "Disconnected")},
    {3, QT_TRANSLATE_NOOP("LdbStatus", "Reconnected")},
    {254, QT_TRANSLATE_NOOP("LdbStatus", "Not Supported")},
};

constexpr char kUnknownText[] = QT_TRANSLATE_NOOP("LdbStatus", "Unknown");

/// Null where the code has none.
template <std::size_t Count>
const char* findText(const CodeText (&texts)[Count], int code)
{
    const auto* found = std::find_if(std::begin(texts), std::end(texts),
                                     [code](const CodeText& entry) { return entry.code == code; });
    return found == std::end(texts) ? nullptr : found->text;
}

template <std::size_t Count>
QString textOf(const CodeText (&texts)[Count], int code)
{
    const char* text = findText(texts, code);
    return QCoreApplication::translate(kContext, text != nullptr ? text : kUnknownText);
}

// Of the loop's flags; the earth's are the first two.
constexpr int kPresentFaults = 1 | 4 | 16;
constexpr int kLeakageField = 16 | 32;

FaultLevel levelOf(int code)
{
    const FaultLevel level = (code & kPresentFaults) != 0 ? FaultLevel::Major : FaultLevel::Minor;
    return code == 0 ? FaultLevel::None : level;
}

/// Unlike the loop, a field that is present and remembered at once reads as if it were neither.
int earthFields(int code)
{
    for (const int both : {3, 12}) {
        code = (code & both) == both ? code & ~both : code;
    }
    return code;
}

} // namespace

LdbLoopState LdbStatus::loopState() const
{
    const unsigned leakageNibble = static_cast<unsigned>(loopNibbles) >> kNibbleBits;
    return static_cast<LdbLoopState>((loopByte & kTwoFlags) | (loopNibbles & kTwoFlags) << 2U |
                                     (leakageNibble & kThreeFlags) << 4U);
}

LdbEarthState LdbStatus::earthState() const
{
    return static_cast<LdbEarthState>((earthByte2 & kTwoFlags) | (earthByte1 & kThreeFlags) << 2U);
}

LdbStatus LdbStatus::disconnected()
{
    LdbStatus status;
    status.state = LdbState::Disconnected;
    status.loopNibbles = static_cast<quint8>(kUndefined << kNibbleBits);
    status.earthByte1 = static_cast<quint8>(kUndefined);
    status.amplifier = static_cast<quint8>(LdbAmplifierState::Unknown);
    return status;
}

LdbStatusDecoding decodeLdbStatus(const QByteArray& body)
{
    LdbStatusDecoding result;
    if (body.size() != kStatusAnswerLength) {
        return result;
    }
    bool isValid = true;
    const auto byteAt = [&body, &isValid](int position, int length = 2) {
        const auto number = hextext::toNumber(body, position, length);
        isValid = isValid && number;
        return static_cast<quint8>(number.value_or(0));
    };
    const auto wordAt = [&body, &isValid](int position) {
        const auto number = hextext::toSwappedWord(body, position);
        isValid = isValid && number;
        return number.value_or(0);
    };
    LdbStatus& status = result.status;
    status.firstByte = byteAt(field::kFirstByte);
    status.secondByte = byteAt(field::kSecondByte);
    status.state = static_cast<LdbState>(byteAt(field::kState));
    status.loopByte = byteAt(field::kLoopByte);
    const unsigned leakageNibble = byteAt(field::kLoopHighNibble, 1);
    const unsigned shortNibble = byteAt(field::kLoopLowNibble, 1);
    status.loopNibbles = static_cast<quint8>((leakageNibble << kNibbleBits) | shortNibble);
    status.earthByte1 = byteAt(field::kEarthByte1);
    status.earthByte2 = byteAt(field::kEarthByte2);
    status.primaryPortShort = byteAt(field::kPrimaryShort);
    status.secondaryPortShort = byteAt(field::kSecondaryShort);
    status.amplifier = byteAt(field::kAmplifier);
    status.primaryVoltage = wordAt(field::kPrimaryVoltage);
    status.primaryAuxiliary = wordAt(field::kPrimaryAuxiliary);
    status.secondaryVoltage = wordAt(field::kSecondaryVoltage);
    status.secondaryAuxiliary = wordAt(field::kSecondaryAuxiliary);
    result.valid = isValid;
    // A board whose current measurement fails still tells its state: that must not be lost.
    status.primaryCurrent = wordAt(field::kPrimaryCurrent);
    status.secondaryCurrent = wordAt(field::kSecondaryCurrent);
    return result;
}

QString ldbStateText(LdbState state)
{
    return textOf(kStateTexts, static_cast<int>(state));
}

QString ldbLoopStateText(LdbLoopState state)
{
    return textOf(kLoopTexts, static_cast<int>(state));
}

QString ldbEarthStateText(LdbEarthState state)
{
    return textOf(kEarthTexts, earthFields(static_cast<int>(state)));
}

QString ldbAmplifierText(int amplifier)
{
    return textOf(kAmplifierTexts, amplifier);
}

FaultLevel ldbLoopFault(int code)
{
    constexpr int kOpenPresentAndRemembered = 3; // has no text, and counts as remembered
    if (code == kOpenPresentAndRemembered) {
        return FaultLevel::Minor;
    }
    return findText(kLoopTexts, code) != nullptr ? levelOf(code) : FaultLevel::None;
}

FaultLevel ldbEarthFault(int code)
{
    const int fields = earthFields(code);
    return findText(kEarthTexts, fields) != nullptr ? levelOf(fields) : FaultLevel::None;
}

FaultLevel ldbAmplifierFault(int code)
{
    switch (static_cast<LdbAmplifierState>(code)) {
    case LdbAmplifierState::Disconnected:
        return FaultLevel::Major;
    case LdbAmplifierState::Reconnected:
        return FaultLevel::Minor;
    default:
        return FaultLevel::None;
    }
}

bool isEarthLeakage(LdbEarthState state)
{
    return state >= LdbEarthState::Leakage && state < LdbEarthState::LeakageMemory;
}

bool isLoopDcLeakage(LdbLoopState state)
{
    const int code = static_cast<int>(state);
    return findText(kLoopTexts, code) != nullptr &&
           (code & kLeakageField) == static_cast<int>(LdbLoopState::DcLeakage);
}
