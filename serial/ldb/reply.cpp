#include "serial/ldb/reply.h"

#include "serial/wire/framecodec.h"

#include <utility>

namespace {

Reply::Kind kindOf(const QByteArray& answer)
{
    const char only = answer.size() == 1 ? answer.at(0) : '\0';
    return answer.isEmpty()           ? Reply::Kind::Silent
           : only == framecodec::kAck ? Reply::Kind::Accepted
           : only == framecodec::kNak ? Reply::Kind::Refused
                                      : Reply::Kind::Answered;
}

} // namespace

Reply::Reply(QByteArray answer)
    : m_answer(std::move(answer))
    , m_kind(kindOf(m_answer))
{
}
