// The input: the body of a settings or firmware answer; also, as UTF-8, a name to be stored.

#include "fuzz/support.h"
#include "serial/ldb/ldbsettings.h"
#include "serial/wire/hextext.h"
#include "simulator/board/answerencoder.h"

#include <QTextCodec>

#include <algorithm>
#include <cctype>
#include <tuple>

namespace {

constexpr int kLength = 56;
constexpr int kWordDigits = 4;
constexpr int kByteMax = 0xFF;
// The digits that are read; the others can be anything.
constexpr std::pair<int, int> kDecoded[] = {{0, 2}, {8, 50}, {52, 56}};

bool isHex(const QByteArray& text)
{
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return std::isxdigit(static_cast<unsigned char>(c)) != 0; });
}

auto asTuple(const LdbSettings& s)
{
    return std::make_tuple(s.address, s.name, s.generalFaultOutput, s.earthLeakageDetection,
                           s.earthWireOpenDetection, s.startInServiceMode, s.amplifierDetection,
                           s.audioMute, s.openDetectionDelay, s.numberOfFims);
}

/// What a board holds after every parameter of `settings` has been written to it. Its four digits
/// of a word are the last ones sent: more are sent for words above 255.
StoredSettings written(const LdbSettings& settings)
{
    StoredSettings board;
    const auto write = [&board](LdbParameter parameter, const QByteArray& digits) {
        require(board.write(parameter, digits), "a board takes what is written");
    };
    const auto writeWord = [&write](LdbParameter parameter, quint16 value) {
        const QByteArray digits = encodeSwappedWord(value);
        require(isHex(digits), "a word is sent in digits");
        require((digits.size() == kWordDigits) == (value <= kByteMax),
                "a word up to 255 is sent in four digits");
        write(parameter, digits.right(kWordDigits));
    };
    write(LdbParameter::Name, encodeName(settings.name));
    write(LdbParameter::Flags, encodeFlags(settings));
    write(LdbParameter::AudioMute, encodeAudioMute(settings.audioMute));
    writeWord(LdbParameter::OpenDetectionDelay, settings.openDetectionDelay);
    writeWord(LdbParameter::NumberOfFims, settings.numberOfFims);
    return board;
}

void checkRoundTrip(const LdbSettings& settings)
{
    if (!isStorableName(settings.name)) {
        return; // such a record is shown, but not saved
    }
    const auto readBack =
        decodeLdbSettings(answerencoder::settings(settings.address, written(settings)));
    require(readBack.has_value(), "a written record can be read");
    require(asTuple(*readBack) == asTuple(settings), "a written record reads the same");
}

void checkSettings(const QByteArray& answer)
{
    const bool isReadable =
        answer.size() == kLength &&
        std::all_of(std::begin(kDecoded), std::end(kDecoded), [&answer](const auto& range) {
            return isHex(answer.mid(range.first, range.second - range.first));
        });
    const auto settings = decodeLdbSettings(answer);
    require(settings.has_value() == isReadable, "a record is what is all digits");
    if (settings) {
        require(settings->address >= 0 && settings->address <= kByteMax, "address in range");
        require(!settings->name.contains(QChar::Null), "a name ends at its zero byte");
        require(settings->openDetection() == (settings->openDetectionDelay != 0),
                "no delay is no detection");
        checkRoundTrip(*settings);
    }
}

void checkFirmware(const QByteArray& answer)
{
    if (const auto firmware = decodeFirmwareId(answer)) {
        require(hextext::fromBytes(firmware->toLatin1()) == answer.toUpper(),
                "a firmware id is the bytes sent");
    }
    const QString text = hextext::toText(answer);
    require(text.isEmpty() || isHex(answer), "a text comes from digits");
    require(!text.endsWith(QLatin1Char(' ')) && !text.contains(QChar::Null),
            "a text ends with its last letter");
}

/// A name as somebody types it.
void checkName(const QByteArray& utf8)
{
    LdbSettings settings;
    settings.address = 1;
    settings.name = QString::fromUtf8(utf8);
    require(!isStorableName(settings.name) || settings.name.toLocal8Bit().size() <= kMaxNameBytes,
            "a storable name fits");
    checkRoundTrip(settings);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray input = inputBytes(data, size);
    for (const char* encoding : kLocalEncodings) {
        QTextCodec::setCodecForLocale(QTextCodec::codecForName(encoding));
        checkSettings(input);
        checkName(input);
    }
    checkFirmware(input);
    return 0;
}
