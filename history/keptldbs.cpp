#include "history/keptldbs.h"

#include <QCoreApplication>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLockFile>
#include <QSaveFile>
#include <QStandardPaths>

#include <algorithm>

namespace {

constexpr int kLockMs = 2000;

// Keys of the file.
const QString kLdbs = QStringLiteral("ldbs");
const QString kAddress = QStringLiteral("address");
const QString kName = QStringLiteral("name");
const QString kSince = QStringLiteral("since");
const QString kAudioMute = QStringLiteral("audioMute");
const QString kSettings = QStringLiteral("settings");

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

QJsonObject toJson(const LdbSettings& settings)
{
    QJsonObject object{{kAddress, settings.address},
                       {kName, settings.name},
                       {kOpenDetectionDelay, settings.openDetectionDelay},
                       {kNumberOfFims, settings.numberOfFims},
                       {kFurtherByte, settings.furtherByte}};
    for (const Flag& flag : kFlags) {
        object[QLatin1String(flag.key)] = settings.*flag.member;
    }
    return object;
}

/// Nothing unless every field is there and in its range: half of an LDB's settings are none.
std::optional<LdbSettings> settingsFrom(const QJsonObject& object)
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
    settings.openDetectionDelay = static_cast<quint16>(delay);
    settings.numberOfFims = static_cast<quint16>(fims);
    settings.furtherByte = static_cast<quint8>(further);
    return settings;
}

QJsonObject toJson(const KeptLdb& ldb)
{
    QJsonObject object{{kAddress, ldb.hexId},
                       {kName, ldb.name},
                       {kSince, ldb.since.toUTC().toString(Qt::ISODateWithMs)}};
    if (ldb.audioMute) {
        object[kAudioMute] = *ldb.audioMute;
    }
    if (ldb.settings) {
        object[kSettings] = toJson(*ldb.settings);
    }
    return object;
}

KeptLdb ldbFrom(const QJsonObject& object)
{
    KeptLdb ldb;
    ldb.hexId = object[kAddress].toString();
    ldb.name = object[kName].toString();
    ldb.since = QDateTime::fromString(object[kSince].toString(), Qt::ISODateWithMs);
    if (object[kAudioMute].isBool()) {
        ldb.audioMute = object[kAudioMute].toBool();
    }
    if (object[kSettings].isObject()) {
        ldb.settings = settingsFrom(object[kSettings].toObject());
    }
    return ldb;
}

} // namespace

KeptMatch match(const KeptLdb& kept, const QString& hexId, const QString& name)
{
    const bool isAddress = kept.hexId == hexId;
    if (isAddress && kept.name == name) {
        return KeptMatch::Both;
    }
    if (isAddress) {
        return KeptMatch::AddressOnly;
    }
    // Boards that were never named would all be taken for each other.
    return kept.name == name && !name.isEmpty() ? KeptMatch::NameOnly : KeptMatch::None;
}

KeptLdbs::KeptLdbs(QString folder)
    : m_folder(std::move(folder))
{
}

QString KeptLdbs::standardFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
}

QString KeptLdbs::filePath() const
{
    return QDir(m_folder).filePath(QStringLiteral("kept-ldbs.json"));
}

QString KeptLdbs::keep(const KeptLdb& ldb) const
{
    if (!QDir().mkpath(m_folder)) {
        return QCoreApplication::translate("KeptLdbs", "The folder %1 cannot be made.")
            .arg(QDir::toNativeSeparators(m_folder));
    }
    QLockFile lock(filePath() + QStringLiteral(".lock"));
    if (!lock.tryLock(kLockMs)) {
        return QCoreApplication::translate("KeptLdbs", "The file %1 is in use.")
            .arg(QDir::toNativeSeparators(filePath()));
    }
    if (QFile(filePath()).exists() && !QFile(filePath()).open(QIODevice::ReadOnly)) {
        return QCoreApplication::translate("KeptLdbs", "The file %1 cannot be read.")
            .arg(QDir::toNativeSeparators(filePath()));
    }
    std::vector<KeptLdb> ldbs = read(nullptr);
    const auto same = std::find_if(ldbs.begin(), ldbs.end(), [&](const KeptLdb& other) {
        return match(other, ldb.hexId, ldb.name) == KeptMatch::Both;
    });
    if (same != ldbs.end()) {
        *same = ldb;
    } else {
        ldbs.push_back(ldb);
    }
    ldbs.erase(std::remove_if(ldbs.begin(), ldbs.end(),
                              [](const KeptLdb& other) { return other.isEmpty(); }),
               ldbs.end());
    return write(ldbs);
}

std::vector<KeptLdb> KeptLdbs::all(QString* problem) const
{
    QLockFile lock(filePath() + QStringLiteral(".lock"));
    if (QFile::exists(filePath()) && !lock.tryLock(kLockMs)) {
        qWarning() << filePath() << "is in use; read all the same";
    }
    return read(problem);
}

std::optional<KeptLdb> KeptLdbs::find(const QString& hexId, const QString& name) const
{
    for (const KeptLdb& ldb : all()) {
        if (match(ldb, hexId, name) == KeptMatch::Both) {
            return ldb;
        }
    }
    return std::nullopt;
}

std::vector<KeptLdb> KeptLdbs::read(QString* problem) const
{
    QFile file(filePath());
    if (!file.exists()) {
        return {};
    }
    const auto tell = [this, problem](const char* text, const QString& detail) {
        const QString told =
            QCoreApplication::translate("KeptLdbs", text)
                .arg(QDir::toNativeSeparators(filePath()), QDir::toNativeSeparators(detail));
        qWarning().noquote() << told;
        if (problem != nullptr) {
            *problem = told;
        }
    };
    if (!file.open(QIODevice::ReadOnly)) {
        tell(QT_TRANSLATE_NOOP("KeptLdbs", "The file %1 cannot be read: %2."), file.errorString());
        return {};
    }
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll());
    file.close();
    bool isWhole = document.isObject();
    std::vector<KeptLdb> ldbs;
    for (const auto& value : document.object()[kLdbs].toArray()) {
        const QJsonObject object = value.toObject();
        const KeptLdb ldb = ldbFrom(object);
        isWhole = isWhole && !ldb.hexId.isEmpty() &&
                  (ldb.settings.has_value() || !object.contains(kSettings));
        if (!ldb.hexId.isEmpty() && !ldb.isEmpty()) {
            ldbs.push_back(ldb);
        }
    }
    if (!isWhole) {
        const QString aside = filePath() + QStringLiteral(".damaged");
        QFile::remove(aside);
        QFile::copy(filePath(), aside);
        write(ldbs); // so that it is told once
        tell(QT_TRANSLATE_NOOP("KeptLdbs", "The file %1 is damaged. A copy of it is %2."), aside);
    }
    return ldbs;
}

QString KeptLdbs::write(const std::vector<KeptLdb>& ldbs) const
{
    QJsonArray array;
    for (const KeptLdb& ldb : ldbs) {
        array.append(toJson(ldb));
    }
    // Its commit puts the bytes onto the disk before it takes the old file's place.
    QSaveFile file(filePath());
    const QByteArray bytes = QJsonDocument(QJsonObject{{kLdbs, array}}).toJson();
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        return QCoreApplication::translate("KeptLdbs", "The file %1 cannot be written: %2.")
            .arg(QDir::toNativeSeparators(filePath()), file.errorString());
    }
    return {};
}
