#include "serial/ldb/request.h"

#include "serial/ldb/busaddress.h"
#include "serial/wire/hextext.h"

#include <utility>

namespace {

// Command letters as digit pairs: "p", "sr", "sc", "sx".
constexpr char kPollCode[] = "70";
constexpr char kReadCode[] = "7372";
constexpr char kChangeCode[] = "7363";
constexpr char kExecuteCode[] = "7378";
constexpr int kAddressDigits = 4; ///< the master's and the LDB's

QByteArray body(const QString& hexId, const QByteArray& request)
{
    return busaddress::kMaster.toUtf8() + hexId.toUtf8() + request;
}

QByteArray withIndex(const char* code, int index, const QByteArray& data)
{
    return code + hextext::fromNumber(static_cast<uint>(index)) + data;
}

AnswerShape readShape(int index)
{
    switch (static_cast<LdbParameter>(index)) {
    case LdbParameter::Settings:
        return AnswerShape::Settings;
    case LdbParameter::Name:
        return AnswerShape::Name;
    default:
        return AnswerShape::Any;
    }
}

AnswerShape executeShape(int index)
{
    switch (static_cast<LdbAction>(index)) {
    case LdbAction::Status:
        return AnswerShape::Status;
    case LdbAction::FirmwareId:
        return AnswerShape::Firmware;
    default:
        return AnswerShape::Acknowledge;
    }
}

} // namespace

bool Request::isBroadcast() const
{
    return hexId == busaddress::kBroadcast;
}

ExchangeKind Request::exchangeKind() const
{
    if (isBroadcast()) {
        return ExchangeKind::Broadcast;
    }
    if (isRead) {
        return ExchangeKind::Read;
    }
    return body.mid(kAddressDigits).startsWith(kChangeCode) ? ExchangeKind::Write
                                                            : ExchangeKind::Action;
}

QString Request::text() const
{
    const QByteArray request = body.mid(kAddressDigits);
    const std::pair<const char*, const char*> known[] = {{kPollCode, "poll"},
                                                         {"737803", "status"},
                                                         {"737202", "name"},
                                                         {"737804", "firmware id"},
                                                         {"737201", "settings"}};
    for (const auto& [code, name] : known) {
        if (request == code) {
            return QStringLiteral("%1 of %2").arg(QLatin1String(name), hexId);
        }
    }
    return QStringLiteral("command %1 to %2").arg(QString::fromLatin1(request), hexId);
}

namespace requests {

Request poll(const QString& hexId)
{
    return {hexId, body(hexId, kPollCode), AnswerShape::Any, true};
}

Request read(const QString& hexId, int index, const QByteArray& data)
{
    return {hexId, body(hexId, withIndex(kReadCode, index, data)), readShape(index), true};
}

Request change(const QString& hexId, int index, const QByteArray& data)
{
    return {hexId, body(hexId, withIndex(kChangeCode, index, data)), AnswerShape::Acknowledge,
            false};
}

Request execute(const QString& hexId, int index, const QByteArray& data)
{
    const AnswerShape shape = executeShape(index);
    return {hexId, body(hexId, withIndex(kExecuteCode, index, data)), shape,
            shape != AnswerShape::Acknowledge};
}

Request status(const QString& hexId)
{
    return execute(hexId, static_cast<int>(LdbAction::Status));
}

Request name(const QString& hexId)
{
    return read(hexId, static_cast<int>(LdbParameter::Name));
}

Request firmware(const QString& hexId)
{
    return execute(hexId, static_cast<int>(LdbAction::FirmwareId));
}

} // namespace requests
