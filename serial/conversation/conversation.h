#pragma once

#include "serial/conversation/busscan.h"
#include "serial/conversation/commandqueue.h"
#include "serial/conversation/event.h"
#include "serial/conversation/inquiry.h"
#include "serial/conversation/ldbmemory.h"
#include "serial/conversation/limitedlog.h"
#include "serial/conversation/pollschedule.h"
#include "serial/ldb/startplan.h"

#include <QByteArray>
#include <QMap>
#include <QSet>
#include <QString>

#include <vector>

/// The whole conversation with the bus: the scan, the polling cycle over the LDBs found, the queue
/// of commands, misses and losses. It decides everything and owns nothing that moves by itself: no
/// port, clock, timer or thread. Whoever hosts it tells it what came and what time it is, and after
/// each entrance does what the exits say: transmits, tells the events, and waits until the
/// deadline. Bytes that wait at the port are handed over before a deadline is told, so that a host
/// that was held up loses no answer. Bounded memory, whatever the line sends.
///
/// An LDB that was there before a scan and does not answer it stays in the list as a lost one,
/// until it is dismissed.
///
/// A turn of an LDB: status, name, firmware, then one queued command.
class Conversation
{
public:
    struct Moment
    {
        qint64 now = 0;  ///< monotonic µs
        qint64 wall = 0; ///< ms since 1970 UTC; given to the records of a round that begins
    };
    static constexpr qint64 kNever = Inquiry::kNever;

    /// `answerWaitTime`: ms, of a polling request. `forgivenMisses`: in a row; the next one is a
    /// loss.
    Conversation(int answerWaitTime, int forgivenMisses);

    // Entrances.

    /// Forgets everything but which LDBs there were, and scans.
    void start(const Moment& moment, const StartPlan& plan = {});
    void bytesCame(const QByteArray& bytes, const Moment& moment);
    /// Does nothing before `deadline()`.
    void deadlinePassed(const Moment& moment);
    /// Queues a command; `CommandDone` will tell its number. While stopped it is forgotten.
    void queueCommand(const Request& request, quint64 number);
    /// Scans anew when the LDB whose turn it is has had it.
    void requestScan() { m_scan.request(); }
    /// Polls one LDB alone, or all again for an empty id; an LDB not found changes nothing.
    void pollAlone(const QString& hexId) { m_schedule.setAlone(hexId); }
    /// The user gives up a lost LDB: it leaves the list, and is probed no more. One that is there
    /// stays.
    void dismiss(const QString& hexId) { m_dismissed.insert(hexId); }
    /// The LDB whose status is asked in between in long rounds; none for an empty id.
    void select(const QString& hexId) { m_selected = hexId; }
    /// While held, no address is probed in the background.
    void holdSearch(bool isHeld) { m_isSearchHeld = isHeld; }
    /// What comes is another bus: no LDB of before is expected there. While stopped.
    void forgetLdbs();
    /// The line is gone: a command that has been transmitted is done without an answer, those
    /// behind it are forgotten.
    void lineGone();

    // Exits.

    /// The bytes to transmit now, empty for none; once.
    QByteArray takeTransmission() { return m_inquiry.takeTransmission(); }
    /// Monotonic µs; `kNever` while there is nothing to wait for.
    qint64 deadline() const { return isStopped() ? kNever : m_inquiry.deadline(); }
    std::vector<Event> takeEvents();

    bool isStopped() const { return m_step == Step::Stopped; }
    /// State, LDB asked, what is outstanding and until when: one line.
    QString describe() const;

private:
    enum class Step
    {
        Stopped,
        Scan,
        Status,
        Name,
        Firmware,
        Command,
        LostProbe,       ///< is a lost LDB back?
        BackgroundProbe, ///< was an LDB missed in the scan?
    };

    static ExchangeKind exchangeKind(Step step, const Request& request);
    void ask(Step step, const Request& request, Inquiry::Role role, const Moment& moment);
    void settle(const Moment& moment);

    void dispatch(const Moment& moment);
    void scanNext(const Moment& moment);
    void pollNext(const Moment& moment);
    void commandNext(const Moment& moment);
    void searchNext(const Moment& moment);

    void inquiryEnded(const InquiryEnd& end, const Moment& moment);
    void scanEnded(const InquiryEnd& end, const Moment& moment);
    void statusEnded(const InquiryEnd& end, const Moment& moment);
    void nameEnded(const InquiryEnd& end, const Moment& moment);
    void firmwareEnded(const InquiryEnd& end, const Moment& moment);
    void commandEnded(const InquiryEnd& end, const Moment& moment);
    void lostProbeEnded(const InquiryEnd& end, const Moment& moment);
    void backgroundProbeEnded(const InquiryEnd& end, const Moment& moment);

    bool hear(const InquiryEnd& end);
    void hearOrMiss(const InquiryEnd& end, const Moment& moment);
    void finishCommand(const QByteArray& answer);
    void found(const QString& hexId);
    void rememberLdbs();
    void tellMissing(const Moment& moment);
    void dropDismissed();
    bool dropGhost(const InquiryEnd& end, const Moment& moment);
    void countMiss(const InquiryEnd& end, const Moment& moment);
    void tellRecord(const QString& name, const LdbStatus& status);
    void tellLost();
    void log(LimitedLog::Kind kind, const QString& text, const Moment& moment);
    void logEnd(const InquiryEnd& end, const Moment& moment);

    const int m_forgivenMisses;
    Step m_step = Step::Stopped;
    QString m_hexId; ///< the LDB whose turn it is
    QString m_selected;
    bool m_isSearchHeld = false;
    qint64 m_roundTime = 0;
    qint64 m_clockOffset = 0; ///< from monotonic µs to UTC µs, of this run
    int m_commandAsked = 0;   ///< inquiries for the command whose turn it is

    Inquiry m_inquiry;
    BusScan m_scan;
    PollSchedule m_schedule;
    LdbMemory m_memory;
    CommandQueue m_queue;
    LimitedLog m_log;
    std::vector<Event> m_events;

    /// What is kept of an LDB over a scan.
    struct Expected
    {
        QString name;
        bool wasLost = false;
    };
    QMap<QString, Expected> m_expected; ///< LDBs there were before the scan that is due or on
    QSet<QString> m_dismissed;          ///< to be dropped
};
