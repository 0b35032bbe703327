#pragma once

#include "simulator/simulationclock.h"

#include <QByteArray>
#include <QObject>
#include <QTimer>

#include <deque>

/// The simulator's end of a serial line: cuts what comes in into frames, and lets both directions
/// take the time that their bytes need at 9600 baud (8 data bits, one start and one stop bit).
/// A frame is heard when its last byte would have arrived; an answer's bytes leave as they would.
/// Unpaced, nothing takes time but what was asked to wait. Never owns a port.
class PacedLine : public QObject
{
    Q_OBJECT
public:
    enum class Pace
    {
        Baud9600,
        Unpaced
    };

    PacedLine(Pace pace, const SimulationClock& clock, QObject* parent = nullptr);

    /// Bytes from the master, as they are found at the port.
    void receive(const QByteArray& bytes);

    /// Sends `bytes` as one piece, `delay` ms after the moment `heardAt` (µs) and the turnaround.
    /// What is due at once goes out in the order given. `tag` comes back with `sent()`.
    void send(const QByteArray& bytes, qint64 heardAt, qint64 delay = 0, int tag = 0);

    /// Forgets everything that is under way in either direction.
    void reset();

    /// Time on the wire of one byte.
    static constexpr qint64 kByteNanoseconds = 1041667;
    /// A board's time between the request's last byte and its answer's first one. Paced only.
    static constexpr qint64 kTurnaroundMicroseconds = 1000;

signals:
    /// A frame, SOH to EOT, whole at `heardAt` (µs of the clock).
    void heard(const QByteArray& frame, qint64 heardAt);
    /// Bytes that leave now.
    void transmit(const QByteArray& bytes);
    /// The piece with this tag has left completely, at `sentAt` (µs).
    void sent(int tag, qint64 sentAt);

private:
    struct Frame
    {
        QByteArray bytes;
        qint64 heardAt = 0;
    };
    struct Piece
    {
        QByteArray bytes;
        qint64 due = 0; ///< µs; when its first byte may start
        int tag = 0;
        int left = 0; ///< bytes that have left already
    };

    void takeByte(char byte, qint64 arrivedAt);
    void work();
    bool hearNext();
    bool sendNext();
    bool waitShortly();
    qint64 timeToNext() const;
    qint64 deadline(const Piece& piece) const;
    qint64 wireTime(qint64 bytes) const;

    Pace m_pace;
    const SimulationClock& m_clock;
    QTimer m_timer;

    QByteArray m_collected;
    bool m_isCollecting = false;
    qint64 m_receivedUntil = 0; ///< µs; when the last byte found so far has arrived
    std::deque<Frame> m_frames;
    std::deque<Piece> m_pieces; ///< by due time; the first one may be under way
    qint64 m_sentUntil = 0;     ///< µs; when the last piece's last byte has left
    bool m_isWorking = false;
};
