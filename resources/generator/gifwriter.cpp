#include "resources/generator/gifwriter.h"

#include <QMap>
#include <QPair>

namespace {

constexpr int kMaximumCodes = 4096;
constexpr int kMaximumBlock = 255;
constexpr int kMillisecondsPerTick = 10;

void appendWord(QByteArray& out, int value)
{
    out.append(static_cast<char>(value & 0xFF));
    out.append(static_cast<char>((value >> 8) & 0xFF));
}

/// Codes of growing width, lowest bit first.
class BitWriter
{
public:
    void write(int code, int width)
    {
        m_pending |= static_cast<quint32>(code) << m_pendingBits;
        m_pendingBits += width;
        while (m_pendingBits >= 8) {
            flushByte();
        }
    }
    QByteArray finish()
    {
        if (m_pendingBits > 0) {
            flushByte();
        }
        return m_bytes;
    }

private:
    void flushByte()
    {
        m_bytes.append(static_cast<char>(m_pending & 0xFFU));
        m_pending >>= 8U;
        m_pendingBits -= 8;
    }

    QByteArray m_bytes;
    quint32 m_pending = 0;
    int m_pendingBits = 0;
};

/// LZW as this format has it: `bits` a pixel, then a clear code, an end code and the strings seen.
QByteArray compressed(const QByteArray& pixels, int bits)
{
    const int clearCode = 1 << bits;
    const int endCode = clearCode + 1;
    BitWriter writer;
    QMap<QPair<int, char>, int> strings;
    int width = bits + 1;
    int next = endCode + 1;
    writer.write(clearCode, width);
    int current = static_cast<uchar>(pixels.at(0));
    for (int i = 1; i < pixels.size(); ++i) {
        const QPair<int, char> longer(current, pixels.at(i));
        const auto known = strings.constFind(longer);
        if (known != strings.constEnd()) {
            current = known.value();
            continue;
        }
        writer.write(current, width);
        if (next < kMaximumCodes) {
            if (next == 1 << width) {
                ++width;
            }
            strings.insert(longer, next++);
        } else {
            writer.write(clearCode, width);
            strings.clear();
            width = bits + 1;
            next = endCode + 1;
        }
        current = static_cast<uchar>(pixels.at(i));
    }
    writer.write(current, width);
    writer.write(endCode, width);
    return writer.finish();
}

QByteArray pixelsOf(const QImage& image)
{
    QByteArray pixels;
    for (int y = 0; y < image.height(); ++y) {
        pixels.append(reinterpret_cast<const char*>(image.constScanLine(y)), image.width());
    }
    return pixels;
}

void appendBlocks(QByteArray& out, const QByteArray& data)
{
    for (int start = 0; start < data.size(); start += kMaximumBlock) {
        const QByteArray block = data.mid(start, kMaximumBlock);
        out.append(static_cast<char>(block.size()));
        out.append(block);
    }
    out.append('\0');
}

void appendHeader(QByteArray& out, const QImage& first, int bits)
{
    out.append("GIF89a");
    appendWord(out, first.width());
    appendWord(out, first.height());
    // A global colour table of 2^bits entries, background entry 0, square pixels.
    out.append(static_cast<char>(0xF0 | (bits - 1)));
    out.append(2, '\0');
    const QVector<QRgb> table = first.colorTable();
    for (int i = 0; i < 1 << bits; ++i) {
        const QRgb entry = i < table.size() ? table.at(i) : 0;
        out.append(static_cast<char>(qRed(entry)));
        out.append(static_cast<char>(qGreen(entry)));
        out.append(static_cast<char>(qBlue(entry)));
    }
    // Repeat without end.
    out.append(QByteArray::fromHex("21FF0B"));
    out.append("NETSCAPE2.0");
    out.append(QByteArray::fromHex("0301000000"));
}

void appendFrame(QByteArray& out, const QImage& frame, int bits, int milliseconds)
{
    // Cleared to the background before the next frame; entry 0 is transparent.
    out.append(QByteArray::fromHex("21F90409"));
    appendWord(out, milliseconds / kMillisecondsPerTick);
    out.append(2, '\0');
    out.append(',');
    appendWord(out, 0);
    appendWord(out, 0);
    appendWord(out, frame.width());
    appendWord(out, frame.height());
    out.append('\0');
    out.append(static_cast<char>(bits));
    appendBlocks(out, compressed(pixelsOf(frame), bits));
}

} // namespace

QByteArray gifAnimation(const QVector<QImage>& frames, int frameMilliseconds)
{
    int bits = 2;
    while (1 << bits < frames.first().colorTable().size()) {
        ++bits;
    }
    QByteArray out;
    appendHeader(out, frames.first(), bits);
    for (const QImage& frame : frames) {
        appendFrame(out, frame, bits, frameMilliseconds);
    }
    out.append(';');
    return out;
}
