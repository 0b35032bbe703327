#include "simulator/simulation.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kMillisecondsPerSecond = 1000;
constexpr qint64 kMicrosecondsPerMillisecond = 1000;
constexpr qint64 kLongestSleep = 3600000; // ms; an event may be weeks away
constexpr int kNoTag = 0;

} // namespace

Simulation::Simulation(const Scenario& scenario, const Options& options, QObject* parent)
    : QObject(parent)
    , m_bus(scenario, options.seed.value_or(scenario.seed), m_clock.milliseconds())
    , m_line(options.pace, m_clock, this)
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
    connect(&m_line, &PacedLine::heard, this, &Simulation::hear);
    connect(&m_line, &PacedLine::sent, this, &Simulation::noteSent);
    connect(&m_line, &PacedLine::transmit, this, [this](const QByteArray& bytes) {
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
    default:
        outcome = m_bus.execute(command, m_clock.milliseconds());
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
    connect(terminal.get(), &PseudoTerminal::received, &m_line, &PacedLine::receive);
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
    m_line.reset();
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

void Simulation::hear(const QByteArray& frame, qint64 heardAt)
{
    const Hearing hearing = m_bus.hear(frame, heardAt / kMicrosecondsPerMillisecond);
    m_journal.write(heardAt, Journal::Direction::Request, hearing.hexId, frame, hearing.text);
    for (const Transmission& transmission : hearing.answer) {
        int tag = kNoTag;
        if (m_journal.isOpen() && !transmission.whole.isEmpty()) {
            tag = m_nextTag++;
            m_notes.insert(tag, {hearing.hexId, transmission.whole, transmission.note});
        }
        m_line.send(transmission.bytes, heardAt, transmission.delay, tag);
    }
}

void Simulation::noteSent(int tag, qint64 sentAt)
{
    if (tag != kNoTag) {
        const Note note = m_notes.take(tag);
        m_journal.write(sentAt, Journal::Direction::Answer, note.hexId, note.bytes, note.text);
    }
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
