#pragma once

#include "recording/recordwriter.h"
#include "tests/recording/recordedbus.h"

#include <QDir>

inline const QDateTime kNoon(QDate(2026, 3, 4), QTime(12, 0));

/// The folder of the recordings, in the sandbox.
inline QString recordings()
{
    return QDir::current().filePath(QStringLiteral("recordings"));
}

/// A bus in its first round, and the writer of what it tells.
struct Tape
{
    explicit Tape(const QDateTime& begin = kNoon, const QStringList& ldbs = {"0A"})
        : bus(begin)
    {
        bus.start(ldbs);
        bus.beginRound();
    }
    /// Writes what has been told so far.
    void take() { writer.take(bus.take()); }

    RecordedBus bus;
    RecordWriter writer{optionsFor(recordings())};
};
