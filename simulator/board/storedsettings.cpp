#include "simulator/board/storedsettings.h"

#include "serial/wire/hextext.h"

namespace {

constexpr int kByteDigits = 2;
constexpr int kWordDigits = 4;
constexpr unsigned kAllFlags = GeneralFaultOutputFlag | EarthLeakageDetectionFlag |
                               EarthWireOpenDetectionFlag | StartInServiceModeFlag |
                               AmplifierDetectionFlag;

std::optional<unsigned> byteUpTo(const QByteArray& digits, unsigned highest)
{
    const auto number = hextext::toNumber(digits, 0, kByteDigits);
    if (digits.size() != kByteDigits || !number || *number > highest) {
        return std::nullopt;
    }
    return *number;
}

bool writeWord(quint16& word, const QByteArray& digits)
{
    const auto number = hextext::toSwappedWord(digits, 0);
    if (digits.size() != kWordDigits || !number) {
        return false;
    }
    word = *number;
    return true;
}

bool writeName(QByteArray& name, const QByteArray& digits)
{
    const QByteArray bytes = QByteArray::fromHex(digits);
    const bool isEmpty = digits.isEmpty();
    if ((!isEmpty && !hextext::isHexPairs(digits)) || bytes.size() > kMaxNameBytes) {
        return false;
    }
    name = bytes;
    return true;
}

} // namespace

void StoredSettings::set(SettingsFlag flag, bool on)
{
    flags = static_cast<quint8>(on ? flags | flag : flags & ~static_cast<unsigned>(flag));
}

bool StoredSettings::write(LdbParameter parameter, const QByteArray& digits)
{
    switch (parameter) {
    case LdbParameter::Name:
        return writeName(name, digits);
    case LdbParameter::NumberOfFims:
        return writeWord(numberOfFims, digits);
    case LdbParameter::OpenDetectionDelay:
        return writeWord(openDetectionDelay, digits);
    case LdbParameter::Flags:
        if (const auto value = byteUpTo(digits, kAllFlags)) {
            flags = static_cast<quint8>(*value);
            return true;
        }
        return false;
    case LdbParameter::AudioMute:
        if (const auto value = byteUpTo(digits, 1)) {
            audioMute = *value != 0;
            return true;
        }
        return false;
    case LdbParameter::Settings:
        break;
    }
    return false;
}

void StoredSettings::resetToFactory()
{
    StoredSettings defaults;
    defaults.name = name;
    defaults.numberOfFims = numberOfFims;
    *this = defaults;
}
