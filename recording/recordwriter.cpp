#include "recording/recordwriter.h"

#include "serial/ldb/microseconds.h"

#include <QFileInfo>

#include <algorithm>
#include <iterator>

using recordingschema::Failure;

namespace {

using microseconds::kSecond;
constexpr qint64 kRetry = 5 * kSecond;
/// A clock that the network keeps right strays by less than this.
constexpr qint64 kSlewed = 5 * kSecond;
constexpr qint64 kCleaning = 600 * kSecond;
/// The most files a day: whatever makes more of them will not stop.
constexpr int kMostFiles = 100;
/// Events are few and worth more than exchanges, so they have room of their own.
constexpr std::size_t kMostWaitingRows = RecordWriter::kMostWaiting + 2000;

} // namespace

RecordWriter::RecordWriter(Options options)
    : m_options(std::move(options))
    , m_file(m_options.isSynced)
{
}

RecordWriter::~RecordWriter() = default;

void RecordWriter::setPlace(const QString& folder, const recordingfolder::Limits& limits)
{
    m_options.limits = limits;
    if (folder == m_options.folder) {
        return;
    }
    finish();
    m_options.folder = folder;
    m_day = QDate(); // the next one is of another recording
    m_waiting.clear();
    m_waitingExchanges = 0;
    m_gapCount = 0;
    m_isOutage = false;
}

void RecordWriter::take(const RecorderInputs& inputs)
{
    if (m_options.folder.isEmpty()) {
        return;
    }
    for (const RecorderInput& input : inputs) {
        const auto* event = std::get_if<RecordedEvent>(&input);
        const bool isMark = event != nullptr && event->kind == EventKind::Mark;
        if (isMark && writeIntoPast(*event)) {
            continue;
        }
        if (!m_day.isValid() || isAnotherFileDue(input)) {
            beginFile(timeOf(input));
        }
        m_now = isMark ? qMax(m_now, event->at) : timeOf(input);
        enqueue(input);
    }
    flush();
}

/// A mark of another day belongs to that day's file: it is copied, kept and deleted with it. False
/// where no such file can be written.
bool RecordWriter::writeIntoPast(const RecordedEvent& mark)
{
    const QDate day = recordingfolder::dayOf(mark.at);
    if (day == m_day) {
        return false;
    }
    for (const recordingfolder::DayFile& dayFile : recordingfolder::filesOf(m_options.folder)) {
        RecordingFile file;
        if (dayFile.day == day &&
            file.open(dayFile.path, m_options.programVersion) == RecordingFile::Opening::Done) {
            const bool isWritten = file.write({mark});
            file.close();
            if (isWritten) {
                m_pastMarks.push_back(mark);
                return true;
            }
        }
    }
    return false;
}

std::vector<RecordedEvent> RecordWriter::takeEvents()
{
    std::vector<RecordedEvent> events = m_maker.takeEvents();
    for (RecordedEvent& mark : m_pastMarks) {
        events.push_back(std::move(mark));
    }
    m_pastMarks.clear();
    return events;
}

bool RecordWriter::isAnotherFileDue(const RecorderInput& input) const
{
    const qint64 at = timeOf(input);
    // Within a run time only grows.
    const bool isSetBack =
        std::holds_alternative<input::RunBegun>(input) && at <= qMax(m_now, m_file.lastAt());
    return at >= m_endOfDay || isSetBack;
}

void RecordWriter::beginFile(qint64 at)
{
    if (m_day.isValid()) {
        m_retryAt = 0;
        flush();
        if (m_waitingExchanges > 0) {
            m_gapFrom = m_gapCount == 0 ? m_begunAt : m_gapFrom;
            m_gapCount += m_waitingExchanges;
        }
        m_file.close();
    } else {
        closeLeftOpen(m_options.folder);
        takeOverFinder();
    }
    m_day = recordingfolder::dayOf(at);
    m_endOfDay = recordingfolder::endOfDay(m_day);
    m_begunAt = at;
    m_now = at;
    m_firstNumber = 1;
    m_ownPath.clear();
    m_waitingExchanges = 0;
    m_waiting = m_maker.beginFile(at);
    m_retryAt = 0;
    m_nextCleaning = 0;
}

void RecordWriter::enqueue(const RecorderInput& input)
{
    const std::size_t before = m_waiting.size();
    m_maker.take(input, m_waiting);
    const bool isExchange = std::holds_alternative<input::Told>(input);
    m_waitingExchanges += isExchange ? 1 : 0;
    if (m_waitingExchanges <= kMostWaiting && m_waiting.size() <= kMostWaitingRows) {
        return;
    }
    // The events found in it are kept as long as there is room.
    const auto added = m_waiting.begin() + static_cast<std::ptrdiff_t>(before);
    const bool hasRoom = m_waiting.size() <= kMostWaitingRows;
    m_waiting.erase(std::remove_if(added, m_waiting.end(),
                                   [hasRoom](const FileRow& row) {
                                       return !hasRoom ||
                                              std::holds_alternative<filerow::Transmission>(row);
                                   }),
                    m_waiting.end());
    if (isExchange) {
        --m_waitingExchanges;
        m_gapFrom = m_gapCount == 0 ? timeOf(input) : m_gapFrom;
        ++m_gapCount;
    }
}

void RecordWriter::flush()
{
    if (m_waiting.empty() || m_now < m_retryAt) {
        return;
    }
    constexpr int kAttempts = 3; // one goes to each file that turns out to be bad
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        if (m_file.isOpen() && !m_file.isThere()) {
            say(RecordingNotice::Kind::Removed, m_file.path());
            m_file.close();
            FileRows again = m_maker.beginFile(m_now);
            m_waiting.insert(m_waiting.begin(), std::make_move_iterator(again.begin()),
                             std::make_move_iterator(again.end()));
        }
        if (!m_file.isOpen() && !openFile()) {
            m_retryAt = m_now + kRetry;
            return;
        }
        if (writeWaiting()) {
            break;
        }
        if (m_file.failure() != Failure::Damaged) {
            const bool isFull = m_file.failure() == Failure::DiskFull;
            failed({isFull ? RecordingNotice::Kind::DiskFull : RecordingNotice::Kind::CannotWrite,
                    m_file.path(), isFull ? QString() : m_file.errorString()});
            m_file.close();
            m_retryAt = m_now + kRetry;
            return;
        }
        say(RecordingNotice::Kind::Damaged, m_file.path(), m_file.errorString());
        m_file.close();
        ++m_firstNumber;
        FileRows again = m_maker.beginFile(m_now);
        m_waiting.insert(m_waiting.begin(), std::make_move_iterator(again.begin()),
                         std::make_move_iterator(again.end()));
    }
    removeExcess();
}

bool RecordWriter::writeWaiting()
{
    if (m_gapCount > 0) {
        RecordedEvent gap;
        gap.at = m_now;
        gap.kind = EventKind::Gap;
        gap.since = m_gapFrom;
        gap.count = m_gapCount;
        m_maker.take(gap, m_waiting);
        m_gapCount = 0; // it waits like everything else
    }
    FileRows rows = m_waiting;
    FileRows sums = m_maker.sums();
    rows.insert(rows.end(), std::make_move_iterator(sums.begin()),
                std::make_move_iterator(sums.end()));
    if (!m_file.write(rows)) {
        return false;
    }
    m_ownPath = m_file.path();
    m_waiting.clear();
    m_waitingExchanges = 0;
    m_maker.forgetSums();
    if (std::exchange(m_isOutage, false)) {
        say(RecordingNotice::Kind::GoesOn, m_file.path());
    }
    return true;
}

bool RecordWriter::openFile()
{
    for (; m_firstNumber < kMostFiles; ++m_firstNumber) {
        const QString path = recordingfolder::pathOf(m_options.folder, m_day, m_firstNumber);
        switch (m_file.open(path, m_options.programVersion)) {
        case RecordingFile::Opening::Done:
            if (m_file.lastAt() < m_begunAt || path == m_ownPath) {
                return true;
            }
            if (m_file.lastAt() - m_begunAt > kSlewed) {
                say(RecordingNotice::Kind::ClockSetBack, path);
            }
            m_file.close();
            break;
        case RecordingFile::Opening::InUse:
            if (!std::exchange(m_isOtherWindowTold, true)) {
                say(RecordingNotice::Kind::OtherWindow, path);
            }
            break;
        case RecordingFile::Opening::Newer:
            say(RecordingNotice::Kind::Newer, path);
            break;
        case RecordingFile::Opening::Damaged:
            say(RecordingNotice::Kind::Damaged, path, m_file.errorString());
            break;
        case RecordingFile::Opening::Failed: {
            const bool isFull = m_file.failure() == Failure::DiskFull;
            failed({isFull ? RecordingNotice::Kind::DiskFull : RecordingNotice::Kind::CannotWrite,
                    path, isFull ? QString() : m_file.errorString()});
            return false;
        }
        }
    }
    failed({RecordingNotice::Kind::CannotWrite, m_options.folder, QString()});
    return false;
}

/// Tells it once an outage.
void RecordWriter::failed(const RecordingNotice& notice)
{
    if (!std::exchange(m_isOutage, true)) {
        m_notices.push_back(notice);
    }
}

void RecordWriter::say(RecordingNotice::Kind kind, const QString& path, const QString& reason)
{
    m_notices.push_back({kind, path, reason});
}

/// Closes the files that a program that died has left: they would not open on a medium that cannot
/// be written to.
void RecordWriter::closeLeftOpen(const QString& folder)
{
    for (const recordingfolder::DayFile& file : recordingfolder::filesOf(folder)) {
        RecordingFile left;
        if (QFileInfo::exists(file.path + QStringLiteral("-wal")) &&
            left.open(file.path, m_options.programVersion) == RecordingFile::Opening::Done) {
            left.close();
        }
    }
}

/// Takes over the state of the event finder, so that a restart neither ends nor repeats an event.
void RecordWriter::takeOverFinder()
{
    QByteArray state;
    qint64 latest = -1;
    auto files = recordingfolder::filesOf(m_options.folder);
    std::reverse(files.begin(), files.end());
    QDate day;
    for (const recordingfolder::DayFile& file : files) {
        if (day.isValid() && file.day != day) {
            break;
        }
        RecordingFile former;
        if (former.open(file.path, m_options.programVersion) == RecordingFile::Opening::Done) {
            const QByteArray found = former.finderState();
            if (!found.isEmpty() && former.lastAt() > latest) {
                latest = former.lastAt();
                state = found;
                day = file.day;
            }
        }
    }
    m_maker.setFinder(EventFinder::fromJson(state));
}

void RecordWriter::removeExcess()
{
    if (m_now < m_nextCleaning) {
        return;
    }
    m_nextCleaning = m_now + kCleaning;
    const auto files = recordingfolder::filesOf(m_options.folder);
    const auto kept = recordingfolder::keptDays(m_options.folder);
    for (const auto& file : recordingfolder::excess(files, kept, m_day, m_options.limits)) {
        recordingfolder::remove(file.path);
    }
}

void RecordWriter::takeOver(const QString& folder)
{
    closeLeftOpen(folder);
    recordingfolder::moveFiles(folder, m_options.folder);
}

void RecordWriter::finish()
{
    m_retryAt = 0;
    flush();
    m_file.close();
}
