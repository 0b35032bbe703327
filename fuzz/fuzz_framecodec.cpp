// The input: one byte that chooses where the stream is cut into batches, then the stream.

#include "fuzz/support.h"
#include "serial/wire/framecodec.h"

#include <QList>

#include <algorithm>
#include <random>

namespace {

constexpr char kStart = '\x01';
constexpr int kLongestBatch = 9;
constexpr int kLongestBody = 512;

bool isTerminator(char byte)
{
    return byte == '\x04' || byte == '\x06' || byte == '\x15';
}

QList<QByteArray> cut(const QByteArray& stream, unsigned seed)
{
    std::minstd_rand random(seed + 1);
    QList<QByteArray> batches;
    for (int position = 0; position < stream.size();) {
        const int length = 1 + static_cast<int>(random() % kLongestBatch);
        batches.append(stream.mid(position, length));
        position += length;
    }
    return batches;
}

QList<QByteArray> singleBytes(const QByteArray& stream)
{
    QList<QByteArray> batches;
    for (const char byte : stream) {
        batches.append(QByteArray(1, byte));
    }
    return batches;
}

struct Assembly
{
    bool isComplete = false;
    QByteArray total;
};

bool operator==(const Assembly& left, const Assembly& right)
{
    return left.isComplete == right.isComplete && left.total == right.total;
}

/// The first answer in the stream, and what holds of any.
Assembly assemble(const QList<QByteArray>& batches)
{
    Assembly result;
    int received = 0;
    for (QByteArray batch : batches) {
        received += batch.size();
        result.isComplete = framecodec::processReceivedData(batch, result.total);
        const QByteArray& total = result.total;
        require(total.size() <= received, "no byte is made up");
        require(total.lastIndexOf(kStart) <= 0, "a start stands first or nowhere");
        const auto end = std::find_if(total.begin(), total.end(), isTerminator);
        require(std::distance(total.begin(), end) == total.size() - (result.isComplete ? 1 : 0),
                "an answer ends with its first terminator and is complete with it");
        if (result.isComplete) {
            break;
        }
    }
    return result;
}

/// No answer ends before the last start: the batches cannot matter.
bool holdsOneAnswer(const QByteArray& stream)
{
    const auto* lastStart = stream.begin() + std::max(0, stream.lastIndexOf(kStart));
    return std::none_of(stream.begin(), lastStart, isTerminator);
}

QByteArray withoutControlBytes(QByteArray bytes)
{
    const auto isControl = [](char byte) {
        return byte == kStart || isTerminator(byte);
    };
    bytes.resize(static_cast<int>(
        std::distance(bytes.begin(), std::remove_if(bytes.begin(), bytes.end(), isControl))));
    return bytes;
}

void checkAnswers(const QByteArray& stream, unsigned seed)
{
    const Assembly cutUp = assemble(cut(stream, seed));
    const Assembly byteByByte = assemble(singleBytes(stream));
    if (holdsOneAnswer(stream)) {
        require(cutUp == byteByByte, "the batches do not matter (cut up)");
        require(assemble({stream}) == byteByByte, "the batches do not matter (whole)");
    }
    QByteArray body = cutUp.total;
    if (framecodec::responseValidation(body)) {
        require(body.startsWith('\x06') || framecodec::createCommand(body) == cutUp.total,
                "a valid answer is an acknowledgement or the frame of its body");
    }
}

/// Any body comes through the wire, whatever noise stands before it and however it is cut.
void checkRoundTrip(const QByteArray& stream, unsigned seed)
{
    const QByteArray noise = withoutControlBytes(stream.left(stream.size() / 3));
    const QByteArray body = withoutControlBytes(stream.mid(stream.size() / 3).left(kLongestBody));
    const QByteArray frame = framecodec::createCommand(body);
    Assembly assembly = assemble(cut(noise + frame, seed));
    require(assembly == Assembly{true, frame}, "a frame behind noise is found");
    const bool isValid = framecodec::responseValidation(assembly.total);
    require(isValid == !body.isEmpty(), "every frame with a body is valid");
    require(!isValid || assembly.total == body, "the body comes out as it went in");
}

/// A device that never ends an answer must not fill the memory.
void checkFlood(const QByteArray& stream)
{
    QByteArray total(framecodec::kMaxCollected - stream.size() / 2, 'A');
    const QByteArray flood = withoutControlBytes(stream);
    for (QByteArray batch : {flood, flood, flood}) {
        require(!framecodec::processReceivedData(batch, total), "a flood is no answer");
        require(total.size() <= framecodec::kMaxCollected, "what is collected is bounded");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0) {
        return 0;
    }
    const unsigned seed = data[0];
    const QByteArray stream = inputBytes(data + 1, size - 1);
    checkAnswers(stream, seed);
    checkRoundTrip(stream, seed);
    if (seed == 0xFF) { // slow: now and then is enough
        checkFlood(stream);
    }
    return 0;
}
