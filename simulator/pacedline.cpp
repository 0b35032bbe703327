#include "simulator/pacedline.h"

#include "serial/framecodec.h"

#include <algorithm>
#include <limits>

namespace {

constexpr qint64 kNanosecondsPerMicrosecond = 1000;
constexpr qint64 kMicrosecondsPerMillisecond = 1000;
constexpr int kMaxFrameBytes = 1024;
/// Bytes that leave together before an answer's end, so that a byte does not cost a wake-up.
constexpr int kChunkBytes = 8;
constexpr qint64 kNever = std::numeric_limits<qint64>::max();

} // namespace

PacedLine::PacedLine(Pace pace, const SimulationClock& clock, QObject* parent)
    : QObject(parent)
    , m_pace(pace)
    , m_clock(clock)
    , m_timer(this)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &PacedLine::work);
}

void PacedLine::receive(const QByteArray& bytes)
{
    qint64 start = std::max(m_receivedUntil, m_clock.microseconds());
    for (int i = 0; i < bytes.size(); ++i) {
        m_receivedUntil = start + wireTime(i + 1);
        takeByte(bytes.at(i), m_receivedUntil);
    }
    work();
}

void PacedLine::send(const QByteArray& bytes, qint64 heardAt, qint64 delay, int tag)
{
    const qint64 turnaround = m_pace == Pace::Unpaced ? 0 : kTurnaroundMicroseconds;
    const qint64 due = heardAt + turnaround + delay * kMicrosecondsPerMillisecond;
    const Piece piece{bytes, std::max(due, m_sentUntil), tag, 0};
    // A piece that has begun to leave is not overtaken.
    const auto first = m_pieces.begin() + (!m_pieces.empty() && m_pieces.front().left > 0 ? 1 : 0);
    m_pieces.insert(std::upper_bound(first, m_pieces.end(), piece,
                                     [](const Piece& a, const Piece& b) { return a.due < b.due; }),
                    piece);
    work();
}

void PacedLine::reset()
{
    m_timer.stop();
    m_collected.clear();
    m_isCollecting = false;
    m_frames.clear();
    m_pieces.clear();
}

void PacedLine::takeByte(char byte, qint64 arrivedAt)
{
    if (byte == framecodec::kSoh) {
        m_isCollecting = true;
        m_collected.clear();
    }
    if (!m_isCollecting) {
        return;
    }
    m_collected.append(byte);
    if (byte == framecodec::kEot) {
        m_frames.push_back({m_collected, arrivedAt});
    }
    m_isCollecting = byte != framecodec::kEot && m_collected.size() < kMaxFrameBytes;
}

void PacedLine::work()
{
    // Who hears a frame answers it within the signal.
    if (m_isWorking) {
        return;
    }
    m_isWorking = true;
    while (hearNext() || sendNext() || waitShortly()) {
    }
    m_isWorking = false;
    const qint64 time = timeToNext();
    if (time == kNever) {
        m_timer.stop();
    } else {
        m_timer.start(static_cast<int>(time / kMicrosecondsPerMillisecond));
    }
}

bool PacedLine::hearNext()
{
    if (m_frames.empty() || m_frames.front().heardAt > m_clock.microseconds()) {
        return false;
    }
    const Frame frame = m_frames.front();
    m_frames.pop_front();
    emit heard(frame.bytes, frame.heardAt);
    return true;
}

bool PacedLine::sendNext()
{
    const qint64 now = m_clock.microseconds();
    if (m_pieces.empty() || deadline(m_pieces.front()) > now) {
        return false;
    }
    Piece& piece = m_pieces.front();
    const int size = piece.bytes.size();
    const int count = m_pace == Pace::Unpaced ? size : std::min(kChunkBytes, size - piece.left);
    const QByteArray chunk = piece.bytes.mid(piece.left, count);
    piece.left += count;
    const Piece sentPiece = piece;
    if (piece.left == size) {
        m_sentUntil = piece.due + wireTime(size);
        m_pieces.pop_front();
        for (Piece& waiting : m_pieces) {
            waiting.due = std::max(waiting.due, m_sentUntil);
        }
    }
    emit transmit(chunk);
    if (sentPiece.left == size) {
        emit sent(sentPiece.tag, now);
    }
    return true;
}

/// The timer counts whole milliseconds; what is shorter is waited for, because three exchanges'
/// roundings a poll would make the line noticeably slower than a real one.
bool PacedLine::waitShortly()
{
    const qint64 time = timeToNext();
    const bool isShort = time < kMicrosecondsPerMillisecond;
    if (isShort && time > 0) {
        m_clock.wait(time);
    }
    return isShort;
}

/// µs until something is to be done; 0 when it is overdue.
qint64 PacedLine::timeToNext() const
{
    const qint64 hear = m_frames.empty() ? kNever : m_frames.front().heardAt;
    const qint64 send = m_pieces.empty() ? kNever : deadline(m_pieces.front());
    const qint64 next = std::min(hear, send);
    return next == kNever ? kNever : std::max<qint64>(0, next - m_clock.microseconds());
}

/// When the next chunk of the piece has left.
qint64 PacedLine::deadline(const Piece& piece) const
{
    const int chunkEnd = std::min(piece.left + kChunkBytes, piece.bytes.size());
    return piece.due + wireTime(chunkEnd);
}

qint64 PacedLine::wireTime(qint64 bytes) const
{
    return m_pace == Pace::Unpaced ? 0 : bytes * kByteNanoseconds / kNanosecondsPerMicrosecond;
}
