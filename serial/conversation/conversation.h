#pragma once

#include "serial/conversation/commandqueue.h"
#include "serial/conversation/event.h"
#include "serial/conversation/inquiry.h"
#include "serial/conversation/ldbroster.h"
#include "serial/conversation/ldbsearch.h"
#include "serial/conversation/telling.h"
#include "serial/conversation/turnplan.h"
#include "serial/ldb/startplan.h"

#include <QByteArray>
#include <QString>

#include <vector>

/// The whole conversation with the bus: the scan, the polling cycle over the LDBs found, the queue
/// of commands, misses and losses. It decides everything and owns nothing that moves by itself: no
/// port, clock, timer or thread. Whoever hosts it tells it what came and what time it is, and after
/// each entrance does what the exits say: transmits, tells the events, and waits until the
/// deadline. Bytes that wait at the port are handed over before a deadline is told, so that a host
/// that was held up loses no answer. Bounded memory, whatever the line sends.
///
/// A turn of an LDB: status, name and firmware as the plan of the turns has it, then one queued
/// command, or one address of the search in the background.
class Conversation
{
public:
    using Moment = LdbRoster::Moment;
    static constexpr qint64 kNever = Inquiry::kNever;

    /// `answerWaitTime`: ms, of a polling request. `forgivenMisses`: in a row; the next one is a
    /// loss.
    Conversation(int answerWaitTime, int forgivenMisses, const TurnPlan::Options& options = {});
    Conversation(const Conversation&) = delete;
    Conversation& operator=(const Conversation&) = delete;
    ~Conversation() = default;

    // Entrances.

    /// Begins a run as the plan has it: forgets everything but which LDBs there were, and scans;
    /// or lists the known ones and probes those first; or goes on as the last run was, with a
    /// search that had not ended, but without its commands.
    void start(const Moment& moment, const StartPlan& plan = {});
    void bytesCame(const QByteArray& bytes, const Moment& moment);
    /// Does nothing before `deadline()`.
    void deadlinePassed(const Moment& moment);
    /// Queues a command; `CommandDone` will tell its number. While stopped it is forgotten.
    void queueCommand(const Request& request, quint64 number);
    /// Scans anew when the LDB whose turn it is has had it.
    void requestScan() { m_search.requestScan(); }
    /// Polls one LDB alone, or all again for an empty id; an LDB not found changes nothing.
    void pollAlone(const QString& hexId) { m_roster.pollAlone(hexId); }
    /// The LDB whose status is asked in between in long rounds; none for an empty id.
    void select(const QString& hexId) { m_plan.select(hexId); }
    /// While held, no address is probed in the background.
    void holdSearch(bool isHeld) { m_search.hold(isHeld); }
    /// The user gives up a lost LDB: it leaves the list until it answers. One that is there stays.
    void dismiss(const QString& hexId) { m_roster.dismiss(hexId); }
    /// It is known by now which LDBs the bus has, beside those that answer: those of them that do
    /// not, and no others, are lost; behind the scan, if one is due or on. No loss is told of them.
    void expect(const std::vector<KnownLdb>& ldbs) { m_roster.expect(ldbs); }
    /// The next run is on another bus, where no former LDB is expected. Only while stopped.
    void forgetLdbs() { m_roster.forget(); }
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
        Search, ///< is an LDB at this address?
        Status,
        Name,
        Firmware,
        Command,
        Background, ///< what the search asks behind a turn
        LostProbe,  ///< is a lost LDB back?
        Extra,      ///< the status of the selected LDB, between two other steps
        ExtraName,  ///< its name, behind a status that was no clean answer
        Dispatch,   ///< the next turn, or what the search asks before it
    };

    static ExchangeKind exchangeKind(Step step, const Request& request);
    void ask(Step step, const Request& request, Inquiry::Role role, const Moment& moment);
    void settle(const Moment& moment);
    const QString& asked() const { return m_inquiry.request().hexId; }

    void proceed(Step next, const Moment& moment);
    bool isExtraDue(const Moment& moment) const;
    void dispatch(const Moment& moment);
    void pollNext(const Moment& moment);
    void commandNext(const Moment& moment);
    void backgroundNext(const Moment& moment);

    void inquiryEnded(const InquiryEnd& end, const Moment& moment);
    void searchEnded(const InquiryEnd& end, const Moment& moment);
    void statusEnded(const InquiryEnd& end, const Moment& moment);
    void extraEnded(const InquiryEnd& end, const Moment& moment);
    void goOnBehindExtra(const Moment& moment);
    void nameEnded(const InquiryEnd& end, const Moment& moment);
    void firmwareEnded(const InquiryEnd& end, const Moment& moment);
    void commandEnded(const InquiryEnd& end, const Moment& moment);
    void lostProbeEnded(const InquiryEnd& end, const Moment& moment);

    void takeStatus(const InquiryEnd& end, bool isOwnTurn, const Moment& moment);
    bool takeIdentity(const InquiryEnd& end, const Moment& moment);
    bool hear(const InquiryEnd& end);
    void finishCommand(const QByteArray& answer);
    void stop();
    void miss(const InquiryEnd& end, const Moment& moment);
    void logEnd(const InquiryEnd& end, const Moment& moment);

    Telling m_telling;
    LdbRoster m_roster;
    TurnPlan m_plan;
    LdbSearch m_search;
    CommandQueue m_queue;
    Inquiry m_inquiry;

    Step m_step = Step::Stopped;
    Step m_behindExtra = Step::Dispatch;
    PollSchedule::Turn m_turn;
    TurnPlan::Questions m_questions; ///< of the turn
    int m_timesAsked = 0;            ///< inquiries for one command, name or firmware
    qint64 m_askedAt = 0;
    qint64 m_clockOffset = 0; ///< from monotonic to UTC µs, of this run
};
