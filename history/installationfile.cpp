#include "history/installationfile.h"

#include "serial/ldb/busaddress.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace installationfile {

namespace {

// Keys of the file, and what stands there.
const QString kKind = QStringLiteral("kind");
const QString kInstallation = QStringLiteral("installation");
const QString kFormat = QStringLiteral("format");
constexpr int kThisFormat = 1;
const QString kName = QStringLiteral("name");
const QString kPlace = QStringLiteral("place");
const QString kNotes = QStringLiteral("notes");
const QString kLdbs = QStringLiteral("ldbs");
const QString kAddress = QStringLiteral("address");
const QString kLastUsed = QStringLiteral("lastUsed");
const QString kPort = QStringLiteral("port");
const QString kSerialNumber = QStringLiteral("serialNumber");
const QString kVendor = QStringLiteral("vendor");
const QString kProduct = QStringLiteral("product");

constexpr int kHexadecimal = 16;

QString identifierText(std::optional<quint16> identifier)
{
    return identifier ? QString::number(*identifier, kHexadecimal) : QString();
}

std::optional<quint16> identifierFrom(const QJsonValue& value)
{
    bool isNumber = false;
    const quint16 number = value.toString().toUShort(&isNumber, kHexadecimal);
    return isNumber ? std::make_optional(number) : std::nullopt;
}

PortIdentity portFrom(const QJsonObject& object)
{
    return {object[kName].toString(), object[kSerialNumber].toString(),
            identifierFrom(object[kVendor]), identifierFrom(object[kProduct])};
}

/// A text, or nothing at all: a number in its place tells of another kind of file.
bool isText(const QJsonObject& object, const QString& key)
{
    return object[key].isString() || object[key].isUndefined();
}

std::optional<KnownLdb> ldbFrom(const QJsonObject& object)
{
    const int address = busaddress::fromHexId(object[kAddress].toString());
    if (address < busaddress::kFirst || address > busaddress::kLast ||
        !(isText(object, kName) || object[kName].isNull())) {
        return std::nullopt;
    }
    // An empty name is one all the same.
    const QString name = QStringLiteral("") + object[kName].toString();
    return KnownLdb{busaddress::toHexId(address), object[kName].isNull() ? QString() : name};
}

} // namespace

QByteArray encode(const Installation& installation, bool withUse)
{
    QJsonArray ldbs;
    for (const KnownLdb& ldb : installation.ldbs) {
        ldbs.append(QJsonObject{{kAddress, ldb.hexId},
                                {kName, ldb.name.isNull() ? QJsonValue() : QJsonValue(ldb.name)}});
    }
    QJsonObject object{{kKind, kInstallation},       {kFormat, kThisFormat},
                       {kName, installation.name},   {kPlace, installation.place},
                       {kNotes, installation.notes}, {kLdbs, ldbs}};
    if (withUse) {
        const PortIdentity& port = installation.port;
        object[kPort] = QJsonObject{{kName, port.name},
                                    {kSerialNumber, port.serialNumber},
                                    {kVendor, identifierText(port.vendor)},
                                    {kProduct, identifierText(port.product)}};
        object[kLastUsed] = installation.lastUsed.toUTC().toString(Qt::ISODateWithMs);
    }
    return QJsonDocument(object).toJson();
}

std::optional<Installation> decode(const QByteArray& bytes)
{
    const QJsonObject object = QJsonDocument::fromJson(bytes).object();
    if (object[kKind].toString() != kInstallation || object[kFormat].toInt() != kThisFormat ||
        !object[kLdbs].isArray() || !isText(object, kName) || !isText(object, kPlace) ||
        !isText(object, kNotes)) {
        return std::nullopt;
    }
    Installation installation;
    installation.name = object[kName].toString();
    installation.place = object[kPlace].toString();
    installation.notes = object[kNotes].toString();
    installation.port = portFrom(object[kPort].toObject());
    installation.lastUsed = QDateTime::fromString(object[kLastUsed].toString(), Qt::ISODateWithMs);
    for (const auto& value : object[kLdbs].toArray()) {
        const std::optional<KnownLdb> ldb = ldbFrom(value.toObject());
        if (!ldb) {
            return std::nullopt;
        }
        installation.remember(*ldb);
    }
    return installation;
}

} // namespace installationfile
