#pragma once

#include "serial/conversation/conversation.h"
#include "simulator/bus/lineboards.h"
#include "simulator/line/line.h"

#include <QCryptographicHash>
#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

/// A conversation on a simulated line, in virtual time, with everything it tells held against the
/// line's own book. The same seed and calls give the same course.
class LineRig
{
public:
    struct Setup
    {
        LineKind kind = LineKind::FullDuplex;
        std::vector<int> addresses = {0x01, 0x0A, 0x10, 0x1C, 0x2B, 0x5B, 0xA4, 0xFD};
        quint64 seed = 1;
        int answerWaitTime = 1500; ///< ms
        int forgivenMisses = 3;
        int together = 1; ///< bytes that the port hands over at once, at most
        /// Ticks (µs) at which an adapter hands over what has come since the last; 0: at once.
        qint64 adapterTick = 0;
        TurnPlan::Options turns;
    };
    struct Tally
    {
        int records = 0; ///< of LDBs that answered
        int wrong = 0;
        int falseFrames = 0; ///< wrong values of damaged frames that pass the check digits
        int losses = 0;
        int falseLosses = 0;
        int commands = 0;
        int silentCommands = 0;
        /// ACKs that were stray bytes: nothing tells them from real ones but reading back.
        int unfoundedAcks = 0;
    };

    static constexpr qint64 kWallStart = 1700000000000; ///< ms since 1970 UTC

    explicit LineRig(const Setup& setup);

    Conversation& conversation() { return m_conversation; }
    Line& line() { return m_line; }
    LineBoards& boards() { return m_boards; }
    qint64 now() const { return m_now; }

    /// Scans, and returns when the scan has ended.
    void scan();
    /// Begins a run that finds its LDBs so.
    void start(const StartPlan& plan);
    /// The adapter is pulled out: nobody hears what still comes, until `start` has it back.
    void cut();
    /// Lets time pass (µs).
    void run(qint64 microseconds);
    /// As `run`, but returns as soon as the condition holds; whether it does.
    bool runUntil(const std::function<bool()>& condition, qint64 microseconds);

    /// Queues a command, whose end is judged like everything else. Every so often (µs, 0 for never)
    /// one is queued by chance.
    void queue(const Request& request);
    void queueByChance(qint64 every) { m_commandEvery = every; }

    const Tally& tally() const { return m_tally; }
    /// What was wrong, with the exchanges before it; the first few.
    const QStringList& complaints() const { return m_complaints; }

    /// Everything told, if it is kept. With `listen` it is told at once.
    void keepEvents() { m_keepsEvents = true; }
    std::vector<Event> takeEvents() { return std::exchange(m_events, {}); }
    void listen(std::function<void(const Event&)> listener) { m_listener = std::move(listener); }

    const QStringList& found() const { return m_found; }
    const QSet<QString>& lost() const { return m_lost; }
    bool isScanning() const { return m_isScanning; }

    /// What came between a transmission and the next one; they count from 0.
    QByteArray heardSince(int transmission) const { return m_heard.value(transmission); }
    /// Of every transmission so far: when it was made, and its bytes.
    QByteArray wireDigest() const { return m_wire.result(); }

private:
    struct Command
    {
        Request request;
        int timesDone = 0; ///< by the board, when it was queued
    };

    Conversation::Moment moment() const { return {m_now, kWallStart + m_now / 1000}; }
    void step(qint64 now);
    qint64 nextArrival() const;
    QByteArray takeArrived();
    void pump();
    void queueSomething();
    void judge(const event::Record& record);
    void judge(const event::Loss& loss);
    void judge(const event::CommandDone& done);
    void judge(const event::ScanState& scan);
    void judge(const event::ListChange& list) { m_found = list.hexIds; }
    template <typename Other>
    void judge(const Other&)
    {
    }
    void judgeAnswer(const Command& command, const QByteArray& answer);
    int failedPollsInARow(int address) const;
    bool isFalseFrame(const QByteArray& body) const;
    void complain(const QString& what, const QByteArray& body);

    Setup m_setup;
    LineBoards m_boards;
    Line m_line;
    Conversation m_conversation;
    Chance m_chance;
    qint64 m_now = 0;
    qint64 m_commandEvery = 0;
    qint64 m_nextCommand = Line::kNever;
    quint64 m_commandNumber = 0;
    QHash<quint64, Command> m_commands;

    QHash<int, QByteArray> m_heard;
    int m_transmissions = 0;
    QCryptographicHash m_wire{QCryptographicHash::Sha1};
    Tally m_tally;
    QStringList m_complaints;
    QStringList m_found;
    QSet<QString> m_lost;
    bool m_isScanning = false;
    QHash<int, quint32> m_lastNumber;
    bool m_keepsEvents = false;
    std::function<void(const Event&)> m_listener;
    std::vector<Event> m_events;
};
