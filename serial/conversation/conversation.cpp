#include "serial/conversation/conversation.h"

#include "serial/ldb/microseconds.h"
#include "serial/wire/framecodec.h"
#include "serial/wire/hextext.h"

#include <utility>

namespace {

/// A text that has to be told twice is asked for once more, and again if the two differ.
constexpr int kTextInquiries = 3;
using microseconds::kMillisecond;

using Outcome = InquiryEnd::Outcome;

bool isAnswered(const InquiryEnd& end)
{
    return end.outcome == Outcome::Answered;
}

/// Whether something came that is no answer. The true one may still come: the next question must be
/// another one to the same LDB, which answers in order, or it would be taken for another LDB's.
bool mayStillCome(const InquiryEnd& end)
{
    return !isAnswered(end) && end.outcome != Outcome::Silent;
}

/// Whether an LDB said that it is there.
bool isPresent(const InquiryEnd& end)
{
    return isAnswered(end) && !end.answer.startsWith(framecodec::kNak);
}

QString outcomeText(Outcome outcome)
{
    constexpr const char* kTexts[] = {
        "answered", "no answer", "the answer was damaged", "an answer of another kind came",
        "the answer came among stray bytes and is not believed"}; // in the order of the outcomes
    return QLatin1String(kTexts[static_cast<int>(outcome)]);
}

} // namespace

Conversation::Conversation(int answerWaitTime, int forgivenMisses, const TurnPlan::Options& options)
    : m_roster(forgivenMisses, m_telling)
    , m_plan(options)
    , m_search(m_roster, m_telling)
    , m_inquiry(answerWaitTime)
{
}

void Conversation::start(const Moment& moment, const StartPlan& plan)
{
    m_telling.clear();
    m_queue.clear();
    if (plan.kind != StartPlan::Kind::Resume) {
        m_plan.clear();
    }
    m_clockOffset = moment.wall * kMillisecond - moment.now;
    if (m_search.begin(plan, moment)) {
        m_inquiry.reset();
    } else {
        m_inquiry.resume(moment.now);
    }
    dispatch(moment);
}

void Conversation::bytesCame(const QByteArray& bytes, const Moment& moment)
{
    if (!isStopped()) {
        m_inquiry.bytesCame(bytes, moment.now);
        settle(moment);
    }
}

void Conversation::deadlinePassed(const Moment& moment)
{
    if (!isStopped()) {
        m_inquiry.deadlinePassed(moment.now);
        settle(moment);
    }
}

void Conversation::queueCommand(const Request& request, quint64 number)
{
    if (!isStopped()) {
        m_queue.append(request, number);
        m_telling.tell(event::QueueLength{m_queue.size()});
    }
}

void Conversation::lineGone()
{
    if (m_step == Step::Command && (m_inquiry.isTransmitted() || m_timesAsked > 1)) {
        finishCommand({});
    }
    if (!m_queue.isEmpty()) {
        m_queue.clear();
        m_telling.tell(event::QueueLength{0});
    }
    stop();
}

void Conversation::stop()
{
    m_inquiry.endExchange();
    m_step = Step::Stopped;
}

std::vector<Event> Conversation::takeEvents()
{
    for (Exchange& exchange : m_inquiry.takeExchanges()) {
        exchange.sentAt += m_clockOffset;
        m_telling.tell(std::move(exchange));
    }
    return m_telling.take();
}

ExchangeKind Conversation::exchangeKind(Step step, const Request& request)
{
    switch (step) {
    case Step::Status:
    case Step::Extra:
        return ExchangeKind::Status;
    case Step::Name:
    case Step::ExtraName:
        return ExchangeKind::Name;
    case Step::Firmware:
        return ExchangeKind::Firmware;
    case Step::Command:
        return request.exchangeKind();
    default:
        return ExchangeKind::Probe;
    }
}

void Conversation::ask(Step step, const Request& request, Inquiry::Role role, const Moment& moment)
{
    const bool isBetween = step == Step::Extra ||
                           (step == Step::Status && m_turn.kind == PollSchedule::Turn::Kind::Again);
    m_step = step;
    m_askedAt = moment.now;
    m_inquiry.begin(request, role, moment.now, exchangeKind(step, request),
                    isBetween && m_roster.isExtra(request.hexId));
}

/// Goes on when the inquiry has ended.
void Conversation::settle(const Moment& moment)
{
    for (const QString& note : m_inquiry.takeNotes()) {
        m_telling.log(LimitedLog::Kind::Exchange,
                      m_inquiry.request().text() + QStringLiteral(": ") + note, moment.now);
    }
    if (const auto end = m_inquiry.takeEnd()) {
        inquiryEnded(*end, moment);
    }
}

/// Goes on with this, or first asks the selected LDB.
void Conversation::proceed(Step next, const Moment& moment)
{
    if (isExtraDue(moment)) {
        m_behindExtra = next;
        ask(Step::Extra, requests::status(m_plan.selected()), Inquiry::Role::Poll, moment);
        return;
    }
    switch (next) {
    case Step::Name:
        ask(next, requests::name(m_turn.hexId), Inquiry::Role::Poll, moment);
        break;
    case Step::Firmware:
        ask(next, requests::firmware(m_turn.hexId), Inquiry::Role::Poll, moment);
        break;
    case Step::Command:
        commandNext(moment);
        break;
    case Step::Background:
        backgroundNext(moment);
        break;
    default:
        dispatch(moment);
        break;
    }
}

bool Conversation::isExtraDue(const Moment& moment) const
{
    return m_plan.isSelectedDue(moment.now) && !m_search.isScanDue() && !m_roster.isOneAlone() &&
           m_roster.isPolled(m_plan.selected());
}

void Conversation::dispatch(const Moment& moment)
{
    if (!m_search.isScanDue()) {
        m_roster.updateList();
    }
    if (const auto hexId = m_search.nextBeforeTurn(moment)) {
        ask(Step::Search, requests::poll(*hexId), Inquiry::Role::Probe, moment);
    } else if (m_roster.isEmpty()) {
        stop();
        m_telling.tell(event::Stopped{});
    } else {
        pollNext(moment);
    }
}

void Conversation::pollNext(const Moment& moment)
{
    m_turn = m_roster.nextTurn(moment);
    if (m_turn.beginsRound) {
        m_search.countRound();
        m_plan.countRound();
    }
    m_plan.judge(m_roster.polled());
    if (const auto usual = m_plan.usualTurn(); usual && m_turn.beginsRound) {
        m_telling.tell(event::UsualTurn{*usual});
    }
    m_questions = {};
    switch (m_turn.kind) {
    case PollSchedule::Turn::Kind::Poll:
        m_questions =
            m_plan.questions(m_roster.position(), m_roster.memory().isNameDue(m_turn.hexId));
        break;
    case PollSchedule::Turn::Kind::Probe:
        m_questions = {true, true}; // it may be another one
        ask(Step::LostProbe, requests::poll(m_turn.hexId), Inquiry::Role::Probe, moment);
        return;
    case PollSchedule::Turn::Kind::Again:
        break;
    }
    ask(Step::Status, requests::status(m_turn.hexId), Inquiry::Role::Poll, moment);
}

void Conversation::commandNext(const Moment& moment)
{
    if (m_queue.isEmpty()) {
        backgroundNext(moment);
        return;
    }
    m_timesAsked = 1;
    const Request& request = m_queue.front().request;
    ask(Step::Command, request,
        request.isBroadcast() ? Inquiry::Role::Broadcast : Inquiry::Role::Command, moment);
}

void Conversation::backgroundNext(const Moment& moment)
{
    const auto hexId = m_queue.isEmpty() ? m_search.nextInBackground() : std::nullopt;
    if (hexId) {
        ask(Step::Search, requests::poll(*hexId), Inquiry::Role::Probe, moment);
    } else {
        dispatch(moment);
    }
}

void Conversation::inquiryEnded(const InquiryEnd& end, const Moment& moment)
{
    const bool isPoll = m_step == Step::Status || m_step == Step::Name || m_step == Step::Firmware;
    if (end.isUnclean || (isPoll && end.transmissions > 1)) {
        m_search.noteUnclean();
    }
    if (isPoll && isAnswered(end) && end.transmissions == 1) {
        m_plan.took(m_inquiry.request().answer, moment.now - m_askedAt);
    }
    switch (m_step) {
    case Step::Search:
        searchEnded(end, moment);
        break;
    case Step::Status:
        statusEnded(end, moment);
        break;
    case Step::Name:
        nameEnded(end, moment);
        break;
    case Step::Firmware:
        firmwareEnded(end, moment);
        break;
    case Step::Command:
        commandEnded(end, moment);
        break;
    case Step::LostProbe:
        lostProbeEnded(end, moment);
        break;
    case Step::Extra:
        extraEnded(end, moment);
        break;
    case Step::ExtraName:
        takeIdentity(end, moment);
        goOnBehindExtra(moment);
        break;
    case Step::Stopped:
    case Step::Background:
    case Step::Dispatch:
        break;
    }
}

void Conversation::searchEnded(const InquiryEnd& end, const Moment& moment)
{
    const QString hexId = asked();
    switch (m_search.probed(hexId, isPresent(end), moment)) {
    case LdbSearch::Then::Dispatch:
        proceed(Step::Dispatch, moment);
        break;
    case LdbSearch::Then::EndTurn:
        proceed(Step::Command, moment);
        break;
    case LdbSearch::Then::Poll:
        // Its first value counts; who it is comes with its turn.
        m_turn = {PollSchedule::Turn::Kind::Poll, hexId};
        m_questions = {};
        ask(Step::Status, requests::status(hexId), Inquiry::Role::Poll, moment);
        break;
    }
}

void Conversation::statusEnded(const InquiryEnd& end, const Moment& moment)
{
    const bool isSilent = end.outcome == Outcome::Silent;
    if (m_roster.prove(asked(), isSilent, moment) == LdbRoster::Proof::Ghost) {
        m_search.noteUnclean();
        proceed(Step::Command, moment);
        return;
    }
    takeStatus(end, m_turn.kind != PollSchedule::Turn::Kind::Again, moment);
    // An LDB that has been dismissed, or has not proved that it is back, is asked nothing more.
    const bool isGone = m_roster.isLost(m_turn.hexId) || (isSilent && m_plan.isSparse());
    if ((m_questions.name || mayStillCome(end)) && !isGone && !isSilent) {
        m_timesAsked = 1;
        proceed(Step::Name, moment);
    } else if (m_questions.firmware && !isGone) {
        m_timesAsked = 1;
        proceed(Step::Firmware, moment);
    } else {
        proceed(Step::Command, moment);
    }
}

void Conversation::takeStatus(const InquiryEnd& end, bool isOwnTurn, const Moment& moment)
{
    const QString hexId = asked();
    m_plan.statusEnded(hexId, moment.now);
    if (isAnswered(end)) {
        m_roster.heardStatus(hexId, decodeLdbStatus(end.answer).status, isOwnTurn, moment);
        return;
    }
    if (isOwnTurn) {
        m_roster.owes(hexId);
    }
    miss(end, moment);
}

void Conversation::extraEnded(const InquiryEnd& end, const Moment& moment)
{
    takeStatus(end, false, moment);
    if (mayStillCome(end) && !m_roster.isLost(asked())) {
        m_timesAsked = 1;
        ask(Step::ExtraName, requests::name(asked()), Inquiry::Role::Poll, moment);
    } else {
        goOnBehindExtra(moment);
    }
}

void Conversation::goOnBehindExtra(const Moment& moment)
{
    const bool isOfTurn = m_behindExtra == Step::Name || m_behindExtra == Step::Firmware;
    const bool isGone = isOfTurn && m_roster.isLost(m_turn.hexId);
    proceed(isGone ? Step::Command : m_behindExtra, moment);
}

void Conversation::nameEnded(const InquiryEnd& end, const Moment& moment)
{
    if (takeIdentity(end, moment)) {
        proceed(Step::Name, moment);
    } else if (m_questions.firmware && !m_roster.isLost(m_turn.hexId)) {
        m_timesAsked = 1;
        proceed(Step::Firmware, moment);
    } else {
        proceed(Step::Command, moment);
    }
}

void Conversation::firmwareEnded(const InquiryEnd& end, const Moment& moment)
{
    proceed(takeIdentity(end, moment) ? Step::Firmware : Step::Command, moment);
}

/// A name or firmware; whether it is to be asked for again at once.
bool Conversation::takeIdentity(const InquiryEnd& end, const Moment& moment)
{
    if (!isAnswered(end)) {
        miss(end, moment);
        return false;
    }
    m_roster.heard(asked());
    return !hear(end) && m_plan.isSparse() && ++m_timesAsked <= kTextInquiries;
}

void Conversation::commandEnded(const InquiryEnd& end, const Moment& moment)
{
    if (isPresent(end)) {
        m_roster.heard(asked());
    }
    const bool isTaken = isAnswered(end) && hear(end);
    if (isAnswered(end) && !isTaken && m_timesAsked < kTextInquiries) {
        ++m_timesAsked;
        const Request request = m_queue.front().request;
        ask(Step::Command, request, Inquiry::Role::Command, moment);
        return;
    }
    if (!isAnswered(end) && !m_queue.front().request.isBroadcast()) {
        logEnd(end, moment);
    }
    finishCommand(isTaken ? end.answer : QByteArray());
    proceed(Step::Background, moment);
}

/// Names and firmware ids, which are kept for long, must be told twice; settings name their LDB, so
/// once is enough.
bool Conversation::hear(const InquiryEnd& end)
{
    const Request& request = m_inquiry.request();
    LdbMemory& memory = m_roster.memory();
    switch (request.answer) {
    case AnswerShape::Name: {
        const QString name = hextext::toText(end.answer);
        const bool isTaken = memory.hearName(request.hexId, name);
        if (isTaken) {
            m_telling.tell(event::NameTold{request.hexId, name});
        }
        return isTaken;
    }
    case AnswerShape::Firmware:
        return memory.hearFirmware(request.hexId, decodeFirmwareId(end.answer).value_or(QString()));
    case AnswerShape::Settings:
        if (const auto settings = decodeLdbSettings(end.answer, request.hexId)) {
            memory.takeName(request.hexId, settings->name);
            m_telling.tell(event::NameTold{request.hexId, settings->name});
        }
        return true;
    default:
        return true;
    }
}

void Conversation::finishCommand(const QByteArray& answer)
{
    CommandQueue::Entry entry = m_queue.takeFront();
    m_telling.tell(event::CommandDone{std::move(entry.numbers), answer});
    m_telling.tell(event::QueueLength{m_queue.size()});
}

void Conversation::lostProbeEnded(const InquiryEnd& end, const Moment& moment)
{
    if (isPresent(end)) {
        // On probation: it may have been somebody's stray byte.
        ask(Step::Status, requests::status(m_turn.hexId), Inquiry::Role::Poll, moment);
    } else {
        m_roster.tellLost(m_turn.hexId);
        proceed(Step::Command, moment);
    }
}

void Conversation::miss(const InquiryEnd& end, const Moment& moment)
{
    logEnd(end, moment);
    if (end.outcome == Outcome::Unbelieved) {
        return;
    }
    m_roster.missed(asked(), end.outcome == Outcome::Silent, moment);
    if (m_plan.isLong() && m_roster.isPolled(asked())) {
        m_roster.askAgain(asked());
    }
}

void Conversation::logEnd(const InquiryEnd& end, const Moment& moment)
{
    m_telling.log(LimitedLog::Kind::Exchange,
                  QStringLiteral("%1: %2 (transmission %3)")
                      .arg(m_inquiry.request().text(), outcomeText(end.outcome))
                      .arg(end.transmissions),
                  moment.now);
}

QString Conversation::describe() const
{
    // In the order of the steps.
    static const char* const kSteps[] = {"stopped",      "search",     "status",     "name",
                                         "firmware",     "command",    "background", "lost probe",
                                         "extra status", "extra name", "dispatch"};
    return QStringLiteral("%1 of %2; %3; %4 found, %5 commands waiting")
        .arg(QLatin1String(kSteps[static_cast<int>(m_step)]), asked(), m_inquiry.describe())
        .arg(m_roster.all().size())
        .arg(m_queue.size());
}
