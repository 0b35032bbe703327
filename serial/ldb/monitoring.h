#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

/// What of the bus is monitored at a moment, and since when it is not: the one word for the whole
/// window. Every view takes it and shows by it which of its values are live. A plain value; pure
/// functions, callable from any thread.
///
/// Times are what a clock on the wall shows, in ms (`generalinformation::clockTime`), so that those
/// of the records can be compared with them.
struct Monitoring
{
    enum class State
    {
        NotStarted,
        Stopped,        ///< by the user
        NothingFound,   ///< the run has ended: no LDB answered the scan
        PortNotOpened,  ///< the port could not be opened
        ConnectionLost, ///< the port failed during the run
        NotRecorded,    ///< of a moment that is looked back at: the recording lacks it
        Scanning,
        NoAnswer, ///< the bus is polled, and nobody answers
        Polling
    };

    /// The part of a round that an LDB takes when all is well, ms: where it gives name and firmware
    /// in each, and where it is not known how long it takes.
    static constexpr qint64 kTurn = 200;
    /// How long a round of so many LDBs lasts on which all is well, ms.
    static qint64 roundOf(int ldbs, qint64 turn = kTurn);
    /// How long a value is live on such a bus, ms; `silence`: how much longer a round takes for
    /// those that do not answer.
    static qint64 lifetimeOf(int ldbs, qint64 silence = 0, qint64 turn = kTurn);
    /// At least so long, ms: room for what holds up a small bus besides.
    static constexpr qint64 kShortestLife = 15000;

    /// No value is older than that and still live, ms.
    static constexpr qint64 kLongestLife = 180000;

    State state = State::NotStarted;
    qint64 now = 0;                 ///< the moment itself
    std::optional<qint64> since;    ///< not monitored since; nothing where it never was
    QString portName;               ///< of the failed port
    QString polledAlone;            ///< the only LDB that is polled; empty for all
    qint64 from = 0;                ///< records of before are not live
    qint64 lifetime = kLongestLife; ///< ms that a record is live
    int known = 0;                  ///< LDBs known, lost ones included
    int lost = 0;                   ///< those of them that do not answer any more
    int awaited = 0;                ///< those of them that have not been heard yet

    bool isPolling() const { return state == State::Polling; }
    /// Whether the whole bus is polled.
    bool isWhole() const { return isPolling() && polledAlone.isEmpty(); }

    /// Whether a value of that time, told by this LDB, is what the LDB says now.
    bool isLive(const QString& hexId, std::optional<qint64> time) const;
    /// The same for what sums up the whole bus.
    bool isLive(std::optional<qint64> time) const;

    /// How old a value of that time is, ms; never negative.
    qint64 age(qint64 time) const;
    /// How long ago that was, for the user: "12 s", "3 min", "5 h", "2 d". Empty without a time.
    QString ageText(std::optional<qint64> time) const;

    /// A time of day, with the date where it is not of the day of `now`.
    QString clockText(qint64 time) const;
};
