#pragma once

#include "simulator/board/simulatedldb.h"
#include "tracking/faultfinding/trackedldb.h"

#include <QTimer>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

/// What stands in a model loop: FIMs numbered from the primary end, faults each behind a FIM.
struct LoopPlan
{
    int fims = 0;
    std::optional<int> openAfter;
    std::optional<int> shortAfter;
    std::optional<int> earthLeakageAfter;
    std::optional<int> dcLeakageAfter;
    bool secondaryConnected = true;
    int reportPeriod = 250; ///< ms
    quint32 seed = 1;       ///< of the noise on the currents
};

inline LoopPlan healthyLoop(int fims)
{
    LoopPlan plan;
    plan.fims = fims;
    return plan;
}

namespace modelldb {

constexpr qint64 kSecond = 1000; // ms
constexpr qint64 kLongerThanAnyTimer = 150 * kSecond;
constexpr qint64 kHour = 3600 * kSecond;

// The bodies of what tracking sends to the model.
const QByteArray kFactoryReset("FE0A73780002");
const QByteArray kLdbReset("FE0A73780001");
const QByteArray kMute("FE0A73631601");
const QByteArray kReadSettings("FE0A737201");

} // namespace modelldb

/// A simulated board under tracking: it obeys the tracking's commands and reports at the pace of
/// the bus. Its time is that of its thread's timers.
class ModelLdb : public TrackedLdb
{
    Q_OBJECT
public:
    explicit ModelLdb(const LoopPlan& plan);

    static QString address() { return QStringLiteral("0A"); }

    bool isReachable() const override { return m_reachable; }
    void setPolledAlone(bool alone) override { m_polledAlone = alone; }
    bool isPolledAlone() const { return m_polledAlone; }

    /// Bodies of all commands so far, unsent ones excluded.
    QList<QByteArray> commands() const { return m_commands; }
    /// How commands are answered: an ACK unless changed; empty for none at all. One that obeys all
    /// the same has its acknowledgement lost on the line.
    void setAnswer(const QByteArray& answer, bool obeys = false)
    {
        m_answer = answer;
        m_obeys = obeys;
    }
    /// Whether it answers when it is read.
    void setReadable(bool readable) { m_readable = readable; }
    SimulatedLdb& board() { return m_board; }
    /// Keeps commands unanswered; letting go destroys them.
    void setHoldingCommands(bool holding);
    /// Answers those held, and holds no more.
    void answerHeld();
    /// Told of every command before it is obeyed.
    void setAtCommand(std::function<void(const QByteArray& body)> told)
    {
        m_told = std::move(told);
    }
    /// Cuts the connection: commands are destroyed unsent.
    void loseConnection();
    void restoreConnection();

    /// Whether it reports by itself.
    void setReporting(bool reporting);
    /// Reports once; with a state of the test's choice if one has been set.
    void report();
    void setState(std::optional<LdbState> state) { m_forcedState = state; }

protected:
    void post(std::unique_ptr<ISerialCommand> command) override;

private:
    SimulatedLdb m_board;
    QTimer m_reportTimer;
    QList<QByteArray> m_commands;
    std::vector<std::pair<std::unique_ptr<ISerialCommand>, QByteArray>> m_held;
    std::function<void(const QByteArray& body)> m_told;
    bool m_holding = false;
    QByteArray m_answer = QByteArray("\x06");
    bool m_obeys = true;
    bool m_readable = true;
    std::optional<LdbState> m_forcedState;
    bool m_reachable = true;
    bool m_polledAlone = false;
};
