#include "resources/generator/bleep.h"

#include <QDataStream>
#include <QIODevice>

#include <algorithm>
#include <cmath>

namespace bleep {

namespace {

constexpr quint32 kSampleRate = 44100;
constexpr quint16 kChannels = 1;
constexpr quint16 kBytesPerSample = 2;
constexpr quint16 kPcm = 1;
constexpr quint32 kFormatBytes = 16;
constexpr double kFullScale = 32767;
constexpr double kLoudness = 0.6;
// Faded in and out, so that a tone neither starts nor ends with a click.
constexpr double kFadeSeconds = 0.008;
constexpr double kPi = 3.14159265358979323846;

struct Tone
{
    double hertz;
    double seconds;
};
constexpr Tone kTones[] = {{880, 0.14}, {1320, 0.19}};

qint16 sampleAt(const Tone& tone, double time)
{
    const double fade = std::min({1.0, time / kFadeSeconds, (tone.seconds - time) / kFadeSeconds});
    const double value = kLoudness * fade * std::sin(2 * kPi * tone.hertz * time);
    return static_cast<qint16>(std::lround(kFullScale * value));
}

QByteArray samples()
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    for (const Tone& tone : kTones) {
        const int count = static_cast<int>(tone.seconds * kSampleRate);
        for (int i = 0; i < count; ++i) {
            stream << sampleAt(tone, static_cast<double>(i) / kSampleRate);
        }
    }
    return bytes;
}

} // namespace

QByteArray wave()
{
    const QByteArray data = samples();
    const auto dataBytes = static_cast<quint32>(data.size());
    constexpr quint32 headerBytesAfterSize = 36;
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.writeRawData("RIFF", 4);
    stream << headerBytesAfterSize + dataBytes;
    stream.writeRawData("WAVEfmt ", 8);
    stream << kFormatBytes << kPcm << kChannels << kSampleRate
           << kSampleRate * kChannels * kBytesPerSample
           << static_cast<quint16>(kChannels * kBytesPerSample)
           << static_cast<quint16>(kBytesPerSample * 8);
    stream.writeRawData("data", 4);
    stream << dataBytes;
    return bytes + data;
}

} // namespace bleep
