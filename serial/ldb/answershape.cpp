#include "serial/ldb/answershape.h"

#include "serial/ldb/ldbsettings.h"
#include "serial/ldb/ldbstatus.h"
#include "serial/wire/framecodec.h"
#include "serial/wire/hextext.h"

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
    case AnswerShape::Count:
        return false;
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
