#include "history/formersettings.h"

#include "app/shared/wholefile.h"
#include "history/settingsjson.h"

#include <QCoreApplication>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QStandardPaths>

#include <algorithm>
#include <optional>

namespace {

const QString kFolderName = QStringLiteral("former-settings");
const QString kFileTime = QStringLiteral("yyyy-MM-dd_hh-mm-ss-zzz");
const QString kSuffix = QStringLiteral(".json");
// What else is kept of an installation lies beside them.
const QString kNamePattern = QStringLiteral("[0-9]*-[0-9]*-[0-9]*_[0-9]*-[0-9]*.json");

// Keys of a file.
const QString kAt = QStringLiteral("at");
const QString kOccasion = QStringLiteral("occasion");
const QString kNote = QStringLiteral("note");
const QString kLdbs = QStringLiteral("ldbs");

// In the order of the enumerators.
const QString kOccasions[] = {QStringLiteral("save"), QStringLiteral("write"),
                              QStringLiteral("import"), QStringLiteral("put back")};

QJsonObject toJson(const FormerSettings& former)
{
    QJsonArray ldbs;
    for (const LdbSettings& settings : former.ldbs) {
        ldbs.append(settingsjson::toJson(settings));
    }
    return {{kAt, former.at.toUTC().toString(Qt::ISODateWithMs)},
            {kOccasion, kOccasions[static_cast<int>(former.occasion)]},
            {kNote, former.note},
            {kLdbs, ldbs}};
}

std::optional<FormerSettings> formerFrom(const QJsonObject& object)
{
    FormerSettings former;
    former.at = QDateTime::fromString(object[kAt].toString(), Qt::ISODateWithMs);
    former.note = object[kNote].toString();
    const auto* occasion =
        std::find(std::begin(kOccasions), std::end(kOccasions), object[kOccasion].toString());
    if (!former.at.isValid() || occasion == std::end(kOccasions)) {
        return std::nullopt;
    }
    former.occasion = static_cast<FormerSettings::Occasion>(occasion - std::begin(kOccasions));
    for (const auto& value : object[kLdbs].toArray()) {
        const auto settings = settingsjson::settingsFrom(value.toObject());
        if (!settings) {
            return std::nullopt; // a part of what was there must not pass for all of it
        }
        former.ldbs.push_back(*settings);
    }
    return former;
}

std::optional<FormerSettings> read(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    return formerFrom(QJsonDocument::fromJson(file.readAll()).object());
}

/// One that there is not yet.
QString freePath(const QDir& folder, const QDateTime& at)
{
    const QString name = at.toUTC().toString(kFileTime);
    QString path = folder.filePath(name + kSuffix);
    for (int number = 2; QFile::exists(path); ++number) {
        path = folder.filePath(name + QStringLiteral("_%1").arg(number) + kSuffix);
    }
    return path;
}

} // namespace

FormerSettingsStore::FormerSettingsStore(QString folder)
    : m_folder(std::move(folder))
{
}

QString FormerSettingsStore::standardFolder()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation))
        .filePath(kFolderName);
}

QString FormerSettingsStore::keep(const FormerSettings& former) const
{
    if (!QDir().mkpath(m_folder)) {
        return QCoreApplication::translate("FormerSettings", "The folder %1 cannot be made.")
            .arg(QDir::toNativeSeparators(m_folder));
    }
    const QString path = freePath(QDir(m_folder), former.at);
    const QString reason = WholeFile::write(path, QJsonDocument(toJson(former)).toJson());
    return reason.isEmpty()
               ? reason
               : QCoreApplication::translate("FormerSettings", "The file %1 cannot be written: %2.")
                     .arg(QDir::toNativeSeparators(path), reason);
}

std::vector<FormerSettings> FormerSettingsStore::all() const
{
    std::vector<FormerSettings> found;
    const QDir folder(m_folder);
    const QStringList names =
        folder.entryList({kNamePattern}, QDir::Files, QDir::Name | QDir::Reversed);
    for (const QString& name : names) {
        if (auto former = read(folder.filePath(name))) {
            found.push_back(std::move(*former));
        } else {
            qWarning() << folder.filePath(name) << "cannot be understood";
        }
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto& a, const auto& b) { return a.at > b.at; });
    return found;
}
