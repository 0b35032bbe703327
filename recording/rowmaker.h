#pragma once

#include "recording/eventfinder.h"
#include "recording/filerows.h"
#include "recording/recorderinput.h"

#include <map>
#include <optional>
#include <set>
#include <utility>

/// Makes the rows of a recording's files of what the recorder is told. Pure: owns no file or clock.
class RowMaker
{
public:
    /// The rows of one input, events that it brings about included, are put behind `rows`.
    void take(const RecorderInput& input, FileRows& rows);

    /// What is recorded from `at` on is in a file of its own: what that has to say first, so that
    /// it can be read without the ones before it.
    FileRows beginFile(qint64 at);

    /// What sums up what was taken so far: minutes, the run under way, the state of the finder.
    FileRows sums() const;
    /// The sums are on the disk.
    void forgetSums();

    /// Another run of the program, or another window, has left this.
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
