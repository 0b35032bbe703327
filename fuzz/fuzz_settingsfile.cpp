// The input: a device-settings file.

#include "fuzz/support.h"
#include "importexport/devicesettingsfile.h"
#include "importexport/settingscsv.h"

#include <QSet>
#include <QTextCodec>

#include <tuple>

namespace {

constexpr int kMaxAddress = 255;
constexpr int kHighestSameInBothBases = 9;

auto asTuple(const LdbSettings& s)
{
    return std::make_tuple(s.address, s.name, s.generalFaultOutput, s.earthLeakageDetection,
                           s.earthWireOpenDetection, s.startInServiceMode, s.amplifierDetection,
                           s.openDetectionDelay, s.numberOfFims);
}

/// What is written of a line reads as the line said, or not at all; never as something else.
void checkRoundTrip(LdbSettings settings, const QString& firmware)
{
    // Written in decimal, read in hexadecimal.
    settings.address = settings.address % kHighestSameInBothBases + 1;
    const QByteArray file =
        (settingscsv::fileHead() + settingscsv::settingsLine(settings, firmware)).toLocal8Bit();
    const auto lines = DeviceSettingsFile::read(file);
    require(lines.size() == 1, "one LDB is written in one line");
    const DeviceSettingsLine& line = lines.front();
    require(line.settings || firmware.isEmpty(), "a line with a firmware id can be read");
    require(!line.settings || asTuple(*line.settings) == asTuple(settings),
            "a written line reads the same");
}

void checkLine(const DeviceSettingsLine& line)
{
    require(line.address >= -1 && line.address <= kMaxAddress, "address in range");
    require(line.address < 0
                ? line.hexId.isEmpty() && !line.settings
                : line.hexId.size() == 2 && line.hexId.toInt(nullptr, 16) == line.address,
            "the id is the address");
    require(line.settings.has_value() == !line.error, "a line is good or says why not");
    if (line.settings) {
        require(line.settings->address == line.address, "the record is the line's LDB");
        require(isStorableName(line.settings->name), "the name can be stored");
        checkRoundTrip(*line.settings, QStringLiteral("LDB16 V3.21"));
        checkRoundTrip(*line.settings, {});
    }
}

void checkFile(const QByteArray& content, IdReading reading)
{
    QSet<int> accepted;
    int previous = 0;
    for (const DeviceSettingsLine& line : DeviceSettingsFile::read(content, reading)) {
        require(line.number > previous, "lines stand in order");
        previous = line.number;
        checkLine(line);
        if (line.settings) {
            require(!accepted.contains(line.address), "no LDB is written twice");
            accepted.insert(line.address);
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray content = inputBytes(data, size);
    for (const char* encoding : kLocalEncodings) {
        QTextCodec::setCodecForLocale(QTextCodec::codecForName(encoding));
        checkFile(content, IdReading::Hexadecimal);
        checkFile(content, IdReading::Decimal);
    }
    return 0;
}
