#include "tests/tracking/modelldb.h"

#include "serial/ldb/generalinformation.h"
#include "serial/wire/framecodec.h"
#include "simulator/board/ldbresponder.h"
#include "simulator/bus/scenario.h"

namespace {

LdbSpec boardWith(int fims)
{
    LdbSpec spec = standardLdb(ModelLdb::address().toInt(nullptr, 16));
    spec.fims = fims;
    return spec;
}

} // namespace

ModelLdb::ModelLdb(const LoopPlan& plan)
    : TrackedLdb(address(), nullptr)
    , m_board(boardWith(plan.fims), LdbTiming(), plan.seed, 0)
{
    const auto plant = [this](LoopFaultKind kind, std::optional<int> after) {
        if (after) {
            m_board.setLoopFault(kind, FaultPhase::Present, *after, 0);
        }
    };
    plant(LoopFaultKind::Open, plan.openAfter);
    plant(LoopFaultKind::Short, plan.shortAfter);
    plant(LoopFaultKind::EarthLeakage, plan.earthLeakageAfter);
    plant(LoopFaultKind::DcLeakage, plan.dcLeakageAfter);
    m_board.setSecondaryConnected(plan.secondaryConnected, 0);
    m_reportTimer.setTimerType(Qt::PreciseTimer);
    m_reportTimer.setInterval(plan.reportPeriod);
    connect(&m_reportTimer, &QTimer::timeout, this, &ModelLdb::report);
    m_reportTimer.start();
}

void ModelLdb::loseConnection()
{
    m_reachable = false;
    m_reportTimer.stop();
    emit connectionLost();
    emit reachableChanged();
}

void ModelLdb::restoreConnection()
{
    m_reachable = true;
    m_reportTimer.start();
    emit reachableChanged();
}

void ModelLdb::answerHeld()
{
    m_holding = false;
    for (const auto& [command, answer] : std::exchange(m_held, {})) {
        command->notify(answer);
    }
}

void ModelLdb::setReporting(bool reporting)
{
    if (reporting) {
        m_reportTimer.start();
    } else {
        m_reportTimer.stop();
    }
}

void ModelLdb::setHoldingCommands(bool holding)
{
    m_holding = holding;
    m_held.clear();
}

void ModelLdb::report()
{
    LdbStatus status = m_board.measure(now());
    status.state = m_forcedState.value_or(status.state);
    const QDateTime time = QDateTime(QDate(2024, 3, 5), QTime(9, 0)).addMSecs(now());
    emit generalInformationUpdated(
        hexId(),
        generalinformation::buildRows(hexId(), QStringLiteral("Boiler house"), status,
                                      time.toString(generalinformation::kSecondsFormat),
                                      time.toString(generalinformation::kMillisecondsFormat)));
}

void ModelLdb::post(std::unique_ptr<ISerialCommand> command)
{
    if (!m_reachable) {
        return;
    }
    const QByteArray body = command->commandData();
    m_commands.append(body);
    if (m_told) {
        m_told(body);
    }
    const BusRequest request = parseBusRequest(body).value_or(BusRequest());
    const bool isHeard = request.kind == BusRequest::Kind::Read ? m_readable : m_obeys;
    QByteArray own = isHeard ? respond(m_board, request, now()) : QByteArray();
    framecodec::responseValidation(own); // strips the frame
    const QByteArray answer = request.kind == BusRequest::Kind::Read ? own : m_answer;
    if (m_holding) {
        m_held.emplace_back(std::move(command), answer);
    } else {
        command->notify(answer);
    }
}
