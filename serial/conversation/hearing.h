#pragma once

#include <QByteArray>

#include <optional>

/// What has come in since a transmission: cuts the stream into what can be an answer and what
/// cannot. Owns no clock: every entrance is told the time (monotonic µs). Bounded, whatever the
/// line sends.
class Hearing
{
public:
    /// A pause of this length ends whatever was being sent.
    static constexpr qint64 kPause = 40000;

    /// A transmission begins; its last byte leaves at `requestEnd`.
    void begin(qint64 requestEnd);

    void take(const QByteArray& bytes, qint64 now);

    /// What has come so far answers something else: from now on it counts as stray bytes.
    void setAside();

    /// The body of the first frame with good check digits.
    const std::optional<QByteArray>& soundBody() const { return m_soundBody; }
    /// Whether nothing came before the sound frame, nor after it in the same read.
    bool isAlone() const { return m_isAlone; }
    /// The one byte that has come, if it is an ACK or a NAK.
    std::optional<char> singleByte() const;
    /// Whether the bytes are the remains of an answer: at least eight digits since the request's
    /// end that end in a terminator or in a pause.
    bool isDamagedAnswer(qint64 now) const;
    /// When a pause will have made a damaged answer of the digits heard so far.
    std::optional<qint64> pauseAt() const;
    /// Whether a frame has begun that may still go on.
    bool isUnderWay(qint64 now) const;
    /// When the last bytes came.
    qint64 lastByteAt() const { return m_lastByteAt; }
    /// Whether anything came that is no part of a sound frame.
    bool hasStrayBytes() const;

private:
    void findSoundFrame(int from);

    QByteArray m_bytes;
    bool m_hasSetAside = false;
    qint64 m_requestEnd = 0;
    qint64 m_lastByteAt = 0;
    int m_digits = 0; ///< since the request's end
    std::optional<QByteArray> m_soundBody;
    bool m_isAlone = false;
};
