#pragma once

#include "history/keptldbs.h"
#include "serial/ldb/startplan.h"
#include "serial/link/portidentity.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// What is remembered of a site: a plain value.
struct Installation
{
    QString id; ///< the name of its folder; empty for one that is not kept
    QString name;
    QString place;
    QString notes;
    std::vector<KnownLdb> ldbs; ///< in the order of addresses, each address once
    PortIdentity port;          ///< that it was last used on; without a name if on none
    QDateTime lastUsed;         ///< UTC; invalid if never

    /// For the user: its name, or its place, or its id.
    QString title() const;
    /// Puts it at its place, or gives the one of that address this name; whether that changes
    /// anything.
    bool remember(const KnownLdb& ldb);
    /// Whether it was there.
    bool forget(const QString& hexId);
};

/// The one last used on that port, by what tells ports apart; null when there is none. Pure.
const Installation* lastUsedOn(const PortIdentity& port,
                               const std::vector<Installation>& installations);

/// The installations on disk: a folder each, below one folder, with a readable JSON file. What else
/// belongs to an installation lies in its folder, too. A file is written as a whole or not at all.
/// Plain functions on files; any thread, one at a time.
class Installations
{
public:
    explicit Installations(QString folder = standardFolder());
    /// In the user's application data.
    static QString standardFolder();

    struct Listing
    {
        std::vector<Installation> installations; ///< by name, then by id
        /// Files that could not be understood, and are moved aside: where they lie now.
        QStringList damaged;
    };
    Listing read() const;

    /// What is written on disk under its id, which must not be empty. Gives an empty text, or why
    /// it could not be written: what was there before is there still.
    QString save(const Installation& installation) const;
    /// Takes its file away, with its folder, unless something else of it is kept there. Recordings
    /// stay, but keep no file: they belong to a run, and may just have been begun.
    void removeBare(const QString& id) const;
    /// An id whose folder is not there yet.
    QString freeId() const;
    /// Where what belongs to an installation lies: created with the first that is kept there.
    QString folderOf(const QString& id) const;
    /// The LDBs of an installation that have something to be put back. What was kept before there
    /// were installations is taken over with them.
    KeptLdbs keptLdbsOf(const QString& id) const;

    /// Writes it for a colleague: all but the port, which is the user's own. Gives an empty text,
    /// or why it could not be written.
    static QString exportTo(const QString& path, const Installation& installation);
    /// What a colleague has written, without an id; nothing for a file that is no installation,
    /// with the reason in `failure`.
    static std::optional<Installation> importFrom(const QString& path, QString* failure);

private:
    QString m_folder;
};
