#pragma once

#include "serial/ldb/ldbsettings.h"

#include <QDateTime>
#include <QString>

#include <vector>

/// What LDBs had before something was written into them.
struct FormerSettings
{
    enum class Occasion
    {
        Save,   ///< in the editor, of one LDB
        Write,  ///< in the table of all settings
        Import, ///< of a file
        PutBack ///< of former settings
    };

    QDateTime at;
    Occasion occasion = Occasion::Write;
    QString note; ///< the file's name at an import; may be empty
    std::vector<LdbSettings> ldbs;
};

/// Former settings on disk, a readable file each, so that they can be put back. What is kept is on
/// the disk when the call returns, and is never changed or deleted here. Plain functions on files;
/// any thread.
class FormerSettingsStore
{
public:
    /// `folder` is created when something is kept.
    explicit FormerSettingsStore(QString folder = standardFolder());
    static QString standardFolder();

    /// Gives an empty text, or why it could not be written.
    QString keep(const FormerSettings& former) const;
    /// The latest first. A file that cannot be understood is left out, with a warning.
    std::vector<FormerSettings> all() const;

    QString folder() const { return m_folder; }

private:
    QString m_folder;
};
