#include "simulator/program/simulation.h"

#include "serial/ldb/serialcommand.h"
#include "simulator/bus/adversarycommand.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kMillisecondsPerSecond = 1000;
constexpr qint64 kMicrosecondsPerMillisecond = 1000;
constexpr qint64 kLongestSleep = 3600000; // ms; an event may be weeks away
constexpr int kNoTag = 0;
/// The notes of what happens in a second on the wire would do; the line keeps them by the exchange.
constexpr int kBookLength = 256;

LineOptions lineOptions(const Scenario& scenario, const Simulation::Options& options)
{
    LineOptions result;
    result.kind = scenario.line.kind;
    result.seed = options.seed.value_or(scenario.seed);
    result.bookLength = kBookLength;
    const bool isPaced = options.pace == Simulation::Pace::Baud9600;
    result.byteTime = isPaced ? result.byteTime : 0;
    result.leastTurnaround =
        isPaced ? scenario.line.leastTurnaround * kMicrosecondsPerMillisecond : 0;
    result.mostTurnaround =
        isPaced ? scenario.line.mostTurnaround * kMicrosecondsPerMillisecond : 0;
    return result;
}

/// What happened on the way, each between brackets.
QString harmText(Harms harms, qint64 lateBy)
{
    QString text = harms ? QStringLiteral(" [%1]").arg(describe(harms)) : QString();
    text.replace(QLatin1String(", "), QLatin1String("] ["));
    if (harms.testFlag(Harm::Late)) {
        text.replace(QLatin1String("[late]"),
                     QStringLiteral("[late %1 ms]").arg(lateBy / kMicrosecondsPerMillisecond));
    }
    return text;
}

} // namespace

Simulation::Simulation(const Scenario& scenario, const Options& options, QObject* parent)
    : QObject(parent)
    , m_bus(scenario, options.seed.value_or(scenario.seed), m_clock.milliseconds())
    , m_host(Line(lineOptions(scenario, options), scenario.line.adversaries, *this), m_clock, this)
    , m_link(options.linkPath)
    , m_journalPath(options.journalPath)
    , m_eventTimer(this)
    , m_restoreTimer(this)
{
    for (const ScenarioEvent& event : scenario.events) {
        m_events.push_back({event.at, event.every, event.command});
    }
    m_eventTimer.setSingleShot(true);
    m_eventTimer.setTimerType(Qt::PreciseTimer);
    m_restoreTimer.setSingleShot(true);
    connect(&m_eventTimer, &QTimer::timeout, this, &Simulation::runEvents);
    connect(&m_restoreTimer, &QTimer::timeout, this, &Simulation::restore);
    m_host.line().setWatcher(this);
    connect(&m_host, &LineHost::arrived, this, [this](const QByteArray& bytes) {
        if (m_terminal) {
            m_terminal->write(bytes);
        }
    });
}

Simulation::~Simulation() = default;

QString Simulation::start()
{
    if (!m_journalPath.isEmpty() && !m_journal.open(m_journalPath)) {
        return QStringLiteral("%1: %2").arg(m_journalPath, m_journal.errorString());
    }
    QString error = openPort();
    if (error.isEmpty()) {
        scheduleEvents();
    }
    return error;
}

QString Simulation::portName() const
{
    return m_terminal ? m_terminal->portName() : QString();
}

QStringList Simulation::execute(const SimulatorCommand& command)
{
    QString outcome;
    switch (command.verb) {
    case CommandVerb::Help:
        return simulatorCommandHelp();
    case CommandVerb::List:
        return m_bus.describe(m_clock.milliseconds());
    case CommandVerb::Quit:
        emit quitRequested();
        break;
    case CommandVerb::Cut:
        cut(command.seconds);
        break;
    case CommandVerb::Restore:
        outcome = restore();
        break;
    case CommandVerb::LineKind:
        m_host.line().setKind(command.lineKind);
        break;
    default: {
        Adversaries adversaries = m_host.line().adversaries();
        if (applyToAdversaries(command, adversaries)) {
            m_host.setAdversaries(adversaries);
            break;
        }
        outcome = m_bus.execute(command, m_clock.milliseconds());
    }
    }
    return outcome.isEmpty() ? QStringList() : QStringList{outcome};
}

QString Simulation::openPort()
{
    auto terminal = std::make_unique<PseudoTerminal>();
    if (!terminal->isOpen()) {
        return QStringLiteral("the system gave no pseudo-terminal");
    }
    QString error = m_link.pointTo(terminal->portName());
    if (!error.isEmpty()) {
        return error;
    }
    connect(terminal.get(), &PseudoTerminal::received, &m_host, &LineHost::receive);
    m_terminal = std::move(terminal);
    return {};
}

void Simulation::cut(double seconds)
{
    if (!m_terminal) {
        return;
    }
    remark(QStringLiteral("line cut"));
    m_link.remove(); // the system may give the port's number to somebody else
    m_terminal->hangUp();
    m_terminal.release()->deleteLater();
    m_host.line().reset();
    m_notes.clear();
    if (seconds > 0) {
        m_restoreTimer.start(static_cast<int>(std::lround(seconds * kMillisecondsPerSecond)));
    }
}

QString Simulation::restore()
{
    m_restoreTimer.stop();
    if (m_terminal) {
        return {};
    }
    QString error = openPort();
    if (!error.isEmpty()) {
        qWarning("The line stays cut: %s", qPrintable(error));
        return error;
    }
    remark(QStringLiteral("line restored"));
    emit restored(portName());
    return {};
}

std::vector<BoardAnswer> Simulation::hear(const QByteArray& frame, qint64 at,
                                          const AbsentBoards& absent)
{
    m_hearing = m_bus.hear(frame, at / kMicrosecondsPerMillisecond, absent);
    if (!m_hearing.answer) {
        return {};
    }
    const Transmission& transmission = *m_hearing.answer;
    BoardAnswer answer;
    answer.board = m_hearing.address;
    answer.bytes = transmission.bytes;
    answer.delay = transmission.delay * kMicrosecondsPerMillisecond;
    answer.pieces = transmission.pieces;
    answer.pause = transmission.pause * kMicrosecondsPerMillisecond;
    if (m_journal.isOpen()) {
        answer.tag = m_nextTag++;
        m_notes.insert(answer.tag, transmission.note);
    }
    return {answer};
}

void Simulation::requestEnded(const LineExchange& exchange)
{
    if (!m_journal.isOpen()) {
        return;
    }
    const HeardRequest hearing =
        exchange.isHeard ? m_hearing : BusSimulator::read(exchange.request);
    m_journal.write(exchange.endedAt, Journal::Direction::Request, hearing.hexId, exchange.request,
                    hearing.text + harmText(exchange.harms, 0));
}

void Simulation::answerEnded(const LineExchange& exchange, const LineAnswer& answer)
{
    Q_UNUSED(exchange)
    if (answer.tag != kNoTag) {
        m_journal.write(answer.leftAt, Journal::Direction::Answer,
                        busaddress::toHexId(answer.board), answer.sent,
                        m_notes.take(answer.tag) + harmText(answer.harms, answer.lateBy));
    }
}

void Simulation::straysEnded(const QByteArray& bytes, qint64 at)
{
    m_journal.write(at, Journal::Direction::Remark, {}, bytes, QStringLiteral("stray bytes"));
}

void Simulation::remark(const QString& text)
{
    m_journal.write(m_clock.microseconds(), Journal::Direction::Remark, {}, {}, text);
}

void Simulation::runEvents()
{
    const qint64 now = m_clock.milliseconds();
    for (Event& event : m_events) {
        while (event.due >= 0 && event.due <= now) {
            event.due = event.every > 0 ? event.due + event.every : -1;
            const QStringList outcome = execute(event.command);
            if (!outcome.isEmpty()) {
                qInfo("%s", qPrintable(outcome.join(QLatin1Char('\n'))));
            }
        }
    }
    scheduleEvents();
}

void Simulation::scheduleEvents()
{
    qint64 next = m_clock.milliseconds() + kLongestSleep;
    for (const Event& event : m_events) {
        next = event.due >= 0 ? std::min(next, event.due) : next;
    }
    m_eventTimer.start(static_cast<int>(std::max<qint64>(0, next - m_clock.milliseconds())));
}
