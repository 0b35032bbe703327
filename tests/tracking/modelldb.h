#pragma once

#include "simulator/board/simulatedldb.h"
#include "tracking/faultfinding/trackedldb.h"

#include <QTimer>

#include <optional>
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
const QByteArray kEndMute("FE0A73631600");

} // namespace modelldb

/// A simulated board under tracking: it obeys the tracking's commands and reports at the pace of
/// the bus. Its time is that of its thread's timers.
class ModelLdb : public TrackedLdb
{
    Q_OBJECT
public:
    explicit ModelLdb(const LoopPlan& plan);

    static QString address() { return QStringLiteral("0A"); }

    qint64 now() const override;
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
    /// Keeps commands unanswered; letting go destroys them.
    void setHoldingCommands(bool holding);
    /// Cuts the connection: commands are destroyed unsent.
    void loseConnection();

    /// Whether it reports by itself.
    void setReporting(bool reporting);
    /// Reports once; with a state of the test's choice if one has been set.
    void report();
    void setState(std::optional<LdbState> state) { m_forcedState = state; }

protected:
    void post(std::unique_ptr<ISerialCommand> command) override;

private:
    SimulatedLdb m_board;
    QTimer m_clock;
    QTimer m_reportTimer;
    QList<QByteArray> m_commands;
    std::vector<std::unique_ptr<ISerialCommand>> m_held;
    bool m_holding = false;
    QByteArray m_answer = QByteArray("\x06");
    bool m_obeys = true;
    std::optional<LdbState> m_forcedState;
    bool m_reachable = true;
    bool m_polledAlone = false;
};
