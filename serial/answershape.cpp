#include "serial/answershape.h"

#include "serial/framecodec.h"
#include "serial/hextext.h"
#include "serial/ldbsettings.h"
#include "serial/ldbstatus.h"

namespace {

constexpr int kNameAnswerLength = 32;

bool isSingle(const QByteArray& answer, char byte)
{
    return answer.size() == 1 && answer.at(0) == byte;
}

} // namespace

bool hasShape(const QByteArray& answer, AnswerShape shape)
{
    if (isSingle(answer, framecodec::kNak)) {
        return true;
    }
    switch (shape) {
    case AnswerShape::Any:
        return true;
    case AnswerShape::Acknowledge:
        return isSingle(answer, framecodec::kAck);
    case AnswerShape::Status:
        return answer.size() == kStatusAnswerLength;
    case AnswerShape::Name:
        return answer.size() == kNameAnswerLength && hextext::isHexPairs(answer);
    case AnswerShape::Firmware:
        return decodeFirmwareId(answer).has_value();
    case AnswerShape::Settings:
        return answer.size() == kSettingsAnswerLength;
    }
    return false;
}
