#include "history/settingsjson.h"

namespace {

// Keys.
const QString kAddress = QStringLiteral("address");
const QString kName = QStringLiteral("name");
const QString kNameBytes = QStringLiteral("nameBytes");

struct Flag
{
    const char* key;
    bool LdbSettings::*member;
};
constexpr Flag kFlags[] = {{"generalFaultOutput", &LdbSettings::generalFaultOutput},
                           {"earthLeakageDetection", &LdbSettings::earthLeakageDetection},
                           {"earthWireOpenDetection", &LdbSettings::earthWireOpenDetection},
                           {"startInServiceMode", &LdbSettings::startInServiceMode},
                           {"amplifierDetection", &LdbSettings::amplifierDetection},
                           {"audioMute", &LdbSettings::audioMute}};
const QString kOpenDetectionDelay = QStringLiteral("openDetectionDelay");
const QString kNumberOfFims = QStringLiteral("numberOfFims");
const QString kFurtherByte = QStringLiteral("furtherByte");

} // namespace

QJsonObject settingsjson::toJson(const LdbSettings& settings)
{
    QJsonObject object{{kAddress, settings.address},
                       {kName, settings.name},
                       {kNameBytes, QLatin1String(settings.nameBytes.toHex())},
                       {kOpenDetectionDelay, settings.openDetectionDelay},
                       {kNumberOfFims, settings.numberOfFims},
                       {kFurtherByte, settings.furtherByte}};
    for (const Flag& flag : kFlags) {
        object[QLatin1String(flag.key)] = settings.*flag.member;
    }
    return object;
}

std::optional<LdbSettings> settingsjson::settingsFrom(const QJsonObject& object)
{
    constexpr int kLastAddress = 253;
    LdbSettings settings;
    for (const Flag& flag : kFlags) {
        const QJsonValue value = object[QLatin1String(flag.key)];
        if (!value.isBool()) {
            return std::nullopt;
        }
        settings.*flag.member = value.toBool();
    }
    const int address = object[kAddress].toInt();
    const int delay = object[kOpenDetectionDelay].toInt(-1);
    const int fims = object[kNumberOfFims].toInt(-1);
    const int further = object[kFurtherByte].toInt(-1);
    if (address < 1 || address > kLastAddress || delay < 0 || delay > UINT16_MAX || fims < 0 ||
        fims > UINT16_MAX || further < 0 || further > UINT8_MAX || !object[kName].isString()) {
        return std::nullopt;
    }
    settings.address = address;
    settings.name = object[kName].toString();
    // Files of former versions have none.
    settings.nameBytes = QByteArray::fromHex(object[kNameBytes].toString().toLatin1());
    settings.openDetectionDelay = static_cast<quint16>(delay);
    settings.numberOfFims = static_cast<quint16>(fims);
    settings.furtherByte = static_cast<quint8>(further);
    return settings;
}
