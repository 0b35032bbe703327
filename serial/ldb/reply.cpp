#include "serial/ldb/reply.h"

#include "serial/wire/framecodec.h"

#include <utility>

namespace {

Reply::Kind kindOf(const QByteArray& answer)
{
    if (answer.isEmpty()) {
        return Reply::Kind::Silent;
    }
    if (answer.size() == 1 && answer.at(0) == framecodec::kAck) {
        return Reply::Kind::Accepted;
    }
    const bool isRefusal = answer.size() == 1 && answer.at(0) == framecodec::kNak;
    return isRefusal ? Reply::Kind::Refused : Reply::Kind::Answered;
}

} // namespace

Reply::Reply(QByteArray answer)
    : m_answer(std::move(answer))
    , m_kind(kindOf(m_answer))
{
}
