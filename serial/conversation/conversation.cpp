#include "serial/conversation/conversation.h"

#include "serial/wire/framecodec.h"
#include "serial/wire/hextext.h"

#include <utility>

namespace {

/// A text that has to be told twice is asked for once more, and again if the two differ.
constexpr int kCommandInquiries = 3;
constexpr qint64 kMicrosecondsPerMillisecond = 1000;

using Outcome = InquiryEnd::Outcome;

bool isAnswered(const InquiryEnd& end)
{
    return end.outcome == Outcome::Answered;
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

Conversation::Conversation(int answerWaitTime, int forgivenMisses)
    : m_forgivenMisses(forgivenMisses)
    , m_inquiry(answerWaitTime)
{
}

void Conversation::start(const Moment& moment, const StartPlan& /*plan*/)
{
    rememberLdbs();
    m_inquiry.reset();
    m_scan.clear();
    m_schedule.clear();
    m_memory.clear();
    m_queue.clear();
    m_hexId.clear();
    m_events.clear();
    m_clockOffset = moment.wall * kMicrosecondsPerMillisecond - moment.now;
    m_scan.request();
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
        m_events.emplace_back(event::QueueLength{m_queue.size()});
    }
}

void Conversation::lineGone()
{
    if (m_step == Step::Command && (m_inquiry.isTransmitted() || m_commandAsked > 1)) {
        finishCommand({});
    }
    if (!m_queue.isEmpty()) {
        m_queue.clear();
        m_events.emplace_back(event::QueueLength{0});
    }
    m_inquiry.endExchange();
    m_step = Step::Stopped;
}

std::vector<Event> Conversation::takeEvents()
{
    for (Exchange& exchange : m_inquiry.takeExchanges()) {
        exchange.sentAt += m_clockOffset;
        m_events.emplace_back(std::move(exchange));
    }
    return std::exchange(m_events, {});
}

ExchangeKind Conversation::exchangeKind(Step step, const Request& request)
{
    switch (step) {
    case Step::Status:
        return ExchangeKind::Status;
    case Step::Name:
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
    m_step = step;
    m_inquiry.begin(request, role, moment.now, exchangeKind(step, request));
}

/// Goes on when the inquiry has ended.
void Conversation::settle(const Moment& moment)
{
    for (const QString& note : m_inquiry.takeNotes()) {
        log(LimitedLog::Kind::Exchange, m_inquiry.request().text() + QStringLiteral(": ") + note,
            moment);
    }
    if (const auto end = m_inquiry.takeEnd()) {
        inquiryEnded(*end, moment);
    }
}

void Conversation::dispatch(const Moment& moment)
{
    dropDismissed();
    if (m_scan.isDue()) {
        scanNext(moment);
    } else if (m_schedule.isEmpty()) {
        m_inquiry.endExchange();
        m_step = Step::Stopped;
        m_events.emplace_back(event::Stopped{});
    } else {
        pollNext(moment);
    }
}

void Conversation::scanNext(const Moment& moment)
{
    if (m_scan.isRunning()) {
        m_events.emplace_back(event::ScanProgress{m_scan.address(), m_schedule.found().size()});
    } else {
        m_scan.begin();
        rememberLdbs();
        m_schedule.clear();
        m_memory.clear();
        m_events.emplace_back(event::ListChange{});
        m_events.emplace_back(event::ScanState{true});
    }
    if (const auto address = m_scan.next()) {
        m_hexId = busaddress::toHexId(*address);
        ask(Step::Scan, requests::poll(m_hexId), Inquiry::Role::Probe, moment);
        return;
    }
    tellMissing(moment);
    m_hexId.clear();
    m_schedule.restart();
    m_events.emplace_back(event::ScanState{false});
    dispatch(moment);
}

void Conversation::pollNext(const Moment& moment)
{
    const PollSchedule::Turn turn = m_schedule.next();
    if (turn.endsRound) {
        m_events.emplace_back(event::RoundEnded{});
    }
    if (turn.beginsRound) {
        m_roundTime = moment.wall;
        m_events.emplace_back(event::RoundBegun{m_roundTime});
        m_scan.countRound();
    }
    m_hexId = turn.hexId;
    if (turn.kind == PollSchedule::Turn::Kind::Probe) {
        ask(Step::LostProbe, requests::poll(m_hexId), Inquiry::Role::Probe, moment);
    } else {
        ask(Step::Status, requests::status(m_hexId), Inquiry::Role::Poll, moment);
    }
}

void Conversation::commandNext(const Moment& moment)
{
    if (m_queue.isEmpty()) {
        searchNext(moment);
        return;
    }
    m_commandAsked = 1;
    const Request& request = m_queue.front().request;
    ask(Step::Command, request,
        request.isBroadcast() ? Inquiry::Role::Broadcast : Inquiry::Role::Command, moment);
}

void Conversation::searchNext(const Moment& moment)
{
    if (m_queue.isEmpty() && m_schedule.alone().isEmpty() && !m_scan.isDue()) {
        while (const auto address = m_scan.nextInBackground()) {
            const QString hexId = busaddress::toHexId(*address);
            if (!m_schedule.found().contains(hexId)) {
                m_hexId = hexId;
                ask(Step::BackgroundProbe, requests::poll(hexId), Inquiry::Role::Probe, moment);
                return;
            }
        }
    }
    dispatch(moment);
}

void Conversation::inquiryEnded(const InquiryEnd& end, const Moment& moment)
{
    const bool isPoll = m_step == Step::Status || m_step == Step::Name || m_step == Step::Firmware;
    if (end.isUnclean || (isPoll && end.transmissions > 1)) {
        m_scan.noteUnclean();
    }
    // In the order of the steps.
    using Handler = void (Conversation::*)(const InquiryEnd&, const Moment&);
    constexpr Handler kHandlers[] = {nullptr,
                                     &Conversation::scanEnded,
                                     &Conversation::statusEnded,
                                     &Conversation::nameEnded,
                                     &Conversation::firmwareEnded,
                                     &Conversation::commandEnded,
                                     &Conversation::lostProbeEnded,
                                     &Conversation::backgroundProbeEnded};
    if (const Handler handler = kHandlers[static_cast<int>(m_step)]) {
        (this->*handler)(end, moment);
    }
}

void Conversation::scanEnded(const InquiryEnd& end, const Moment& moment)
{
    if (isPresent(end)) {
        found(m_hexId);
    }
    scanNext(moment);
}

void Conversation::statusEnded(const InquiryEnd& end, const Moment& moment)
{
    if (dropGhost(end, moment)) {
        return;
    }
    switch (end.outcome) {
    case Outcome::Answered:
        m_memory.forgetMisses(m_hexId);
        m_schedule.markPresent(m_hexId);
        tellRecord(m_memory.name(m_hexId), decodeLdbStatus(end.answer).status);
        break;
    case Outcome::Unbelieved:
        logEnd(end, moment);
        break;
    default:
        countMiss(end, moment);
        break;
    }
    if (m_schedule.isLost(m_hexId)) {
        // Nothing more is asked of an LDB that has been given up, or has not proved that it is
        // back.
        commandNext(moment);
    } else if (end.outcome == Outcome::Silent) {
        ask(Step::Firmware, requests::firmware(m_hexId), Inquiry::Role::Poll, moment);
    } else {
        ask(Step::Name, requests::name(m_hexId), Inquiry::Role::Poll, moment);
    }
}

/// The one whose first status request meets silence was somebody else's late answer to the scan.
bool Conversation::dropGhost(const InquiryEnd& end, const Moment& moment)
{
    if (m_memory.isProven(m_hexId)) {
        return false;
    }
    if (end.outcome != Outcome::Silent) {
        m_memory.setProven(m_hexId);
        return false;
    }
    log(LimitedLog::Kind::Lists,
        QStringLiteral("%1 was found but never answered: taken from the list").arg(m_hexId),
        moment);
    m_scan.noteUnclean();
    m_schedule.remove(m_hexId);
    m_memory.forget(m_hexId);
    m_events.emplace_back(event::ListChange{m_schedule.found()});
    commandNext(moment);
    return true;
}

void Conversation::nameEnded(const InquiryEnd& end, const Moment& moment)
{
    hearOrMiss(end, moment);
    if (m_schedule.isLost(m_hexId)) {
        commandNext(moment);
    } else {
        ask(Step::Firmware, requests::firmware(m_hexId), Inquiry::Role::Poll, moment);
    }
}

void Conversation::firmwareEnded(const InquiryEnd& end, const Moment& moment)
{
    hearOrMiss(end, moment);
    commandNext(moment);
}

void Conversation::hearOrMiss(const InquiryEnd& end, const Moment& moment)
{
    if (isAnswered(end)) {
        m_memory.forgetMisses(m_hexId);
        hear(end);
    } else {
        countMiss(end, moment);
    }
}

void Conversation::commandEnded(const InquiryEnd& end, const Moment& moment)
{
    if (isPresent(end)) {
        m_memory.forgetMisses(m_queue.front().request.hexId);
    }
    const bool isTaken = isAnswered(end) && hear(end);
    if (isAnswered(end) && !isTaken && m_commandAsked < kCommandInquiries) {
        ++m_commandAsked;
        const Request request = m_queue.front().request;
        ask(Step::Command, request, Inquiry::Role::Command, moment);
        return;
    }
    if (!isAnswered(end) && !m_queue.front().request.isBroadcast()) {
        logEnd(end, moment);
    }
    finishCommand(isTaken ? end.answer : QByteArray());
    searchNext(moment);
}

/// What is kept for long is taken when the LDB tells it twice.
bool Conversation::hear(const InquiryEnd& end)
{
    const Request& request = m_inquiry.request();
    switch (request.answer) {
    case AnswerShape::Name:
        return m_memory.hearName(request.hexId, hextext::toText(end.answer));
    case AnswerShape::Firmware:
        return m_memory.hearFirmware(request.hexId,
                                     decodeFirmwareId(end.answer).value_or(QString()));
    default:
        return true;
    }
}

void Conversation::finishCommand(const QByteArray& answer)
{
    CommandQueue::Entry entry = m_queue.takeFront();
    m_events.emplace_back(event::CommandDone{std::move(entry.numbers), answer});
    m_events.emplace_back(event::QueueLength{m_queue.size()});
}

void Conversation::lostProbeEnded(const InquiryEnd& end, const Moment& moment)
{
    if (isPresent(end)) {
        // On probation: it may have been somebody's stray byte.
        ask(Step::Status, requests::status(m_hexId), Inquiry::Role::Poll, moment);
    } else {
        tellLost();
        commandNext(moment);
    }
}

void Conversation::backgroundProbeEnded(const InquiryEnd& end, const Moment& moment)
{
    if (isPresent(end)) {
        found(m_hexId);
        log(LimitedLog::Kind::Lists, QStringLiteral("%1 was missed by the scan").arg(m_hexId),
            moment);
    }
    dispatch(moment);
}

void Conversation::found(const QString& hexId)
{
    m_schedule.add(hexId);
    m_events.emplace_back(event::ListChange{m_schedule.found()});
}

/// Before the list is cleared. One that has never answered a poll may never have been there.
void Conversation::rememberLdbs()
{
    for (const QString& hexId : m_schedule.found()) {
        if (m_memory.isProven(hexId)) {
            m_expected.insert(hexId, {m_memory.name(hexId), m_schedule.isLost(hexId)});
        }
    }
}

/// Those that were there before and did not answer the scan: lost, and probed like every lost one.
void Conversation::tellMissing(const Moment& moment)
{
    dropDismissed();
    for (const QString& hexId : m_schedule.found()) {
        m_expected.remove(hexId);
    }
    m_roundTime = moment.wall;
    const auto expected = std::exchange(m_expected, {});
    for (auto ldb = expected.begin(); ldb != expected.end(); ++ldb) {
        m_hexId = ldb.key();
        m_schedule.add(m_hexId);
        m_schedule.markLost(m_hexId);
        m_memory.recall(m_hexId, ldb->name);
        m_events.emplace_back(event::ListChange{m_schedule.found()});
        tellLost();
        if (!ldb->wasLost) {
            m_events.emplace_back(event::Loss{m_hexId});
        }
    }
}

void Conversation::dropDismissed()
{
    for (const QString& hexId : std::exchange(m_dismissed, {})) {
        m_expected.remove(hexId);
        if (m_schedule.isLost(hexId)) {
            m_schedule.remove(hexId);
            m_memory.forget(hexId);
            m_events.emplace_back(event::ListChange{m_schedule.found()});
        }
    }
}

void Conversation::forgetLdbs()
{
    m_schedule.clear();
    m_memory.clear();
    m_expected.clear();
}

/// Every failure of a polling answer, but for a sound one that is not believed.
void Conversation::countMiss(const InquiryEnd& end, const Moment& moment)
{
    logEnd(end, moment);
    if (end.outcome == Outcome::Unbelieved) {
        return;
    }
    if (m_schedule.isLost(m_hexId)) {
        tellLost();
        return;
    }
    const int misses = m_memory.countMiss(m_hexId);
    log(LimitedLog::Kind::Miss, QStringLiteral("%1: miss %2 in a row").arg(m_hexId).arg(misses),
        moment);
    if (misses > m_forgivenMisses) {
        m_schedule.markLost(m_hexId);
        // Behind the record: who is told of the loss knows of whom.
        tellLost();
        m_events.emplace_back(event::Loss{m_hexId});
    }
}

void Conversation::tellLost()
{
    tellRecord(m_memory.name(m_hexId), LdbStatus::disconnected());
}

void Conversation::tellRecord(const QString& name, const LdbStatus& status)
{
    m_events.emplace_back(event::Record{m_hexId, name, status, m_roundTime, false});
    if (m_memory.updateState(m_hexId, status.state)) {
        m_events.emplace_back(event::StateChange{m_hexId, status.state});
    }
}

void Conversation::logEnd(const InquiryEnd& end, const Moment& moment)
{
    log(LimitedLog::Kind::Exchange,
        QStringLiteral("%1: %2 (transmission %3)")
            .arg(m_inquiry.request().text(), outcomeText(end.outcome))
            .arg(end.transmissions),
        moment);
}

void Conversation::log(LimitedLog::Kind kind, const QString& text, const Moment& moment)
{
    for (const QString& line : m_log.admit(kind, text, moment.now)) {
        m_events.emplace_back(event::Diagnostic{line});
    }
}

QString Conversation::describe() const
{
    static const char* const kSteps[] = {"stopped",  "scan",    "status",     "name",
                                         "firmware", "command", "lost probe", "background probe"};
    return QStringLiteral("%1 of %2; %3; %4 found, %5 commands waiting")
        .arg(QLatin1String(kSteps[static_cast<int>(m_step)]), m_hexId, m_inquiry.describe())
        .arg(m_schedule.found().size())
        .arg(m_queue.size());
}
