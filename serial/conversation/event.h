#pragma once

#include "serial/ldb/exchange.h"
#include "serial/ldb/ldbstatus.h"

#include <QByteArray>
#include <QStringList>

#include <variant>
#include <vector>

/// What the conversation tells, in the order in which it happened.
namespace event {

/// One status of an LDB, or that it is lost (`LdbStatus::disconnected()`).
struct Record
{
    QString hexId;
    QString name; ///< empty until the LDB has told it
    LdbStatus status;
    qint64 time = 0;      ///< at which its round began, an extra one's own; ms since 1970 UTC
    bool isExtra = false; ///< not part of the round
};
/// A round of all LDBs, or of the one polled alone, begins. One that a scan, the end of the run or
/// a change of who is polled breaks off has no end.
struct RoundBegun
{
    qint64 time = 0; ///< that its records carry, ms since 1970 UTC
};
/// The average time that one LDB takes of a round on which all is well. Told once a round, if
/// known.
struct UsualTurn
{
    qint64 time = 0; ///< µs
};
struct RoundEnded
{
};
/// The LDB's state differs from its last one, or is the first since the start or scan.
struct StateChange
{
    QString hexId;
    LdbState state = LdbState::Booting;
};
/// Too many misses in a row, or not found any more by a scan; once a loss.
struct Loss
{
    QString hexId;
};
struct ScanState
{
    bool isRunning = false;
};
/// Addresses probed (1 to 253) and LDBs found so far.
struct ScanProgress
{
    int checked = 0;
    int found = 0;
};
/// The ids found, in that order; lost LDBs stay in it.
struct ListChange
{
    QStringList hexIds;
};
/// An LDB has told its name, and that is the one taken for its own now.
struct NameTold
{
    QString hexId;
    QString name;
};
/// Whether an LDB of the list, or one that joins it now, has still to be heard in this run.
struct AwaitedChange
{
    QString hexId;
    bool isAwaited = false;
};
/// Each LDB that was known at the start has been probed.
struct KnownProbed
{
    int answered = 0;
    int asked = 0;
};
/// A command is done. Empty `answer`: it was transmitted, and nothing usable came.
struct CommandDone
{
    std::vector<quint64> numbers; ///< equal reads are sent once
    QByteArray answer;            ///< a body, or an ACK or NAK byte
};
struct QueueLength
{
    int commands = 0;
};
/// There is nobody to poll.
struct Stopped
{
};
/// A line for the diagnostics.
struct Diagnostic
{
    QString text;
};

} // namespace event

using Event = std::variant<event::Record, event::RoundBegun, event::RoundEnded, event::StateChange,
                           event::Loss, event::ScanState, event::ScanProgress, event::ListChange,
                           event::UsualTurn, event::NameTold, event::AwaitedChange,
                           event::KnownProbed, event::CommandDone, event::QueueLength,
                           event::Stopped, event::Diagnostic, Exchange>;
