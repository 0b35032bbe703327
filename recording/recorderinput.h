#pragma once

#include "recording/recordedevent.h"
#include "serial/ldb/exchange.h"

#include <QMetaType>
#include <QString>
#include <QStringList>

#include <variant>
#include <vector>

/// What the recorder hands to its writer, in order. Moments (`at`) are UTC, µs since 1970. All but
/// those of runs and events are on the time line of the exchanges.
namespace input {

/// A transmission.
struct Told
{
    Exchange exchange;
    /// Which sound frame of a believed status answer became the record.
    int frame = 0;
    static constexpr int kNoRecord = 15; ///< there was none
};

/// The wall time that records carry from here on; a single one counts only for the record at this
/// very moment.
struct Round
{
    qint64 at = 0;
    qint64 wall = 0; ///< ms since 1970 UTC
    int offset = 0;  ///< local time less UTC, s
    bool isSingle = false;
    bool isBreak = false; ///< the round before was broken off, or was of another run
};
/// A record that says "lost".
struct LossTold
{
    qint64 at = 0;
    QString hexId;
};
/// The LDB's records carry this name from here on.
struct NameTold
{
    qint64 at = 0;
    QString hexId;
    QString name;
};
/// The LDBs that are listed from here on.
struct ListTold
{
    qint64 at = 0;
    QStringList hexIds;
};
struct ScanEnded
{
    qint64 at = 0;
    QStringList found;
};
struct RunBegun
{
    qint64 at = 0;
    QString port;
};
struct RunEnded
{
    qint64 at = 0;
};

} // namespace input

using RecorderInput =
    std::variant<input::Told, input::Round, input::LossTold, input::NameTold, input::ListTold,
                 input::ScanEnded, input::RunBegun, input::RunEnded, RecordedEvent>;
using RecorderInputs = std::vector<RecorderInput>;
Q_DECLARE_METATYPE(RecorderInputs)

/// The moment of an input.
qint64 timeOf(const RecorderInput& input);
