#include "serial/ldbstatus.h"

#include "serial/hextext.h"

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

constexpr unsigned kPresent = 1U << 0U;
constexpr unsigned kRemembered = 1U << 1U;
constexpr unsigned kUndefined = 1U << 2U;
constexpr unsigned kNibbleBits = 4;
constexpr unsigned kLowNibble = 0x0F;

/// Reads fields one after another and remembers whether each of them was a number.
class FieldReader
{
public:
    explicit FieldReader(const QByteArray& body)
        : m_body(body)
    {
    }

    quint8 byteAt(int position, int length = 2)
    {
        return static_cast<quint8>(take(hextext::toNumber(m_body, position, length)));
    }
    quint16 wordAt(int position)
    {
        return static_cast<quint16>(take(hextext::toSwappedWord(m_body, position)));
    }
    bool allValid() const { return m_allValid; }

private:
    template <typename Number>
    quint32 take(const std::optional<Number>& number)
    {
        m_allValid = m_allValid && number.has_value();
        return number.value_or(0);
    }

    const QByteArray& m_body;
    bool m_allValid = true;
};

int flag(unsigned bits, unsigned mask, int value)
{
    return (bits & mask) != 0 ? value : 0;
}

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
    const unsigned shortBits = loopNibbles & kLowNibble;
    const unsigned leakageBits = static_cast<unsigned>(loopNibbles) >> kNibbleBits;
    return static_cast<LdbLoopState>(
        flag(loopByte, kPresent, static_cast<int>(LdbLoopState::Open)) +
        flag(loopByte, kRemembered, static_cast<int>(LdbLoopState::OpenMemory)) +
        flag(shortBits, kPresent, static_cast<int>(LdbLoopState::Short)) +
        flag(shortBits, kRemembered, static_cast<int>(LdbLoopState::ShortMemory)) +
        flag(leakageBits, kPresent, static_cast<int>(LdbLoopState::DcLeakage)) +
        flag(leakageBits, kRemembered, static_cast<int>(LdbLoopState::DcLeakageMemory)) +
        flag(leakageBits, kUndefined, static_cast<int>(LdbLoopState::Undefined)));
}

LdbEarthState LdbStatus::earthState() const
{
    return static_cast<LdbEarthState>(
        flag(earthByte2, kPresent, static_cast<int>(LdbEarthState::Open)) +
        flag(earthByte2, kRemembered, static_cast<int>(LdbEarthState::OpenMemory)) +
        flag(earthByte1, kPresent, static_cast<int>(LdbEarthState::Leakage)) +
        flag(earthByte1, kRemembered, static_cast<int>(LdbEarthState::LeakageMemory)) +
        flag(earthByte1, kUndefined, static_cast<int>(LdbEarthState::Undefined)));
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
    FieldReader reader(body);
    LdbStatus& status = result.status;
    status.firstByte = reader.byteAt(field::kFirstByte);
    status.secondByte = reader.byteAt(field::kSecondByte);
    status.state = static_cast<LdbState>(reader.byteAt(field::kState));
    status.loopByte = reader.byteAt(field::kLoopByte);
    const unsigned leakageNibble = reader.byteAt(field::kLoopHighNibble, 1);
    const unsigned shortNibble = reader.byteAt(field::kLoopLowNibble, 1);
    status.loopNibbles = static_cast<quint8>((leakageNibble << kNibbleBits) | shortNibble);
    status.earthByte1 = reader.byteAt(field::kEarthByte1);
    status.earthByte2 = reader.byteAt(field::kEarthByte2);
    status.primaryPortShort = reader.byteAt(field::kPrimaryShort);
    status.secondaryPortShort = reader.byteAt(field::kSecondaryShort);
    status.amplifier = reader.byteAt(field::kAmplifier);
    status.primaryVoltage = reader.wordAt(field::kPrimaryVoltage);
    status.primaryAuxiliary = reader.wordAt(field::kPrimaryAuxiliary);
    status.secondaryVoltage = reader.wordAt(field::kSecondaryVoltage);
    status.secondaryAuxiliary = reader.wordAt(field::kSecondaryAuxiliary);
    result.valid = reader.allValid();
    // A board whose current measurement fails still tells its state: that must not be lost.
    status.primaryCurrent = reader.wordAt(field::kPrimaryCurrent);
    status.secondaryCurrent = reader.wordAt(field::kSecondaryCurrent);
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
