#pragma once

#include "simulator/bus/bussimulator.h"
#include "simulator/program/journal.h"
#include "simulator/program/linehost.h"
#include "simulator/program/portlink.h"
#include "simulator/program/pseudoterminal.h"
#include "simulator/program/simulationclock.h"

#include <QHash>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <memory>
#include <optional>
#include <vector>

/// A whole simulated installation on a pseudo-terminal: the boards, the line to them, the events of
/// the scenario, and the trainer's commands. Needs a thread with an event loop, into which it may
/// be moved before `start()`; programs and tests may run it beside themselves.
class Simulation : public QObject, private Boards, private LineWatcher
{
    Q_OBJECT
public:
    enum class Pace
    {
        Baud9600,
        Unpaced ///< nothing takes time but what was asked to be late
    };
    struct Options
    {
        Pace pace = Pace::Baud9600;
        QString linkPath;            ///< empty: no link
        QString journalPath;         ///< empty: no journal
        std::optional<quint32> seed; ///< nothing: the scenario's
    };

    Simulation(const Scenario& scenario, const Options& options, QObject* parent = nullptr);
    ~Simulation() override;

    /// Opens port, link and journal, and starts the events. Gives what went wrong, or nothing.
    QString start();

    /// Path to open; empty while the line is cut. It changes with every `restore`.
    QString portName() const;
    int ldbCount() const { return m_bus.ldbCount(); }

    /// Carries out a command and gives what there is to say, line by line.
    QStringList execute(const SimulatorCommand& command);

signals:
    /// The line is back after a cut.
    void restored(const QString& portName);
    void quitRequested();

private:
    struct Event
    {
        qint64 due = 0; ///< ms
        qint64 every = 0;
        SimulatorCommand command;
    };
    QString openPort();
    void cut(double seconds);
    QString restore();
    std::vector<BoardAnswer> hear(const QByteArray& frame, qint64 at,
                                  const AbsentBoards& absent) override;
    void requestEnded(const LineExchange& exchange) override;
    void answerEnded(const LineExchange& exchange, const LineAnswer& answer) override;
    void straysEnded(const QByteArray& bytes, qint64 at) override;
    void remark(const QString& text);
    void runEvents();
    void scheduleEvents();

    SimulationClock m_clock;
    BusSimulator m_bus;
    LineHost m_host;
    std::unique_ptr<PseudoTerminal> m_terminal;
    PortLink m_link;
    Journal m_journal;
    QString m_journalPath;
    std::vector<Event> m_events;
    QTimer m_eventTimer;
    QTimer m_restoreTimer;
    HeardRequest m_hearing;      ///< of the request that ends
    QHash<int, QString> m_notes; ///< by tag, for answers that have not left yet
    int m_nextTag = 1;
};
