#pragma once

#include "simulator/line/linebook.h"

#include <QByteArray>

#include <bitset>
#include <vector>

/// By bus address: the boards that do not hear a frame because they have vanished.
using AbsentBoards = std::bitset<256>;

/// One answer as a board gives it to the line.
struct BoardAnswer
{
    int board = 0; ///< its address
    QByteArray bytes;
    qint64 delay = 0; ///< µs beyond the turnaround
    int pieces = 1;   ///< sent in so many pieces of about the same length ...
    qint64 pause = 0; ///< ... with so many µs between them
    int tag = 0;      ///< comes back in the book
};

/// Whoever answers on a line.
class Boards
{
public:
    virtual ~Boards() = default;

    /// A frame, SOH to EOT with good check digits, was heard by all boards at `at` (µs), but for
    /// those absent. What they answer; the line has the answers of one board wait for each other.
    virtual std::vector<BoardAnswer> hear(const QByteArray& frame, qint64 at,
                                          const AbsentBoards& absent) = 0;
};

/// Is told what a line does, at the moment it does it.
class LineWatcher
{
public:
    virtual ~LineWatcher() = default;
    /// The request's last byte has been on the line; its answers are known, but none has left.
    virtual void requestEnded(const LineExchange& exchange) = 0;
    /// The answer's last byte has left, or would have, had the answer not been lost.
    virtual void answerEnded(const LineExchange& exchange, const LineAnswer& answer) = 0;
    /// Bytes that nobody sent have come, the last one at `at` (µs).
    virtual void straysEnded(const QByteArray& bytes, qint64 at) = 0;
};
