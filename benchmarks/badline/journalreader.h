#pragma once

#include "serial/ldb/ldbstatus.h"

#include <QByteArray>
#include <QHash>
#include <QString>

#include <vector>

/// What a simulator's journal says of the polling: the truth to hold a log against. Walls are wall
/// times in ms since 1970.
struct BusBook
{
    /// A status answer that reached the program undamaged.
    struct Sent
    {
        qint64 wall = 0;
        LdbStatus status;
        bool isAmongStrays = false; ///< the program may leave it out
    };
    /// A polling question together with its repeat.
    struct Question
    {
        enum class Fate
        {
            Harmed, ///< no undamaged answer
            Answered,
            AmongStrays
        };
        qint64 wall = 0; ///< of its last transmission
        Fate fate = Fate::Harmed;
    };
    struct Line
    {
        qint64 wall = 0;
        QByteArray text;
        double since = 0; ///< ms on the line's own clock
    };

    QHash<QString, std::vector<Sent>> sent; ///< by LDB, in order
    QHash<QString, std::vector<Question>> questions;
    int harmed = 0; ///< requests and answers
    int strays = 0; ///< stray bytes
    std::vector<Line> lines;
    qint64 leastDelay = 0; ///< of wall time behind the line's clock, which begins at nothing

    /// How many of an LDB's last questions by then had no undamaged answer, one after the other.
    /// Those whose answer came among stray bytes do not count.
    int harmedInARow(const QString& hexId, qint64 wall) const;
    /// The longest that the simulator was behind its line, ms: wrote what should have been written
    /// before. What it hands over so late is no fault of the program.
    qint64 longestDelay() const;
    /// The last lines by then, for people, each with how far behind the simulator was.
    QByteArray excerpt(qint64 wall) const;
};

BusBook readJournal(const QByteArray& journal);
