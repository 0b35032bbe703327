#include "serial/ldb/ldbsettings.h"

#include "serial/ldb/busaddress.h"
#include "serial/wire/hextext.h"

#include <QTextCodec>

#include <iterator>

namespace {

// Positions of the fields in a settings answer.
namespace field {
constexpr int kAddress = 0;
constexpr int kFlags = 8;
constexpr int kFurtherByte = 10;
constexpr int kAudioMute = 12;
constexpr int kOpenDetectionDelay = 14;
constexpr int kName = 18;
constexpr int kNameDigits = 32;
constexpr int kNumberOfFims = 52;
} // namespace field

// Bit n of the flag byte stands for the nth of these.
constexpr bool LdbSettings::*kFlags[] = {
    &LdbSettings::generalFaultOutput, &LdbSettings::earthLeakageDetection,
    &LdbSettings::earthWireOpenDetection, &LdbSettings::startInServiceMode,
    &LdbSettings::amplifierDetection};

constexpr int kByteDigits = 2;
constexpr int kWordDigits = 4;
constexpr unsigned kByteBits = 8;
constexpr int kLongestNoFirmware = 10;

QString decodedName(const QByteArray& bytes)
{
    return hextext::decoded(bytes, QTextCodec::codecForLocale());
}

} // namespace

std::optional<LdbSettings> decodeLdbSettings(const QByteArray& answer)
{
    if (answer.size() != kSettingsAnswerLength) {
        return std::nullopt;
    }
    const auto address = hextext::toNumber(answer, field::kAddress, kByteDigits);
    const auto flags = hextext::toNumber(answer, field::kFlags, kByteDigits);
    const auto furtherByte = hextext::toNumber(answer, field::kFurtherByte, kByteDigits);
    const auto audioMute = hextext::toNumber(answer, field::kAudioMute, kByteDigits);
    const auto delay = hextext::toSwappedWord(answer, field::kOpenDetectionDelay);
    const QByteArray name = answer.mid(field::kName, field::kNameDigits);
    const auto numberOfFims = hextext::toSwappedWord(answer, field::kNumberOfFims);
    if (!address || !flags || !furtherByte || !audioMute || !delay || !numberOfFims ||
        !hextext::isHexPairs(name)) {
        return std::nullopt;
    }
    LdbSettings settings;
    settings.address = static_cast<int>(*address);
    // A name written on a computer of another encoding stays readable, and saving the record does
    // not fill it with replacement characters.
    settings.nameBytes = QByteArray::fromHex(name);
    settings.nameBytes.truncate(static_cast<int>(
        qstrnlen(settings.nameBytes.constData(), static_cast<uint>(settings.nameBytes.size()))));
    settings.name = decodedName(settings.nameBytes);
    for (unsigned bit = 0; bit < std::size(kFlags); ++bit) {
        settings.*kFlags[bit] = (*flags >> bit & 1U) != 0;
    }
    settings.audioMute = *audioMute != 0;
    settings.openDetectionDelay = *delay;
    settings.numberOfFims = *numberOfFims;
    settings.furtherByte = static_cast<quint8>(*furtherByte);
    return settings;
}

std::optional<LdbSettings> decodeLdbSettings(const QByteArray& answer, const QString& hexId)
{
    const auto settings = decodeLdbSettings(answer);
    const bool isOwn = settings && settings->address == busaddress::fromHexId(hexId);
    return isOwn ? settings : std::nullopt;
}

std::optional<QString> decodeFirmwareId(const QByteArray& answer)
{
    if (answer.size() <= kLongestNoFirmware || !hextext::isHexPairs(answer)) {
        return std::nullopt;
    }
    const QByteArray bytes = QByteArray::fromHex(answer);
    if (bytes.contains('\0')) {
        return std::nullopt;
    }
    return QString::fromLatin1(bytes);
}

bool isStorableName(const QString& name)
{
    return !name.contains(QChar::Null) && QTextCodec::codecForLocale()->canEncode(name) &&
           name.toLocal8Bit().size() <= kMaxNameBytes;
}

QByteArray encodeName(const QString& name)
{
    return hextext::fromBytes(name.toLocal8Bit());
}

QByteArray encodeName(const LdbSettings& settings)
{
    const bool isAsRead = !settings.nameBytes.isEmpty() &&
                          settings.nameBytes.size() <= kMaxNameBytes &&
                          decodedName(settings.nameBytes) == settings.name;
    return isAsRead ? hextext::fromBytes(settings.nameBytes) : encodeName(settings.name);
}

QByteArray encodeFlags(const LdbSettings& settings)
{
    unsigned flags = 0;
    for (unsigned bit = 0; bit < std::size(kFlags); ++bit) {
        flags |= (settings.*kFlags[bit] ? 1U : 0U) << bit;
    }
    return hextext::fromNumber(flags, kByteDigits);
}

QByteArray encodeAudioMute(bool muted)
{
    return hextext::fromNumber(muted ? 1U : 0U, kByteDigits);
}

QByteArray encodeSwappedWord(quint16 value)
{
    const unsigned word = value;
    return hextext::fromNumber((word << kByteBits) | (word >> kByteBits), kWordDigits);
}
