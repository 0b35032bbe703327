#include "simulator/board/ldbresponder.h"

#include "serial/ldb/request.h"
#include "serial/wire/framecodec.h"
#include "serial/wire/hextext.h"
#include "simulator/board/answerencoder.h"

namespace {

const QByteArray kAck(1, framecodec::kAck);
const QByteArray kNak(1, framecodec::kNak);
constexpr double kMillivoltsPerVolt = 1000.0;
constexpr double kRawPerMilliampere = 100.0;

QByteArray acknowledge(bool accepted)
{
    return accepted ? kAck : kNak;
}

QByteArray read(SimulatedLdb& ldb, const BusRequest& request, qint64 now)
{
    ldb.advance(now);
    if (!request.data.isEmpty()) {
        return kNak;
    }
    switch (static_cast<LdbParameter>(request.index)) {
    case LdbParameter::Settings:
        return framecodec::createCommand(answerencoder::settings(ldb.address(), ldb.settings()));
    case LdbParameter::Name:
        return framecodec::createCommand(answerencoder::name(ldb.settings().name));
    default:
        return kNak;
    }
}

QByteArray control(SimulatedLdb& ldb, const QByteArray& data, qint64 now)
{
    const auto code = hextext::toNumber(data, 0, 2);
    if (data.size() != 2 || !code || *code > static_cast<quint32>(LdbControl::ServiceMode)) {
        return kNak;
    }
    return acknowledge(ldb.control(static_cast<LdbControl>(*code), now));
}

QByteArray execute(SimulatedLdb& ldb, const BusRequest& request, qint64 now)
{
    const auto action = static_cast<LdbAction>(request.index);
    if (action == LdbAction::Control) {
        return control(ldb, request.data, now);
    }
    if (!request.data.isEmpty()) {
        return kNak;
    }
    switch (action) {
    case LdbAction::Status:
        return framecodec::createCommand(answerencoder::status(ldb.measure(now)));
    case LdbAction::FirmwareId:
        return framecodec::createCommand(answerencoder::firmware(ldb.firmware()));
    case LdbAction::StoreSettings:
        return kAck;
    default:
        return kNak;
    }
}

QString portText(quint16 millivolts, quint16 rawCurrent)
{
    return QStringLiteral("%1 V %2 mA")
        .arg(millivolts / kMillivoltsPerVolt, 0, 'f', 2)
        .arg(static_cast<qint16>(rawCurrent) / kRawPerMilliampere, 0, 'f', 2);
}

QString statusText(const QByteArray& body)
{
    const LdbStatusDecoding decoding = decodeLdbStatus(body);
    if (!decoding.valid) {
        return QStringLiteral("no status");
    }
    const LdbStatus& status = decoding.status;
    return QStringLiteral("%1, loop %2, earth %3, amplifier %4, P %5, S %6")
        .arg(ldbStateText(status.state), ldbLoopStateText(status.loopState()),
             ldbEarthStateText(status.earthState()), ldbAmplifierText(status.amplifier),
             portText(status.primaryVoltage, status.primaryCurrent),
             portText(status.secondaryVoltage, status.secondaryCurrent));
}

QString settingsText(const QByteArray& body)
{
    const auto settings = decodeLdbSettings(body);
    if (!settings) {
        return QStringLiteral("no settings record");
    }
    // One call: a name may hold place markers of its own.
    return QStringLiteral("\"%1\", flags %2, delay %3, mute %4, FIMs %5")
        .arg(settings->name, QString::fromLatin1(encodeFlags(*settings)),
             QString::number(settings->openDetectionDelay),
             QString::number(settings->audioMute ? 1 : 0), QString::number(settings->numberOfFims));
}

} // namespace

QByteArray respond(SimulatedLdb& ldb, const BusRequest& request, qint64 now)
{
    switch (request.kind) {
    case BusRequest::Kind::Poll:
        return kAck;
    case BusRequest::Kind::Read:
        return read(ldb, request, now);
    case BusRequest::Kind::Change:
        return acknowledge(ldb.change(static_cast<LdbParameter>(request.index), request.data, now));
    case BusRequest::Kind::Execute:
        return execute(ldb, request, now);
    case BusRequest::Kind::Unknown:
        break;
    }
    return kNak;
}

bool isChanging(const BusRequest& request)
{
    return request.kind == BusRequest::Kind::Change ||
           (request.kind == BusRequest::Kind::Execute &&
            !requests::execute({}, request.index).isRead);
}

QString describeAnswer(const BusRequest& request, const QByteArray& answer)
{
    if (answer == kAck || answer == kNak) {
        return answer == kAck ? QStringLiteral("ACK") : QStringLiteral("NAK");
    }
    QByteArray body = answer;
    if (!framecodec::responseValidation(body)) {
        return QStringLiteral("no valid answer");
    }
    if (request.kind == BusRequest::Kind::Execute) {
        return request.index == static_cast<int>(LdbAction::Status)
                   ? statusText(body)
                   : QStringLiteral("\"%1\"").arg(hextext::toText(body));
    }
    return request.index == static_cast<int>(LdbParameter::Settings)
               ? settingsText(body)
               : QStringLiteral("\"%1\"").arg(hextext::toText(body));
}
