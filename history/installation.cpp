#include "history/installation.h"

#include "app/shared/wholefile.h"
#include "history/installationfile.h"

#include <QCoreApplication>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <tuple>

namespace {

/// Longer than that is no file of an installation.
constexpr qint64 kLongestFile = 4LL * 1024 * 1024; // bytes

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Installations)
};

QString filePathIn(const QString& folder)
{
    return QDir(folder).filePath(QStringLiteral("installation.json"));
}

QString write(const QString& path, const QByteArray& bytes)
{
    const QString reason = WholeFile::write(path, bytes);
    return reason.isEmpty() ? reason
                            : Texts::tr("The file %1 cannot be written: %2.")
                                  .arg(QDir::toNativeSeparators(path), reason);
}

/// Where it lies now; its own path if it could not be moved.
QString moveAside(const QString& path)
{
    QString aside = path + QStringLiteral(".damaged");
    QFile::remove(aside);
    if (!QFile::rename(path, aside)) {
        aside = path;
    }
    qWarning() << path << "cannot be understood; it is now" << aside;
    return aside;
}

/// What is to be put back must not be forgotten with its installation: it is kept as it was before
/// there were any.
void giveBackKept(const QString& folder)
{
    const KeptLdbs kept(folder);
    const KeptLdbs common;
    for (const KeptLdb& ldb : kept.all()) {
        if (common.keep(ldb).isEmpty()) {
            kept.keep({ldb.hexId, ldb.name, {}, std::nullopt, std::nullopt});
        }
    }
}

auto positionOf(const QString& hexId, std::vector<KnownLdb>& ldbs)
{
    return std::lower_bound(
        ldbs.begin(), ldbs.end(), hexId,
        [](const KnownLdb& ldb, const QString& other) { return ldb.hexId < other; });
}

} // namespace

QString Installation::title() const
{
    if (!name.isEmpty()) {
        return name;
    }
    return place.isEmpty() ? id : place;
}

bool Installation::remember(const KnownLdb& ldb)
{
    const auto at = positionOf(ldb.hexId, ldbs);
    if (at == ldbs.end() || at->hexId != ldb.hexId) {
        ldbs.insert(at, ldb);
        return true;
    }
    return std::exchange(at->name, ldb.name) != ldb.name;
}

bool Installation::forget(const QString& hexId)
{
    const auto at = positionOf(hexId, ldbs);
    if (at == ldbs.end() || at->hexId != hexId) {
        return false;
    }
    ldbs.erase(at);
    return true;
}

const Installation* lastUsedOn(const PortIdentity& port,
                               const std::vector<Installation>& installations)
{
    const Installation* last = nullptr;
    for (const Installation& one : installations) {
        if (!one.port.name.isEmpty() && isSamePort(one.port, port) &&
            (last == nullptr || one.lastUsed > last->lastUsed)) {
            last = &one;
        }
    }
    return last;
}

Installations::Installations(QString folder)
    : m_folder(std::move(folder))
{
}

QString Installations::standardFolder()
{
    return QDir(KeptLdbs::standardFolder()).filePath(QStringLiteral("installations"));
}

Installations::Listing Installations::read() const
{
    Listing listing;
    const QStringList ids = QDir(m_folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& id : ids) {
        const QString path = filePathIn(folderOf(id));
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) {
            if (file.exists()) {
                qWarning() << path << "cannot be read:" << file.errorString();
            }
            continue;
        }
        auto installation = installationfile::decode(file.read(kLongestFile));
        file.close();
        if (!installation) {
            listing.damaged.append(moveAside(path));
            giveBackKept(folderOf(id));
            continue;
        }
        installation->id = id;
        listing.installations.push_back(*installation);
    }
    std::sort(listing.installations.begin(), listing.installations.end(),
              [](const Installation& a, const Installation& b) {
                  return std::make_tuple(a.title().toLower(), a.id) <
                         std::make_tuple(b.title().toLower(), b.id);
              });
    return listing;
}

QString Installations::save(const Installation& installation) const
{
    Q_ASSERT(!installation.id.isEmpty());
    const QString folder = folderOf(installation.id);
    if (!QDir().mkpath(folder)) {
        return Texts::tr("The folder %1 cannot be made.").arg(QDir::toNativeSeparators(folder));
    }
    return write(filePathIn(folder), installationfile::encode(installation, true));
}

void Installations::removeBare(const QString& id) const
{
    const QString folder = folderOf(id);
    const QString path = filePathIn(folder);
    QStringList entries =
        QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    entries.removeAll(QStringLiteral("recordings"));
    if (entries == QStringList{QFileInfo(path).fileName()}) {
        QFile::remove(path);
        QDir().rmdir(folder);
    }
}

QString Installations::freeId() const
{
    for (int number = 1;; ++number) {
        QString id = QStringLiteral("installation-%1").arg(number);
        if (!QFile::exists(folderOf(id))) {
            return id;
        }
    }
}

QString Installations::folderOf(const QString& id) const
{
    return QDir(m_folder).filePath(id);
}

KeptLdbs Installations::keptLdbsOf(const QString& id) const
{
    return KeptLdbs(folderOf(id), KeptLdbs::standardFolder());
}

QString Installations::exportTo(const QString& path, const Installation& installation)
{
    return write(path, installationfile::encode(installation, false));
}

std::optional<Installation> Installations::importFrom(const QString& path, QString* failure)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *failure = Texts::tr("The file %1 cannot be read: %2.")
                       .arg(QDir::toNativeSeparators(path), file.errorString());
        return std::nullopt;
    }
    auto installation = installationfile::decode(file.read(kLongestFile));
    if (!installation) {
        *failure =
            Texts::tr("The file %1 holds no installation.").arg(QDir::toNativeSeparators(path));
        return std::nullopt;
    }
    // Those of the colleague are not the user's.
    installation->port = {};
    installation->lastUsed = {};
    return installation;
}
