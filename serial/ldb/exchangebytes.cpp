#include "serial/ldb/exchangebytes.h"

#include "serial/ldb/request.h"
#include "serial/wire/framecodec.h"

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

QByteArray answerBody(const QByteArray& answer)
{
    int start = answer.indexOf(framecodec::kSoh);
    while (start >= 0) {
        const auto end =
            std::find_if(answer.begin() + start, answer.end(), framecodec::isTerminator);
        if (end == answer.end()) {
            break;
        }
        QByteArray frame = answer.mid(start, static_cast<int>(end - answer.begin()) + 1 - start);
        if (framecodec::responseValidation(frame)) {
            return frame;
        }
        start = answer.indexOf(framecodec::kSoh, start + 1);
    }
    return {};
}

} // namespace exchangebytes
