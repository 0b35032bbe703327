#pragma once

#include <QByteArray>
#include <QFlags>
#include <QString>

#include <deque>
#include <vector>

/// What happened to a request or an answer on its way.
enum class Harm : unsigned
{
    Flip = 1U << 0U,     ///< one bit was turned round
    Garble = 1U << 1U,   ///< bits were, so that the check tells
    Loss = 1U << 2U,     ///< nothing of it came
    Overlap = 1U << 3U,  ///< another sender's bytes, or stray ones, lay over it
    Absent = 1U << 4U,   ///< its board had vanished
    Late = 1U << 5U,     ///< beyond the turnaround, itself or by the one before it
    Held = 1U << 6U,     ///< at least one byte was held back by a stall
    StallLoss = 1U << 7U ///< at least one byte was lost in a stall
};
Q_DECLARE_FLAGS(Harms, Harm)
Q_DECLARE_OPERATORS_FOR_FLAGS(Harms)

/// What reached the master while an exchange was the last one, without being its answer.
enum class Intrusion : unsigned
{
    Stray = 1U << 0U,       ///< a byte that nobody sent
    OtherAnswer = 1U << 1U, ///< the answer to an earlier request, or a part of it
    Held = 1U << 2U         ///< bytes of any kind that a stall had held back
};
Q_DECLARE_FLAGS(Intrusions, Intrusion)
Q_DECLARE_OPERATORS_FOR_FLAGS(Intrusions)

/// One answer of a board. Times in µs.
struct LineAnswer
{
    int board = 0;    ///< its address
    QByteArray bytes; ///< as the board meant them
    QByteArray sent;  ///< as they went onto the line: with a flipped bit, but before any overlap
    int tag = 0;      ///< as the boards gave it
    Harms harms;
    qint64 lateBy = 0;          ///< beyond the turnaround, by the adversary's doing
    qint64 leftAt = kNotYet;    ///< when the last byte had left, or would have
    qint64 arrivedAt = kNotYet; ///< when its last byte came to the master; not if that was lost

    bool hasLeft() const { return leftAt != kNotYet; }

    static constexpr qint64 kNotYet = -1;
    static constexpr int kMaster = 0xFE;
};

/// One transmission of the master and what came of it. Times in µs.
struct LineExchange
{
    qint64 number = 0;                    ///< counts from 0
    int address = 0;                      ///< that the frame names; 0 when it names none
    QByteArray request;                   ///< as the master meant it
    qint64 handedAt = 0;                  ///< when the master gave its last byte to the port
    qint64 endedAt = LineAnswer::kNotYet; ///< when its last byte was on the line
    Harms harms;
    bool isHeard = false; ///< the boards got it whole and undamaged
    std::vector<LineAnswer> answers;
    Intrusions intrusions;

    /// Whether a master that did everything right could have missed the answer: the request was
    /// harmed or unanswered, or every answer was harmed.
    bool isHarmed() const;
    /// Neither harmed nor intruded upon, and answered by now.
    bool isClean() const;
    /// For messages: one line.
    QString describe() const;
};

/// What really happened on a line: the truth to hold a master's reports against. Bounded: the
/// oldest exchanges are forgotten.
class LineBook
{
public:
    explicit LineBook(int length);

    /// The exchanges still known, oldest first.
    const std::deque<LineExchange>& exchanges() const { return m_exchanges; }

    /// Frames that reached the master with right check digits though no board sent them so: the
    /// last ones, as many as there are exchanges known.
    const std::deque<QByteArray>& falseFrames() const { return m_falseFrames; }
    qint64 exchangeCount() const { return m_next; }

    // For the line, which keeps the book.
    LineExchange& add();
    /// Null when it has been forgotten.
    LineExchange* find(qint64 number);
    LineAnswer* findAnswer(qint64 number, int answer);
    void addFalseFrame(const QByteArray& frame);
    /// Something came that belongs to another exchange than the last one.
    void noteIntrusion(Intrusion intrusion);

private:
    std::size_t m_length;
    std::deque<LineExchange> m_exchanges;
    std::deque<QByteArray> m_falseFrames;
    qint64 m_next = 0;
};

/// For people: "flipped bit, late".
QString describe(Harms harms);
