#include "history/keptldbs.h"

#include "app/shared/wholefile.h"
#include "history/settingsjson.h"

#include <QCoreApplication>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLockFile>
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

QJsonObject toJson(const KeptLdb& ldb)
{
    QJsonObject object{{kAddress, ldb.hexId},
                       {kName, ldb.name},
                       {kSince, ldb.since.toUTC().toString(Qt::ISODateWithMs)}};
    if (ldb.audioMute) {
        object[kAudioMute] = *ldb.audioMute;
    }
    if (ldb.settings) {
        object[kSettings] = settingsjson::toJson(*ldb.settings);
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
        ldb.settings = settingsjson::settingsFrom(object[kSettings].toObject());
    }
    return ldb;
}

QString filePathIn(const QString& folder)
{
    return QDir(folder).filePath(QStringLiteral("kept-ldbs.json"));
}

QString write(const QString& path, const std::vector<KeptLdb>& ldbs)
{
    QJsonArray array;
    for (const KeptLdb& ldb : ldbs) {
        array.append(toJson(ldb));
    }
    const QString reason =
        WholeFile::write(path, QJsonDocument(QJsonObject{{kLdbs, array}}).toJson());
    return reason.isEmpty()
               ? reason
               : QCoreApplication::translate("KeptLdbs", "The file %1 cannot be written: %2.")
                     .arg(QDir::toNativeSeparators(path), reason);
}

/// What can be understood of it. A damaged file is copied aside, and what was understood remains.
std::vector<KeptLdb> read(const QString& path, QString* problem)
{
    QFile file(path);
    if (!file.exists()) {
        return {};
    }
    const auto tell = [&path, problem](const char* text, const QString& detail) {
        const QString told =
            QCoreApplication::translate("KeptLdbs", text)
                .arg(QDir::toNativeSeparators(path), QDir::toNativeSeparators(detail));
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
        const QString aside = path + QStringLiteral(".damaged");
        QFile::remove(aside);
        QFile::copy(path, aside);
        write(path, ldbs); // so that it is told once
        tell(QT_TRANSLATE_NOOP("KeptLdbs", "The file %1 is damaged. A copy of it is %2."), aside);
    }
    return ldbs;
}

auto findIn(std::vector<KeptLdb>& ldbs, const KeptLdb& ldb)
{
    return std::find_if(ldbs.begin(), ldbs.end(), [&](const KeptLdb& other) {
        return match(other, ldb.hexId, ldb.name) == KeptMatch::Both;
    });
}

/// Puts it into the file, in the place of the one that is there, or takes that out.
QString keepIn(const QString& folder, const KeptLdb& ldb)
{
    const QString path = filePathIn(folder);
    if (ldb.isEmpty() && !QFile::exists(path)) {
        return {}; // nothing to forget
    }
    if (!QDir().mkpath(folder)) {
        return QCoreApplication::translate("KeptLdbs", "The folder %1 cannot be made.")
            .arg(QDir::toNativeSeparators(folder));
    }
    QLockFile lock(path + QStringLiteral(".lock"));
    if (!lock.tryLock(kLockMs)) {
        return QCoreApplication::translate("KeptLdbs", "The file %1 is in use.")
            .arg(QDir::toNativeSeparators(path));
    }
    if (QFile(path).exists() && !QFile(path).open(QIODevice::ReadOnly)) {
        return QCoreApplication::translate("KeptLdbs", "The file %1 cannot be read.")
            .arg(QDir::toNativeSeparators(path));
    }
    std::vector<KeptLdb> ldbs = read(path, nullptr);
    const auto same = findIn(ldbs, ldb);
    if (same != ldbs.end()) {
        *same = ldb;
    } else {
        ldbs.push_back(ldb);
    }
    ldbs.erase(std::remove_if(ldbs.begin(), ldbs.end(),
                              [](const KeptLdb& other) { return other.isEmpty(); }),
               ldbs.end());
    return write(path, ldbs);
}

std::vector<KeptLdb> allIn(const QString& folder, QString* problem)
{
    const QString path = filePathIn(folder);
    QLockFile lock(path + QStringLiteral(".lock"));
    if (QFile::exists(path) && !lock.tryLock(kLockMs)) {
        qWarning() << path << "is in use; read all the same";
    }
    return read(path, problem);
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

KeptLdbs::KeptLdbs(QString folder, QString formerFolder)
    : m_folder(std::move(folder))
    , m_formerFolder(std::move(formerFolder))
{
}

QString KeptLdbs::standardFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
}

QString KeptLdbs::filePath() const
{
    return filePathIn(m_folder);
}

QString KeptLdbs::keep(const KeptLdb& ldb) const
{
    QString reason = keepIn(m_folder, ldb);
    if (!reason.isEmpty() || m_formerFolder.isEmpty() ||
        !QFile::exists(filePathIn(m_formerFolder))) {
        return reason;
    }
    return keepIn(m_formerFolder, {ldb.hexId, ldb.name, {}, std::nullopt, std::nullopt});
}

std::vector<KeptLdb> KeptLdbs::all(QString* problem) const
{
    std::vector<KeptLdb> ldbs = allIn(m_folder, problem);
    if (!m_formerFolder.isEmpty()) {
        for (const KeptLdb& ldb : allIn(m_formerFolder, problem)) {
            if (findIn(ldbs, ldb) == ldbs.end()) {
                ldbs.push_back(ldb);
            }
        }
    }
    return ldbs;
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
