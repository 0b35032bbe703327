#pragma once

#include "serial/ldb/ldbsettings.h"

#include <QDateTime>
#include <QString>

#include <optional>
#include <vector>

/// What a fault-finding run changes in an LDB, as it was before: enough to put it back.
struct KeptLdb
{
    QString hexId;
    QString name;
    QDateTime since; ///< when the run began
    /// The mute before the run muted the LDB; nothing when it was not muted by a run.
    std::optional<bool> audioMute;
    /// The settings before the factory reset; nothing when they are back, or not wanted back.
    std::optional<LdbSettings> settings;

    bool isEmpty() const { return !audioMute && !settings; }
};

/// How an LDB that answers fits one that is kept. An address alone may be another LDB's of another
/// site, and a name can be given twice.
enum class KeptMatch
{
    None,
    AddressOnly,
    NameOnly,
    Both
};
KeptMatch match(const KeptLdb& kept, const QString& hexId, const QString& name);

/// The LDBs that still have something to be put back, on disk: a program that dies, or a port that
/// is pulled out, must not leave a loop muted for good. Every change is on the disk when the call
/// returns. Several programs may use one folder: each call reads what is there, under a lock.
///
/// Plain functions on a file; any thread, one at a time.
class KeptLdbs
{
public:
    /// `folder` is created when something is kept. What is in `formerFolder` counts as well, and
    /// comes into `folder` with its next change; empty for none.
    explicit KeptLdbs(QString folder = standardFolder(), QString formerFolder = {});
    static QString standardFolder();

    /// Replaces what is kept of an LDB of that address and name; an empty one is forgotten. Gives
    /// an empty text, or why it could not be written: what was kept before is kept still then. A
    /// file that is there but cannot be read is not replaced.
    QString keep(const KeptLdb& ldb) const;

    /// In the order in which they were kept. What cannot be understood of the file is left out of
    /// it, once it has been copied to one beside it, ".damaged". `problem` becomes a sentence that
    /// tells of that, or why nothing could be read; otherwise it stays as it is.
    std::vector<KeptLdb> all(QString* problem = nullptr) const;
    /// What is kept of this address and name.
    std::optional<KeptLdb> find(const QString& hexId, const QString& name) const;

    QString filePath() const;

private:
    QString m_folder;
    QString m_formerFolder;
};
