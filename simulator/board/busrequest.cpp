#include "simulator/board/busrequest.h"

#include "serial/ldb/ldbsettings.h"
#include "serial/ldb/serialcommand.h"
#include "serial/wire/hextext.h"

namespace {

// A body: master's address, target, kind, and for all but a poll index and data.
constexpr int kAddressPosition = 2;
constexpr int kKindPosition = 4;
constexpr int kIndexPosition = 8;
constexpr int kDataPosition = 10;

const QByteArray kPollKind("70");
const QByteArray kReadKind("7372");
const QByteArray kChangeKind("7363");
const QByteArray kExecuteKind("7378");

BusRequest::Kind indexedKind(const QByteArray& code)
{
    if (code == kReadKind) {
        return BusRequest::Kind::Read;
    }
    if (code == kChangeKind) {
        return BusRequest::Kind::Change;
    }
    return code == kExecuteKind ? BusRequest::Kind::Execute : BusRequest::Kind::Unknown;
}

QString indexText(const BusRequest& request)
{
    return QString::fromLatin1(hextext::fromNumber(static_cast<uint>(request.index)));
}

QString readText(const BusRequest& request)
{
    switch (static_cast<LdbParameter>(request.index)) {
    case LdbParameter::Settings:
        return QStringLiteral("settings");
    case LdbParameter::Name:
        return QStringLiteral("name");
    default:
        return QStringLiteral("read ") + indexText(request);
    }
}

QString executeText(const BusRequest& request)
{
    switch (static_cast<LdbAction>(request.index)) {
    case LdbAction::Status:
        return QStringLiteral("status");
    case LdbAction::FirmwareId:
        return QStringLiteral("firmware");
    case LdbAction::StoreSettings:
        return QStringLiteral("store settings");
    case LdbAction::Control:
        break;
    }
    return QStringLiteral("execute %1 %2")
        .arg(indexText(request), QString::fromLatin1(request.data));
}

} // namespace

std::optional<BusRequest> parseBusRequest(const QByteArray& body)
{
    if (!body.startsWith(busaddress::kMaster.toLatin1())) {
        return std::nullopt;
    }
    const auto address = hextext::toNumber(body, kAddressPosition, 2);
    if (!address) {
        return std::nullopt;
    }
    BusRequest request;
    request.address = static_cast<int>(*address);
    if (body != body.toUpper()) {
        return request; // digits are upper case on this bus
    }
    if (body.mid(kKindPosition) == kPollKind) {
        request.kind = BusRequest::Kind::Poll;
        return request;
    }
    if (const auto index = hextext::toNumber(body, kIndexPosition, 2)) {
        request.kind = indexedKind(body.mid(kKindPosition, kReadKind.size()));
        request.index = static_cast<int>(*index);
        request.data = body.mid(kDataPosition);
    }
    return request;
}

QString describe(const BusRequest& request)
{
    switch (request.kind) {
    case BusRequest::Kind::Poll:
        return QStringLiteral("poll");
    case BusRequest::Kind::Read:
        return readText(request);
    case BusRequest::Kind::Change:
        return QStringLiteral("change %1 = %2")
            .arg(indexText(request), QString::fromLatin1(request.data));
    case BusRequest::Kind::Execute:
        return executeText(request);
    case BusRequest::Kind::Unknown:
        break;
    }
    return QStringLiteral("unknown request");
}
