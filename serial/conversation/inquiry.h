#pragma once

#include "serial/conversation/answertiming.h"
#include "serial/conversation/exchangelog.h"
#include "serial/conversation/hearing.h"
#include "serial/ldb/request.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <limits>
#include <optional>
#include <vector>

/// How an inquiry ended.
struct InquiryEnd
{
    enum class Outcome
    {
        Answered,   ///< `answer` is a body, or an ACK or NAK byte
        Silent,     ///< nothing that could be an answer
        Damaged,    ///< the remains of an answer
        OtherKind,  ///< a sound frame that answers another kind of question
        Unbelieved, ///< a sound answer among stray bytes
    };
    Outcome outcome = Outcome::Silent;
    QByteArray answer;
    int transmissions = 0;
    /// Bytes that were no part of an answer, or an answer out of time.
    bool isUnclean = false;
};

/// One question on the line at a time. Transmits it, listens, repeats it, and says how that ended;
/// then it lets nothing else be transmitted before an answer that is still outstanding has come or
/// can no longer come. That moment is one time stamp: the last transmission plus the horizon.
///
/// Owns no port and no clock: what it wants to transmit is fetched from it, and every entrance is
/// told the time (monotonic µs).
class Inquiry
{
public:
    enum class Role
    {
        Poll,      ///< two transmissions, each waits for the horizon
        Probe,     ///< one transmission, a short window; its late ACK harms no poll
        Command,   ///< three transmissions in short windows, then the horizon
        Broadcast, ///< three transmissions in short windows; nobody answers
    };

    static constexpr qint64 kNever = std::numeric_limits<qint64>::max();
    static constexpr qint64 kShortWindow = 120000;
    static constexpr qint64 kByteTime = 1042; ///< rounded up: ten bits at 9600 baud

    /// `answerWaitTime`: ms after a request in which its answer is waited for.
    explicit Inquiry(int answerWaitTime);

    /// Forgets everything, usual times included.
    void reset();
    /// The same, but for what may still come to the last transmission.
    void resume(qint64 now);

    /// Asks. The former inquiry must have ended; what it left outstanding is waited out first.
    /// `kind` and `isExtra` are told with its exchanges.
    void begin(const Request& request, Role role, qint64 now, ExchangeKind kind,
               bool isExtra = false);
    void bytesCame(const QByteArray& bytes, qint64 now);
    void deadlinePassed(qint64 now);

    /// The bytes to transmit now, empty for none; once.
    QByteArray takeTransmission();
    /// How it has ended; once.
    std::optional<InquiryEnd> takeEnd();
    /// The transmissions that are over, with what became of them; once. The last one is over when
    /// the next is made, for what comes until then belongs to it. `sentAt` is monotonic.
    std::vector<Exchange> takeExchanges() { return m_log.take(); }
    /// No more is transmitted, and nothing more comes: the last transmission is over.
    void endExchange() { m_log.end(); }
    /// What happened on the way, in words; once.
    QStringList takeNotes();
    /// When `deadlinePassed` is to be called, unless bytes come first.
    qint64 deadline() const;
    /// Whether the request has been transmitted.
    bool isTransmitted() const { return m_transmissions > 0; }
    const Request& request() const { return m_request; }

    /// State, transmissions, what is outstanding and until when: one line.
    QString describe() const;

private:
    enum class State
    {
        Idle,
        Clearing,   ///< the line is not free yet for the transmission
        Listening,  ///< the answer window is open
        Confirming, ///< an acknowledgement came; nothing may follow it
        Lingering,  ///< a command's windows are over; its answer may still come
    };

    qint64 horizon(qint64 now) const;
    qint64 flight(qint64 at) const;
    int allowedTransmissions() const;
    void clearLine(qint64 now);
    qint64 freeAt() const;
    void transmit(qint64 now);
    void listen(qint64 now);
    void judgeFrame(const QByteArray& body, qint64 now);
    void judgeSingleByte(char byte, qint64 now);
    void hearOutstanding(const QByteArray& bytes, qint64 now);
    void askForQuiet(qint64 now);
    void windowOver(qint64 now);
    void fail(InquiryEnd::Outcome outcome, qint64 now);
    void answered(const QByteArray& answer, qint64 flight, qint64 now);
    void end(InquiryEnd::Outcome outcome, const QByteArray& answer = {});
    void leaveOutstanding(qint64 flight, qint64 now);
    void noteLate(qint64 now);
    void note(const QString& text);

    const qint64 m_wait;
    AnswerTiming m_timing;
    qint64 m_lateUntil = 0; ///< until then the horizon is the longer one

    State m_state = State::Idle;
    Request m_request;
    Role m_role = Role::Poll;
    QByteArray m_frame;
    Hearing m_hearing;
    int m_transmissions = 0;
    qint64 m_lastTransmission = 0;
    qint64 m_windowEnd = 0;
    qint64 m_windowLimit = 0; ///< a frame that has begun is not waited for beyond it
    qint64 m_acknowledgedAt = 0;
    bool m_isUnclean = false;

    int m_outstanding = 0; ///< answers of the former inquiry that may still come
    qint64 m_outstandingUntil = 0;
    qint64 m_probeUntil = 0; ///< until then the ACK of a silent probe may come
    bool m_needsQuiet = false;
    qint64 m_quietSince = 0;
    qint64 m_quietBound = 0;

    ExchangeLog m_log;
    ExchangeKind m_kind = ExchangeKind::Status;
    bool m_isExtra = false;

    QByteArray m_toTransmit;
    std::optional<InquiryEnd> m_end;
    QStringList m_notes;
};
