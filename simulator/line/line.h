#pragma once

#include "simulator/line/adversaries.h"
#include "simulator/line/boards.h"
#include "simulator/line/linebook.h"
#include "simulator/line/linetime.h"
#include "simulator/line/mischief.h"
#include "simulator/line/receiver.h"

#include <QByteArray>

#include <deque>
#include <optional>
#include <vector>

enum class LineKind
{
    FullDuplex,      ///< answers that overlap damage each other
    HalfDuplex,      ///< requests take part in that
    QueuingConverter ///< keeps frames apart: each passes when the line is free
};

struct LineOptions
{
    LineKind kind = LineKind::FullDuplex;
    quint64 seed = 1;
    qint64 byteTime = linetime::kByte; ///< ns; 0: nothing takes time by itself
    qint64 leastTurnaround = 4000; ///< µs from a request's last byte to its answer's first one,
    qint64 mostTurnaround = 12000; ///< drawn evenly for each answer
    int bookLength = 4096;         ///< exchanges
};

/// The bus between a master and its boards, in virtual time: what the master sends takes its time
/// on the wire, is harmed or heard, and answers come back in their time, harmed or not. A value
/// without clock, timer or port: the caller says what time it is, in µs, never less than before.
/// The same seed and the same calls give the same bytes. Owns neither boards nor watcher.
class Line
{
public:
    Line(const LineOptions& options, const Adversaries& adversaries, Boards& boards);

    void setWatcher(LineWatcher* watcher) { m_watcher = watcher; }
    /// In force from `at` on, which may lie ahead; of several, in the order of their times.
    void setAdversaries(const Adversaries& adversaries, qint64 at);
    const Adversaries& adversaries() const { return m_mischief.adversaries(); }
    void setKind(LineKind kind) { m_options.kind = kind; }

    /// The master hands bytes to its port: frames, as a rule, but any pieces will do. They leave
    /// one after another.
    void transmit(const QByteArray& bytes, qint64 now);

    /// Lets everything happen that is due by then. The other calls do so, too.
    void advance(qint64 now);

    /// Before this time nothing arrives at the master unless it transmits something, and nothing
    /// at all happens on the line: ask again then. Of bytes that follow each other without a break
    /// up to `together` may come at once, as from a port that has a buffer. `kNever` when nothing
    /// is on its way.
    qint64 nextArrival(int together = 1) const;
    /// The bytes that have arrived by then and were not taken yet.
    QByteArray takeArrived(qint64 now);

    /// Forgets everything that is on its way in either direction.
    void reset();

    const LineBook& book() const { return m_book; }

    static constexpr qint64 kNever = linetime::kNever;

private:
    // All times below in ns.
    struct Request
    {
        qint64 number = 0; ///< of its exchange
        QByteArray bytes;  ///< as they are on the line
        qint64 ready = 0;  ///< when its first byte may go onto the line
        qint64 start = 0;
        qint64 end = 0;
        bool isOnLine = false;
    };
    struct Sending
    {
        enum class State
        {
            Blocked, ///< its board has an earlier answer to send
            Waiting, ///< for `due`, and for a free line where frames are kept apart
            Leaving
        };
        Receiver::Sender sender;
        State state = State::Waiting;
        QByteArray bytes;
        qint64 heardAt = 0;
        qint64 delay = 0; ///< from the moment that its board turns to it
        qint64 due = 0;
        qint64 start = 0;
        qint64 end = 0;
        int next = 0; ///< byte; those before it have begun
        int pieceLength = 0;
        qint64 pause = 0;
        bool isDamaged = false;
        bool isLost = false;

        /// Whether bytes of it have still to begin.
        bool isUnderWay() const { return state == State::Leaving && next < bytes.size(); }
    };
    struct Change
    {
        qint64 at = 0;
        Adversaries adversaries;
    };
    enum class Event
    {
        None,
        ByteEnds,
        Change,
        SendingEnds,
        RequestEnds,
        Strays,
        RequestStarts,
        SendingStarts,
        ByteStarts
    };
    struct Next
    {
        Event event = Event::None;
        qint64 at = linetime::kNever;
        qint64 rank = 0; ///< of two that wait for the line, the one that has waited longer
        std::size_t index = 0;
    };

    Next next() const;
    Next nextBesidesBytes() const;
    void consider(Next& next, Event event, qint64 at, std::size_t index = 0) const;
    void considerStart(Next& next, Event event, qint64 ready, std::size_t index) const;
    void handle(const Next& next);
    bool runUndisturbed(std::size_t index, qint64 limit);

    void takeByte(char byte, qint64 end, qint64 now);
    void startRequest(qint64 at);
    void endRequest();
    void hear(LineExchange& exchange, const QByteArray& frame, qint64 at);
    void addAnswer(LineExchange& exchange, const BoardAnswer& answer, qint64 heardAt);
    void addStrays(qint64 at);
    void startSending(Sending& sending, qint64 at);
    void endSending(std::size_t index);
    void startByte(Sending& sending);
    void endByte();
    std::optional<char> byteOver(const Request& request) const;

    qint64 byteStart(const Sending& sending, int index) const;
    Receiver::Byte byteOf(const Sending& sending, int index) const;
    bool isHalfDuplex() const { return m_options.kind == LineKind::HalfDuplex; }
    bool isQueuing() const { return m_options.kind == LineKind::QueuingConverter; }

    LineOptions m_options;
    Boards* m_boards;
    LineWatcher* m_watcher = nullptr;
    LineBook m_book;
    Receiver m_receiver;

    Mischief m_mischief;
    Chance m_turnaround;

    qint64 m_now = 0;
    std::deque<Change> m_changes;

    QByteArray m_collected; ///< of a frame whose end the master has not handed over yet
    bool m_isCollecting = false;
    qint64 m_portFree = 0; ///< when the last byte handed over has left the port
    std::deque<Request> m_requests;
    Request m_lastRequest; ///< may still lie over an answer
    std::vector<Sending> m_sendings;
    qint64 m_lineFree = 0; ///< where frames are kept apart
};
