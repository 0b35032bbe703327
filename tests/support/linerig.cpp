#include "tests/support/linerig.h"

#include "serial/wire/framecodec.h"
#include "serial/wire/hextext.h"
#include "simulator/board/answerencoder.h"

#include <algorithm>

namespace {

constexpr int kComplaints = 5;
constexpr int kExchangesInComplaint = 14;
constexpr qint64 kMicrosecondsPerMillisecond = 1000;
constexpr int kLongestDelay = 60;
constexpr int kKept = 4096; ///< transmissions of which is known what came

int addressOf(const QString& hexId)
{
    return hexId.toInt(nullptr, 16);
}

bool isPoll(const QByteArray& frame)
{
    return frame.mid(5, 6) == "737803" || frame.mid(5, 6) == "737202" ||
           frame.mid(5, 6) == "737804";
}

LineOptions optionsOf(const LineRig::Setup& setup)
{
    LineOptions options;
    options.kind = setup.kind;
    options.seed = setup.seed;
    return options;
}

} // namespace

LineRig::LineRig(const Setup& setup)
    : m_setup(setup)
    , m_boards(setup.addresses)
    , m_line(optionsOf(setup), {}, m_boards)
    , m_conversation(setup.answerWaitTime, setup.forgivenMisses, setup.turns)
    , m_chance(setup.seed + 1)
{
}

void LineRig::start(const StartPlan& plan)
{
    m_conversation.start(moment(), plan);
    pump();
}

void LineRig::cut()
{
    m_conversation.lineGone();
    pump();
}

void LineRig::scan()
{
    if (m_conversation.isStopped()) {
        start({});
    } else {
        m_conversation.requestScan();
    }
    pump();
    runUntil([this] { return m_isScanning; }, 60000000);
    runUntil([this] { return !m_isScanning; }, 120000000);
}

void LineRig::run(qint64 microseconds)
{
    runUntil([] { return false; }, microseconds);
}

bool LineRig::runUntil(const std::function<bool()>& condition, qint64 microseconds)
{
    const qint64 end = m_now + microseconds;
    if (m_commandEvery > 0 && m_nextCommand == Line::kNever) {
        m_nextCommand = m_now + m_chance.waiting(static_cast<double>(m_commandEvery));
    }
    while (!condition()) {
        const qint64 next = std::min({m_conversation.deadline(), m_nextCommand, nextArrival()});
        if (next > end) {
            m_now = end;
            return condition();
        }
        step(std::max(next, m_now));
    }
    return true;
}

/// When the host next gets something, unless it transmits something.
qint64 LineRig::nextArrival() const
{
    const qint64 arrival = m_line.nextArrival(m_setup.together);
    const qint64 tick = m_setup.adapterTick;
    return tick == 0 || arrival == Line::kNever ? arrival : (arrival + tick - 1) / tick * tick;
}

QByteArray LineRig::takeArrived()
{
    if (m_setup.adapterTick > 0 && m_now % m_setup.adapterTick != 0) {
        return {};
    }
    return m_line.takeArrived(m_now);
}

void LineRig::step(qint64 now)
{
    m_now = now;
    if (now >= m_nextCommand) {
        queueSomething();
        m_nextCommand = m_commandEvery > 0
                            ? now + m_chance.waiting(static_cast<double>(m_commandEvery))
                            : Line::kNever;
    }
    const QByteArray bytes = takeArrived();
    if (!bytes.isEmpty()) {
        m_heard[m_transmissions - 1] += bytes;
        m_heard.remove(m_transmissions - kKept);
        m_conversation.bytesCame(bytes, moment());
    } else {
        m_conversation.deadlinePassed(moment());
    }
    pump();
}

void LineRig::pump()
{
    const QByteArray transmission = m_conversation.takeTransmission();
    if (!transmission.isEmpty()) {
        m_line.transmit(transmission, m_now);
        ++m_transmissions;
        m_wire.addData(QByteArray::number(m_now) + transmission);
    }
    for (const Event& event : m_conversation.takeEvents()) {
        std::visit([this](const auto& what) { judge(what); }, event);
        if (m_listener) {
            m_listener(event);
        }
        if (m_keepsEvents) {
            m_events.push_back(event);
        }
    }
}

void LineRig::queue(const Request& request)
{
    const int address = addressOf(request.hexId);
    const bool isKnown =
        std::count(m_setup.addresses.begin(), m_setup.addresses.end(), address) > 0;
    const int timesDone = isKnown ? m_boards.timesDone(address, request.body) : 0;
    m_commands.insert(++m_commandNumber, {request, timesDone});
    m_conversation.queueCommand(request, m_commandNumber);
    pump();
}

/// Reads and writes as users do them, to any of the LDBs.
void LineRig::queueSomething()
{
    const auto any = static_cast<std::size_t>(
        m_chance.between(0, static_cast<qint64>(m_setup.addresses.size()) - 1));
    const QString hexId = busaddress::toHexId(m_setup.addresses.at(any));
    switch (m_chance.between(0, 3)) {
    case 0:
        queue(requests::read(hexId, static_cast<int>(LdbParameter::Settings)));
        break;
    case 1:
        queue(requests::firmware(hexId));
        break;
    case 2:
        queue(requests::change(
            hexId, static_cast<int>(LdbParameter::OpenDetectionDelay),
            encodeSwappedWord(static_cast<quint16>(m_chance.between(0, kLongestDelay)))));
        break;
    default:
        queue(requests::execute(hexId, static_cast<int>(LdbAction::StoreSettings)));
        break;
    }
}

void LineRig::judge(const event::Record& record)
{
    if (record.status.state == LdbState::Disconnected) {
        m_lost.insert(record.hexId);
        return;
    }
    ++m_tally.records;
    m_lost.remove(record.hexId);
    const int address = addressOf(record.hexId);
    const QByteArray body = answerencoder::status(record.status);
    const auto origin = LineBoards::origin(record.status);
    if (!origin || origin->address != address ||
        answerencoder::status(LineBoards::status(address, origin->number)) != body) {
        complain(QStringLiteral("a status of %1 that it did not send").arg(record.hexId), body);
    } else if (origin->number <= m_lastNumber.value(address) ||
               origin->number > m_boards.statusAnswers(address)) {
        complain(QStringLiteral("an old status of %1").arg(record.hexId), body);
    } else {
        m_lastNumber.insert(address, origin->number);
    }
    if (!record.name.isEmpty() && record.name.toLatin1() != m_boards.name(address)) {
        complain(QStringLiteral("%1 called %2").arg(record.hexId, record.name),
                 answerencoder::name(record.name.toLatin1()));
    }
}

void LineRig::judge(const event::Loss& loss)
{
    m_lost.insert(loss.hexId);
    ++m_tally.losses;
    if (failedPollsInARow(addressOf(loss.hexId)) <= m_setup.forgivenMisses) {
        ++m_tally.falseLosses;
        complain(QStringLiteral("false loss of %1").arg(loss.hexId), {});
    }
}

void LineRig::judge(const event::CommandDone& done)
{
    for (const quint64 number : done.numbers) {
        const Command command = m_commands.take(number);
        ++m_tally.commands;
        if (done.answer.isEmpty()) {
            ++m_tally.silentCommands;
        } else {
            judgeAnswer(command, done.answer);
        }
    }
}

void LineRig::judgeAnswer(const Command& command, const QByteArray& answer)
{
    const int address = addressOf(command.request.hexId);
    QByteArray expected;
    switch (command.request.answer) {
    case AnswerShape::Settings:
        expected = answerencoder::settings(address, m_boards.settings(address));
        break;
    case AnswerShape::Firmware:
        expected = answerencoder::firmware(m_boards.firmware(address));
        break;
    case AnswerShape::Name:
        expected = answerencoder::name(m_boards.name(address));
        break;
    case AnswerShape::Acknowledge:
        if (answer.at(0) == framecodec::kAck &&
            m_boards.timesDone(address, command.request.body) <= command.timesDone) {
            ++m_tally.unfoundedAcks;
        }
        return;
    default:
        return;
    }
    if (answer != expected) {
        complain(
            QStringLiteral("wrong answer to %1").arg(QString::fromLatin1(command.request.body)),
            answer);
    }
}

void LineRig::judge(const event::ScanState& scan)
{
    m_isScanning = scan.isRunning;
    m_lost.clear();
}

/// How many questions of the polling, with their repeats, had no clean answer since the last that
/// had one.
int LineRig::failedPollsInARow(int address) const
{
    int failed = 0;
    const LineExchange* after = nullptr; ///< the failed one of this LDB that comes next
    const auto& exchanges = m_line.book().exchanges();
    for (auto exchange = exchanges.rbegin(); exchange != exchanges.rend(); ++exchange) {
        if (exchange->address != address || !isPoll(exchange->request)) {
            continue;
        }
        if (exchange->isClean()) {
            break;
        }
        // A question is repeated once, and at once.
        const bool isRepeated =
            after && after->number == exchange->number + 1 && after->request == exchange->request;
        failed += isRepeated ? 0 : 1;
        after = isRepeated ? nullptr : &*exchange;
    }
    return failed;
}

bool LineRig::isFalseFrame(const QByteArray& body) const
{
    const auto& frames = m_line.book().falseFrames();
    return !body.isEmpty() &&
           std::any_of(frames.begin(), frames.end(),
                       [&body](const QByteArray& frame) { return frame.contains(body); });
}

void LineRig::complain(const QString& what, const QByteArray& body)
{
    if (isFalseFrame(body)) {
        ++m_tally.falseFrames;
        return;
    }
    if (!what.startsWith(QLatin1String("false loss"))) {
        ++m_tally.wrong;
    }
    if (m_complaints.size() >= kComplaints) {
        return;
    }
    QString text = QStringLiteral("%1 at %2 ms, seed %3\n  %4")
                       .arg(what)
                       .arg(m_now / kMicrosecondsPerMillisecond)
                       .arg(m_setup.seed)
                       .arg(m_conversation.describe());
    const auto& exchanges = m_line.book().exchanges();
    const auto shown = std::min<std::size_t>(exchanges.size(), kExchangesInComplaint);
    for (std::size_t i = exchanges.size() - shown; i < exchanges.size(); ++i) {
        text += QStringLiteral("\n  ") + exchanges[i].describe();
    }
    m_complaints.append(text);
}
