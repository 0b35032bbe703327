#include "serial/ldb/exchangebytes.h"

#include "serial/ldb/request.h"
#include "serial/wire/framecodec.h"
#include "serial/wire/hextext.h"

#include <algorithm>

namespace exchangebytes {

QByteArray usualRequest(ExchangeKind kind, const QString& hexId)
{
    switch (kind) {
    case ExchangeKind::Probe:
        return framecodec::createCommand(requests::poll(hexId).body);
    case ExchangeKind::Status:
        return framecodec::createCommand(requests::status(hexId).body);
    case ExchangeKind::Name:
        return framecodec::createCommand(requests::name(hexId).body);
    case ExchangeKind::Firmware:
        return framecodec::createCommand(requests::firmware(hexId).body);
    default:
        return {};
    }
}

QList<QByteArray> answerBodies(const QByteArray& answer)
{
    QList<QByteArray> bodies;
    int start = answer.indexOf(framecodec::kSoh);
    while (start >= 0) {
        const auto end =
            std::find_if(answer.begin() + start, answer.end(), framecodec::isTerminator);
        if (end == answer.end()) {
            break;
        }
        const int next = static_cast<int>(end - answer.begin()) + 1;
        QByteArray frame = answer.mid(start, next - start);
        const bool isSound = framecodec::responseValidation(frame);
        if (isSound) {
            bodies.append(frame);
        }
        start = answer.indexOf(framecodec::kSoh, isSound ? next : start + 1);
    }
    return bodies;
}

std::optional<QByteArray> packed(const QByteArray& answer)
{
    // Whatever is written in another way, or is more than that, must come back as it was.
    const QByteArray bytes = QByteArray::fromHex(answer);
    return !bytes.isEmpty() && unpacked(bytes) == answer ? std::make_optional(bytes) : std::nullopt;
}

QByteArray unpacked(const QByteArray& packed)
{
    return framecodec::kSoh + hextext::fromBytes(packed) + framecodec::kEot;
}

} // namespace exchangebytes
