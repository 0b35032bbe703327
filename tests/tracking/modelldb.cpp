#include "tests/tracking/modelldb.h"

#include "serial/generalinformation.h"

#include <limits>

namespace {

constexpr int kReportPeriod = 250;
constexpr int kFactoryResetLength = 120000;
constexpr int kBootLength = 5000;

} // namespace

ModelLdb::ModelLdb(const LoopPlan& plan)
    : TrackedLdb(address())
    , m_loop(plan)
{
    m_clock.setSingleShot(true);
    m_clock.start(std::numeric_limits<int>::max());
    m_reportTimer.setTimerType(Qt::PreciseTimer);
    m_reportTimer.setInterval(kReportPeriod);
    connect(&m_reportTimer, &QTimer::timeout, this, &ModelLdb::report);
    m_reportTimer.start();
}

void ModelLdb::loseConnection()
{
    m_reachable = false;
    m_reportTimer.stop();
    emit connectionLost();
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

int ModelLdb::now() const
{
    return m_clock.interval() - m_clock.remainingTime();
}

LdbState ModelLdb::state() const
{
    if (m_forcedState) {
        return *m_forcedState;
    }
    if (m_bootAt) {
        return now() - *m_bootAt < kBootLength ? LdbState::Booting : LdbState::Measuring;
    }
    if (m_factoryResetAt) {
        return now() - *m_factoryResetAt < kFactoryResetLength ? LdbState::FactoryResetExecuting
                                                               : LdbState::FactoryResetDone;
    }
    return LdbState::Quiescent;
}

void ModelLdb::report()
{
    LdbStatus status;
    status.state = state();
    m_loop.describe(m_bootAt ? now() - *m_bootAt : 0, status);
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
    if (m_answer == "\x06") {
        if (body == "FE0A73780002") {
            m_factoryResetAt = now();
            m_bootAt.reset();
        } else if (body == "FE0A73780001") {
            m_bootAt = now();
        }
    }
    if (m_holding) {
        m_held.push_back(std::move(command));
    } else {
        command->notify(m_answer);
    }
}
