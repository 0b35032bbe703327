#pragma once

#include "recording/eventfinder.h"
#include "recording/filerows.h"
#include "recording/recorderinput.h"

#include <map>
#include <optional>
#include <set>
#include <utility>

/// Turns what the recorder is told into rows of a recording's files. Pure: owns no file or clock.
class RowMaker
{
public:
    /// Appends the rows of one input to `rows`, with the events that it brings about.
    void take(const RecorderInput& input, FileRows& rows);

    /// The rows with which a file that begins at `at` opens, so that it can be read without the
    /// files before it.
    FileRows beginFile(qint64 at);

    /// The rows that sum up what was taken so far: minutes, the run under way, the state of the
    /// event finder.
    FileRows sums() const;
    /// The sums are on the disk.
    void forgetSums();

    /// Takes over the state of the event finder that a former program, or another window, has left.
    void setFinder(EventFinder finder) { m_finder = std::move(finder); }
    /// Events found since the last call; they are in the rows as well.
    std::vector<RecordedEvent> takeEvents() { return std::exchange(m_events, {}); }

private:
    void put(const input::Told& told, FileRows& rows);
    void put(const input::Round& round, FileRows& rows);
    void put(const input::LossTold& loss, FileRows& rows);
    void put(const input::NameTold& name, FileRows& rows);
    void put(const input::ListTold& list, FileRows& rows);
    void put(const input::ScanEnded& scan, FileRows& rows);
    void put(const input::RunBegun& run, FileRows& rows);
    void put(const input::RunEnded& run, FileRows& rows);
    void put(const RecordedEvent& event, FileRows& rows);
    void count(const Exchange& exchange);
    void putFound(FileRows& rows);
    RecordedMinute& minuteOf(qint64 at, const QString& hexId);

    EventFinder m_finder;
    std::vector<RecordedEvent> m_events;
    std::map<std::pair<qint64, QString>, RecordedMinute> m_minutes;
    std::optional<RecordedRun> m_run; ///< under way
    bool m_isRunContinued = false;
    std::optional<RecordedRun> m_endedRun;
    std::optional<filerow::Round> m_round;
    QStringList m_list;
    QHash<QString, QString> m_names;
    int m_keptRevision = 0; ///< of the finder on the disk
};
