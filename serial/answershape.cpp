#include "serial/answershape.h"

#include "serial/framecodec.h"
#include "serial/hextext.h"
#include "serial/ldbsettings.h"
#include "serial/ldbstatus.h"

#include <algorithm>

namespace {

constexpr int kNameAnswerLength = 32;

bool isUpperHexText(const QByteArray& text)
{
    return std::all_of(text.begin(), text.end(), hextext::isUpperDigit);
}

} // namespace

bool hasShape(const QByteArray& body, AnswerShape shape)
{
    switch (shape) {
    case AnswerShape::Any:
        return true;
    case AnswerShape::Acknowledge:
        return false;
    case AnswerShape::Status:
        return body.size() == kStatusAnswerLength && isUpperHexText(body) &&
               decodeLdbStatus(body).valid;
    case AnswerShape::Name:
        return body.size() == kNameAnswerLength && isUpperHexText(body);
    case AnswerShape::Firmware:
        return decodeFirmwareId(body).has_value();
    case AnswerShape::Settings:
        return decodeLdbSettings(body).has_value();
    }
    return false;
}
