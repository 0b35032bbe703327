#include "benchmarks/support/simulatedsite.h"

#include "serial/ldb/serialcommand.h"

SimulatedSite::SimulatedSite(const Scenario& scenario, Simulation::Pace pace,
                             const QString& journalPath)
{
    m_thread.start();
    m_context.moveToThread(&m_thread);
    QString error;
    const auto begin = [&] {
        Simulation::Options options;
        options.pace = pace;
        options.journalPath = journalPath;
        m_simulation = std::make_unique<Simulation>(scenario, options);
        error = m_simulation->start();
        m_portName = m_simulation->portName();
    };
    QMetaObject::invokeMethod(&m_context, begin, Qt::BlockingQueuedConnection);
    if (!error.isEmpty()) {
        qFatal("%s", qPrintable(error));
    }
}

SimulatedSite::~SimulatedSite()
{
    QMetaObject::invokeMethod(
        &m_context, [this] { m_simulation.reset(); }, Qt::BlockingQueuedConnection);
    m_thread.quit();
    m_thread.wait();
}

Scenario fullScenario()
{
    Scenario scenario = defaultScenario();
    scenario.ldbs.clear();
    for (int address = busaddress::kFirst; address <= busaddress::kLast; ++address) {
        scenario.ldbs.push_back({standardLdb(address), {}});
    }
    return scenario;
}
