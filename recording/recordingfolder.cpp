#include "recording/recordingfolder.h"

#include "serial/ldb/microseconds.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QRegularExpression>

#include <algorithm>
#include <tuple>

namespace recordingfolder {

namespace {

const QString& dayFormat()
{
    static const QString format = QStringLiteral("yyyy-MM-dd");
    return format;
}

QString markPath(const QString& folder, const QDate& day)
{
    return QDir(folder).filePath(
        QStringLiteral("recording-%1.keep").arg(day.toString(dayFormat())));
}

qint64 sizeWithCompanions(const QString& path)
{
    return QFileInfo(path).size() + QFileInfo(path + QStringLiteral("-wal")).size();
}

} // namespace

bool DayFile::operator<(const DayFile& other) const
{
    return std::tie(day, number) < std::tie(other.day, other.number);
}

QString pathOf(const QString& folder, const QDate& day, int number)
{
    const QString suffix = number == 1 ? QString() : QStringLiteral("_%1").arg(number);
    return QDir(folder).filePath(
        QStringLiteral("recording-%1%2.sqlite").arg(day.toString(dayFormat()), suffix));
}

std::vector<DayFile> filesOf(const QString& path)
{
    static const QRegularExpression pattern(
        QStringLiteral("^recording-(\\d{4}-\\d\\d-\\d\\d)(?:_(\\d+))?\\.sqlite$"));
    const QFileInfo info(path);
    const auto dayFile = [](const QFileInfo& file) {
        DayFile result;
        result.path = file.filePath();
        const QRegularExpressionMatch match = pattern.match(file.fileName());
        if (match.hasMatch()) {
            result.day = QDate::fromString(match.captured(1), dayFormat());
            result.number = match.captured(2).isEmpty() ? 1 : match.captured(2).toInt();
        }
        result.bytes = sizeWithCompanions(result.path);
        return result;
    };
    std::vector<DayFile> files;
    if (path.isEmpty()) {
        return files; // an empty path must not stand for the current folder
    }
    if (info.isFile()) {
        files.push_back(dayFile(info));
        return files;
    }
    const QFileInfoList entries =
        QDir(path).entryInfoList({QStringLiteral("recording-*.sqlite")}, QDir::Files, QDir::Name);
    for (const QFileInfo& entry : entries) {
        DayFile file = dayFile(entry);
        if (file.day.isValid()) {
            files.push_back(std::move(file));
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

QDate dayOf(qint64 at)
{
    return microseconds::localTime(at).date();
}

qint64 endOfDay(const QDate& day)
{
    return microseconds::of(day.addDays(1).startOfDay());
}

bool isKept(const QString& folder, const QDate& day)
{
    return QFileInfo::exists(markPath(folder, day));
}

QString setKept(const QString& folder, const QDate& day, bool isKept)
{
    QFile mark(markPath(folder, day));
    const bool isDone = isKept ? mark.open(QIODevice::WriteOnly) : !mark.exists() || mark.remove();
    return isDone ? QString() : mark.errorString();
}

QSet<QDate> keptDays(const QString& folder)
{
    QSet<QDate> days;
    const QStringList marks =
        QDir(folder).entryList({QStringLiteral("recording-*.keep")}, QDir::Files);
    for (const QString& mark : marks) {
        const int prefix = static_cast<int>(qstrlen("recording-"));
        days.insert(QDate::fromString(mark.mid(prefix, dayFormat().size()), dayFormat()));
    }
    return days;
}

std::vector<DayFile> excess(const std::vector<DayFile>& files, const QSet<QDate>& kept,
                            const QDate& today, const Limits& limits)
{
    qint64 total = 0;
    for (const DayFile& file : files) {
        total += file.bytes;
    }
    std::vector<DayFile> result;
    std::size_t first = 0;
    while (first < files.size()) {
        const QDate day = files[first].day;
        std::size_t next = first;
        qint64 bytes = 0;
        for (; next < files.size() && files[next].day == day; ++next) {
            bytes += files[next].bytes;
        }
        const bool isOld = day.daysTo(today) >= limits.days;
        if (day < today && !kept.contains(day) && (isOld || total > limits.bytes)) {
            result.insert(result.end(), files.begin() + static_cast<std::ptrdiff_t>(first),
                          files.begin() + static_cast<std::ptrdiff_t>(next));
            total -= bytes;
        }
        first = next;
    }
    return result;
}

void remove(const QString& path)
{
    QLockFile lock(path + QStringLiteral(".lock"));
    lock.setStaleLockTime(0);
    if (!lock.tryLock()) {
        return;
    }
    for (const char* suffix : {"", "-wal", "-shm"}) {
        QFile::remove(path + QLatin1String(suffix));
    }
}

void moveFiles(const QString& from, const QString& to)
{
    if (from == to || !QDir().mkpath(to)) {
        return;
    }
    for (const DayFile& file : filesOf(from)) {
        QLockFile lock(file.path + QStringLiteral(".lock"));
        lock.setStaleLockTime(0);
        if (!lock.tryLock() || QFile::exists(file.path + QStringLiteral("-wal"))) {
            continue; // in use, or not closed: without that file it is not whole
        }
        int number = file.number;
        while (QFile::exists(pathOf(to, file.day, number))) {
            ++number;
        }
        QDir().rename(file.path, pathOf(to, file.day, number)); // never by copying it
    }
    for (const QDate& day : keptDays(from)) {
        if (setKept(to, day, true).isEmpty()) {
            setKept(from, day, false);
        }
    }
    QDir().rmdir(from);
}

} // namespace recordingfolder
