#include "recording/recordingreader.h"

#include "recording/recordingfolder.h"
#include "recording/recordingsource.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <iterator>
#include <limits>
#include <map>

namespace {

/// A connection takes a few file handles and a cache of some megabytes.
constexpr std::size_t kMostOpen = 8;
/// An LDB that is listed was polled within this many files.
constexpr int kFilesBack = 3;

} // namespace

struct RecordingReader::File
{
    explicit File(const QString& path)
        : source(path)
    {
    }

    RecordingSource source;
    std::optional<TimeSpan> extent;
    qint64 bytes = -1; ///< at the last look
};

RecordingReader::RecordingReader(QString path)
    : m_path(std::move(path))
{
    refresh();
}

RecordingReader::~RecordingReader() = default;

void RecordingReader::refresh()
{
    std::vector<std::unique_ptr<File>> files;
    for (const recordingfolder::DayFile& dayFile : recordingfolder::filesOf(m_path)) {
        const auto known =
            std::find_if(m_files.begin(), m_files.end(), [&dayFile](const auto& file) {
                return file && file->source.path() == dayFile.path;
            });
        std::unique_ptr<File> file =
            known != m_files.end() ? std::move(*known) : std::make_unique<File>(dayFile.path);
        // The last file may be growing, which its size does not always show.
        file->extent = std::exchange(file->bytes, dayFile.bytes) == dayFile.bytes && file->extent &&
                               !QFileInfo::exists(dayFile.path + QStringLiteral("-wal"))
                           ? file->extent
                           : use(*file).extent();
        files.push_back(std::move(file));
    }
    m_open.erase(std::remove_if(m_open.begin(), m_open.end(),
                                [&files](const File* open) {
                                    return std::none_of(
                                        files.begin(), files.end(),
                                        [open](const auto& file) { return file.get() == open; });
                                }),
                 m_open.end());
    m_files = std::move(files);
}

/// Opens a file, and closes the one that was not used for the longest time when there are many.
RecordingSource& RecordingReader::use(File& file)
{
    m_open.erase(std::remove(m_open.begin(), m_open.end(), &file), m_open.end());
    if (m_open.size() >= kMostOpen) {
        m_open.front()->source.close();
        m_open.erase(m_open.begin());
    }
    m_open.push_back(&file);
    file.source.open();
    return file.source;
}

std::vector<RecordingNotice> RecordingReader::takeNotices()
{
    std::vector<RecordingNotice> notices = std::exchange(m_notices, {});
    for (const auto& file : m_files) {
        for (RecordingNotice& notice : file->source.takeNotices()) {
            notices.push_back(std::move(notice));
        }
    }
    return notices;
}

std::optional<TimeSpan> RecordingReader::extent() const
{
    std::optional<TimeSpan> extent;
    for (const auto& file : m_files) {
        if (file->extent) {
            const TimeSpan part{file->extent->from, file->extent->to + 1};
            extent =
                extent ? TimeSpan{qMin(extent->from, part.from), qMax(extent->to, part.to)} : part;
        }
    }
    return extent;
}

template <typename Value, typename Read>
std::vector<Value> RecordingReader::collect(TimeSpan span, qint64 Value::*time, const Read& read)
{
    std::vector<Value> result;
    for (const auto& file : m_files) {
        // The last file may have grown since.
        const bool isLast = file == m_files.back();
        if (!file->extent || file->extent->from >= span.to ||
            (file->extent->to < span.from && !isLast)) {
            continue;
        }
        std::vector<Value> part = read(use(*file));
        std::move(part.begin(), part.end(), std::back_inserter(result));
    }
    std::stable_sort(result.begin(), result.end(), [time](const Value& left, const Value& right) {
        return left.*time < right.*time;
    });
    return result;
}

template <typename Value, typename Read>
std::vector<Value> RecordingReader::collectLast(TimeSpan span, int limit, qint64 Value::*time,
                                                const Read& read)
{
    if (limit < 0) {
        return collect(span, time, read);
    }
    std::vector<File*> files;
    for (const auto& file : m_files) {
        if (file->extent && file->extent->from < span.to) {
            files.push_back(file.get());
        }
    }
    std::stable_sort(files.begin(), files.end(), [](const File* left, const File* right) {
        return left->extent->to > right->extent->to;
    });
    const auto count = static_cast<std::size_t>(limit);
    const auto isEarlier = [time](const Value& left, const Value& right) {
        return left.*time < right.*time;
    };
    std::vector<Value> result;
    for (File* file : files) {
        if (result.size() >= count && (count == 0 || file->extent->to < result.front().*time)) {
            break;
        }
        std::vector<Value> part = read(use(*file));
        std::move(result.begin(), result.end(), std::back_inserter(part));
        std::stable_sort(part.begin(), part.end(), isEarlier);
        if (part.size() > count) {
            part.erase(part.begin(), part.end() - limit);
        }
        result = std::move(part);
    }
    return result;
}

std::vector<RecordedRecord> RecordingReader::records(const QString& hexId, TimeSpan span, int limit)
{
    return collectLast(span, limit, &RecordedRecord::at,
                       [&](RecordingSource& source) { return source.records(hexId, span, limit); });
}

std::vector<Exchange> RecordingReader::exchanges(const QString& hexId, TimeSpan span, int limit)
{
    return collectLast(span, limit, &Exchange::sentAt, [&](RecordingSource& source) {
        return source.exchanges(hexId, span, limit);
    });
}

std::vector<Exchange> RecordingReader::exchangesOf(ExchangeKind kind, TimeSpan span)
{
    return collect(span, &Exchange::sentAt,
                   [&](RecordingSource& source) { return source.exchanges({}, span, -1, kind); });
}

std::vector<RecordedMinute> RecordingReader::minutes(const QString& hexId, TimeSpan span, int each)
{
    const auto parts = collect(span, &RecordedMinute::at, [&](RecordingSource& source) {
        return source.minutes(hexId, span, each);
    });
    // Several files may have a part of the same minute.
    std::map<std::pair<qint64, QString>, RecordedMinute> sums;
    for (const RecordedMinute& part : parts) {
        RecordedMinute& sum = sums[{part.at, part.hexId}];
        sum.at = part.at;
        sum.hexId = part.hexId;
        sum.leastFlight = sum.good == 0    ? part.leastFlight
                          : part.good == 0 ? sum.leastFlight
                                           : qMin(sum.leastFlight, part.leastFlight);
        sum.asked += part.asked;
        sum.good += part.good;
        sum.damaged += part.damaged;
        sum.silent += part.silent;
        sum.told += part.told;
        sum.sumOfFlights += part.sumOfFlights;
        sum.mostFlight = qMax(sum.mostFlight, part.mostFlight);
    }
    std::vector<RecordedMinute> result;
    result.reserve(sums.size());
    for (auto& sum : sums) {
        result.push_back(std::move(sum.second));
    }
    return result;
}

std::vector<RecordedEvent> RecordingReader::events(TimeSpan span, int limit)
{
    return collectLast(span, limit, &RecordedEvent::at,
                       [&](RecordingSource& source) { return source.events(span, limit); });
}

std::vector<RecordedRun> RecordingReader::runs(TimeSpan span)
{
    const auto parts =
        collect(span, &RecordedRun::begun, [](RecordingSource& source) { return source.runs(); });
    std::vector<RecordedRun> result;
    for (const RecordedRun& part : parts) {
        if (result.empty() || result.back().begun != part.begun) {
            result.push_back(part);
        } else if (part.until >= result.back().until) {
            result.back().until = part.until;
            result.back().isEnded = part.isEnded;
            result.back().found = part.found;
        }
    }
    result.erase(std::remove_if(result.begin(), result.end(),
                                [span](const RecordedRun& run) {
                                    return run.begun >= span.to || run.until < span.from;
                                }),
                 result.end());
    return result;
}

std::vector<RecordedRound> RecordingReader::rounds(TimeSpan span, int limit)
{
    return collectLast(span, limit, &RecordedRound::at,
                       [&](RecordingSource& source) { return source.rounds(span, limit); });
}

std::vector<RecordedList> RecordingReader::lists(TimeSpan span)
{
    return collect(span, &RecordedList::at,
                   [&](RecordingSource& source) { return source.lists(span); });
}

std::vector<RecordedGap> RecordingReader::gaps(TimeSpan span)
{
    // A gap is told at its end.
    return collect({span.from, std::numeric_limits<qint64>::max()}, &RecordedGap::from,
                   [&](RecordingSource& source) { return source.gaps(span); });
}

std::vector<RecordedRecord> RecordingReader::stateAt(qint64 at)
{
    std::vector<File*> files;
    for (const auto& file : m_files) {
        if (file->extent && file->extent->from <= at) {
            files.push_back(file.get());
        }
    }
    std::stable_sort(files.begin(), files.end(), [](const File* left, const File* right) {
        return left->extent->to > right->extent->to;
    });
    files.resize(qMin<std::size_t>(files.size(), kFilesBack));
    std::optional<RecordedList> list;
    for (File* file : files) {
        auto listed = use(*file).listAt(at);
        if (listed && (!list || listed->at > list->at)) {
            list = std::move(listed);
        }
    }
    QHash<QString, RecordedRecord> latest;
    QSet<QString> wanted;
    if (list) {
        wanted = QSet<QString>(list->hexIds.begin(), list->hexIds.end());
    }
    for (File* file : files) {
        // No earlier file has anything after what was found.
        QSet<QString> missing;
        for (const QString& hexId : qAsConst(wanted)) {
            if (!latest.contains(hexId) || latest.value(hexId).at < file->extent->to) {
                missing.insert(hexId);
            }
        }
        if (list && missing.isEmpty()) {
            continue;
        }
        for (const RecordedRecord& record : use(*file).latest(at, missing)) {
            const auto known = latest.constFind(record.hexId);
            if (known == latest.constEnd() || known->at < record.at) {
                latest.insert(record.hexId, record);
            }
        }
    }
    QStringList order = list ? list->hexIds : QStringList(latest.keys());
    if (!list) {
        std::sort(order.begin(), order.end());
    }
    std::vector<RecordedRecord> result;
    for (const QString& hexId : qAsConst(order)) {
        RecordedRecord record = latest.value(hexId);
        record.hexId = hexId;
        result.push_back(std::move(record));
    }
    return result;
}

std::optional<qint64> RecordingReader::nextRecord(qint64 at, const QString& hexId)
{
    std::optional<qint64> result;
    for (const auto& file : m_files) {
        if (!file->extent || file->extent->to <= at || (result && file->extent->from >= *result)) {
            continue;
        }
        const auto found = use(*file).neighbour(at, true, hexId);
        if (found && (!result || *found < *result)) {
            result = found;
        }
    }
    return result;
}

std::optional<qint64> RecordingReader::formerRecord(qint64 at, const QString& hexId)
{
    std::optional<qint64> result;
    for (auto file = m_files.rbegin(); file != m_files.rend(); ++file) {
        if (!(*file)->extent || (*file)->extent->from >= at ||
            (result && (*file)->extent->to <= *result)) {
            continue;
        }
        const auto found = use(**file).neighbour(at, false, hexId);
        if (found && (!result || *found > *result)) {
            result = found;
        }
    }
    return result;
}

QStringList RecordingReader::filesIn(TimeSpan span) const
{
    QStringList paths;
    for (const auto& file : m_files) {
        if (file->extent && file->extent->from < span.to && file->extent->to >= span.from) {
            paths.append(file->source.path());
        }
    }
    return paths;
}

QString RecordingReader::copyFile(const QString& path, const QString& folder)
{
    const auto file = std::find_if(m_files.begin(), m_files.end(),
                                   [&path](const auto& one) { return one->source.path() == path; });
    const QString copy = QDir(folder).filePath(QFileInfo(path).fileName());
    if (file == m_files.end() || QFileInfo::exists(copy)) {
        return file == m_files.end() ? path : copy;
    }
    const QString reason = use(**file).copyTo(copy);
    if (reason.isEmpty()) {
        return {};
    }
    QFile::remove(copy); // a part of a file looks like a whole one
    return copy + QStringLiteral(": ") + reason;
}

QString RecordingReader::copyTo(const QString& folder, TimeSpan span)
{
    const QStringList paths = filesIn(span);
    for (const QString& path : paths) {
        QString reason = copyFile(path, folder);
        if (!reason.isEmpty()) {
            return reason;
        }
    }
    return {};
}
