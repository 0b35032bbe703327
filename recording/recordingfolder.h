#pragma once

#include <QDate>
#include <QSet>
#include <QString>
#include <QStringList>

#include <vector>

/// The files in a folder of recordings: one a day, or more where one could not be used. These
/// functions work on the file system and can be called from any thread.
namespace recordingfolder {

struct DayFile
{
    QDate day;
    int number = 1; ///< of that day
    QString path;
    qint64 bytes = 0; ///< with the files that SQLite keeps beside it

    bool operator<(const DayFile& other) const;
};

/// Sorted by day and number. For the path of a file: that file alone, whatever its name.
std::vector<DayFile> filesOf(const QString& path);
QString pathOf(const QString& folder, const QDate& day, int number);

/// The local day on which a moment (UTC, µs since 1970) is.
QDate dayOf(qint64 at);
/// Where that day ends, as such a moment.
qint64 endOfDay(const QDate& day);

// A day that is kept is never deleted. The mark is a file of its own: it can be set while the
// recording is in use, or damaged.
bool isKept(const QString& folder, const QDate& day);
/// An empty text, or why not.
QString setKept(const QString& folder, const QDate& day, bool isKept);
QSet<QDate> keptDays(const QString& folder);

struct Limits
{
    int days = 30;
    qint64 bytes = 2LL << 30;
};

/// The files to delete, as too old or too large together: whole days, the oldest first, never
/// today's.
std::vector<DayFile> excess(const std::vector<DayFile>& files, const QSet<QDate>& kept,
                            const QDate& today, const Limits& limits);

/// Deletes a file and what SQLite keeps beside it, unless a program records into it.
void remove(const QString& path);

/// Moves the files that no program records into, with the marks of their days, each under a free
/// number of its day; deletes the folder when nothing is left in it. Only within a disk: what
/// cannot be moved stays.
void moveFiles(const QString& from, const QString& to);

} // namespace recordingfolder
