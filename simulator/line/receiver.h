#pragma once

#include "simulator/line/chance.h"
#include "simulator/line/linebook.h"
#include "simulator/line/mischief.h"

#include <QByteArray>

#include <deque>

/// The master's end of the line. It takes one byte after the other: one that begins while another
/// is being received spoils that one and is lost itself. A stall holds back or loses what comes
/// out. All times in ns; what is done is entered in the book handed in.
class Receiver
{
public:
    /// Who sent a byte: an answer of an exchange, or nobody in particular.
    struct Sender
    {
        qint64 exchange = kNobody;
        int answer = 0;
        int board = 0; ///< its address

        static constexpr qint64 kNobody = -1;
    };
    struct Byte
    {
        char value = 0;
        Span time; ///< from its first bit to its last one
        Sender sender;
        bool isDamaged = false; ///< is not what its sender meant
        bool isLast = false;    ///< of its answer
    };

    explicit Receiver(Chance garbage);

    bool isBusy() const { return m_isBusy; }
    const Byte& current() const { return m_current; }
    /// A byte begins. When the line is busy the two spoil each other.
    void begin(const Byte& byte, LineBook& book);
    /// Something of the master's own lies over the current byte.
    void spoil(char with, LineBook& book);
    /// The current byte has come to its end; what the mischief makes of the time it comes.
    void finish(Mischief& mischief, LineBook& book);
    /// A byte that nothing can have touched.
    void take(const Byte& byte, Mischief& mischief, LineBook& book);

    /// When the next byte can be had; `Span`'s greatest time when none has come.
    qint64 nextAt() const;
    QByteArray takeArrived(qint64 now, LineBook& book);
    void reset();

private:
    struct Arrived
    {
        qint64 at = 0;
        char value = 0;
        bool wasHeld = false;
    };

    /// Notes a harm of the sender's answer, and of which other sender it came.
    static void noteOverlap(const Sender& sender, LineBook& book);
    void follow(const Byte& byte, LineBook& book);

    Chance m_garbage;
    bool m_isBusy = false;
    Byte m_current;
    std::deque<Arrived> m_arrived;
    qint64 m_lastAt = 0; ///< nothing overtakes what is held back

    // The frame that the master is getting, to find out when one is right that nobody sent.
    QByteArray m_frame;
    bool m_isInFrame = false;
    bool m_isGenuine = false; ///< so far every byte is as one answer's board sent it
    Sender m_frameSender;
};
