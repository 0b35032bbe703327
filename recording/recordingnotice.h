#pragma once

#include <QMetaType>
#include <QString>

/// What the recorder or a reader has to tell the user. A plain value.
struct RecordingNotice
{
    enum class Kind
    {
        GoesOn,       ///< after a time without recording
        DiskFull,     ///< nothing is recorded until there is room
        CannotWrite,  ///< nothing is recorded until it can be
        Removed,      ///< the file has gone; another one is made
        Damaged,      ///< the rest of the day goes into another file
        Newer,        ///< a later version's; the day goes into another file
        OtherWindow,  ///< the second program records into a file of its own
        ClockSetBack, ///< what follows goes into another file
        // Of a reader:
        CannotRead,   ///< a file of which nothing can be read
        DamagedPart,  ///< the readable part is shown
        NewerToRead,  ///< a later version's, not read
        LatestMissing ///< on a medium that cannot be written to: the last rows are not read
    };
    Kind kind = Kind::GoesOn;
    QString path;   ///< file or folder
    QString reason; ///< what the system said, untranslated

    /// For people, in the language in force.
    QString text() const;
    /// Whether nothing is recorded from here on.
    bool isOutage() const { return kind == Kind::DiskFull || kind == Kind::CannotWrite; }
    bool operator==(const RecordingNotice& other) const
    {
        return kind == other.kind && path == other.path && reason == other.reason;
    }
};
Q_DECLARE_METATYPE(RecordingNotice)
